#include "lexers/rustlexer.h"

#include <QFont>

#include <array>

namespace koru::sedgui {

namespace {

// The Rust lexer's styles, numbered as it numbers them.
enum RustStyle {
    Operator = 16,
    Word = 6,
};

// Indexed by Rust style: default, block comment, line comment, block doc
// comment, line doc comment, number, keywords, and six more keyword sets,
// string, raw string, character, operator, identifier, lifetime, macro,
// lexical error, byte string, raw byte string, byte character.
constexpr std::array s_cppStyles{
    QsciLexerCPP::Default,        QsciLexerCPP::Comment,
    QsciLexerCPP::CommentLine,    QsciLexerCPP::CommentDoc,
    QsciLexerCPP::CommentLineDoc, QsciLexerCPP::Number,
    QsciLexerCPP::Keyword,        QsciLexerCPP::KeywordSet2,
    QsciLexerCPP::GlobalClass,    QsciLexerCPP::GlobalClass,
    QsciLexerCPP::GlobalClass,    QsciLexerCPP::GlobalClass,
    QsciLexerCPP::GlobalClass,    QsciLexerCPP::DoubleQuotedString,
    QsciLexerCPP::RawString,      QsciLexerCPP::SingleQuotedString,
    QsciLexerCPP::Operator,       QsciLexerCPP::Identifier,
    QsciLexerCPP::UUID,           QsciLexerCPP::PreProcessor,
    QsciLexerCPP::UnclosedString, QsciLexerCPP::DoubleQuotedString,
    QsciLexerCPP::RawString,      QsciLexerCPP::SingleQuotedString,
};

} // namespace

RustLexer::RustLexer(QObject *parent)
    : TableLexer<QsciLexerCPP>(QStringLiteral("Rust"), parent)
{}

const char *RustLexer::lexer() const
{
    return "rust";
}

int RustLexer::cppStyle(int rustStyle)
{
    return rustStyle >= 0 && rustStyle < int(s_cppStyles.size()) ? s_cppStyles.at(rustStyle) : -1;
}

QString RustLexer::description(int style) const
{
    const int cpp = cppStyle(style);
    return cpp < 0 ? QString() : TableLexer::description(cpp);
}

QColor RustLexer::defaultColor(int style) const
{
    const int cpp = cppStyle(style);
    return TableLexer::defaultColor(cpp < 0 ? QsciLexerCPP::Default : cpp);
}

QFont RustLexer::defaultFont(int style) const
{
    const int cpp = cppStyle(style);
    return TableLexer::defaultFont(cpp < 0 ? QsciLexerCPP::Default : cpp);
}

QColor RustLexer::defaultPaper(int style) const
{
    const int cpp = cppStyle(style);
    return TableLexer::defaultPaper(cpp < 0 ? QsciLexerCPP::Default : cpp);
}

bool RustLexer::defaultEolFill(int style) const
{
    const int cpp = cppStyle(style);
    return cpp >= 0 && TableLexer::defaultEolFill(cpp);
}

int RustLexer::braceStyle() const
{
    return Operator;
}

const char *RustLexer::blockStart(int *style) const
{
    const char *words = TableLexer::blockStart(style);
    if (style)
        *style = Operator;
    return words;
}

const char *RustLexer::blockEnd(int *style) const
{
    const char *words = TableLexer::blockEnd(style);
    if (style)
        *style = Operator;
    return words;
}

const char *RustLexer::blockStartKeyword(int *style) const
{
    if (style)
        *style = Word;
    return "else for if impl loop match while";
}

} // namespace koru::sedgui
