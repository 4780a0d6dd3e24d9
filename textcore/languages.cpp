#include "languages.h"

#include <QFileInfo>
#include <QHash>
#include <QList>
#include <QRegularExpression>

namespace koru::sedgui {

namespace {

struct Language
{
    QString name;
    // Exact file names ("Makefile") and wildcard patterns ("*.mk").
    QStringList patterns;
    // Interpreter names of a "#!" line, without version ("python" matches
    // "python3.11").
    QStringList interpreters;
};

struct Table
{
    QList<Language> languages;
    QHash<QString, int> byName;
    QHash<QString, int> byExactFileName;
    // Lower-case suffix after the last dot ("py") -> language index.
    QHash<QString, int> bySuffix;
    // Patterns that are neither an exact name nor "*.suffix".
    QList<std::pair<QRegularExpression, int>> otherPatterns;
    QHash<QString, int> byInterpreter;
};

QList<Language> languageList()
{
    return {
        {QStringLiteral("AVS"), {"*.avs", "*.avsi"}, {}},
        {QStringLiteral("Bash"),
         {"*.sh", "*.bash", "*.zsh", "*.ksh", ".bashrc", ".bash_profile", ".bash_logout",
          ".profile", ".zshrc", "PKGBUILD", "configure"},
         {"sh", "bash", "zsh", "ksh", "dash", "ash"}},
        {QStringLiteral("Batch"), {"*.bat", "*.cmd"}, {}},
        {QStringLiteral("C"), {"*.c", "*.h"}, {"tcc"}},
        {QStringLiteral("C++"),
         {"*.cpp", "*.cxx", "*.cc", "*.c++", "*.hpp", "*.hxx", "*.hh", "*.h++", "*.ipp", "*.tpp",
          "*.inl", "*.ino", "*.mm"},
         {}},
        {QStringLiteral("C#"), {"*.cs", "*.csx"}, {}},
        {QStringLiteral("CMake"), {"CMakeLists.txt", "*.cmake"}, {"cmake"}},
        {QStringLiteral("CoffeeScript"), {"*.coffee"}, {"coffee"}},
        {QStringLiteral("CSS"), {"*.css"}, {}},
        {QStringLiteral("D"), {"*.d", "*.di"}, {"rdmd"}},
        {QStringLiteral("Diff"), {"*.diff", "*.patch", "*.rej"}, {}},
        {QStringLiteral("EDIFACT"), {"*.edi", "*.edifact"}, {}},
        {QStringLiteral("Fortran"), {"*.f90", "*.f95", "*.f03", "*.f08"}, {}},
        {QStringLiteral("Fortran 77"), {"*.f", "*.for", "*.f77"}, {}},
        {QStringLiteral("HTML"),
         {"*.html", "*.htm", "*.xhtml", "*.shtml", "*.php", "*.phtml"},
         {"php"}},
        {QStringLiteral("IDL"), {"*.idl", "*.odl"}, {}},
        {QStringLiteral("Java"), {"*.java"}, {}},
        {QStringLiteral("JavaScript"),
         {"*.js", "*.mjs", "*.cjs", "*.jsx", "*.ts", "*.tsx"},
         {"node", "nodejs", "deno", "gjs"}},
        {QStringLiteral("JSON"), {"*.json", "*.geojson", ".jshintrc"}, {}},
        {QStringLiteral("Lua"), {"*.lua"}, {"lua", "luajit"}},
        {QStringLiteral("Makefile"),
         {"Makefile", "makefile", "GNUmakefile", "*.mk", "*.mak", "*.make"},
         {"make"}},
        {QStringLiteral("Markdown"), {"*.md", "*.markdown", "*.mkd"}, {}},
        {QStringLiteral("MATLAB"), {"*.m"}, {}},
        {QStringLiteral("Octave"), {}, {"octave", "octave-cli"}},
        {QStringLiteral("Pascal"), {"*.pas", "*.pp", "*.dpr", "*.lpr"}, {}},
        {QStringLiteral("Perl"), {"*.pl", "*.pm", "*.t", "*.pod"}, {"perl"}},
        {QStringLiteral("PO"), {"*.po", "*.pot"}, {}},
        {QStringLiteral("PostScript"), {"*.ps", "*.eps"}, {}},
        {QStringLiteral("POV-Ray"), {"*.pov"}, {}},
        {QStringLiteral("Properties"),
         {"*.properties", "*.ini", "*.cfg", "*.conf", "*.desktop", ".editorconfig", ".gitconfig"},
         {}},
        {QStringLiteral("Python"),
         {"*.py", "*.pyw", "*.pyi", "SConstruct", "SConscript", "wscript"},
         {"python", "pypy"}},
        {QStringLiteral("Ruby"), {"*.rb", "*.rake", "*.gemspec", "Rakefile", "Gemfile"}, {"ruby"}},
        {QStringLiteral("Spice"), {"*.cir", "*.sp", "*.spice"}, {}},
        {QStringLiteral("SQL"), {"*.sql"}, {}},
        {QStringLiteral("Tcl"), {"*.tcl", "*.tk"}, {"tclsh", "wish", "expect"}},
        {QStringLiteral("TeX"), {"*.tex", "*.sty", "*.cls", "*.ltx"}, {}},
        {QStringLiteral("Verilog"), {"*.v", "*.vh", "*.sv", "*.svh"}, {}},
        {QStringLiteral("VHDL"), {"*.vhd", "*.vhdl"}, {}},
        {QStringLiteral("XML"),
         {"*.xml", "*.xsd", "*.xsl", "*.xslt", "*.svg", "*.ui", "*.qrc", "*.plist", "*.xaml"},
         {}},
        {QStringLiteral("YAML"), {"*.yaml", "*.yml"}, {}},
    };
}

const Table &table()
{
    static const Table built = [] {
        Table t;
        t.languages = languageList();
        for (int i = 0; i < t.languages.size(); ++i) {
            const Language &language = t.languages.at(i);
            t.byName.insert(language.name, i);
            for (const QString &pattern : language.patterns) {
                static const QRegularExpression simpleSuffix(QStringLiteral("^\\*\\.[^*?\\[]+$"));
                if (!pattern.contains(QLatin1Char('*')))
                    t.byExactFileName.insert(pattern, i);
                else if (simpleSuffix.match(pattern).hasMatch())
                    t.bySuffix.insert(pattern.mid(2).toLower(), i);
                else
                    t.otherPatterns.append(
                        {QRegularExpression(
                             QRegularExpression::wildcardToRegularExpression(pattern),
                             QRegularExpression::CaseInsensitiveOption),
                         i});
            }
            for (const QString &interpreter : language.interpreters)
                t.byInterpreter.insert(interpreter, i);
        }
        return t;
    }();
    return built;
}

// "#!/usr/bin/env -S python3 -u" -> "python"; "#!/bin/bash" -> "bash".
QString interpreterOf(const QByteArray &firstLine)
{
    if (!firstLine.startsWith("#!"))
        return {};
    const QList<QByteArray> words = firstLine.mid(2).simplified().split(' ');
    QByteArray program;
    for (int i = 0; i < words.size(); ++i) {
        const QByteArray base = words.at(i).mid(words.at(i).lastIndexOf('/') + 1);
        if (base.isEmpty() || (i > 0 && base.startsWith('-')))
            continue;
        if (i == 0 && base == "env")
            continue;
        // env's "NAME=value" assignments come before the program.
        if (base.contains('='))
            continue;
        program = base;
        break;
    }
    // Versions: python3.11, perl5, lua5.4.
    while (!program.isEmpty() &&
           (std::isdigit(static_cast<unsigned char>(program.back())) || program.back() == '.'))
        program.chop(1);
    return QString::fromLatin1(program);
}

} // namespace

QStringList Languages::names()
{
    QStringList list;
    for (const Language &language : table().languages)
        list.append(language.name);
    list.sort(Qt::CaseInsensitive);
    return list;
}

QString Languages::detect(const QString &fileName, const QByteArray &firstLine)
{
    const Table &t = table();
    const QString baseName = QFileInfo(fileName).fileName();
    if (!baseName.isEmpty()) {
        if (auto it = t.byExactFileName.constFind(baseName); it != t.byExactFileName.cend())
            return t.languages.at(*it).name;
        const qsizetype dot = baseName.lastIndexOf(QLatin1Char('.'));
        if (dot >= 0) {
            // "*.C" and "*.H" are C++ by tradition; every other suffix ignores case.
            const QString suffix = baseName.mid(dot + 1);
            if (suffix == QLatin1String("C") || suffix == QLatin1String("H"))
                return QStringLiteral("C++");
            if (auto it = t.bySuffix.constFind(suffix.toLower()); it != t.bySuffix.cend())
                return t.languages.at(*it).name;
        }
        for (const auto &[pattern, index] : t.otherPatterns) {
            if (pattern.match(baseName).hasMatch())
                return t.languages.at(index).name;
        }
    }

    const QByteArray line = firstLine.trimmed();
    const QString interpreter = interpreterOf(line);
    if (!interpreter.isEmpty()) {
        if (auto it = t.byInterpreter.constFind(interpreter); it != t.byInterpreter.cend())
            return t.languages.at(*it).name;
        return {};
    }
    if (line.startsWith("<?xml"))
        return QStringLiteral("XML");
    if (line.startsWith("<!DOCTYPE html") || line.startsWith("<!doctype html") ||
        line.startsWith("<html"))
        return QStringLiteral("HTML");
    return {};
}

QStringList Languages::patterns(const QString &name)
{
    const Table &t = table();
    const auto it = t.byName.constFind(name);
    return it == t.byName.cend() ? QStringList() : t.languages.at(*it).patterns;
}

QString Languages::fileFilter()
{
    QStringList entries{QStringLiteral("All Files (*)")};
    for (const QString &name : names()) {
        const QStringList languagePatterns = patterns(name);
        if (!languagePatterns.isEmpty())
            entries.append(name % QStringLiteral(" (") % languagePatterns.join(QLatin1Char(' ')) %
                           QLatin1Char(')'));
    }
    return entries.join(QStringLiteral(";;"));
}

} // namespace koru::sedgui
