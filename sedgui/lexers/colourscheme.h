#pragma once

#include "sedguiexport.h"

#include <QColor>
#include <QString>
#include <QStringList>

#include <array>

class QPalette;

namespace koru::sedgui {

// The colours of the text view: one foreground per kind of text that the
// lexers tell apart (the roles), the page behind them, and the colours of
// the view's own parts. A scheme is plain data; EditorColours puts it on an
// editor and its lexer.
class SEDGUI_EXPORT ColourScheme
{
public:
    // Kinds of text; every style of every lexer is one of them.
    enum Role {
        Default,
        Comment,
        Keyword,
        Type, // secondary keywords, classes and types
        String,
        Character,
        Number,
        Operator,
        Preprocessor,
        Identifier,
        Regex,
        Error,
        RoleCount
    };

    // The scheme ids as the settings keep them; "automatic" picks light or
    // dark after the desktop's palette.
    static QString automaticId();
    // Every fixed scheme, in the order the options page offers them.
    static QStringList ids();
    // The user-visible name of an id (automatic included), translated.
    static QString displayName(const QString &id);
    // The scheme of a fixed id; automatic and unknown ids take the light or
    // dark default after palette.
    static ColourScheme byId(const QString &id, const QPalette &palette);
    // A window colour this dark asks for the dark default.
    static bool isDark(const QPalette &palette);
    // The contrast ratio of two colours (1 to 21), after the WCAG formula.
    static double contrast(const QColor &a, const QColor &b);

    QString id() const { return m_id; }
    QColor paper() const { return m_paper; }
    QColor foreground(Role role) const { return m_roles.at(role); }
    // Errors (unclosed strings, bad syntax) are shown on their own page.
    QColor errorPaper() const { return m_errorPaper; }

    QColor marginPaper() const { return m_marginPaper; }
    QColor lineNumbers() const { return m_lineNumbers; }
    QColor currentLine() const { return m_currentLine; }
    QColor selectionPaper() const { return m_selectionPaper; }
    QColor selectionText() const { return m_selectionText; }
    QColor caret() const { return m_caret; }
    QColor whitespace() const { return m_whitespace; }
    QColor bracePaper() const { return m_bracePaper; }
    QColor braceText() const { return m_braceText; }
    QColor unmatchedBrace() const { return m_unmatchedBrace; }
    QColor foldMargin() const { return m_foldMargin; }
    QColor foldMarker() const { return m_foldMarker; }

private:
    static ColourScheme light();
    static ColourScheme dark();
    static ColourScheme highContrastLight();
    static ColourScheme highContrastDark();

    QString m_id;
    QColor m_paper;
    std::array<QColor, RoleCount> m_roles;
    QColor m_errorPaper;
    QColor m_marginPaper;
    QColor m_lineNumbers;
    QColor m_currentLine;
    QColor m_selectionPaper;
    QColor m_selectionText;
    QColor m_caret;
    QColor m_whitespace;
    QColor m_bracePaper;
    QColor m_braceText;
    QColor m_unmatchedBrace;
    QColor m_foldMargin;
    QColor m_foldMarker;
};

} // namespace koru::sedgui
