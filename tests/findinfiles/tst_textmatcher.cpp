#include "searchoptions.h"
#include "textmatcher.h"

#include <QTest>

namespace {

enum Flag { Plain = 0, Regex = 1, CaseSensitive = 2, WholeWord = 4 };

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
    QList<TextMatcher::LineHit> hits;
    matcher.findLines(QByteArrayView(content), hits);
    QStringList lines;
    for (const auto &hit : hits)
        lines.append(QString::number(hit.line) + QLatin1Char(':') + hit.text);
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
    void columnPointsAtTheFirstMatch();
    void invalidPatternsAreRefused();
};

void TestTextMatcher::findsTheMatchingLines_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("flags");
    QTest::addColumn<QStringList>("expected");

    QTest::newRow("several hits on a line give one entry")
        << QByteArray("foo foo foo\nbar\nfoo") << "foo" << int(Plain)
        << QStringList{"1:foo foo foo", "3:foo"};
    QTest::newRow("overlapping occurrences")
        << QByteArray("aaaa\nxa.a.a\n") << "a.a" << int(WholeWord) << QStringList{"2:xa.a.a"};
    QTest::newRow("overlapping occurrences, any case")
        << QByteArray("xA.a.A\n") << "a.a" << int(WholeWord) << QStringList{"1:xA.a.A"};
    QTest::newRow("case-sensitive")
        << QByteArray("Foo\nfoo\nFOO\n") << "foo" << int(CaseSensitive) << QStringList{"2:foo"};
    QTest::newRow("case-insensitive") << QByteArray("Foo\nfoo\nFOO\nf0o\n") << "fOo" << int(Plain)
                                      << QStringList{"1:Foo", "2:foo", "3:FOO"};
    QTest::newRow("case-insensitive beyond ASCII")
        << QByteArray("ÉCOLE\nécole\necole\n") << QString::fromUtf8("école") << int(Plain)
        << QStringList{QString::fromUtf8("1:ÉCOLE"), QString::fromUtf8("2:école")};
    QTest::newRow("whole word at line edges")
        << QByteArray("foo\nfoobar\nbar foo\n_foo\nfoo_\nfoo.\nfoo1\n") << "foo"
        << int(WholeWord | CaseSensitive) << QStringList{"1:foo", "3:bar foo", "6:foo."};
    QTest::newRow("whole word next to a non-ASCII letter")
        << QByteArray("éfoo\nfooé\n(foo)\n") << "foo" << int(WholeWord) << QStringList{"3:(foo)"};
    QTest::newRow("whole word regex")
        << QByteArray("int x1;\nint x;\n") << "x\\d?" << int(Regex | WholeWord)
        << QStringList{"1:int x1;", "2:int x;"};
    QTest::newRow("regex start anchor")
        << QByteArray(" foo\nfoo bar\n") << "^foo" << int(Regex) << QStringList{"2:foo bar"};
    QTest::newRow("regex end anchor before CRLF")
        << QByteArray("bar \r\nfoo bar\r\n") << "bar$" << int(Regex) << QStringList{"2:foo bar"};
    QTest::newRow("regex empty line")
        << QByteArray("a\n\nb\n") << "^$" << int(Regex) << QStringList{"2:"};
    QTest::newRow("regex case-insensitive")
        << QByteArray("Alpha\nbeta\n") << "a.p" << int(Regex) << QStringList{"1:Alpha"};
    QTest::newRow("CRLF leaves no carriage return")
        << QByteArray("one foo\r\ntwo\r\nfoo\r\n") << "foo" << int(Plain)
        << QStringList{"1:one foo", "3:foo"};
    QTest::newRow("no final newline")
        << QByteArray("a\nb foo") << "foo" << int(Plain) << QStringList{"2:b foo"};
    QTest::newRow("match at the very end")
        << QByteArray("a\nfoo") << "foo" << int(WholeWord) << QStringList{"2:foo"};
    QTest::newRow("empty lines are counted") << QByteArray("\n\n\n\nfoo\n\n\nfoo\n") << "foo"
                                             << int(Plain) << QStringList{"5:foo", "8:foo"};
    QTest::newRow("regex special characters as plain text")
        << QByteArray("a.b\naxb\n") << "a.b" << int(Plain) << QStringList{"1:a.b"};
    QTest::newRow("no match") << QByteArray("abc\n") << "xyz" << int(Plain) << QStringList{};
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
        QByteArray content(window + offset - 1, 'x');
        content += "\nneedle here\n";
        QCOMPARE(findLines(content, QStringLiteral("needle"), CaseSensitive),
                 QStringList{"2:needle here"});
        QCOMPARE(findLines(content, QStringLiteral("NEEDLE"), Plain), QStringList{"2:needle here"});
    }
}

void TestTextMatcher::columnPointsAtTheFirstMatch()
{
    SearchOptions options;
    options.text = QStringLiteral("foo");
    const TextMatcher matcher(options);
    QList<TextMatcher::LineHit> hits;
    matcher.findLines(QByteArrayView("x\néé foo foo\n"), hits);
    QCOMPARE(hits.size(), 1);
    QCOMPARE(hits.first().text.mid(hits.first().column, 3), QStringLiteral("foo"));
}

void TestTextMatcher::invalidPatternsAreRefused()
{
    QCOMPARE(findLines("a(b", QStringLiteral("a(b"), Regex), QStringList{"invalid"});
    QCOMPARE(findLines("a(b", QString(), Plain), QStringList{"invalid"});
    QCOMPARE(findLines("a(b", QStringLiteral("a(b"), Plain), QStringList{"1:a(b"});
}

QTEST_GUILESS_MAIN(TestTextMatcher)
#include "tst_textmatcher.moc"
