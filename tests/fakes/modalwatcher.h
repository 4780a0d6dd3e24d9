#pragma once

#include <QList>
#include <QObject>
#include <QString>

#include <functional>

class QWidget;

// Keeps modal dialogs from blocking a test: while it exists it looks for the
// application's active modal widget every few milliseconds, records its class,
// title and text, and then hands it to the handler (which may accept it,
// fill it in, or leave it open) or, without a handler, rejects it.
class ModalWatcher : public QObject
{
    Q_OBJECT

public:
    struct Seen
    {
        QString className;
        QString title;
        QString text;
        int messagesBefore = 0; // MessageLog size when the dialog was seen
    };

    explicit ModalWatcher(QObject *parent = nullptr);

    std::function<void(QWidget *)> handler;
    QList<Seen> seen;

private:
    void poll();

    QWidget *m_lastHandled = nullptr;
};
