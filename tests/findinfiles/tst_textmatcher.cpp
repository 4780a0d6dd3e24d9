#include "filescanner.h"
#include "searchoptions.h"
#include "textmatcher.h"
#include "writefile.h"

#include <QTemporaryDir>
#include <QTest>

namespace {

enum Flag { Plain = 0, Regex = 1, CaseSensitive = 2, WholeWord = 4 };

// "line:text" per hit of a file scanned as a search scans it; a plain search also
// checks that the hit's column points at a match.
QStringList findLines(const QByteArray &content, const QString &text, int flags)
{
    SearchOptions options;
    options.text = text;
    options.regularExpression = flags & Regex;
    options.caseSensitive = flags & CaseSensitive;
    options.wholeWord = flags & WholeWord;
    const TextMatcher matcher(options);
    if (!matcher.isValid())
        return {QStringLiteral("invalid")};
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("f.txt"));
    writeFile(path, content);
    QList<TextMatcher::LineHit> hits;
    const FileScanner::Result result = FileScanner(matcher).scan(QFile::encodeName(path), hits);
    if (result != FileScanner::Result::Searched)
        return {QStringLiteral("result %1").arg(int(result))};
    QStringList lines;
    for (const auto &hit : hits) {
        lines.append(QString::number(hit.line) + QLatin1Char(':') + hit.text);
        if (!(flags & Regex) &&
            hit.text.mid(hit.column, text.size()).compare(text, Qt::CaseInsensitive) != 0)
            lines.append(QStringLiteral("wrong column %1").arg(hit.column));
    }
    return lines;
}

} // namespace

class TestTextMatcher : public QObject
{
    Q_OBJECT

private slots:
    void findsTheMatchingLines_data();
    void findsTheMatchingLines();
    void matchStraddlingTheCancelWindowIsFound();
};

void TestTextMatcher::findsTheMatchingLines_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("flags");
    QTest::addColumn<QStringList>("expected");

    auto row = [](const char *tag, const QByteArray &content, const char *text, int flags,
                  const QStringList &expected) {
        QTest::newRow(tag) << content << QString::fromUtf8(text) << flags << expected;
    };
    const QString binary = QStringLiteral("result %1").arg(int(FileScanner::Result::Binary));
    row("several hits on a line give one entry", "foo foo foo\nbar\nfoo", "foo", Plain,
        {"1:foo foo foo", "3:foo"});
    row("column after non-ASCII text", "x\n\xc3\xa9\xc3\xa9 foo foo\n", "foo", Plain,
        {QString::fromUtf8("2:éé foo foo")});
    row("overlapping occurrences", "aaaa\nxa.a.a\n", "a.a", WholeWord, {"2:xa.a.a"});
    row("overlapping occurrences, any case", "xA.a.A\n", "a.a", WholeWord, {"1:xA.a.A"});
    row("case-sensitive", "Foo\nfoo\nFOO\n", "foo", CaseSensitive, {"2:foo"});
    row("case-insensitive", "Foo\nfoo\nFOO\nf0o\n", "fOo", Plain, {"1:Foo", "2:foo", "3:FOO"});
    row("case-insensitive beyond ASCII", "ÉCOLE\nécole\necole\n", "école", Plain,
        {QString::fromUtf8("1:ÉCOLE"), QString::fromUtf8("2:école")});
    row("whole word at line edges", "foo\nfoobar\nbar foo\n_foo\nfoo_\nfoo.\nfoo1\n", "foo",
        WholeWord | CaseSensitive, {"1:foo", "3:bar foo", "6:foo."});
    row("whole word next to a non-ASCII letter", "éfoo\nfooé\n(foo)\n", "foo", WholeWord,
        {"3:(foo)"});
    row("whole word regex", "int x1;\nint x;\n", "x\\d?", Regex | WholeWord,
        {"1:int x1;", "2:int x;"});
    row("regex start anchor", " foo\nfoo bar\n", "^foo", Regex, {"2:foo bar"});
    row("regex end anchor before CRLF", "bar \r\nfoo bar\r\n", "bar$", Regex, {"2:foo bar"});
    row("regex empty line", "a\n\nb\n", "^$", Regex, {"2:"});
    row("regex case-insensitive", "Alpha\nbeta\n", "a.p", Regex, {"1:Alpha"});
    row("CRLF leaves no carriage return", "one foo\r\ntwo\r\nfoo\r\n", "foo", Plain,
        {"1:one foo", "3:foo"});
    row("match at the very end", "a\nfoo", "foo", WholeWord, {"2:foo"});
    row("regex special characters as plain text", "a.b\naxb\na(b\n", "a.b", Plain, {"1:a.b"});
    row("invalid regex", "a(b", "a(b", Regex, {"invalid"});
    row("empty text", "a(b", "", Plain, {"invalid"});
    row("binary file", QByteArray("foo\0bar\nfoo\n", 12), "foo", Plain, {binary});
    row("NUL after the first block is text", QByteArray(9000, 'x') + QByteArray("\nfoo\0\n", 6),
        "foo", Plain, {QStringLiteral("2:foo") + QChar(0)});
    row("Latin-1 text, ASCII search", "caf\xe9 foo\n", "foo", Plain,
        {QString::fromUtf8("1:caf\xc3\xa9 foo")});
    row("Latin-1 text, non-ASCII search", "x\ncaf\xe9 au lait\n", "caf\xc3\xa9", Plain,
        {QString::fromUtf8("2:caf\xc3\xa9 au lait")});
    row("Windows-1252 quotes", "\x93quoted\x94 foo\n", "foo", Plain,
        {QString::fromUtf8("1:\xe2\x80\x9cquoted\xe2\x80\x9d foo")});
    row("UTF-8 with a byte order mark", QByteArray("\xef\xbb\xbf") + "foo\n", "foo", Plain,
        {"1:foo"});
    row("UTF-16 with a byte order mark is not binary",
        QByteArray::fromHex("fffe61000a0066006f006f000a00"), "foo", Plain, {"2:foo"});
    row("empty file", "", "foo", Plain, {});
}

void TestTextMatcher::findsTheMatchingLines()
{
    QFETCH(QByteArray, content);
    QFETCH(QString, text);
    QFETCH(int, flags);
    QFETCH(QStringList, expected);
    QCOMPARE(findLines(content, text, flags), expected);
}

void TestTextMatcher::matchStraddlingTheCancelWindowIsFound()
{
    // The fixed-string search looks at 4 MiB windows at a time.
    const qsizetype window = 4 * 1024 * 1024;
    for (qsizetype offset : {qsizetype(-5), qsizetype(-3), qsizetype(0)}) {
        const QByteArray content = QByteArray(window + offset - 1, 'x') + "\nneedle here\n";
        QCOMPARE(findLines(content, QStringLiteral("needle"), CaseSensitive),
                 QStringList{"2:needle here"});
        QCOMPARE(findLines(content, QStringLiteral("NEEDLE"), Plain), QStringList{"2:needle here"});
    }
}

QTEST_GUILESS_MAIN(TestTextMatcher)
#include "tst_textmatcher.moc"
