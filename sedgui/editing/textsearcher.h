#pragma once

#include "sedguiexport.h"

#include <QString>

class QsciScintillaBase;

namespace koru::sedgui {

// What the user asked to find.
struct SearchQuery
{
    QString pattern;
    bool regex = false;
    bool matchCase = false;
    bool wholeWord = false;
    bool wrap = true;
    bool backwards = false;

    friend bool operator==(const SearchQuery &, const SearchQuery &) = default;
};

// A match as byte positions in the editor's buffer; start < 0 when nothing was found.
struct SearchMatch
{
    qint64 start = -1;
    qint64 end = -1;
    // The search went past the end (or the start, backwards) and started over.
    bool wrapped = false;
    // The pattern is not a valid regular expression.
    bool invalidPattern = false;

    bool found() const { return start >= 0; }
};

// Finds and replaces in an editor's buffer with the shared search core, which
// reads the buffer's UTF-8 bytes in place: a 50 MB document is never copied.
//
// Regular expressions are Perl-compatible: \d, \w and \b follow Unicode,
// look-ahead (?=...) and look-behind (?<=...) work, ^ and $ match at every line
// end. A replacement refers to groups as \0 to \9 or $0 to $9 (0 is the whole
// match) and writes \\ and $$ for a backslash and a dollar.
class SEDGUI_EXPORT TextSearcher
{
public:
    // The first match at or after from (the nearest one starting before from when
    // searching backwards), wrapping around when the query asks for it. An empty
    // pattern matches nothing.
    static SearchMatch find(QsciScintillaBase *editor, const SearchQuery &query, qint64 from);

    // Finds the next match after the selection (before it, backwards), selects it
    // and scrolls it into view. The selection stays when nothing is found.
    static SearchMatch findNext(QsciScintillaBase *editor, const SearchQuery &query);

    // If the selection is a match, replaces it; then selects the next match.
    // Returns true when something was replaced.
    static bool replaceSelection(QsciScintillaBase *editor, const SearchQuery &query,
                                 const QString &replacement, SearchMatch *next = nullptr);

    // Replaces every match in the buffer as one undo step and returns how many
    // there were; -1 when the pattern is invalid.
    static qint64 replaceAll(QsciScintillaBase *editor, const SearchQuery &query,
                             const QString &replacement);

    // Tells the widget's listeners that the text changed, after changes made
    // with change notifications switched off.
    static void announceChange(QsciScintillaBase *editor);
};

} // namespace koru::sedgui
