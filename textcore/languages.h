#pragma once

#include "commentsyntax.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

#include <utility>

namespace koru::sedgui {

// The languages the editor colours, as data: their names, the lexer that
// colours each, the file names, "#!" interpreters and modeline names that
// select them, their keyword sets and comment syntax. Needs no widget: the
// editor creates the lexer by its name. The table is built once and never
// changes. Which language a document is in is LanguageDetector's business.
class Languages
{
public:
    // Every language name, sorted ("Bash", "C", "C++", ...). Plain text is not
    // a language: its name is the empty string.
    static QStringList names();

    // The language a file name selects: exact names such as "CMakeLists.txt"
    // or "Makefile" first, then patterns such as "*.py". Empty when none does.
    static QString forFileName(const QString &fileName);
    // The language of a "#!" interpreter without its version ("python").
    static QString forInterpreter(const QString &interpreter);
    // The language of an editor's mode name as modelines write it ("ruby",
    // "sh", "c++", "js"); any case, "-mode" and "-ts" suffixes ignored.
    static QString forModeName(const QString &mode);

    // The file name patterns of a language, e.g. {"*.py", "*.pyw"}.
    static QStringList patterns(const QString &name);

    // The lexer that colours a language, named after its QScintilla class
    // without the prefix ("CPP" for QsciLexerCPP); "Rust" is the editing
    // widget's own Rust lexer. Empty for plain text and unknown names.
    static QString lexer(const QString &name);
    // The language's own keyword set (1-based, as the lexer numbers them),
    // space separated; empty where the lexer's own set applies.
    static QByteArray keywords(const QString &name, int set);
    // Lexer properties (name, value) the language needs, e.g. back-quoted
    // strings for Go's raw strings.
    static QList<std::pair<QByteArray, QByteArray>> lexerProperties(const QString &name);

    static CommentSyntax commentSyntax(const QString &name);

    // Filter for file dialogs: "All Files (*)" first, then one
    // "Name (*.x *.y)" entry per language, joined by ";;".
    static QString fileFilter();
};

} // namespace koru::sedgui
