#pragma once

// Search pattern tables, data only, shared by the tests of every find built on
// SearchCore. A match is written "line:matched text" ("offset:matched text"
// for Find Previous), an invalid pattern "error at <character>: <message>".

#include "searchcore.h"

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QTest>

namespace searchpatterns {

using Options = koru::sedgui::SearchCore::Options;
constexpr auto R = koru::sedgui::SearchCore::RegularExpression;
constexpr auto C = koru::sedgui::SearchCore::CaseSensitive;
constexpr auto W = koru::sedgui::SearchCore::WholeWord;

inline void addSearchColumns()
{
    QTest::addColumn<QString>("pattern");
    QTest::addColumn<Options>("options");
    QTest::addColumn<QByteArray>("text");
}

// Columns: pattern, options, text, expected (every match from the start).
inline void addMatchRows()
{
    addSearchColumns();
    QTest::addColumn<QStringList>("expected");
    const auto row = [](const char *tag, const char *pattern, Options options, QByteArray text,
                        QStringList expected) {
        QTest::newRow(tag) << QString::fromUtf8(pattern) << options << text << expected;
    };
    row("group back-reference", "(\\w)\\1", R | C, "aabcdd", {"1:aa", "1:dd"});
    row("digit class is Unicode", "\\d+", R, "a12 b3 ٣", {"1:12", "1:3", "1:٣"});
    row("word class is Unicode", "\\w+", R, "héllo wörld_1", {"1:héllo", "1:wörld_1"});
    row("posix alpha is Unicode", "[[:alpha:]]+", R, "ab1çd", {"1:ab", "1:çd"});
    row("line start at LF CRLF CR", "^\\w", R, "a\nb\r\nc\rd", {"1:a", "2:b", "3:c", "4:d"});
    row("empty lines with mixed ends", "^$", R, "\n\r\n\rx", {"1:", "2:", "3:"});
    row("empty match steps over CRLF as one", "$", R, "a\r\nb", {"1:", "2:"});
    row("look-ahead", "\\w+(?=\\()", R, "f(x) g (y) h(z)", {"1:f", "1:h"});
    row("look-behind", "(?<=\\$)\\d+", R, "$5 6 $78", {"1:5", "1:78"});
    row("empty matches of x*", "x*", R, "éxxb", {"1:", "1:xx", "1:", "1:"});
    row("empty match at each line start", "^", R, "a\nb\nc", {"1:", "2:", "3:"});
    row("no line start after a final line end", "^", R, "a\r\n", {"1:"});
    row("word boundaries", "\\b", R, "ab cd", {"1:", "1:", "1:", "1:"});
    row("caseless beyond ASCII", "é", {}, "É e é", {"1:É", "1:é"});
    row("case-sensitive keeps É apart", "é", C, "É é", {"1:é"});
    row("whole word plain at text edges", "foo", W, "foo food xfoo foo_ foo", {"1:foo", "1:foo"});
    row("whole word regex", "fo+", R | W, "fo fooo ofoo", {"1:fo", "1:fooo"});
    row("whole word next to non-ASCII letters", "foo", W, "éfoo fooé foo", {"1:foo"});
    row("whole word starting with punctuation", "-x", W, "a-x\n-x", {"2:-x"});
    row("whole word tries other alternatives", "foo|foobar", R | W, "foobar", {"1:foobar"});
    row("invalid UTF-8 around matches", "b", {}, "\377b\303b\342\202", {"1:b", "1:b"});
    row("invalid UTF-8 ends a word", "\\w+", R, "ab\377cd", {"1:ab", "1:cd"});
    row("invalid pattern", "(ab", R, "ab", {"error at 3: missing closing parenthesis"});
    row("invalid pattern under whole word", "a)(b", R | W, "a)(b",
        {"error at 1: unmatched closing parenthesis"});
    row("plain text holds regex characters", "a.b*(c", {}, "axb a.b*(c", {"1:a.b*(c"});
    row("plain text holds \\E", "x\\E.y", {}, "x\\E.y xE.y", {"1:x\\E.y"});
    row("line numbers over mixed ends", "\\d", R, "1\n2\r\n3\r4\r\n\n5",
        {"1:1", "2:2", "3:3", "4:4", "6:5"});
    row("line numbers over a long text", "z", C, QByteArray("ab\n").repeated(3000) + "\r\nz",
        {"3002:z"});
    row("empty pattern matches nothing", "", R, "abc", {});
    // Case-sensitive plain text is searched sixteen bytes at a time.
    row("plain text across blocks, near misses", "abca", C,
        QByteArray(15, '.') + "abca" + QByteArray(13, '.') + "abxa.abcaabca\n" +
            QByteArray(40, 'a') + "bca",
        {"1:abca", "1:abca", "1:abca", "2:abca"});
    row("plain text of one byte", "x", C, "axb\nx", {"1:x", "2:x"});
    row("plain text longer than a block, at the end", "0123456789abcdefXYZ", C,
        "0123456789abcdefXYz 0123456789abcdefXYZ", {"1:0123456789abcdefXYZ"});
}

// Columns: pattern, options, text, before, expected (the previous match or "").
inline void addFindPreviousRows()
{
    addSearchColumns();
    QTest::addColumn<qsizetype>("before");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char *tag, const char *pattern, Options options, QByteArray text,
                        qsizetype before, const char *expected) {
        QTest::newRow(tag) << QString::fromUtf8(pattern) << options << text << before
                           << QString::fromUtf8(expected);
    };
    row("skips a match at the offset", "foo", {}, "foo bar foo", 8, "0:foo");
    row("match starting just before", "foo", {}, "foo bar foo", 9, "8:foo");
    row("nothing before the first", "foo", {}, "foo bar foo", 0, "");
    row("empty match at a line start", "^", R, "a\nb\nc", 4, "2:");
    row("far back in a long text", "foo", {}, "foo" + QByteArray(10000, 'x'), 10003, "0:foo");
    row("whole word skips inner hits", "ab", W, "ab xaby", 7, "0:ab");
}

// Columns: pattern, options, text, replacement, expected (every match replaced).
inline void addReplaceRows()
{
    addSearchColumns();
    QTest::addColumn<QString>("replacement");
    QTest::addColumn<QByteArray>("expected");
    const auto row = [](const char *tag, const char *pattern, Options options, QByteArray text,
                        const char *replacement, QByteArray expected) {
        QTest::newRow(tag) << QString::fromUtf8(pattern) << options << text
                           << QString::fromUtf8(replacement) << expected;
    };
    row("groups as \\N", "(\\w+)=(\\w+)", R, "a=b c=d", "\\2=\\1", "b=a d=c");
    row("$N, whole match and escapes", "(\\d)", R, "x1", "\\\\$$\\0$1", "x\\$11");
    row("unset group is empty", "(a)|b", R, "ab", "[\\1]", "[a][]");
    row("other backslashes and dollars stay", "a", R, "a", "\\n$x\\", "\\n$x\\");
    row("plain text replacement is literal", "a", {}, "a", "\\1$1", "\\1$1");
    row("each empty match replaced once", "x*", R, "axxb", "-", "-a--b-");
    row("non-ASCII group and text", "(é)", R | C, "aé", "\\1ç", "aéç");
}

} // namespace searchpatterns
