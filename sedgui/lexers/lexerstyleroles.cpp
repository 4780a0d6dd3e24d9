#include "lexers/lexerstyleroles.h"

#include <QCoreApplication>
#include <QHash>
#include <QTranslator>

#include <Qsci/qscilexer.h>

#include <initializer_list>

namespace koru::sedgui {

namespace {

using Role = ColourScheme::Role;

struct Words
{
    Role role;
    std::initializer_list<const char *> words;
};

// Tried in order: the first word found in a description decides. Errors and
// comments come first ("Unclosed string", "JavaDoc keyword error", "Comment
// keyword"), strings before operators ("Here document delimiter").
const Words s_words[] = {
    // Code that the preprocessor leaves out is shown as dim as a comment.
    {ColourScheme::Comment, {"inactive"}},
    {ColourScheme::Error, {"error", "unclosed", "bad ", "badly", "removed"}},
    {ColourScheme::Comment,
     {"comment", "pod", "task marker", "javadoc keyword", "ddoc keyword", "documentation"}},
    {ColourScheme::Regex, {"regular expression", "regex", "%r string", "(qr"}},
    {ColourScheme::Preprocessor,
     {"pre-processor", "preprocessor", "directive", "decorator", "inline asm", "@-rule",
      "media rule", "important", "start of", "end of a", "end of an", "cdata", "data section",
      "sgml", "header", "plugin", "target"}},
    {ColourScheme::Character, {"character", "entity", "escape sequence"}},
    {ColourScheme::Identifier, {"quoted identifier", "quoted keyword", "quoted operator"}},
    {ColourScheme::String,
     {"string", "here document", "backtick", "verbatim", "literal", "value", "text block",
      "message", "iri", "added", "code", "link", "translation"}},
    {ColourScheme::Number, {"number", "numeric", "uuid", "hexadecimal", "changed", "position"}},
    {ColourScheme::Operator,
     {"operator", "punctuation", "delimiter", "parenthesis", "separator", "brace", "symbol",
      "assignment", "continuation", "hash", "list item", "horizontal rule"}},
    {ColourScheme::Type,
     {"secondary",  "set 2",       "global class", "class",    "type",         "standard",
      "predefined", "built",       "function",     "extended", "user defined", "tk ",
      "intrinsic",  "system task", "package",      "module",   "property",     "attribute",
      "tag",        "selector",    "pseudo",       "label",    "emphasis",     "strike",
      "special",    "lifetime",    "section",      "group",    "array"}},
    {ColourScheme::Keyword, {"keyword", "word", "command", "reserved", "instruction", "block"}},
    {ColourScheme::Identifier,
     {"identifier", "variable", "name", "parameter", "scalar", "instance", "substitution",
      "reference"}},
};

// Styles whose descriptions mislead the words above, by the lexer's own name
// (QsciLexer::lexer()) and style number.
const QHash<QByteArray, QHash<int, Role>> &s_styles()
{
    static const QHash<QByteArray, QHash<int, Role>> styles{
        // Character literals (the C++ lexer's single-quoted strings).
        {"cpp", {{7, ColourScheme::Character}}},
        // Character literals and lifetimes.
        {"rust",
         {{15, ColourScheme::Character}, {23, ColourScheme::Character}, {18, ColourScheme::Type}}},
        // Rule targets.
        {"makefile", {{5, ColourScheme::Keyword}}},
        // [Section] lines and keys.
        {"props", {{2, ColourScheme::Keyword}, {5, ColourScheme::Type}}},
        // Headings.
        {"markdown",
         {{6, ColourScheme::Keyword},
          {7, ColourScheme::Keyword},
          {8, ColourScheme::Keyword},
          {9, ColourScheme::Keyword},
          {10, ColourScheme::Keyword},
          {11, ColourScheme::Keyword}}},
    };
    return styles;
}

// While english is set, answers every text with its source: the lexers'
// style descriptions are read in English, whatever language the translators
// installed for the user speak. Otherwise it passes every text on.
class EnglishDescriptions : public QTranslator
{
public:
    bool english = false;
    mutable bool asked = false;

    // Nothing to translate: installing it changes no text on the screen.
    bool isEmpty() const override { return true; }
    QString translate(const char *, const char *sourceText, const char *, int) const override
    {
        asked = english;
        return english && sourceText ? QString::fromUtf8(sourceText) : QString();
    }
};

QString englishDescription(const QsciLexer &lexer, int style)
{
    // The translator installed last is asked first: this one is installed
    // after those of the start-up, and again should another come after it.
    // It lives as long as the program.
    static EnglishDescriptions *const translator = [] {
        auto *installed = new EnglishDescriptions;
        QCoreApplication::installTranslator(installed);
        return installed;
    }();
    translator->english = true;
    translator->asked = false;
    QString description = lexer.description(style);
    if (!description.isEmpty() && !translator->asked) {
        QCoreApplication::removeTranslator(translator);
        QCoreApplication::installTranslator(translator);
        description = lexer.description(style);
    }
    translator->english = false;
    return description;
}

} // namespace

ColourScheme::Role LexerStyleRoles::roleOfDescription(const QString &description)
{
    const QString text = description.toLower();
    for (const Words &entry : s_words) {
        for (const char *word : entry.words) {
            if (text.contains(QLatin1String(word)))
                return entry.role;
        }
    }
    return ColourScheme::Default;
}

ColourScheme::Role LexerStyleRoles::role(const QsciLexer &lexer, int style)
{
    const char *name = lexer.lexer();
    if (name) {
        const auto styles = s_styles().constFind(QByteArray(name));
        if (styles != s_styles().constEnd() && styles->contains(style))
            return styles->value(style);
    }
    // Reading a description in English and matching its words costs more
    // than the rest of colouring a new document: each kind of lexer is read
    // once. Its class, language and lexer name tell the kinds apart.
    static QHash<QByteArray, QHash<int, Role>> read;
    const QByteArray kind = QByteArray(lexer.metaObject()->className()) + '/' + lexer.language() +
                            '/' + QByteArray(name ? name : "");
    QHash<int, Role> &roles = read[kind];
    if (const auto found = roles.constFind(style); found != roles.constEnd())
        return *found;
    const Role found = roleOfDescription(englishDescription(lexer, style));
    roles.insert(style, found);
    return found;
}

} // namespace koru::sedgui
