#pragma once

#include "sedguiexport.h"

#include <QString>

class QObject;
class QsciLexer;

namespace koru::sedgui {

// The syntax lexer that colours each language of Languages::names(): the lexer
// Languages::lexer() names, with the language's own keyword sets and lexer
// properties where the table gives them.
class SEDGUI_EXPORT LanguageLexers
{
public:
    // A new lexer for a name of Languages::names(), owned by parent; null for
    // an unknown or empty name.
    static QsciLexer *create(const QString &language, QObject *parent);
};

} // namespace koru::sedgui
