#pragma once

#include "sedguiexport.h"

#include <QtGlobal>

class QsciScintilla;

namespace koru::sedgui {

class CommentSyntax;

// Editing commands of the tool's own Edit menu and the go-to command, on an
// editor's buffer. Each command that changes the text is one undo step.
class SEDGUI_EXPORT EditorCommands
{
public:
    // Moves the caret to a 1-based line and column (in characters), clamped to
    // the document, unfolds the line and centres it in the view. Returns the
    // 1-based line the caret landed on.
    static int goToLine(QsciScintilla *editor, qint64 line, qint64 column = 1);

    // Comments the lines of the selection (or the caret's line) out, or back in
    // when every non-blank one already is, in the given syntax (the document's
    // language's). Returns false when the language has no comments.
    static bool toggleComment(QsciScintilla *editor, const CommentSyntax &syntax);

    // Duplicates the selected lines, or the caret's line.
    static void duplicateLines(QsciScintilla *editor);
    static void moveLinesUp(QsciScintilla *editor);
    static void moveLinesDown(QsciScintilla *editor);

    // Upper or lower case of the selection, or of the word at the caret.
    static void toUpperCase(QsciScintilla *editor);
    static void toLowerCase(QsciScintilla *editor);

    // One indentation level more or less for the selected lines, or the caret's.
    static void indentLines(QsciScintilla *editor);
    static void unindentLines(QsciScintilla *editor);

    // Removes spaces and tabs at the ends of lines. Returns how many lines changed.
    static qint64 trimTrailingWhitespace(QsciScintilla *editor);

    // Undo and Redo without a change notification per step: undoing a
    // Replace All over a large file is one step made of many changes.
    static void undo(QsciScintilla *editor);
    static void redo(QsciScintilla *editor);

    // Moves the caret to the brace matching the one at (or just before) the
    // caret, on the same side of it; with select, selects both braces and
    // what lies between. Returns false when there is no matched brace there.
    static bool goToMatchingBrace(QsciScintilla *editor, bool select);

    // Fits the line-number margin to the number of lines; width 0 hides it.
    static void fitLineNumberMargin(QsciScintilla *editor, bool visible);

private:
    // First and last line of the selection; a selection that ends at the start
    // of a line does not take that line in.
    static void selectedLines(QsciScintilla *editor, qint64 *first, qint64 *last);
    static void changeCase(QsciScintilla *editor, bool upper);
    // Indents (or unindents) the selected lines, or the caret's, in one undo step.
    static void shiftLines(QsciScintilla *editor, bool indent);
};

} // namespace koru::sedgui
