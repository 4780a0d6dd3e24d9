#pragma once

#include "editing/textsearcher.h"
#include "searchcore.h"
#include "sedguiexport.h"

#include <QObject>
#include <QTimer>

#include <vector>

class QsciScintilla;

namespace koru::sedgui {

// Marks every match of a query in the visible part of an editor and counts
// the matches of the whole document, to say "3 of 12".
//
// Counting never holds up typing: the buffer is searched in place, a slice at
// a time from a zero timer. An edit is taken in once the event that made it
// is over: only the edited part is searched again, widened by the longest
// text a plain pattern can match or to whole lines for a regular expression
// that cannot match a line end, and the search goes on past it until it
// meets a match counted before. Any other change, or one too large, has the
// count start over. Only the lines on screen and a margin around them are
// marked, again as the view scrolls.
class SEDGUI_EXPORT MatchMarker : public QObject
{
    Q_OBJECT

public:
    MatchMarker(QsciScintilla *editor, QObject *parent);

    // Marks and counts the matches of query; an empty pattern clears.
    void setQuery(const SearchQuery &query);
    // Takes every mark away and stops counting.
    void clear();

    // The matches counted so far; all of them once counting is done.
    qint64 count() const { return qint64(m_matches.size()); }
    bool isCounting() const { return m_timer.isActive() || m_editTimer.isActive(); }
    // True when there were more than MaxCounted matches.
    bool isCapped() const { return m_capped; }
    // 1-based number of the match that is selected; 0 when none is.
    qint64 currentIndex() const;
    // "3 of 12", "12 matches", "No matches", with "+" after a capped count;
    // empty without a query.
    QString summary() const;

    // Marked lines around the ones on screen, above and below.
    static constexpr qint64 MarginLines = 100;
    static constexpr qint64 MaxCounted = 100000;
    // Bytes one slice of counting searches.
    static constexpr qint64 CountSlice = 1024 * 1024;
    // The most bytes an edit has searched again in place of a full count.
    static constexpr qint64 EditReach = 64 * 1024;
    // The indicator the matches are drawn with.
    static constexpr int Indicator = 12;

Q_SIGNALS:
    // The count or the selected match changed.
    void changed();

private:
    void restart();
    void countSlice();
    void onModified(int position, int type, int length);
    // Searches the edited part again; false when the count must start over.
    bool takeInEdit();
    void markVisible();
    void unmark();

    QsciScintilla *m_editor;
    SearchQuery m_query;
    SearchCore m_core{QString()};
    QTimer m_timer;
    // Where the next slice of counting starts and the last match found.
    qint64 m_countFrom = 0;
    struct Range
    {
        qint64 begin;
        qint64 end;
    };
    std::vector<Range> m_matches;
    bool m_capped = false;
    // The edits not taken in yet: [m_editFrom, m_editTo) of the text now
    // replaced what was m_editDelta bytes shorter. Text changes and edits are
    // counted: a change that came without an edit leaves them unequal.
    QTimer m_editTimer;
    qint64 m_editFrom = -1;
    qint64 m_editTo = 0;
    qint64 m_editDelta = 0;
    qint64 m_textChanges = 0;
    qint64 m_edits = 0;
    // The query's regular expression cannot match a line end.
    bool m_withinLines = false;
    // The part of the buffer that carries marks.
    qint64 m_markedFrom = 0;
    qint64 m_markedTo = 0;
};

} // namespace koru::sedgui
