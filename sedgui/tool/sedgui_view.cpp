#include "editing/editoractions.h"
#include "editing/editorcommands.h"
#include "editing/indentation.h"
#include "editing/typingassist.h"
#include "lexers/editorcolours.h"
#include "options/editorsettings.h"
#include "sedgui.h"
#include "tool/documentstate.h"
#include "window/drophandler.h"

#include <Qsci/qscilexer.h>
#include <Qsci/qsciscintilla.h>

#include <cstring>

namespace koru::sedgui {

namespace {

EditorActions *editorActions(SedGUI *tool)
{
    auto *actions = tool->findChild<EditorActions *>(QString(), Qt::FindDirectChildrenOnly);
    return actions ? actions : new EditorActions(tool);
}

// Puts the chosen family and size on every style of the lexer, keeping each
// style's weight and slant.
void applyFont(QsciScintilla *editor, const QFont &font)
{
    editor->setFont(font);
    editor->setMarginsFont(font);
    QsciLexer *lexer = editor->lexer();
    if (!lexer) {
        return;
    }
    lexer->setDefaultFont(font);
    for (int style = 0; style < 128; ++style) {
        if (lexer->description(style).isEmpty()) {
            continue;
        }
        QFont styled = lexer->font(style);
        styled.setFamily(font.family());
        styled.setPointSize(font.pointSize());
        lexer->setFont(styled, style);
    }
}

} // namespace

QList<QAction *> *SedGUI::getMenuActions(int menuKind)
{
    return editorActions(this)->menuActions(menuKind);
}

void SedGUI::applySettings()
{
    applySettings(false);
}

void SedGUI::applySettings(bool newDocument)
{
    const EditorSettings::Values values = EditorSettings::load();
    QsciScintilla *editor = m_editor;
    if (newDocument) {
        m_doc->format.encoding = values.defaultEncoding;
        m_doc->format.lineEnding = values.defaultLineEnding;
        editor->setEolMode(values.defaultLineEnding == LineEnding::CRLF ? QsciScintilla::EolWindows
                           : values.defaultLineEnding == LineEnding::CR ? QsciScintilla::EolMac
                                                                        : QsciScintilla::EolUnix);
    }

    applyFont(editor, values.font);
    m_indentation->setSettings(!values.indentWithSpaces, values.tabWidth, values.indentWidth);
    editor->setAutoIndent(values.autoIndent);
    m_typing->setAutoClose(values.autoCloseBrackets);
    editor->setBackspaceUnindents(true);
    editorActions(this)->setLineNumbersVisible(values.lineNumbers);
    editor->setWrapMode(values.wordWrap && !hasHugeLines() ? QsciScintilla::WrapWord
                                                           : QsciScintilla::WrapNone);
    editor->setWhitespaceVisibility(values.showWhitespace ? QsciScintilla::WsVisible
                                                          : QsciScintilla::WsInvisible);
    editor->setCaretLineVisible(values.highlightCurrentLine);
    editor->setBraceMatching(values.braceMatching ? QsciScintilla::SloppyBraceMatch
                                                  : QsciScintilla::NoBraceMatch);
    editor->setFolding(QsciScintilla::BoxedTreeFoldStyle);
    // After the folding, which gives its markers their own colours.
    m_colours->setSchemeId(values.colourScheme);

    if (!findChild<DropHandler *>(QString(), Qt::FindDirectChildrenOnly)) {
        new DropHandler(editor->viewport(), this);
    }
}

void SedGUI::prepareForSave()
{
    if (m_editor->isReadOnly()) {
        return;
    }
    if (m_indentation->trimsTrailingWhitespace(EditorSettings::load().trimTrailingWhitespace)) {
        EditorCommands::trimTrailingWhitespace(m_editor);
    }
    const long length = m_editor->SendScintilla(QsciScintillaBase::SCI_GETLENGTH);
    if (m_indentation->insertsFinalNewline() && length > 0) {
        const long last = m_editor->SendScintilla(QsciScintillaBase::SCI_GETCHARAT, length - 1);
        if (last != '\n' && last != '\r') {
            const char *ending = textFormat().lineEnding == LineEnding::CRLF ? "\r\n"
                                 : textFormat().lineEnding == LineEnding::CR ? "\r"
                                                                             : "\n";
            m_editor->SendScintilla(QsciScintillaBase::SCI_APPENDTEXT, std::strlen(ending), ending);
        }
    }
}

} // namespace koru::sedgui
