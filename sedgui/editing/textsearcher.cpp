#include "editing/textsearcher.h"

#include "editing/scintillacalls.h"
#include "searchcore.h"

#include <Qsci/qsciscintilla.h>

#include <algorithm>
#include <vector>

namespace koru::sedgui {

namespace {

using Sci = QsciScintillaBase;

using scintilla::send;

void selectAndShow(QsciScintillaBase *editor, qint64 start, qint64 end)
{
    const qint64 line = send(editor, Sci::SCI_LINEFROMPOSITION, start);
    send(editor, Sci::SCI_ENSUREVISIBLEENFORCEPOLICY, line);
    send(editor, Sci::SCI_SETSEL, start, end);
    send(editor, Sci::SCI_SCROLLRANGE, start, end);
}

// Replaces [start, end) and returns the length written.
qint64 replaceRange(QsciScintillaBase *editor, qint64 start, qint64 end, const QByteArray &text)
{
    send(editor, Sci::SCI_SETTARGETRANGE, start, end);
    return editor->SendScintilla(Sci::SCI_REPLACETARGET, static_cast<uintptr_t>(text.size()),
                                 text.constData());
}

// Stepping through the matches asks for the same search again and again, so
// the last one compiled is kept; copies share the compiled pattern.
SearchCore coreFor(const SearchQuery &query)
{
    SearchCore::Options options;
    options.setFlag(SearchCore::RegularExpression, query.regex);
    options.setFlag(SearchCore::CaseSensitive, query.matchCase);
    options.setFlag(SearchCore::WholeWord, query.wholeWord);
    static SearchCore last{QString()};
    if (last.pattern() != query.pattern || last.options() != options) {
        last = SearchCore(query.pattern, options);
    }
    return last;
}

// The match, or when there is none and the query wraps, the first one from the
// start (the last one before the end, backwards) over the whole buffer.
SearchMatch wrapIfMissing(const SearchCore &core, QByteArrayView text, const SearchQuery &query,
                          SearchCore::Match match)
{
    SearchMatch result;
    if (!match.found() && query.wrap) {
        match = query.backwards ? core.findPrevious(text, text.size()) : core.find(text, 0);
        result.wrapped = match.found();
    }
    if (match.found()) {
        result.start = match.begin;
        result.end = match.end;
    }
    return result;
}

SearchMatch invalidPattern()
{
    SearchMatch match;
    match.invalidPattern = true;
    return match;
}

} // namespace

void TextSearcher::announceChange(QsciScintillaBase *editor)
{
    if (auto *widget = qobject_cast<QsciScintilla *>(editor)) {
        Q_EMIT widget->textChanged();
        Q_EMIT widget->linesChanged();
    }
}

SearchMatch TextSearcher::find(QsciScintillaBase *editor, const SearchQuery &query, qint64 from)
{
    const SearchCore core = coreFor(query);
    if (!core.isValid()) {
        return invalidPattern();
    }
    const QByteArrayView text = scintilla::buffer(editor);
    from = std::clamp<qint64>(from, 0, text.size());
    return wrapIfMissing(core, text, query,
                         query.backwards ? core.findPrevious(text, from) : core.find(text, from));
}

SearchMatch TextSearcher::findNext(QsciScintillaBase *editor, const SearchQuery &query)
{
    const SearchCore core = coreFor(query);
    if (!core.isValid()) {
        return invalidPattern();
    }
    const qint64 selStart = send(editor, Sci::SCI_GETSELECTIONSTART);
    const qint64 selEnd = send(editor, Sci::SCI_GETSELECTIONEND);
    const QByteArrayView text = scintilla::buffer(editor);
    SearchCore::Match match;
    if (query.backwards) {
        match = core.findPrevious(text, selStart);
    } else if (selStart == selEnd) {
        // As if an empty match sat at the caret: one found there before (a
        // regex such as ^) is stepped over instead of being found again and again.
        SearchCore::Match caret;
        caret.begin = caret.end = selEnd;
        match = core.findAfter(text, caret);
    } else {
        match = core.find(text, selEnd);
    }
    const SearchMatch result = wrapIfMissing(core, text, query, match);
    if (result.found()) {
        selectAndShow(editor, result.start, result.end);
    }
    return result;
}

bool TextSearcher::replaceSelection(QsciScintillaBase *editor, const SearchQuery &query,
                                    const QString &replacement, SearchMatch *next)
{
    bool replaced = false;
    const SearchCore core = coreFor(query);
    const qint64 selStart = send(editor, Sci::SCI_GETSELECTIONSTART);
    const qint64 selEnd = send(editor, Sci::SCI_GETSELECTIONEND);
    if (core.isValid()) {
        // Searched in the whole buffer, so that look-behind and word bounds see
        // the text around the selection.
        const QByteArrayView text = scintilla::buffer(editor);
        const SearchCore::Match match = core.find(text, selStart);
        if (match.begin == selStart && match.end == selEnd) {
            const qint64 written =
                replaceRange(editor, selStart, selEnd, core.replacement(text, match, replacement));
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
    const SearchCore core = coreFor(query);
    if (!core.isValid()) {
        return -1;
    }
    struct Replacement
    {
        qint64 start;
        qint64 end;
        QByteArray text;
    };
    // All matches are found in the untouched buffer first; a plain search's
    // replacements share one copy of the text.
    std::vector<Replacement> replacements;
    const QByteArrayView text = scintilla::buffer(editor);
    const QByteArray literal = replacement.toUtf8();
    for (auto match = core.find(text, 0); match.found(); match = core.findAfter(text, match)) {
        replacements.push_back(
            {match.begin, match.end,
             query.regex ? core.replacement(text, match, replacement) : literal});
    }
    if (replacements.empty()) {
        return 0;
    }
    // Every change notification makes the widget do work proportional to the
    // document; thousands of them over a large file would take minutes. They
    // are switched off for the loop and the widget is told once at the end.
    const qint64 eventMask = send(editor, Sci::SCI_GETMODEVENTMASK);
    send(editor, Sci::SCI_SETMODEVENTMASK, 0);
    send(editor, Sci::SCI_BEGINUNDOACTION);
    // Back to front, so that the offsets of the matches not yet replaced hold.
    for (auto it = replacements.rbegin(); it != replacements.rend(); ++it) {
        replaceRange(editor, it->start, it->end, it->text);
    }
    send(editor, Sci::SCI_ENDUNDOACTION);
    send(editor, Sci::SCI_SETMODEVENTMASK, eventMask);
    announceChange(editor);
    return qint64(replacements.size());
}

} // namespace koru::sedgui
