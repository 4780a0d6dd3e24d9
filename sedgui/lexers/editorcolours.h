#pragma once

#include "lexers/colourscheme.h"
#include "sedguiexport.h"

#include <QObject>
#include <QString>

class QsciLexer;
class QsciScintilla;

namespace koru::sedgui {

// Puts a colour scheme on one editor: every style of its lexer (or the plain
// text when it has none), the margins, current line, selection, caret,
// whitespace, braces and folding. With the automatic scheme it watches the
// palette of the widget it was given and changes between the light and the
// dark default when the desktop does.
class SEDGUI_EXPORT EditorColours : public QObject
{
    Q_OBJECT

public:
    // Watches palettes of watched (the editor's tool); both must outlive this.
    EditorColours(QsciScintilla *editor, QWidget *watched);

    // A scheme id of ColourScheme (automatic included); applies it at once.
    void setSchemeId(const QString &id);
    // Applies the scheme again; for after the editor's lexer or folding changed.
    void apply();
    // The scheme on show.
    const ColourScheme &scheme() const { return m_scheme; }

    // Gives every style the lexer describes the foreground of its role and
    // the scheme's paper.
    static void paintLexer(const ColourScheme &scheme, QsciLexer *lexer);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void paintEditor();

    QsciScintilla *m_editor;
    QWidget *m_watched;
    QString m_schemeId;
    ColourScheme m_scheme;
};

} // namespace koru::sedgui
