#pragma once

#include <QObject>

#include <functional>

class QFileDialog;
class QWidget;

// Keeps modal dialogs from blocking a test: while it exists, every modal
// window shown is recorded and, once its own event loop runs, handed to the
// handler or, without one, rejected.
class ModalWatcher : public QObject
{
    Q_OBJECT

public:
    struct Seen
    {
        QString className;
        QString title;
        QString text; // a message box's text
    };

    explicit ModalWatcher(QObject *parent = nullptr);

    // Types names into the file-name field as a user would (one name, or
    // several each in double quotes) and presses Open.
    static bool chooseFiles(QFileDialog *dialog, const QString &names);

    std::function<void(QWidget *)> handler;
    QList<Seen> seen;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void handle(QWidget *modal);
};
