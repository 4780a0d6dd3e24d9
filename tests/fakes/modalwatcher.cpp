#include "modalwatcher.h"

#include "messagelog.h"

#include <QApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>

ModalWatcher::ModalWatcher(QObject *parent)
    : QObject(parent)
{
    qApp->installEventFilter(this);
}

bool ModalWatcher::chooseFiles(QFileDialog *dialog, const QString &names)
{
    auto *field = dialog->findChild<QLineEdit *>(QStringLiteral("fileNameEdit"));
    auto *buttons = dialog->findChild<QDialogButtonBox *>(QStringLiteral("buttonBox"));
    if (!field || !buttons || buttons->buttons().isEmpty())
        return false;
    field->setText(names);
    QPushButton *accept = buttons->button(QDialogButtonBox::Open);
    if (!accept)
        accept = buttons->button(QDialogButtonBox::Save);
    if (!accept || !accept->isEnabled())
        return false;
    accept->click();
    return true;
}

bool ModalWatcher::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Show && watched->isWidgetType()) {
        auto *widget = static_cast<QWidget *>(watched);
        // Handled from the dialog's own event loop, once exec() has started.
        if (widget->isWindow() && widget->isModal())
            QMetaObject::invokeMethod(
                this, [this, guard = QPointer<QWidget>(widget)] { handle(guard); },
                Qt::QueuedConnection);
    }
    return QObject::eventFilter(watched, event);
}

void ModalWatcher::handle(QWidget *modal)
{
    if (!modal || !modal->isVisible())
        return;
    Seen entry;
    entry.className = QString::fromLatin1(modal->metaObject()->className());
    entry.title = modal->windowTitle();
    if (auto *box = qobject_cast<QMessageBox *>(modal))
        entry.text = box->text();
    entry.messagesBefore = MessageLog::current() ? MessageLog::current()->messages.size() : -1;
    seen.append(entry);

    if (handler)
        handler(modal);
    else if (auto *dialog = qobject_cast<QDialog *>(modal))
        dialog->reject();
}
