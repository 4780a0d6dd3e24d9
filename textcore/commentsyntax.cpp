#include "commentsyntax.h"

#include <array>
#include <cstring>

namespace koru::sedgui {

namespace {

struct Entry
{
    const char *language;
    const char *linePrefix;
    const char *blockStart;
    const char *blockEnd;
};

// Names as the lexers report them.
constexpr std::array s_entries{
    Entry{"AVS", "#", "/*", "*/"},
    Entry{"Bash", "#", "", ""},
    Entry{"Batch", "REM", "", ""},
    Entry{"C#", "//", "/*", "*/"},
    Entry{"C++", "//", "/*", "*/"},
    Entry{"CMake", "#", "", ""},
    Entry{"CoffeeScript", "#", "###", "###"},
    Entry{"CSS", "", "/*", "*/"},
    Entry{"D", "//", "/*", "*/"},
    Entry{"Fortran", "!", "", ""},
    Entry{"Fortran77", "!", "", ""},
    Entry{"HTML", "", "<!--", "-->"},
    Entry{"IDL", "//", "/*", "*/"},
    Entry{"Java", "//", "/*", "*/"},
    Entry{"JavaScript", "//", "/*", "*/"},
    Entry{"JSON", "//", "/*", "*/"},
    Entry{"Lua", "--", "--[[", "]]"},
    Entry{"Makefile", "#", "", ""},
    Entry{"Markdown", "", "<!--", "-->"},
    Entry{"Matlab", "%", "%{", "%}"},
    Entry{"Octave", "#", "%{", "%}"},
    Entry{"Pascal", "//", "{", "}"},
    Entry{"Perl", "#", "", ""},
    Entry{"PO", "#", "", ""},
    Entry{"PostScript", "%", "", ""},
    Entry{"POV", "//", "/*", "*/"},
    Entry{"Properties", "#", "", ""},
    Entry{"Python", "#", "", ""},
    Entry{"Ruby", "#", "=begin", "=end"},
    Entry{"Spice", "*", "", ""},
    Entry{"SQL", "--", "/*", "*/"},
    Entry{"TCL", "#", "", ""},
    Entry{"TeX", "%", "", ""},
    Entry{"Verilog", "//", "/*", "*/"},
    Entry{"VHDL", "--", "", ""},
    Entry{"XML", "", "<!--", "-->"},
    Entry{"YAML", "#", "", ""},
};

} // namespace

CommentSyntax CommentSyntax::forLanguage(const char *lexerLanguage)
{
    CommentSyntax syntax;
    if (!lexerLanguage) {
        return syntax;
    }
    for (const Entry &entry : s_entries) {
        if (std::strcmp(entry.language, lexerLanguage) == 0) {
            syntax.m_linePrefix = entry.linePrefix;
            syntax.m_blockStart = entry.blockStart;
            syntax.m_blockEnd = entry.blockEnd;
            break;
        }
    }
    return syntax;
}

} // namespace koru::sedgui
