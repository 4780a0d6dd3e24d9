#pragma once

#include <QList>
#include <QObject>
#include <QString>

#include <functional>

class QFileDialog;
class QWidget;

// Keeps modal dialogs from blocking a test: while it exists, every modal
// window that is shown is recorded (class, title, text) and, once its own
// event loop runs, handed to the handler (which may accept it, fill it in, or
// leave it open) or, without a handler, rejected.
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

    // Types names into the dialog's file-name field, as a user would (one
    // name, or several each in double quotes), and presses its accept button.
    static bool chooseFiles(QFileDialog *dialog, const QString &names);

    std::function<void(QWidget *)> handler;
    QList<Seen> seen;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void handle(QWidget *modal);
};
