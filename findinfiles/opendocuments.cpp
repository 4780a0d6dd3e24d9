#include "opendocuments.h"

#include "filenameescape.h"

#include <QFileInfo>
#include <QMainWindow>
#include <QMetaObject>
#include <QTabWidget>
#include <QVariant>

namespace {

QString comparablePath(const QString &path)
{
    const QFileInfo info(path);
    const QString canonical = info.canonicalFilePath();
    return canonical.isEmpty() ? info.absoluteFilePath() : canonical;
}

QTabWidget *tabsOf(const QMainWindow *window)
{
    return window ? qobject_cast<QTabWidget *>(window->centralWidget()) : nullptr;
}

} // namespace

QString OpenDocuments::Document::shownName() const
{
    return koru::sedgui::FileNameEscape::escape(file.isEmpty() ? name : file);
}

QList<OpenDocuments::Document> OpenDocuments::collect(const QMainWindow *window)
{
    QList<Document> docs;
    const QTabWidget *tabs = tabsOf(window);
    for (int i = 0; tabs && i < tabs->count(); ++i) {
        Document doc;
        if (read(tabs->widget(i), &doc))
            docs.append(doc);
    }
    return docs;
}

bool OpenDocuments::read(QWidget *tool, Document *document)
{
    if (!tool || tool->metaObject()->indexOfMethod("documentText()") < 0)
        return false;
    QVariantMap parts;
    if (!QMetaObject::invokeMethod(tool, "documentText", Qt::DirectConnection,
                                   Q_RETURN_ARG(QVariantMap, parts)))
        return false;
    document->tool = tool;
    document->file = parts.value(QStringLiteral("file")).toString();
    document->name = parts.value(QStringLiteral("name")).toString();
    document->text = parts.value(QStringLiteral("text")).toByteArray();
    document->serial = parts.value(QStringLiteral("serial"), qint64(-1)).toLongLong();
    return true;
}

qint64 OpenDocuments::serial(QWidget *tool)
{
    qint64 serial = -1;
    if (!tool || tool->metaObject()->indexOfMethod("changeSerial()") < 0 ||
        !QMetaObject::invokeMethod(tool, "changeSerial", Qt::DirectConnection,
                                   Q_RETURN_ARG(qint64, serial)))
        return -1;
    return serial;
}

const OpenDocuments::Document *OpenDocuments::findFile(const QList<Document> &docs,
                                                       const QString &path)
{
    const QString wanted = comparablePath(path);
    for (const Document &doc : docs) {
        if (!doc.file.isEmpty() && comparablePath(doc.file) == wanted)
            return &doc;
    }
    return nullptr;
}

bool OpenDocuments::replace(QWidget *tool, const QList<ReplaceChange> &changes)
{
    QVariantList ranges;
    for (const ReplaceChange &change : changes) {
        if (change.checked)
            ranges.append(
                QVariant(QVariantList{qint64(change.begin), qint64(change.end), change.text}));
    }
    bool done = false;
    return tool && tool->metaObject()->indexOfMethod("replaceRanges(QVariantList)") >= 0 &&
           QMetaObject::invokeMethod(tool, "replaceRanges", Qt::DirectConnection,
                                     Q_RETURN_ARG(bool, done), Q_ARG(QVariantList, ranges)) &&
           done;
}

bool OpenDocuments::show(const QMainWindow *window, QWidget *tool, int line, int column, int length)
{
    QTabWidget *tabs = tabsOf(window);
    if (!tabs || !tool || tabs->indexOf(tool) < 0)
        return false;
    tabs->setCurrentWidget(tool);
    bool done = false;
    return tool->metaObject()->indexOfMethod("selectSpan(int,int,int)") >= 0 &&
           QMetaObject::invokeMethod(tool, "selectSpan", Qt::DirectConnection,
                                     Q_RETURN_ARG(bool, done), Q_ARG(int, line), Q_ARG(int, column),
                                     Q_ARG(int, length)) &&
           done;
}
