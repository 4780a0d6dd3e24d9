#pragma once

#include <QByteArray>
#include <QList>
#include <QObject>
#include <QPointer>
#include <QString>
#include <QStringList>

// One replacement in a text: the bytes [begin, end) of its UTF-8 form become
// text. before and after are the whole line it lies on, as it is and with this
// change alone made, for the preview.
struct ReplaceChange
{
    qint64 line = 0;         // 1-based
    qsizetype lineStart = 0; // where that line starts in the UTF-8 form
    qsizetype begin = 0;
    qsizetype end = 0;
    QByteArray text;
    QString before;
    QString after;
    qsizetype column = 0; // where the match starts in before, in UTF-16 units
    bool checked = true;
};

// The replacements in one file or open document. A document open in the
// editor is changed in its buffer (document is its tool); any other file is
// rewritten on disk. fingerprint identifies the bytes of a file the changes
// were found in, serial the state of a document's buffer, so that a text
// changed since is skipped.
struct ReplaceFile
{
    QString path;      // empty for an untitled document
    QString shownName; // as the result pane names it
    bool inEditor = false;
    QPointer<QObject> document; // the tool, while it is open
    QByteArray fingerprint;
    qint64 serial = -1;
    QList<ReplaceChange> changes;

    qsizetype checkedChanges() const
    {
        qsizetype count = 0;
        for (const ReplaceChange &change : changes)
            count += change.checked;
        return count;
    }
};

// What a confirmed replace did.
struct ReplaceSummary
{
    qint64 replacements = 0;
    qint64 files = 0;
    // "name: why" for each file left as it was.
    QStringList changedSincePreview;
    QStringList failed;
};
