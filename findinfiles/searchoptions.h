#pragma once

#include <QRegularExpression>
#include <QString>
#include <QStringList>

// What one find-in-files search looks for and where.
struct SearchOptions
{
    QString text;
    bool regularExpression = false;
    bool caseSensitive = false;
    bool wholeWord = false;

    QString folder;
    // File-name globs ("*.cpp"); an empty list takes every file.
    QStringList includeGlobs;
    // File and folder-name globs that are never searched or entered.
    QStringList excludeGlobs = defaultExcludeGlobs();
    bool includeHidden = false;
    // Skips what git ignores when the folder lies in a git work tree.
    bool respectGitIgnore = true;
    // Searches the documents open in the editor, as they are now, instead of
    // the folder's files.
    bool openDocumentsOnly = false;

    // Hits beyond this many are counted but not written out: a pane of a few
    // hundred thousand lines is already more than anyone reads, and each line
    // shown costs the window memory and time.
    qint64 maxHitLines = 200000;

    // Version-control and build folders, which hold copies or generated files.
    static QStringList defaultExcludeGlobs()
    {
        return {
            QStringLiteral(".git"),  QStringLiteral(".svn"),         QStringLiteral(".hg"),
            QStringLiteral(".bzr"),  QStringLiteral("CVS"),          QStringLiteral("_darcs"),
            QStringLiteral("build"), QStringLiteral("node_modules"), QStringLiteral("__pycache__")};
    }

    // Splits a user's glob list: "*.c; *.h, *.txt" gives three globs.
    static QStringList splitGlobs(const QString &text)
    {
        static const QRegularExpression separators(QStringLiteral("[;,\\s]+"));
        return text.split(separators, Qt::SkipEmptyParts);
    }
};
