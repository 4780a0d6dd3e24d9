#pragma once

#include "lexers/tablelexer.h"

#include <Qsci/qscilexercpp.h>

namespace koru::sedgui {

// Rust through the editing widget's own Rust lexer, which QScintilla builds
// in but wraps in no class: it knows nested block comments, raw strings with
// any number of '#', byte strings and lifetimes, none of which the C++ lexer
// can be told about (a lifetime there opens a character literal up to the end
// of the line). Its styles take the look of the C++ lexer's nearest ones; its
// keyword sets come from the language table.
class RustLexer : public TableLexer<QsciLexerCPP>
{
public:
    explicit RustLexer(QObject *parent);

    const char *lexer() const override;
    QString description(int style) const override;
    QColor defaultColor(int style) const override;
    QFont defaultFont(int style) const override;
    QColor defaultPaper(int style) const override;
    bool defaultEolFill(int style) const override;
    int braceStyle() const override;
    const char *blockStart(int *style = nullptr) const override;
    const char *blockEnd(int *style = nullptr) const override;
    const char *blockStartKeyword(int *style = nullptr) const override;

private:
    // The C++ lexer's style that looks like a Rust lexer style; -1 for a
    // number that is no Rust style.
    static int cppStyle(int rustStyle);
};

} // namespace koru::sedgui
