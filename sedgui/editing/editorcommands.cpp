#include "editing/editorcommands.h"

#include "commentsyntax.h"
#include "editing/scintillacalls.h"
#include "editing/textsearcher.h"

#include <QString>

#include <Qsci/qscilexer.h>
#include <Qsci/qsciscintilla.h>

#include <algorithm>
#include <limits>

namespace koru::sedgui {

namespace {

using Sci = QsciScintillaBase;

using scintilla::send;

void insertText(QsciScintilla *editor, qint64 position, const QByteArray &text)
{
    editor->SendScintilla(Sci::SCI_INSERTTEXT, static_cast<uintptr_t>(position), text.constData());
}

QByteArray range(QsciScintilla *editor, qint64 start, qint64 end)
{
    QByteArray text(end - start + 1, '\0');
    editor->SendScintilla(Sci::SCI_GETTEXTRANGE, long(start), long(end), text.data());
    text.chop(1);
    return text;
}

QByteArray eolBytes(QsciScintilla *editor)
{
    switch (send(editor, Sci::SCI_GETEOLMODE)) {
    case Sci::SC_EOL_CRLF:
        return "\r\n";
    case Sci::SC_EOL_CR:
        return "\r";
    default:
        return "\n";
    }
}

class UndoStep
{
public:
    explicit UndoStep(QsciScintilla *editor)
        : m_editor(editor)
    {
        send(m_editor, Sci::SCI_BEGINUNDOACTION);
    }
    ~UndoStep() { send(m_editor, Sci::SCI_ENDUNDOACTION); }
    UndoStep(const UndoStep &) = delete;
    UndoStep &operator=(const UndoStep &) = delete;

private:
    QsciScintilla *m_editor;
};

} // namespace

void EditorCommands::selectedLines(QsciScintilla *editor, qint64 *first, qint64 *last)
{
    const qint64 start = send(editor, Sci::SCI_GETSELECTIONSTART);
    const qint64 end = send(editor, Sci::SCI_GETSELECTIONEND);
    *first = send(editor, Sci::SCI_LINEFROMPOSITION, start);
    *last = send(editor, Sci::SCI_LINEFROMPOSITION, end);
    if (*last > *first && send(editor, Sci::SCI_POSITIONFROMLINE, *last) == end) {
        --*last;
    }
}

int EditorCommands::goToLine(QsciScintilla *editor, qint64 line, qint64 column)
{
    const qint64 lineCount = send(editor, Sci::SCI_GETLINECOUNT);
    const qint64 target = std::clamp<qint64>(line, 1, lineCount) - 1;
    const qint64 lineStart = send(editor, Sci::SCI_POSITIONFROMLINE, target);
    const qint64 lineEnd = send(editor, Sci::SCI_GETLINEENDPOSITION, target);
    const qint64 characters = send(editor, Sci::SCI_COUNTCHARACTERS, lineStart, lineEnd);
    const qint64 offset = std::clamp<qint64>(column, 1, characters + 1) - 1;
    const qint64 position =
        offset == 0 ? lineStart : send(editor, Sci::SCI_POSITIONRELATIVE, lineStart, offset);

    send(editor, Sci::SCI_ENSUREVISIBLEENFORCEPOLICY, target);
    send(editor, Sci::SCI_GOTOPOS, std::clamp(position, lineStart, lineEnd));
    send(editor, Sci::SCI_VERTICALCENTRECARET);
    return int(target + 1);
}

bool EditorCommands::toggleComment(QsciScintilla *editor, const CommentSyntax &syntax)
{
    if (syntax.isEmpty() || editor->isReadOnly()) {
        return false;
    }
    qint64 first = 0;
    qint64 last = 0;
    selectedLines(editor, &first, &last);
    const bool hadSelection = editor->hasSelectedText();
    UndoStep undo(editor);

    if (!syntax.linePrefix().isEmpty()) {
        const QByteArray prefix = syntax.linePrefix();
        bool anyText = false;
        bool allCommented = true;
        qint64 minIndent = std::numeric_limits<qint64>::max();
        for (qint64 l = first; l <= last; ++l) {
            const qint64 indentPos = send(editor, Sci::SCI_GETLINEINDENTPOSITION, l);
            const qint64 endPos = send(editor, Sci::SCI_GETLINEENDPOSITION, l);
            if (indentPos == endPos) {
                continue;
            }
            anyText = true;
            minIndent = std::min(minIndent, send(editor, Sci::SCI_GETLINEINDENTATION, l));
            if (range(editor, indentPos, std::min(endPos, indentPos + prefix.size())) != prefix) {
                allCommented = false;
            }
        }
        if (!anyText) {
            return true;
        }
        for (qint64 l = first; l <= last; ++l) {
            const qint64 indentPos = send(editor, Sci::SCI_GETLINEINDENTPOSITION, l);
            const qint64 endPos = send(editor, Sci::SCI_GETLINEENDPOSITION, l);
            if (indentPos == endPos) {
                continue;
            }
            if (allCommented) {
                qint64 length = prefix.size();
                if (indentPos + length < endPos &&
                    send(editor, Sci::SCI_GETCHARAT, indentPos + length) == ' ') {
                    ++length;
                }
                send(editor, Sci::SCI_DELETERANGE, indentPos, length);
            } else {
                insertText(editor, send(editor, Sci::SCI_FINDCOLUMN, l, minIndent), prefix + ' ');
            }
        }
    } else {
        const QByteArray open = syntax.blockStart();
        const QByteArray close = syntax.blockEnd();
        const qint64 start = send(editor, Sci::SCI_GETLINEINDENTPOSITION, first);
        const qint64 end = send(editor, Sci::SCI_GETLINEENDPOSITION, last);
        const QByteArray text = range(editor, start, end);
        const QByteArray trimmed = text.trimmed();
        if (trimmed.size() >= open.size() + close.size() && trimmed.startsWith(open) &&
            trimmed.endsWith(close)) {
            const qint64 closeAt = start + text.lastIndexOf(close);
            const qint64 before = closeAt > start && text.at(closeAt - start - 1) == ' ' ? 1 : 0;
            send(editor, Sci::SCI_DELETERANGE, closeAt - before, close.size() + before);
            const qint64 after = text.size() > open.size() && text.at(open.size()) == ' ' ? 1 : 0;
            send(editor, Sci::SCI_DELETERANGE, start, open.size() + after);
        } else if (!trimmed.isEmpty()) {
            insertText(editor, end, ' ' + close);
            insertText(editor, start, open + ' ');
        }
    }

    if (hadSelection) {
        send(editor, Sci::SCI_SETSEL, send(editor, Sci::SCI_POSITIONFROMLINE, first),
             send(editor, Sci::SCI_GETLINEENDPOSITION, last));
    }
    return true;
}

void EditorCommands::duplicateLines(QsciScintilla *editor)
{
    if (editor->isReadOnly()) {
        return;
    }
    qint64 first = 0;
    qint64 last = 0;
    selectedLines(editor, &first, &last);
    const qint64 start = send(editor, Sci::SCI_POSITIONFROMLINE, first);
    const qint64 end = send(editor, Sci::SCI_GETLINEENDPOSITION, last);
    const QByteArray copy = eolBytes(editor) + range(editor, start, end);
    UndoStep undo(editor);
    insertText(editor, end, copy);
}

void EditorCommands::moveLinesUp(QsciScintilla *editor)
{
    if (!editor->isReadOnly()) {
        send(editor, Sci::SCI_MOVESELECTEDLINESUP);
    }
}

void EditorCommands::moveLinesDown(QsciScintilla *editor)
{
    if (!editor->isReadOnly()) {
        send(editor, Sci::SCI_MOVESELECTEDLINESDOWN);
    }
}

void EditorCommands::changeCase(QsciScintilla *editor, bool upper)
{
    if (editor->isReadOnly()) {
        return;
    }
    if (!editor->hasSelectedText()) {
        const qint64 caret = send(editor, Sci::SCI_GETCURRENTPOS);
        const qint64 start = send(editor, Sci::SCI_WORDSTARTPOSITION, caret, 1);
        const qint64 end = send(editor, Sci::SCI_WORDENDPOSITION, caret, 1);
        if (start == end) {
            return;
        }
        send(editor, Sci::SCI_SETSEL, start, end);
    }
    send(editor, upper ? Sci::SCI_UPPERCASE : Sci::SCI_LOWERCASE);
}

void EditorCommands::toUpperCase(QsciScintilla *editor)
{
    changeCase(editor, true);
}

void EditorCommands::toLowerCase(QsciScintilla *editor)
{
    changeCase(editor, false);
}

void EditorCommands::indentLines(QsciScintilla *editor)
{
    shiftLines(editor, true);
}

void EditorCommands::unindentLines(QsciScintilla *editor)
{
    shiftLines(editor, false);
}

void EditorCommands::shiftLines(QsciScintilla *editor, bool indent)
{
    if (editor->isReadOnly()) {
        return;
    }
    qint64 first = 0;
    qint64 last = 0;
    selectedLines(editor, &first, &last);
    UndoStep undo(editor);
    for (qint64 l = first; l <= last; ++l) {
        if (indent)
            editor->indent(int(l));
        else
            editor->unindent(int(l));
    }
}

qint64 EditorCommands::trimTrailingWhitespace(QsciScintilla *editor)
{
    SearchQuery query;
    query.pattern = QStringLiteral("[ \t]+$");
    query.regex = true;
    query.matchCase = true;
    return TextSearcher::replaceAll(editor, query, QString());
}

void EditorCommands::undo(QsciScintilla *editor)
{
    const qint64 eventMask = send(editor, Sci::SCI_GETMODEVENTMASK);
    send(editor, Sci::SCI_SETMODEVENTMASK, 0);
    editor->undo();
    send(editor, Sci::SCI_SETMODEVENTMASK, eventMask);
    TextSearcher::announceChange(editor);
}

void EditorCommands::redo(QsciScintilla *editor)
{
    const qint64 eventMask = send(editor, Sci::SCI_GETMODEVENTMASK);
    send(editor, Sci::SCI_SETMODEVENTMASK, 0);
    editor->redo();
    send(editor, Sci::SCI_SETMODEVENTMASK, eventMask);
    TextSearcher::announceChange(editor);
}

void EditorCommands::fitLineNumberMargin(QsciScintilla *editor, bool visible)
{
    if (!visible) {
        editor->setMarginWidth(0, 0);
        return;
    }
    const int digits = int(QString::number(editor->lines()).size());
    editor->setMarginType(0, QsciScintilla::NumberMargin);
    editor->setMarginWidth(0, QString(std::max(digits, 3) + 1, QLatin1Char('9')));
}

bool EditorCommands::goToMatchingBrace(QsciScintilla *editor, bool select)
{
    const qint64 caret = send(editor, Sci::SCI_GETCURRENTPOS);
    // The brace after the caret first, then the one before it.
    for (const qint64 brace : {caret, caret - 1}) {
        if (brace < 0) {
            continue;
        }
        const qint64 match = send(editor, Sci::SCI_BRACEMATCH, brace, 0);
        if (match < 0) {
            continue;
        }
        if (select) {
            const qint64 first = std::min(brace, match);
            const qint64 last = std::max(brace, match) + 1;
            // The caret ends at the far brace, where the user was going.
            if (match < brace) {
                send(editor, Sci::SCI_SETSEL, last, first);
            } else {
                send(editor, Sci::SCI_SETSEL, first, last);
            }
        } else {
            send(editor, Sci::SCI_GOTOPOS, brace == caret ? match : match + 1);
        }
        send(editor, Sci::SCI_SCROLLCARET);
        return true;
    }
    return false;
}

} // namespace koru::sedgui
