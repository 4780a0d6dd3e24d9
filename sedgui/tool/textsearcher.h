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

// Finds and replaces in an editor's buffer with the editor's own search, which
// works on the bytes in place: a 50 MB document is never copied into a QString.
//
// Regular expressions use the editor's syntax with POSIX groups: ( ) capture,
// \< \> are word bounds, and a replacement refers to captures as \1 to \9 (\0
// is the whole match).
class SEDGUI_EXPORT TextSearcher
{
public:
    // The first match at or after from (before from when searching backwards),
    // wrapping around when the query asks for it. An empty pattern matches nothing.
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

private:
    static int searchFlags(const SearchQuery &query);
    static QByteArray patternBytes(const SearchQuery &query);
    // One pass over [from, to) (backwards when from > to); -1 no match, -2 invalid.
    static qint64 searchRange(QsciScintillaBase *editor, const QByteArray &pattern, int flags,
                              qint64 from, qint64 to, qint64 *matchEnd);
};

} // namespace koru::sedgui
