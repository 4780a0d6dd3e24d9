#pragma once

#include "replaceplan.h"

#include <QByteArray>
#include <QList>
#include <QPointer>
#include <QString>

class QMainWindow;
class QWidget;

// The documents open in the main window's tabs, reached through methods the
// editor tool offers by name (documentText, changeSerial, replaceRanges,
// selectSpan), so that nothing here depends on the tool's class. A tab whose widget has no
// such methods is not a document.
class OpenDocuments
{
public:
    struct Document
    {
        QPointer<QWidget> tool;
        QString file;    // empty when untitled
        QString name;    // the tab's name, without the modified mark
        QByteArray text; // the buffer's UTF-8, unsaved edits included
        // Changes whenever the text does (changeSerial()); -1 when the tool
        // does not tell.
        qint64 serial = -1;

        // How the result pane names it: its file, or an untitled one's name.
        QString shownName() const;
    };

    // In the order of the tabs.
    static QList<Document> collect(const QMainWindow *window);
    static bool read(QWidget *tool, Document *document);
    // The document among docs whose file is path (compared through links), or null.
    static const Document *findFile(const QList<Document> &docs, const QString &path);
    // The tool's change serial now, or -1.
    static qint64 serial(QWidget *tool);
    // Makes the checked changes in the tool's buffer as one undo step.
    static bool replace(QWidget *tool, const QList<ReplaceChange> &changes);
    // Brings the tool's tab to the front and selects a span of a line.
    static bool show(const QMainWindow *window, QWidget *tool, int line, int column, int length);
};
