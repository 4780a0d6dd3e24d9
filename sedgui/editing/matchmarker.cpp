#include "editing/matchmarker.h"

#include "editing/scintillacalls.h"
#include "searchcore.h"

#include <QRegularExpression>

#include <Qsci/qsciscintilla.h>

#include <algorithm>
#include <cstring>

namespace koru::sedgui {

namespace {

using Sci = QsciScintillaBase;

// A match is looked for up to this far past a slice's end, so that one
// starting in the slice is seen whole.
constexpr qint64 SliceOverlap = 64 * 1024;
constexpr qint64 MaxMarks = 10000;

using scintilla::send;

// The text up to the end of the line in which end lies (at most SliceOverlap
// further): matches that start before end are then found as they are in the
// whole text, short of ones that run on over many lines.
QByteArrayView cutAfter(QByteArrayView text, qint64 end)
{
    if (end >= text.size()) {
        return text;
    }
    const qint64 limit = std::min<qint64>(text.size(), end + SliceOverlap);
    const void *newline = std::memchr(text.data() + end, '\n', size_t(limit - end));
    const qint64 cut = newline ? static_cast<const char *>(newline) - text.data() + 1 : limit;
    return text.first(cut);
}

SearchCore coreFor(const SearchQuery &query)
{
    SearchCore::Options options;
    options.setFlag(SearchCore::RegularExpression, query.regex);
    options.setFlag(SearchCore::CaseSensitive, query.matchCase);
    options.setFlag(SearchCore::WholeWord, query.wholeWord);
    return SearchCore(query.pattern, options);
}

// True when no match of the regular expression can hold or look past a line
// end: it names no line-end character, class or escape that may stand for one,
// negates no class and changes no newline or dot rule.
bool staysWithinLines(const QString &pattern)
{
    static const QRegularExpression mayCross(QStringLiteral(
        R"(\\[nrsvhNRDWSHVXCGpPxoc0-9]|\[\^|\[:\^|\[:(space|cntrl):\]|\(\?[a-zA-Z^-]*s|\(\*)"));
    return !mayCross.match(pattern).hasMatch();
}

} // namespace

MatchMarker::MatchMarker(QsciScintilla *editor, QObject *parent)
    : QObject(parent)
    , m_editor(editor)
{
    setObjectName(QStringLiteral("MatchMarker"));
    m_timer.setInterval(0);
    connect(&m_timer, &QTimer::timeout, this, &MatchMarker::countSlice);

    send(editor, Sci::SCI_INDICSETSTYLE, Indicator, Sci::INDIC_ROUNDBOX);
    send(editor, Sci::SCI_INDICSETFORE, Indicator, 0x0090ff); // orange, as BGR
    send(editor, Sci::SCI_INDICSETALPHA, Indicator, 90);
    send(editor, Sci::SCI_INDICSETOUTLINEALPHA, Indicator, 200);
    send(editor, Sci::SCI_INDICSETUNDER, Indicator, 1);

    // Edits are taken in once the event that made them is over, all at once.
    m_editTimer.setSingleShot(true);
    m_editTimer.setInterval(0);
    connect(editor, &QsciScintilla::textChanged, this, [this] {
        if (!m_query.pattern.isEmpty()) {
            ++m_textChanges;
            m_editTimer.start();
        }
    });
    connect(editor, &QsciScintillaBase::SCN_MODIFIED, this,
            [this](int position, int type, const char *, int length) {
                onModified(position, type, length);
            });
    connect(&m_editTimer, &QTimer::timeout, this, [this] {
        const bool placed = m_textChanges == m_edits;
        if (!m_query.pattern.isEmpty()) {
            if (placed && m_editFrom >= 0 && takeInEdit()) {
                Q_EMIT changed();
            } else {
                restart();
            }
        }
        m_textChanges = m_edits = 0;
        m_editFrom = -1;
    });
    connect(editor, &QsciScintilla::selectionChanged, this, &MatchMarker::changed);
    connect(editor, &QsciScintillaBase::SCN_UPDATEUI, this, [this](int updated) {
        if (!m_query.pattern.isEmpty() &&
            (updated & (Sci::SC_UPDATE_V_SCROLL | Sci::SC_UPDATE_CONTENT))) {
            markVisible();
        }
    });
}

void MatchMarker::setQuery(const SearchQuery &query)
{
    SearchCore core = coreFor(query);
    if (query.pattern.isEmpty() || !core.isValid()) {
        clear();
        return;
    }
    m_query = query;
    m_core = core;
    m_withinLines = staysWithinLines(query.pattern);
    restart();
}

void MatchMarker::clear()
{
    m_query = SearchQuery();
    m_timer.stop();
    m_matches.clear();
    m_capped = false;
    unmark();
    Q_EMIT changed();
}

void MatchMarker::restart()
{
    m_matches.clear();
    m_capped = false;
    m_countFrom = 0;
    m_timer.start();
    markVisible();
    Q_EMIT changed();
}

void MatchMarker::onModified(int position, int type, int length)
{
    const bool inserted = type & Sci::SC_MOD_INSERTTEXT;
    if (m_query.pattern.isEmpty() || !(inserted || (type & Sci::SC_MOD_DELETETEXT))) {
        return;
    }
    ++m_edits;
    // One edited part that holds this edit and the ones before it.
    const qint64 end = inserted ? position + length : position;
    if (m_editFrom < 0) {
        m_editFrom = position;
        m_editTo = end;
        m_editDelta = 0;
    } else if (inserted) {
        m_editTo = m_editTo >= position ? m_editTo + length : m_editTo;
    } else if (m_editTo > position) {
        m_editTo = std::max<qint64>(position, m_editTo - length);
    }
    m_editFrom = std::min<qint64>(m_editFrom, position);
    m_editTo = std::max(m_editTo, end);
    m_editDelta += inserted ? length : -length;
}

bool MatchMarker::takeInEdit()
{
    if (m_timer.isActive() || m_capped) {
        return false;
    }
    const QByteArrayView text = scintilla::buffer(m_editor);
    // Searching from before lo and on from hi goes as it did before the edit:
    // no match that starts outside reads the edited text.
    qint64 lo = m_editFrom;
    qint64 hi = m_editTo;
    if (!m_query.regex) {
        // A character folded for case takes up to four bytes.
        const qint64 reach = 4 * (m_query.pattern.size() + 1);
        lo = std::max<qint64>(0, lo - reach);
        hi = std::min<qint64>(text.size(), hi + reach);
    } else if (m_withinLines) {
        while (lo > 0 && text[lo - 1] != '\n' && m_editFrom - lo < EditReach) {
            --lo;
        }
        while (hi < text.size() && text[hi] != '\n' && hi - m_editTo < EditReach) {
            ++hi;
        }
        hi = std::min<qint64>(text.size(), hi + 1);
    } else {
        return false;
    }
    if (hi - lo > EditReach) {
        return false;
    }
    const auto startingBefore = [this](qint64 at) {
        return std::lower_bound(m_matches.begin(), m_matches.end(), at,
                                [](const Range &range, qint64 pos) { return range.begin < pos; });
    };
    const auto first = startingBefore(lo);
    auto old = startingBefore(hi - m_editDelta);
    SearchCore::Match match;
    if (first != m_matches.begin() && std::prev(first)->end >= lo) {
        SearchCore::Match previous;
        previous.begin = std::prev(first)->begin;
        previous.end = std::prev(first)->end;
        match = m_core.findAfter(text, previous);
    } else {
        match = m_core.find(text, lo);
    }
    std::vector<Range> found;
    for (; match.found(); match = m_core.findAfter(text, match)) {
        if (match.begin >= hi) {
            while (old != m_matches.end() && old->begin + m_editDelta < match.begin) {
                ++old;
            }
            if (old != m_matches.end() && old->begin + m_editDelta == match.begin &&
                old->end + m_editDelta == match.end) {
                break; // from here on the count is what it was
            }
            if (match.begin - hi > EditReach) {
                return false;
            }
        }
        found.push_back({match.begin, match.end});
    }
    if (!match.found()) {
        old = m_matches.end();
    }
    for (auto it = old; it != m_matches.end(); ++it) {
        it->begin += m_editDelta;
        it->end += m_editDelta;
    }
    const auto at = m_matches.erase(first, old);
    m_matches.insert(at, found.begin(), found.end());
    return qint64(m_matches.size()) < MaxCounted;
}

void MatchMarker::countSlice()
{
    const SearchCore &core = m_core;
    const QByteArrayView whole = scintilla::buffer(m_editor);
    const qint64 sliceEnd = std::min<qint64>(whole.size(), m_countFrom + CountSlice);
    const QByteArrayView text = cutAfter(whole, sliceEnd);
    // Stepping on from the last match keeps an empty match from being
    // counted twice; a slice that follows one without matches starts afresh.
    SearchCore::Match previous;
    if (!m_matches.empty() && m_matches.back().end >= m_countFrom) {
        previous.begin = m_matches.back().begin;
        previous.end = m_matches.back().end;
    }
    SearchCore::Match match =
        previous.found() ? core.findAfter(text, previous) : core.find(text, m_countFrom);
    const bool lastSlice = sliceEnd >= whole.size();
    // An empty match at the very end belongs to the last slice.
    while (match.found() && (match.begin < sliceEnd || lastSlice)) {
        m_matches.push_back({match.begin, match.end});
        if (qint64(m_matches.size()) >= MaxCounted) {
            m_capped = core.findAfter(whole, match).found();
            m_timer.stop();
            Q_EMIT changed();
            return;
        }
        match = core.findAfter(text, match);
    }
    m_countFrom = m_matches.empty() ? sliceEnd : std::max(sliceEnd, m_matches.back().end);
    if (lastSlice) {
        m_timer.stop();
    }
    Q_EMIT changed();
}

qint64 MatchMarker::currentIndex() const
{
    const qint64 start = send(m_editor, Sci::SCI_GETSELECTIONSTART);
    const qint64 end = send(m_editor, Sci::SCI_GETSELECTIONEND);
    const auto it =
        std::lower_bound(m_matches.begin(), m_matches.end(), start,
                         [](const Range &range, qint64 at) { return range.begin < at; });
    // An empty match and a longer one may start at the same place.
    for (auto at = it; at != m_matches.end() && at->begin == start; ++at) {
        if (at->end == end) {
            return qint64(at - m_matches.begin()) + 1;
        }
    }
    return 0;
}

QString MatchMarker::summary() const
{
    if (m_query.pattern.isEmpty()) {
        return QString();
    }
    QString total = QString::number(count());
    if (m_capped) {
        total += QLatin1Char('+');
    } else if (m_timer.isActive()) {
        total += QStringLiteral("\u2026");
    }
    if (count() == 0) {
        return m_timer.isActive() ? tr("Counting\u2026") : tr("No matches");
    }
    const qint64 current = currentIndex();
    if (current > 0) {
        return tr("%1 of %2").arg(current).arg(total);
    }
    return tr("%1 matches").arg(total);
}

void MatchMarker::unmark()
{
    if (m_markedTo > m_markedFrom) {
        send(m_editor, Sci::SCI_SETINDICATORCURRENT, Indicator);
        const qint64 length = send(m_editor, Sci::SCI_GETLENGTH);
        const qint64 to = std::min(m_markedTo, length);
        if (to > m_markedFrom) {
            send(m_editor, Sci::SCI_INDICATORCLEARRANGE, m_markedFrom, to - m_markedFrom);
        }
    }
    m_markedFrom = m_markedTo = 0;
}

void MatchMarker::markVisible()
{
    unmark();
    const SearchCore &core = m_core;
    const qint64 lines = send(m_editor, Sci::SCI_GETLINECOUNT);
    const qint64 firstVisible = send(m_editor, Sci::SCI_GETFIRSTVISIBLELINE);
    const qint64 firstLine = std::max<qint64>(
        0, send(m_editor, Sci::SCI_DOCLINEFROMVISIBLE, firstVisible) - MarginLines);
    const qint64 lastLine =
        std::min<qint64>(lines - 1, send(m_editor, Sci::SCI_DOCLINEFROMVISIBLE,
                                         firstVisible + send(m_editor, Sci::SCI_LINESONSCREEN)) +
                                        MarginLines);
    const qint64 from = send(m_editor, Sci::SCI_POSITIONFROMLINE, firstLine);
    const qint64 to = send(m_editor, Sci::SCI_GETLINEENDPOSITION, lastLine);
    const QByteArrayView text = cutAfter(scintilla::buffer(m_editor), to);
    send(m_editor, Sci::SCI_SETINDICATORCURRENT, Indicator);
    qint64 marks = 0;
    for (auto match = core.find(text, from); match.found() && match.begin <= to && marks < MaxMarks;
         match = core.findAfter(text, match), ++marks) {
        if (match.end > match.begin) {
            send(m_editor, Sci::SCI_INDICATORFILLRANGE, match.begin, match.end - match.begin);
            m_markedTo = std::max<qint64>(m_markedTo, match.end);
        }
    }
    m_markedFrom = from;
    m_markedTo = std::max(m_markedTo, to);
}

} // namespace koru::sedgui
