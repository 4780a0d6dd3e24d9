#include "modalwatcher.h"

#include "messagelog.h"

#include <QApplication>
#include <QDialog>
#include <QMessageBox>
#include <QPointer>
#include <QTimer>

ModalWatcher::ModalWatcher(QObject *parent)
    : QObject(parent)
{
    auto *timer = new QTimer(this);
    timer->setInterval(10);
    connect(timer, &QTimer::timeout, this, &ModalWatcher::poll);
    timer->start();
}

void ModalWatcher::poll()
{
    QWidget *modal = QApplication::activeModalWidget();
    if (!modal || !modal->isVisible() || modal == m_lastHandled)
        return;
    m_lastHandled = modal;
    Seen entry;
    entry.className = QString::fromLatin1(modal->metaObject()->className());
    entry.title = modal->windowTitle();
    if (auto *box = qobject_cast<QMessageBox *>(modal))
        entry.text = box->text();
    entry.messagesBefore = MessageLog::current() ? MessageLog::current()->messages.size() : -1;
    seen.append(entry);

    const QPointer<QWidget> guard(modal);
    if (handler)
        handler(modal);
    else if (auto *dialog = qobject_cast<QDialog *>(modal))
        dialog->reject();
    // A dialog left open may be handled again once it was replaced.
    if (guard && guard->isVisible())
        return;
    m_lastHandled = nullptr;
}
