#pragma once

#include "lexers/colourscheme.h"
#include "sedguiexport.h"

class QsciLexer;

namespace koru::sedgui {

// Which kind of text (ColourScheme::Role) each style of a lexer shows. The
// lexers we use most have their styles listed by number; any other style is
// recognised by the words of its description ("Comment", "Keyword", ...).
class SEDGUI_EXPORT LexerStyleRoles
{
public:
    // The role of a style of lexer; Default for styles nothing recognises.
    static ColourScheme::Role role(const QsciLexer &lexer, int style);
    // The role a style description names.
    static ColourScheme::Role roleOfDescription(const QString &description);
};

} // namespace koru::sedgui
