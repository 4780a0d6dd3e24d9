#include "window/drophandler.h"

#include "filenameescape.h"

#include <QDragEnterEvent>
#include <QDragMoveEvent>
#include <QDropEvent>
#include <QMimeData>
#include <QUrl>
#include <QWidget>

namespace koru::sedgui {

DropHandler::DropHandler(QWidget *target, QWidget *tool)
    : QObject(tool)
    , m_tool(tool)
{
    setObjectName(QStringLiteral("DropHandler"));
    target->setAcceptDrops(true);
    target->installEventFilter(this);
}

QStringList DropHandler::localFiles(const QMimeData *data)
{
    QStringList files;
    if (!data || !data->hasUrls()) {
        return files;
    }
    for (const QUrl &url : data->urls()) {
        if (!url.isLocalFile() || url.toLocalFile().isEmpty()) {
            continue;
        }
        // The URL keeps the name's bytes percent-encoded; toLocalFile would
        // put U+FFFD in place of those that are not UTF-8, another name.
        const QByteArray bytes =
            QByteArray::fromPercentEncoding(url.path(QUrl::FullyEncoded).toLatin1());
        files.append(url.host().isEmpty() ? FileNameEscape::fromNative(bytes) : url.toLocalFile());
    }
    return files;
}

bool DropHandler::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::DragEnter:
    case QEvent::DragMove: {
        auto *drag = static_cast<QDragMoveEvent *>(event);
        if (!localFiles(drag->mimeData()).isEmpty()) {
            drag->acceptProposedAction();
            return true;
        }
        break;
    }
    case QEvent::Drop: {
        auto *drop = static_cast<QDropEvent *>(event);
        const QStringList files = localFiles(drop->mimeData());
        if (files.isEmpty()) {
            break;
        }
        drop->acceptProposedAction();
        QWidget *window = m_tool->window();
        for (const QString &file : files) {
            QMetaObject::invokeMethod(window, "onOpenFile", Qt::QueuedConnection,
                                      Q_ARG(QString, file), Q_ARG(int, 0));
        }
        return true;
    }
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

} // namespace koru::sedgui
