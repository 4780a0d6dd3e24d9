#include "languages.h"

#include <QFileInfo>
#include <QHash>
#include <QRegularExpression>

namespace koru::sedgui {

namespace {

using Properties = QList<std::pair<QByteArray, QByteArray>>;

struct Language
{
    QString name = {};
    // Lexer class name without "QsciLexer" (Languages::lexer()).
    QString lexer = {};
    // Exact file names ("Makefile") and wildcard patterns ("*.mk").
    QStringList patterns = {};
    // Interpreter names of a "#!" line, without version ("python" matches
    // "python3.11").
    QStringList interpreters = {};
    // Mode names of modelines besides the lower-case language name.
    QStringList modes = {};
    CommentSyntax comments = {};
    // Keyword sets 1, 2, ... replacing the lexer's own.
    QList<QByteArray> keywords = {};
    Properties properties = {};
};

// For the C-like languages coloured with the C++ lexer: a leading '#' is no
// preprocessor there (or, in Swift and GLSL, one whose conditions the lexer
// cannot evaluate), so no code is greyed out as inactive, and the rest of such
// a line is coloured as code.
const Properties &noPreprocessor()
{
    static const Properties properties{{"lexer.cpp.track.preprocessor", "0"},
                                       {"styling.within.preprocessor", "1"}};
    return properties;
}

// Go's raw strings and JavaScript's template literals span lines between back quotes.
Properties backQuoted()
{
    return noPreprocessor() + Properties{{"lexer.cpp.backquoted.strings", "1"}};
}

// """...""" strings of Kotlin, Swift, Scala and Dart.
Properties tripleQuoted()
{
    return noPreprocessor() + Properties{{"lexer.cpp.triplequoted.strings", "1"}};
}

CommentSyntax cStyle()
{
    return {"//", "/*", "*/"};
}

CommentSyntax hash()
{
    return {"#", "", ""};
}

QList<Language> languageList()
{
    return {
        {.name = "AVS",
         .lexer = "AVS",
         .patterns = {"*.avs", "*.avsi"},
         .modes = {"avisynth"},
         .comments = {"#", "/*", "*/"}},
        {.name = "Bash",
         .lexer = "Bash",
         .patterns = {"*.sh",      "*.bash",        "*.zsh",        "*.ksh",    "*.env",
                      ".bashrc",   ".bash_profile", ".bash_logout", ".profile", ".zshrc",
                      ".zshenv",   ".zprofile",     ".env",         ".envrc",   ".xinitrc",
                      ".xprofile", "PKGBUILD",      "APKBUILD",     "*.ebuild", "configure"},
         .interpreters = {"sh", "bash", "zsh", "ksh", "dash", "ash"},
         .modes = {"sh", "shell-script", "zsh", "ksh"},
         .comments = hash()},
        {.name = "Batch",
         .lexer = "Batch",
         .patterns = {"*.bat", "*.cmd"},
         .modes = {"dosbatch", "bat"},
         .comments = {"REM", "", ""}},
        {.name = "C",
         .lexer = "CPP",
         .patterns = {"*.c", "*.h"},
         .interpreters = {"tcc"},
         .comments = cStyle()},
        {.name = "C++",
         .lexer = "CPP",
         .patterns = {"*.cpp", "*.cxx", "*.cc", "*.c++", "*.hpp", "*.hxx", "*.hh", "*.h++", "*.ipp",
                      "*.tpp", "*.inl", "*.ino", "*.mm"},
         .modes = {"cpp", "objc"},
         .comments = cStyle()},
        {.name = "C#",
         .lexer = "CSharp",
         .patterns = {"*.cs", "*.csx"},
         .modes = {"cs", "csharp"},
         .comments = cStyle()},
        {.name = "CMake",
         .lexer = "CMake",
         .patterns = {"CMakeLists.txt", "*.cmake", "*.cmake.in"},
         .interpreters = {"cmake"},
         .comments = hash()},
        {.name = "CoffeeScript",
         .lexer = "CoffeeScript",
         .patterns = {"*.coffee"},
         .interpreters = {"coffee"},
         .modes = {"coffee"},
         .comments = {"#", "###", "###"}},
        {.name = "CSS", .lexer = "CSS", .patterns = {"*.css"}, .comments = {"", "/*", "*/"}},
        {.name = "D",
         .lexer = "D",
         .patterns = {"*.d", "*.di"},
         .interpreters = {"rdmd"},
         .comments = cStyle()},
        {.name = "Dart",
         .lexer = "CPP",
         .patterns = {"*.dart"},
         .interpreters = {"dart"},
         .comments = cStyle(),
         .keywords = {"abstract as assert async await base break case catch class const continue "
                      "covariant default deferred do dynamic else enum export extends extension "
                      "external factory false final finally for get hide if implements import in "
                      "interface is late library mixin new null on operator part required rethrow "
                      "return sealed set show static super switch sync this throw true try "
                      "typedef var void when while with yield",
                      "bool double dynamic int num Object String List Map Set Iterable Future "
                      "Stream Function Never Null Record Symbol Type"},
         .properties = tripleQuoted()},
        {.name = "Diff",
         .lexer = "Diff",
         .patterns = {"*.diff", "*.patch", "*.rej"},
         .modes = {"patch"}},
        {.name = "Dockerfile",
         .lexer = "Bash",
         .patterns = {"Dockerfile", "Containerfile", "*.dockerfile", "Dockerfile.*"},
         .modes = {"docker", "containerfile"},
         .comments = hash(),
         // The instructions, and the shell words of RUN lines.
         .keywords = {"FROM AS RUN CMD LABEL MAINTAINER EXPOSE ENV ADD COPY ENTRYPOINT VOLUME "
                      "USER WORKDIR ARG ONBUILD STOPSIGNAL HEALTHCHECK SHELL "
                      "if then elif else fi for while until do done case esac in function "
                      "export set exec"}},
        {.name = "EDIFACT", .lexer = "EDIFACT", .patterns = {"*.edi", "*.edifact"}},
        {.name = "Fortran",
         .lexer = "Fortran",
         .patterns = {"*.f90", "*.f95", "*.f03", "*.f08"},
         .modes = {"f90"},
         .comments = {"!", "", ""}},
        {.name = "Fortran 77",
         .lexer = "Fortran77",
         .patterns = {"*.f", "*.for", "*.f77"},
         .modes = {"fortran77", "f77"},
         .comments = {"!", "", ""}},
        {.name = "Gitignore",
         .lexer = "Properties",
         .patterns = {".gitignore", ".gitattributes", ".dockerignore", ".npmignore", ".hgignore",
                      ".prettierignore", ".eslintignore", ".gcloudignore", ".helmignore"},
         .modes = {"gitattributes", "ignore"},
         .comments = hash()},
        {.name = "GLSL",
         .lexer = "CPP",
         .patterns = {"*.glsl", "*.vert", "*.frag", "*.geom", "*.comp", "*.tesc", "*.tese", "*.vsh",
                      "*.fsh"},
         .comments = cStyle(),
         .keywords = {"attribute const uniform varying buffer shared coherent volatile restrict "
                      "readonly writeonly layout centroid flat smooth noperspective patch sample "
                      "break continue do for while switch case default if else subroutine in out "
                      "inout invariant precise discard return lowp mediump highp precision struct "
                      "true false",
                      "void bool int uint float double vec2 vec3 vec4 dvec2 dvec3 dvec4 bvec2 "
                      "bvec3 bvec4 ivec2 ivec3 ivec4 uvec2 uvec3 uvec4 mat2 mat3 mat4 mat2x2 "
                      "mat2x3 mat2x4 mat3x2 mat3x3 mat3x4 mat4x2 mat4x3 mat4x4 sampler1D "
                      "sampler2D sampler3D samplerCube sampler2DShadow sampler2DArray image2D "
                      "image3D"},
         .properties = noPreprocessor()},
        {.name = "Go",
         .lexer = "CPP",
         .patterns = {"*.go"},
         .modes = {"golang"},
         .comments = cStyle(),
         .keywords = {"break case chan const continue default defer else fallthrough for func go "
                      "goto if import interface map package range return select struct switch "
                      "type var",
                      "any bool byte comparable complex64 complex128 error float32 float64 int "
                      "int8 int16 int32 int64 rune string uint uint8 uint16 uint32 uint64 uintptr "
                      "true false nil iota append cap clear close complex copy delete imag len "
                      "make max min new panic print println real recover"},
         .properties = backQuoted()},
        {.name = "HTML",
         .lexer = "HTML",
         .patterns = {"*.html", "*.htm", "*.xhtml", "*.shtml", "*.php", "*.phtml"},
         .interpreters = {"php"},
         .modes = {"xhtml", "php", "mhtml", "web"},
         .comments = {"", "<!--", "-->"}},
        {.name = "IDL", .lexer = "IDL", .patterns = {"*.idl", "*.odl"}, .comments = cStyle()},
        {.name = "INI",
         .lexer = "Properties",
         .patterns = {"*.ini", "*.inf"},
         .modes = {"dosini", "conf-windows"},
         .comments = {";", "", ""}},
        {.name = "Java", .lexer = "Java", .patterns = {"*.java"}, .comments = cStyle()},
        {.name = "JavaScript",
         .lexer = "JavaScript",
         .patterns = {"*.js", "*.mjs", "*.cjs", "*.jsx"},
         .interpreters = {"node", "nodejs", "deno", "gjs"},
         .modes = {"js", "js2", "javascriptreact", "jsx"},
         .comments = cStyle()},
        {.name = "JSON",
         .lexer = "JSON",
         .patterns = {"*.json", "*.jsonc", "*.json5", "*.geojson", "*.ipynb", ".jshintrc",
                      ".babelrc", ".eslintrc"},
         .modes = {"jsonc", "json5"},
         .comments = cStyle()},
        {.name = "Kotlin",
         .lexer = "CPP",
         .patterns = {"*.kt", "*.kts"},
         .interpreters = {"kotlin", "kscript"},
         .comments = cStyle(),
         .keywords = {"as break class continue do else false for fun if in interface is null "
                      "object package return super this throw true try typealias typeof val var "
                      "when while by catch constructor delegate dynamic field file finally get "
                      "import init param property receiver set setparam where actual abstract "
                      "annotation companion const crossinline data enum expect external final "
                      "infix inline inner internal lateinit noinline open operator out override "
                      "private protected public reified sealed suspend tailrec vararg value",
                      "Any Array Boolean Byte Char Double Float Int List Long Map MutableList "
                      "MutableMap Nothing Set Short String Unit"},
         .properties = tripleQuoted()},
        {.name = "Lua",
         .lexer = "Lua",
         .patterns = {"*.lua"},
         .interpreters = {"lua", "luajit"},
         .comments = {"--", "--[[", "]]"}},
        {.name = "Makefile",
         .lexer = "Makefile",
         .patterns = {"Makefile", "makefile", "GNUmakefile", "BSDmakefile", "Makefile.am",
                      "Makefile.in", "Kbuild", "*.mk", "*.mak", "*.make", "*.am"},
         .interpreters = {"make"},
         .modes = {"make", "makefile-gmake", "makefile-automake", "automake"},
         .comments = hash()},
        {.name = "Markdown",
         .lexer = "Markdown",
         .patterns = {"*.md", "*.markdown", "*.mkd"},
         .modes = {"md", "gfm"},
         .comments = {"", "<!--", "-->"}},
        {.name = "MATLAB", .lexer = "Matlab", .patterns = {"*.m"}, .comments = {"%", "%{", "%}"}},
        {.name = "Meson",
         .lexer = "Python",
         .patterns = {"meson.build", "meson_options.txt", "meson.options"},
         .comments = hash(),
         .keywords = {"if elif else endif foreach endforeach break continue and or not in true "
                      "false",
                      "project executable library shared_library static_library both_libraries "
                      "shared_module dependency declare_dependency subdir subdir_done files "
                      "include_directories configure_file custom_target run_target run_command "
                      "install_headers install_data install_subdir install_man test benchmark "
                      "find_program import get_option set_variable get_variable message warning "
                      "error summary join_paths environment generator vcs_tag assert"}},
        {.name = "Octave",
         .lexer = "Octave",
         .interpreters = {"octave", "octave-cli"},
         .comments = {"#", "%{", "%}"}},
        {.name = "Pascal",
         .lexer = "Pascal",
         .patterns = {"*.pas", "*.pp", "*.dpr", "*.lpr"},
         .modes = {"delphi", "opascal"},
         .comments = {"//", "{", "}"}},
        {.name = "Perl",
         .lexer = "Perl",
         .patterns = {"*.pl", "*.pm", "*.t", "*.pod"},
         .interpreters = {"perl"},
         .modes = {"cperl"},
         .comments = hash()},
        {.name = "PO", .lexer = "PO", .patterns = {"*.po", "*.pot"}, .comments = hash()},
        {.name = "PostScript",
         .lexer = "PostScript",
         .patterns = {"*.ps", "*.eps"},
         .modes = {"postscr", "ps"},
         .comments = {"%", "", ""}},
        {.name = "POV-Ray",
         .lexer = "POV",
         .patterns = {"*.pov"},
         .modes = {"pov"},
         .comments = cStyle()},
        {.name = "Properties",
         .lexer = "Properties",
         .patterns = {"*.properties", "*.cfg", "*.conf", "*.desktop", "*.service", "*.socket",
                      "*.timer", "*.target", "*.mount", "*.network", ".editorconfig", ".gitconfig",
                      ".gitmodules", ".npmrc", ".pypirc", ".flake8", ".pylintrc", ".coveragerc",
                      ".hgrc"},
         .modes = {"conf", "cfg", "jproperties", "conf-unix", "systemd", "editorconfig"},
         .comments = hash()},
        {.name = "Protobuf",
         .lexer = "CPP",
         .patterns = {"*.proto"},
         .modes = {"proto"},
         .comments = cStyle(),
         .keywords = {"syntax edition import weak public package option message enum service rpc "
                      "returns stream oneof map reserved extensions extend to max optional "
                      "required repeated group true false",
                      "double float int32 int64 uint32 uint64 sint32 sint64 fixed32 fixed64 "
                      "sfixed32 sfixed64 bool string bytes"},
         .properties = noPreprocessor()},
        {.name = "Python",
         .lexer = "Python",
         .patterns = {"*.py", "*.pyw", "*.pyi", "*.bzl", "SConstruct", "SConscript", "wscript",
                      "BUILD.bazel", "WORKSPACE"},
         .interpreters = {"python", "pypy"},
         .modes = {"py"},
         .comments = hash()},
        {.name = "Ruby",
         .lexer = "Ruby",
         .patterns = {"*.rb", "*.rake", "*.gemspec", "*.ru", "Rakefile", "Gemfile", "Vagrantfile",
                      "Podfile", "Brewfile", "Guardfile"},
         .interpreters = {"ruby"},
         .modes = {"rb", "enh-ruby"},
         .comments = {"#", "=begin", "=end"}},
        {.name = "Rust",
         .lexer = "Rust",
         .patterns = {"*.rs"},
         .modes = {"rs", "rustic"},
         .comments = cStyle(),
         .keywords = {"as async await break const continue crate dyn else enum extern false fn "
                      "for if impl in let loop match mod move mut pub ref return self Self "
                      "static struct super trait true type union unsafe use where while yield "
                      "macro_rules",
                      "bool char f32 f64 i8 i16 i32 i64 i128 isize str u8 u16 u32 u64 u128 usize "
                      "Box Option Result Some None Ok Err String Vec"}},
        {.name = "Scala",
         .lexer = "CPP",
         .patterns = {"*.scala", "*.sc", "*.sbt"},
         .interpreters = {"scala", "scala-cli"},
         .comments = cStyle(),
         .keywords = {"abstract case catch class def do else enum export extends false final "
                      "finally for forSome given if implicit import lazy match new null object "
                      "override package private protected return sealed super then this throw "
                      "trait true try type using val var while with yield",
                      "Any AnyRef AnyVal Boolean Byte Char Double Float Int List Long Map Nothing "
                      "Null Option Seq Short String Unit"},
         .properties = tripleQuoted()},
        {.name = "Spice",
         .lexer = "Spice",
         .patterns = {"*.cir", "*.sp", "*.spice"},
         .comments = {"*", "", ""}},
        {.name = "SQL",
         .lexer = "SQL",
         .patterns = {"*.sql"},
         .modes = {"mysql", "plsql"},
         .comments = {"--", "/*", "*/"}},
        {.name = "Swift",
         .lexer = "CPP",
         .patterns = {"*.swift"},
         .interpreters = {"swift"},
         .comments = cStyle(),
         .keywords = {"associatedtype class deinit enum extension fileprivate func import init "
                      "inout internal let open operator private precedencegroup protocol public "
                      "rethrows static struct subscript typealias var break case catch continue "
                      "default defer do else fallthrough for guard if in repeat return throw "
                      "throws switch where while as await async false is nil self Self super "
                      "true try actor some any convenience dynamic final indirect lazy mutating "
                      "nonmutating optional override required weak unowned get set willSet didSet",
                      "Any Array Bool Character Dictionary Double Float Int Int8 Int16 Int32 Int64 "
                      "Optional Set String UInt UInt8 UInt16 UInt32 UInt64 Void"},
         .properties = tripleQuoted()},
        {.name = "Tcl",
         .lexer = "TCL",
         .patterns = {"*.tcl", "*.tk"},
         .interpreters = {"tclsh", "wish", "expect"},
         .comments = hash()},
        {.name = "TeX",
         .lexer = "TeX",
         .patterns = {"*.tex", "*.sty", "*.cls", "*.ltx"},
         .modes = {"latex", "plaintex", "context"},
         .comments = {"%", "", ""}},
        {.name = "TOML",
         .lexer = "Properties",
         .patterns = {"*.toml", "Cargo.lock", "Pipfile", "poetry.lock", "uv.lock"},
         .modes = {"conf-toml"},
         .comments = hash()},
        {.name = "TypeScript",
         .lexer = "CPP",
         .patterns = {"*.ts", "*.tsx", "*.mts", "*.cts"},
         .interpreters = {"ts-node", "tsx"},
         .modes = {"ts", "typescriptreact", "tsx"},
         .comments = cStyle(),
         .keywords = {"abstract as asserts async await break case catch class const constructor "
                      "continue debugger declare default delete do else enum export extends "
                      "false finally for from function get if implements import in infer "
                      "instanceof interface is keyof let module namespace new null of override "
                      "package private protected public readonly return satisfies set static "
                      "super switch this throw true try type typeof var while with yield",
                      "any bigint boolean never number object string symbol undefined unique "
                      "unknown void Array Map Set Promise Record Partial Readonly"},
         .properties = backQuoted()},
        {.name = "Verilog",
         .lexer = "Verilog",
         .patterns = {"*.v", "*.vh", "*.sv", "*.svh"},
         .modes = {"systemverilog"},
         .comments = cStyle()},
        {.name = "VHDL",
         .lexer = "VHDL",
         .patterns = {"*.vhd", "*.vhdl"},
         .comments = {"--", "", ""}},
        {.name = "XML",
         .lexer = "XML",
         .patterns = {"*.xml", "*.xsd", "*.xsl", "*.xslt", "*.svg", "*.ui", "*.qrc", "*.plist",
                      "*.xaml"},
         .modes = {"nxml", "xsd", "xslt", "svg"},
         .comments = {"", "<!--", "-->"}},
        {.name = "YAML",
         .lexer = "YAML",
         .patterns = {"*.yaml", "*.yml", ".clang-format", ".clang-tidy"},
         .modes = {"yml"},
         .comments = hash()},
        {.name = "Zig",
         .lexer = "CPP",
         .patterns = {"*.zig", "*.zon"},
         .comments = {"//", "", ""},
         .keywords = {"addrspace align allowzero and anyframe anytype asm async await break "
                      "callconv catch comptime const continue defer else enum errdefer error "
                      "export extern fn for if inline linksection noalias noinline nosuspend "
                      "opaque or orelse packed pub resume return struct suspend switch test "
                      "threadlocal try union unreachable usingnamespace var volatile while",
                      "bool f16 f32 f64 f80 f128 i8 i16 i32 i64 i128 isize u8 u16 u32 u64 u128 "
                      "usize c_int c_uint c_long c_ulong c_char anyerror anyopaque comptime_int "
                      "comptime_float noreturn type void true false null undefined"},
         .properties = noPreprocessor()},
    };
}

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
    // Lower-case mode names and language names.
    QHash<QString, int> byMode;
};

const Table &table()
{
    static const Table built = [] {
        Table t;
        t.languages = languageList();
        static const QRegularExpression simpleSuffix(QStringLiteral("^\\*\\.[^*?\\[.]+$"));
        for (int i = 0; i < t.languages.size(); ++i) {
            const Language &language = t.languages.at(i);
            t.byName.insert(language.name, i);
            for (const QString &pattern : language.patterns) {
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
            t.byMode.insert(language.name.toLower(), i);
            for (const QString &mode : language.modes)
                t.byMode.insert(mode, i);
        }
        return t;
    }();
    return built;
}

const Language *find(const QString &name)
{
    const Table &t = table();
    const auto it = t.byName.constFind(name);
    return it == t.byName.cend() ? nullptr : &t.languages.at(*it);
}

QString nameAt(const QHash<QString, int> &index, const QString &key)
{
    const auto it = index.constFind(key);
    return it == index.cend() ? QString() : table().languages.at(*it).name;
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

QString Languages::forFileName(const QString &fileName)
{
    const Table &t = table();
    const QString baseName = QFileInfo(fileName).fileName();
    if (baseName.isEmpty())
        return {};
    if (QString exact = nameAt(t.byExactFileName, baseName); !exact.isEmpty())
        return exact;
    const qsizetype dot = baseName.lastIndexOf(QLatin1Char('.'));
    if (dot >= 0) {
        // "*.C" and "*.H" are C++ by tradition; every other suffix ignores case.
        const QString suffix = baseName.mid(dot + 1);
        if (suffix == QLatin1String("C") || suffix == QLatin1String("H"))
            return QStringLiteral("C++");
        if (QString bySuffix = nameAt(t.bySuffix, suffix.toLower()); !bySuffix.isEmpty())
            return bySuffix;
    }
    for (const auto &[pattern, index] : t.otherPatterns) {
        if (pattern.match(baseName).hasMatch())
            return t.languages.at(index).name;
    }
    return {};
}

QString Languages::forInterpreter(const QString &interpreter)
{
    return nameAt(table().byInterpreter, interpreter);
}

QString Languages::forModeName(const QString &mode)
{
    QString key = mode.trimmed().toLower();
    for (const QLatin1String suffix : {QLatin1String("-mode"), QLatin1String("-ts")}) {
        if (key.endsWith(suffix))
            key.chop(suffix.size());
    }
    return nameAt(table().byMode, key);
}

QStringList Languages::patterns(const QString &name)
{
    const Language *language = find(name);
    return language ? language->patterns : QStringList();
}

QString Languages::lexer(const QString &name)
{
    const Language *language = find(name);
    return language ? language->lexer : QString();
}

QByteArray Languages::keywords(const QString &name, int set)
{
    const Language *language = find(name);
    return language && set >= 1 && set <= language->keywords.size() ? language->keywords.at(set - 1)
                                                                    : QByteArray();
}

QList<std::pair<QByteArray, QByteArray>> Languages::lexerProperties(const QString &name)
{
    const Language *language = find(name);
    return language ? language->properties : Properties();
}

CommentSyntax Languages::commentSyntax(const QString &name)
{
    const Language *language = find(name);
    return language ? language->comments : CommentSyntax();
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
