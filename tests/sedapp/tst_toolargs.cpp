#include "toolargs.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using koru::sedgui::ToolArgs;

class TestToolArgs : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void parse_data();
    void parse();

private:
    QTemporaryDir m_work; // holds a file named "odd:12"
};

void TestToolArgs::initTestCase()
{
    QFile file(m_work.filePath(QStringLiteral("odd:12")));
    QVERIFY(file.open(QIODevice::WriteOnly));
}

// The files as "path@line", W standing for the working folder, then the
// arguments skipped, after "ignoring".
void TestToolArgs::parse_data()
{
    QTest::addColumn<QStringList>("args");
    QTest::addColumn<QString>("expected");

    const QString utf8 = QString::fromUtf8("/src/caf\xc3\xa9.c");
    QTest::newRow("nothing: new document") << QStringList() << "";
    QTest::newRow("empty argument") << QStringList{""} << "";
    QTest::newRow("relative path") << QStringList{"b/../a.c"} << "W/a.c@0";
    QTest::newRow("open at line") << QStringList{"/a.c", "-line", "42"} << "/a.c@42";
    QTest::newRow("-line without a number")
        << QStringList{"/a.c", "-line"} << "/a.c@0 ignoring -line";
    QTest::newRow("-line zero") << QStringList{"/a.c", "-line", "0"} << "/a.c@0 ignoring -line";
    QTest::newRow("+N applies to the next path") << QStringList{"+7", "/a", "/b"} << "/a@7 /b@0";
    QTest::newRow("path:N, path:N:column:")
        << QStringList{"/x.c:12", "/y.c:3:9:"} << "/x.c@12 /y.c@3";
    QTest::newRow("existing file with a colon keeps its name")
        << QStringList{"odd:12"} << "W/odd:12@0";
    QTest::newRow("unknown options skipped")
        << QStringList{"--verbose", "/a", "-x"} << "/a@0 ignoring --verbose -x";
    QTest::newRow("after -- everything is a path")
        << QStringList{"--", "-x", "+3"} << "W/-x@0 W/+3@0";
    QTest::newRow("file url") << QStringList{"file:///tmp/a%20b.txt"} << "/tmp/a b.txt@0";
    QTest::newRow("UTF-8 name handed over byte by byte")
        << QStringList{QString::fromLatin1(utf8.toUtf8())} << utf8 + "@0";
    QTest::newRow("Latin-1 name stays") << QStringList{utf8} << utf8 + "@0";
}

void TestToolArgs::parse()
{
    QFETCH(QStringList, args);
    QFETCH(QString, expected);

    const ToolArgs parsed = ToolArgs::parse(args, m_work.path());
    QStringList found;
    for (const ToolArgs::File &file : parsed.files)
        found << QStringLiteral("%1@%2").arg(file.path).arg(file.line);
    if (!parsed.ignored.isEmpty())
        found << QStringLiteral("ignoring") << parsed.ignored;
    QCOMPARE(found.join(u' '), QString(expected).replace(u'W', m_work.path()));
}

QTEST_GUILESS_MAIN(TestToolArgs)
#include "tst_toolargs.moc"
