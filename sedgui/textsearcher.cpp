#include "textsearcher.h"

#include <QRegularExpression>

#include <Qsci/qsciscintilla.h>

#include <algorithm>

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
