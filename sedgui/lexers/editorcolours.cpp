#include "lexers/editorcolours.h"

#include "lexers/lexerstyleroles.h"

#include <QEvent>
#include <QWidget>

#include <Qsci/qscilexer.h>
#include <Qsci/qsciscintilla.h>

namespace koru::sedgui {

namespace {

// Styles a lexer may describe; Scintilla keeps 32 to 39 for the view itself.
constexpr int s_lexerStyles = 128;

} // namespace

EditorColours::EditorColours(QsciScintilla *editor, QWidget *watched)
    : QObject(watched)
    , m_editor(editor)
    , m_watched(watched)
    , m_schemeId(ColourScheme::automaticId())
    , m_scheme(ColourScheme::byId(m_schemeId, watched->palette()))
{
    watched->installEventFilter(this);
}

void EditorColours::setSchemeId(const QString &id)
{
    m_schemeId = id;
    apply();
}

void EditorColours::apply()
{
    m_scheme = ColourScheme::byId(m_schemeId, m_watched->palette());
    paintEditor();
}

bool EditorColours::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_watched &&
        (event->type() == QEvent::PaletteChange ||
         event->type() == QEvent::ApplicationPaletteChange) &&
        m_schemeId == ColourScheme::automaticId() &&
        ColourScheme::byId(m_schemeId, m_watched->palette()).id() != m_scheme.id()) {
        apply();
    }
    return QObject::eventFilter(watched, event);
}

void EditorColours::paintLexer(const ColourScheme &scheme, QsciLexer *lexer)
{
    lexer->setDefaultColor(scheme.foreground(ColourScheme::Default));
    lexer->setDefaultPaper(scheme.paper());
    for (int style = 0; style < s_lexerStyles; ++style) {
        if (lexer->description(style).isEmpty())
            continue;
        const ColourScheme::Role role = LexerStyleRoles::role(*lexer, style);
        lexer->setColor(scheme.foreground(role), style);
        lexer->setPaper(role == ColourScheme::Error ? scheme.errorPaper() : scheme.paper(), style);
    }
}

void EditorColours::paintEditor()
{
    const ColourScheme &scheme = m_scheme;
    QsciScintilla *editor = m_editor;
    // Plain text, and what the view shows below the last line.
    editor->setColor(scheme.foreground(ColourScheme::Default));
    editor->setPaper(scheme.paper());
    if (QsciLexer *lexer = editor->lexer())
        paintLexer(scheme, lexer);
    editor->SendScintilla(QsciScintillaBase::SCI_STYLESETFORE, QsciScintillaBase::STYLE_DEFAULT,
                          scheme.foreground(ColourScheme::Default));
    editor->SendScintilla(QsciScintillaBase::SCI_STYLESETBACK, QsciScintillaBase::STYLE_DEFAULT,
                          scheme.paper());

    editor->setMarginsBackgroundColor(scheme.marginPaper());
    editor->setMarginsForegroundColor(scheme.lineNumbers());
    editor->setFoldMarginColors(scheme.foldMargin(), scheme.foldMargin());
    // By message: the widget's own setters skip markers it did not define
    // itself, and the fold markers are defined by setFolding().
    for (unsigned long marker = QsciScintillaBase::SC_MARKNUM_FOLDEREND;
         marker <= QsciScintillaBase::SC_MARKNUM_FOLDEROPEN; ++marker) {
        editor->SendScintilla(QsciScintillaBase::SCI_MARKERSETFORE, marker, scheme.foldMargin());
        editor->SendScintilla(QsciScintillaBase::SCI_MARKERSETBACK, marker, scheme.foldMarker());
    }
    editor->setCaretLineBackgroundColor(scheme.currentLine());
    editor->setCaretForegroundColor(scheme.caret());
    editor->setSelectionBackgroundColor(scheme.selectionPaper());
    editor->setSelectionForegroundColor(scheme.selectionText());
    editor->setWhitespaceForegroundColor(scheme.whitespace());
    editor->setIndentationGuidesForegroundColor(scheme.whitespace());
    editor->setIndentationGuidesBackgroundColor(scheme.paper());
    editor->setMatchedBraceBackgroundColor(scheme.bracePaper());
    editor->setMatchedBraceForegroundColor(scheme.braceText());
    editor->setUnmatchedBraceBackgroundColor(scheme.paper());
    editor->setUnmatchedBraceForegroundColor(scheme.unmatchedBrace());
}

} // namespace koru::sedgui
