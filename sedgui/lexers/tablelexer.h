#pragma once

#include "languages.h"

#include <QColor>
#include <QList>

#include <Qsci/qscilexercpp.h>

#include <type_traits>

namespace koru::sedgui {

// A lexer of the QScintilla class Base colouring a language of the table that
// has no lexer of its own (Go with the C++ lexer, a Dockerfile with the bash
// lexer, ...): the language's keyword sets replace Base's, and its lexer
// properties are applied after Base's each time the editor refreshes them.
template<typename Base> class TableLexer : public Base
{
public:
    TableLexer(const QString &language, QObject *parent)
        : Base(parent)
        , m_language(language.toUtf8())
        , m_properties(Languages::lexerProperties(language))
    {
        for (int set = 1; set <= KeywordSets; ++set)
            m_keywords.append(Languages::keywords(language, set));
    }

    const char *language() const override { return m_language.constData(); }

    const char *keywords(int set) const override
    {
        if (set >= 1 && set <= KeywordSets && !m_keywords.at(set - 1).isEmpty())
            return m_keywords.at(set - 1).constData();
        // Base's first set holds Base's own language's keywords.
        return set == 1 ? "" : Base::keywords(set);
    }

    QColor defaultColor(int style) const override
    {
        // The C++ lexer leaves its second keyword set (the types) black.
        if constexpr (std::is_base_of_v<QsciLexerCPP, Base>) {
            if (style == QsciLexerCPP::KeywordSet2)
                return QColor(0x00, 0x6e, 0x8a);
        }
        return Base::defaultColor(style);
    }

    // Base's refresh sends its own defaults (no back-quoted strings, ...):
    // the language's properties go after them.
    void refreshProperties() override
    {
        Base::refreshProperties();
        for (const auto &[name, value] : m_properties)
            Q_EMIT this->propertyChanged(name.constData(), value.constData());
    }

private:
    // Scintilla's lexers know at most nine sets.
    static constexpr int KeywordSets = 9;

    QByteArray m_language;
    QList<QByteArray> m_keywords;
    QList<std::pair<QByteArray, QByteArray>> m_properties;
};

} // namespace koru::sedgui
