#include "modalwatcher.h"

#include <QApplication>
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
    QPushButton *open = buttons ? buttons->button(QDialogButtonBox::Open) : nullptr;
    if (!field || !open)
        return false;
    field->setText(names);
    const bool enabled = open->isEnabled();
    if (enabled)
        open->click();
    return enabled;
}

bool ModalWatcher::eventFilter(QObject *watched, QEvent *event)
{
    auto *widget = event->type() == QEvent::Show ? qobject_cast<QWidget *>(watched) : nullptr;
    // Handled from the dialog's own event loop, once exec() has started.
    if (widget && widget->isWindow() && widget->isModal())
        QMetaObject::invokeMethod(
            this, [this, guard = QPointer<QWidget>(widget)] { handle(guard); },
            Qt::QueuedConnection);
    return QObject::eventFilter(watched, event);
}

void ModalWatcher::handle(QWidget *modal)
{
    if (!modal || !modal->isVisible())
        return;
    auto *box = qobject_cast<QMessageBox *>(modal);
    seen.append({QString::fromLatin1(modal->metaObject()->className()), modal->windowTitle(),
                 box ? box->text() : QString()});
    if (handler)
        handler(modal);
    else if (auto *dialog = qobject_cast<QDialog *>(modal))
        dialog->reject();
}
