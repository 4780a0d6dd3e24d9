#include "tool/textsearcher.h"

#include <QRegularExpression>

#include <Qsci/qsciscintilla.h>

#include <algorithm>
#include <cctype>
#include <cstring>
#include <limits>

namespace koru::sedgui {

namespace {

using Sci = QsciScintillaBase;

qint64 send(QsciScintillaBase *editor, unsigned int message, qint64 wParam = 0, qint64 lParam = 0)
{
    return editor->SendScintilla(message, static_cast<unsigned long>(wParam),
                                 static_cast<long>(lParam));
}

qint64 sendText(QsciScintillaBase *editor, unsigned int message, const QByteArray &text)
{
    return editor->SendScintilla(message, static_cast<uintptr_t>(text.size()), text.constData());
}

void selectAndShow(QsciScintillaBase *editor, qint64 start, qint64 end)
{
    const qint64 line = send(editor, Sci::SCI_LINEFROMPOSITION, start);
    send(editor, Sci::SCI_ENSUREVISIBLEENFORCEPOLICY, line);
    send(editor, Sci::SCI_SETSEL, start, end);
    send(editor, Sci::SCI_SCROLLRANGE, start, end);
}

// The editor's engine reports a pattern it cannot compile as "no match". When
// nothing matched, a pattern that no regular expression engine would accept
// (unbalanced brackets, a dangling escape) is most likely the reason.
bool looksInvalid(const QString &pattern)
{
    return !QRegularExpression(pattern).isValid();
}

bool isAscii(const QByteArray &bytes)
{
    return std::all_of(bytes.begin(), bytes.end(),
                       [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

// Character classes as the editor's whole-word search sees them by default:
// letters, digits, '_' and every byte of a multi-byte character are word
// characters; blanks and line ends separate; the rest is punctuation.
enum class CharClass { Space, Word, Punctuation };

CharClass classOf(char c)
{
    const auto byte = static_cast<unsigned char>(c);
    if (byte >= 0x80 || byte == '_' || std::isalnum(byte)) {
        return CharClass::Word;
    }
    if (byte <= ' ' || byte == 0x7f) {
        return CharClass::Space;
    }
    return CharClass::Punctuation;
}

// A match is a whole word when it starts where a run of word (or punctuation)
// characters starts and ends where one ends.
bool isWholeWord(QsciScintillaBase *editor, qint64 start, qint64 end, qint64 length)
{
    const auto classAt = [editor](qint64 position) {
        return classOf(char(send(editor, Sci::SCI_GETCHARAT, position)));
    };
    if (start > 0) {
        const CharClass first = classAt(start);
        if (first == CharClass::Space || first == classAt(start - 1)) {
            return false;
        }
    }
    if (end < length) {
        const CharClass last = classAt(end - 1);
        if (last == CharClass::Space || last == classAt(end)) {
            return false;
        }
    }
    return true;
}

char foldAscii(char c)
{
    return c >= 'A' && c <= 'Z' ? char(c - 'A' + 'a') : c;
}

char otherCase(char c)
{
    if (c >= 'a' && c <= 'z') {
        return char(c - 'a' + 'A');
    }
    return c >= 'A' && c <= 'Z' ? char(c - 'A' + 'a') : c;
}

bool sameText(const char *text, const char *pattern, qsizetype length, bool matchCase)
{
    if (matchCase) {
        return std::memcmp(text, pattern, size_t(length)) == 0;
    }
    for (qsizetype i = 0; i < length; ++i) {
        if (foldAscii(text[i]) != foldAscii(pattern[i])) {
            return false;
        }
    }
    return true;
}

// Where the first byte of the pattern occurs next, in either case. Candidates
// are found with memchr (memrchr backwards), which scans far faster than a
// byte loop, in windows that grow from the starting point: a letter whose
// other case never occurs costs a scan as long as the way to the next
// candidate, not to the end of the document.
class FirstByteFinder
{
public:
    FirstByteFinder(const char *data, char first, bool matchCase)
        : m_data(data)
        , m_first(first)
        , m_other(matchCase ? first : otherCase(first))
    {}

    // The first candidate in [from, to); -1 when there is none.
    qint64 next(qint64 from, qint64 to) const
    {
        qint64 window = s_firstWindow;
        for (qint64 start = from; start < to; start += window, window = grow(window)) {
            const qint64 end = std::min(to, start + window);
            const char *hit = scan(m_first, start, end);
            if (m_other != m_first) {
                const char *other = scan(m_other, start, hit ? hit - m_data : end);
                hit = other ? other : hit;
            }
            if (hit) {
                return hit - m_data;
            }
        }
        return -1;
    }

    // The last candidate in [0, to); -1 when there is none.
    qint64 previous(qint64 to) const
    {
        qint64 window = s_firstWindow;
        for (qint64 end = to; end > 0; end -= window, window = grow(window)) {
            const qint64 start = std::max<qint64>(0, end - window);
            const char *hit = scanBack(m_first, start, end);
            if (m_other != m_first) {
                const char *other = scanBack(m_other, hit ? hit - m_data + 1 : start, end);
                hit = other ? other : hit;
            }
            if (hit) {
                return hit - m_data;
            }
        }
        return -1;
    }

private:
    static constexpr qint64 s_firstWindow = 256;
    static constexpr qint64 s_lastWindow = qint64(1) << 22;

    static qint64 grow(qint64 window) { return std::min(window * 2, s_lastWindow); }

    const char *scan(char c, qint64 start, qint64 end) const
    {
        return start < end
                   ? static_cast<const char *>(std::memchr(m_data + start, c, size_t(end - start)))
                   : nullptr;
    }

    const char *scanBack(char c, qint64 start, qint64 end) const
    {
        return start < end
                   ? static_cast<const char *>(memrchr(m_data + start, c, size_t(end - start)))
                   : nullptr;
    }

    const char *m_data;
    char m_first;
    char m_other;
};

// How common a byte is in source code and prose, roughly: a search anchored on
// a rare byte of the pattern meets fewer false candidates.
int commonness(char c)
{
    const char lower = foldAscii(c);
    if (lower == ' ' || lower == '\n' || lower == '\t') {
        return 100;
    }
    if (std::strchr("etaoinsrhl", lower)) {
        return 80;
    }
    if (std::strchr("dcumfpgwybv", lower) || std::strchr("_(){};=,.*/", lower)) {
        return 50;
    }
    return 20;
}

qint64 rarestByte(const QByteArray &pattern)
{
    qint64 best = 0;
    for (qint64 i = 1; i < pattern.size(); ++i) {
        if (commonness(pattern.at(i)) < commonness(pattern.at(best))) {
            best = i;
        }
    }
    return best;
}

// The editor's buffer searched in place for text: far faster on large
// documents than the editor's own search, which steps character by character.
// Same contract: forwards the first match in [from, to), backwards (from > to)
// the last match in [to, from).
qint64 plainSearch(QsciScintillaBase *editor, const QByteArray &pattern, bool matchCase,
                   bool wholeWord, qint64 from, qint64 to, qint64 *matchEnd)
{
    const bool backwards = from > to;
    const qint64 lo = std::min(from, to);
    const qint64 hi = std::max(from, to);
    const qint64 size = hi - lo;
    if (pattern.isEmpty() || size < pattern.size()) {
        return -1;
    }
    // A pointer into the buffer; only moves the gap if it lies inside the range.
    const auto *data = reinterpret_cast<const char *>(editor->SendScintilla(
        Sci::SCI_GETRANGEPOINTER, static_cast<unsigned long>(lo), static_cast<long>(size)));
    if (!data) {
        return -1;
    }
    const qint64 length = send(editor, Sci::SCI_GETLENGTH);
    const qint64 patternSize = pattern.size();
    const qint64 lastStart = size - patternSize; // the last offset a match can start at
    const QByteArrayView text(data, size);
    // Candidates are found by the pattern's least common byte, sitting at anchor.
    const qint64 anchor = rarestByte(pattern);
    FirstByteFinder finder(data + anchor, pattern.at(anchor), matchCase);
    qint64 forwardFrom = 0;
    qint64 backwardTo = lastStart + 1;
    for (;;) {
        qint64 hit = -1;
        if (matchCase) {
            // Qt's own search skips ahead by whole pattern lengths.
            hit = backwards ? (backwardTo > 0 ? text.first(backwardTo + patternSize - 1)
                                                    .lastIndexOf(QByteArrayView(pattern))
                                              : -1)
                            : text.indexOf(QByteArrayView(pattern), forwardFrom);
        } else {
            hit = backwards ? finder.previous(backwardTo) : finder.next(forwardFrom, lastStart + 1);
        }
        if (hit < 0 || hit > lastStart) {
            return -1;
        }
        if (sameText(data + hit, pattern.constData(), patternSize, matchCase)) {
            const qint64 start = lo + hit;
            const qint64 end = start + patternSize;
            if (!wholeWord || isWholeWord(editor, start, end, length)) {
                *matchEnd = end;
                return start;
            }
        }
        if (backwards) {
            backwardTo = hit;
        } else {
            forwardFrom = hit + 1;
        }
    }
}

} // namespace

void TextSearcher::announceChange(QsciScintillaBase *editor)
{
    if (auto *widget = qobject_cast<QsciScintilla *>(editor)) {
        Q_EMIT widget->textChanged();
        Q_EMIT widget->linesChanged();
    }
}

int TextSearcher::searchFlags(const SearchQuery &query)
{
    int flags = 0;
    if (query.matchCase) {
        flags |= Sci::SCFIND_MATCHCASE;
    }
    if (query.regex) {
        flags |= Sci::SCFIND_REGEXP | Sci::SCFIND_POSIX;
    } else if (query.wholeWord) {
        flags |= Sci::SCFIND_WHOLEWORD;
    }
    return flags;
}

QByteArray TextSearcher::patternBytes(const SearchQuery &query)
{
    QByteArray bytes = query.pattern.toUtf8();
    // The regular expression engine ignores the whole-word flag; word bounds in
    // the pattern do the same job (the syntax has no alternation to bracket).
    if (query.regex && query.wholeWord && !bytes.isEmpty()) {
        bytes = "\\<" + bytes + "\\>";
    }
    return bytes;
}

qint64 TextSearcher::searchRange(QsciScintillaBase *editor, const QByteArray &pattern, int flags,
                                 qint64 from, qint64 to, qint64 *matchEnd)
{
    const bool matchCase = flags & Sci::SCFIND_MATCHCASE;
    if (!(flags & Sci::SCFIND_REGEXP) && (matchCase || isAscii(pattern))) {
        qint64 end = -1;
        const qint64 start =
            plainSearch(editor, pattern, matchCase, flags & Sci::SCFIND_WHOLEWORD, from, to, &end);
        if (start >= 0) {
            // The target is the match, as after the editor's own search.
            send(editor, Sci::SCI_SETTARGETRANGE, start, end);
            if (matchEnd) {
                *matchEnd = end;
            }
        }
        return start;
    }
    send(editor, Sci::SCI_SETSEARCHFLAGS, flags);
    send(editor, Sci::SCI_SETTARGETRANGE, from, to);
    const qint64 start = sendText(editor, Sci::SCI_SEARCHINTARGET, pattern);
    if (start >= 0 && matchEnd) {
        *matchEnd = send(editor, Sci::SCI_GETTARGETEND);
    }
    return start;
}

SearchMatch TextSearcher::find(QsciScintillaBase *editor, const SearchQuery &query, qint64 from)
{
    SearchMatch match;
    if (query.pattern.isEmpty()) {
        return match;
    }
    const QByteArray pattern = patternBytes(query);
    const int flags = searchFlags(query);
    const qint64 length = send(editor, Sci::SCI_GETLENGTH);
    from = std::clamp<qint64>(from, 0, length);

    qint64 end = -1;
    qint64 start = query.backwards ? searchRange(editor, pattern, flags, from, 0, &end)
                                   : searchRange(editor, pattern, flags, from, length, &end);
    if (start == -2) {
        match.invalidPattern = true;
        return match;
    }
    if (start < 0 && query.wrap) {
        // The whole buffer again: a match may straddle the starting point.
        start = query.backwards ? searchRange(editor, pattern, flags, length, 0, &end)
                                : searchRange(editor, pattern, flags, 0, length, &end);
        match.wrapped = start >= 0;
    }
    if (start >= 0) {
        match.start = start;
        match.end = end;
    } else if (query.regex) {
        match.invalidPattern = looksInvalid(query.pattern);
    }
    return match;
}

SearchMatch TextSearcher::findNext(QsciScintillaBase *editor, const SearchQuery &query)
{
    const qint64 selStart = send(editor, Sci::SCI_GETSELECTIONSTART);
    const qint64 selEnd = send(editor, Sci::SCI_GETSELECTIONEND);
    qint64 from = query.backwards ? selStart : selEnd;
    SearchMatch match = find(editor, query, from);
    // An empty match where the caret already is (a regex such as ^) would be
    // found again and again: step over it.
    if (match.found() && match.start == match.end && match.start == selStart &&
        selStart == selEnd) {
        const qint64 length = send(editor, Sci::SCI_GETLENGTH);
        if (query.backwards) {
            from = send(editor, Sci::SCI_POSITIONBEFORE, from);
        } else {
            from = send(editor, Sci::SCI_POSITIONAFTER, from);
        }
        if ((query.backwards && selStart > 0) || (!query.backwards && selEnd < length)) {
            match = find(editor, query, from);
        } else if (query.wrap) {
            match = find(editor, query, query.backwards ? length : 0);
            match.wrapped = true;
        } else {
            match = SearchMatch();
        }
    }
    if (match.found()) {
        selectAndShow(editor, match.start, match.end);
    }
    return match;
}

bool TextSearcher::replaceSelection(QsciScintillaBase *editor, const SearchQuery &query,
                                    const QString &replacement, SearchMatch *next)
{
    bool replaced = false;
    const qint64 selStart = send(editor, Sci::SCI_GETSELECTIONSTART);
    const qint64 selEnd = send(editor, Sci::SCI_GETSELECTIONEND);
    if (!query.pattern.isEmpty()) {
        qint64 end = -1;
        const qint64 start =
            searchRange(editor, patternBytes(query), searchFlags(query), selStart, selEnd, &end);
        if (start == selStart && end == selEnd) {
            // The target is still the match, so a regex replacement sees its groups.
            const QByteArray text = replacement.toUtf8();
            const qint64 written = sendText(
                editor, query.regex ? Sci::SCI_REPLACETARGETRE : Sci::SCI_REPLACETARGET, text);
            const qint64 caret = query.backwards ? selStart : selStart + written;
            send(editor, Sci::SCI_SETSEL, caret, caret);
            replaced = true;
        }
    }
    const SearchMatch match = findNext(editor, query);
    if (next) {
        *next = match;
    }
    return replaced;
}

qint64 TextSearcher::replaceAll(QsciScintillaBase *editor, const SearchQuery &query,
                                const QString &replacement)
{
    if (query.pattern.isEmpty()) {
        return 0;
    }
    const QByteArray pattern = patternBytes(query);
    const QByteArray text = replacement.toUtf8();
    const int flags = searchFlags(query);
    const unsigned int replaceMessage =
        query.regex ? Sci::SCI_REPLACETARGETRE : Sci::SCI_REPLACETARGET;

    qint64 count = 0;
    qint64 from = 0;
    bool undoOpen = false;
    // Every change notification makes the widget do work proportional to the
    // document; thousands of them over a large file would take minutes. They
    // are switched off for the loop and the widget is told once at the end.
    const qint64 eventMask = send(editor, Sci::SCI_GETMODEVENTMASK);
    send(editor, Sci::SCI_SETMODEVENTMASK, 0);
    for (;;) {
        const qint64 length = send(editor, Sci::SCI_GETLENGTH);
        if (from > length) {
            break;
        }
        qint64 end = -1;
        const qint64 start = searchRange(editor, pattern, flags, from, length, &end);
        if (start == -2) {
            count = -1;
            break;
        }
        if (start < 0) {
            if (count == 0 && query.regex && looksInvalid(query.pattern)) {
                count = -1;
            }
            break;
        }
        if (!undoOpen) {
            send(editor, Sci::SCI_BEGINUNDOACTION);
            undoOpen = true;
        }
        const qint64 written = sendText(editor, replaceMessage, text);
        ++count;
        from = start + written;
        if (start == end) {
            // An empty match: move on by one character, or this place matches forever.
            if (from >= send(editor, Sci::SCI_GETLENGTH)) {
                break;
            }
            from = send(editor, Sci::SCI_POSITIONAFTER, from);
        }
    }
    if (undoOpen) {
        send(editor, Sci::SCI_ENDUNDOACTION);
    }
    send(editor, Sci::SCI_SETMODEVENTMASK, eventMask);
    if (count > 0) {
        announceChange(editor);
    }
    return count;
}

} // namespace koru::sedgui
