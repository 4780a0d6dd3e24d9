#include "toolargs.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using koru::sedgui::ToolArgs;
using File = ToolArgs::File;

Q_DECLARE_METATYPE(QList<File>)

class TestToolArgs : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void parse_data();
    void parse();
    void existingFileWithColonKeepsItsName();
};

void TestToolArgs::parse_data()
{
    QTest::addColumn<QStringList>("args");
    QTest::addColumn<QList<File>>("files");
    QTest::addColumn<QStringList>("ignored");

    QTest::newRow("nothing: new document") << QStringList() << QList<File>() << QStringList();
    QTest::newRow("one path") << QStringList{"/src/a.c"} << QList<File>{{"/src/a.c", 0}}
                              << QStringList();
    QTest::newRow("relative path")
        << QStringList{"b/../a.c"} << QList<File>{{"/work/a.c", 0}} << QStringList();
    QTest::newRow("open at line") << QStringList{"/src/a.c", "-line", "42"}
                                  << QList<File>{{"/src/a.c", 42}} << QStringList();
    QTest::newRow("-line without a number")
        << QStringList{"/src/a.c", "-line"} << QList<File>{{"/src/a.c", 0}} << QStringList{"-line"};
    QTest::newRow("-line zero") << QStringList{"/src/a.c", "-line", "0"}
                                << QList<File>{{"/src/a.c", 0}} << QStringList{"-line"};
    QTest::newRow("several paths") << QStringList{"/a", "/b", "/c"}
                                   << QList<File>{{"/a", 0}, {"/b", 0}, {"/c", 0}} << QStringList();
    QTest::newRow("+N path") << QStringList{"+7", "/a", "/b"} << QList<File>{{"/a", 7}, {"/b", 0}}
                             << QStringList();
    QTest::newRow("path:N") << QStringList{"/src/x.c:12", "/src/y.c:3:9:"}
                            << QList<File>{{"/src/x.c", 12}, {"/src/y.c", 3}} << QStringList();
    QTest::newRow("unknown options skipped")
        << QStringList{"--verbose", "/a", "-x"} << QList<File>{{"/a", 0}}
        << QStringList{"--verbose", "-x"};
    QTest::newRow("after -- everything is a path")
        << QStringList{"--", "-x", "+3"} << QList<File>{{"/work/-x", 0}, {"/work/+3", 0}}
        << QStringList();
    QTest::newRow("file url") << QStringList{"file:///tmp/a%20b.txt"}
                              << QList<File>{{"/tmp/a b.txt", 0}} << QStringList();
    QTest::newRow("UTF-8 name handed over byte by byte")
        << QStringList{QString::fromLatin1("/src/caf\xc3\xa9.c")}
        << QList<File>{{QString::fromUtf8("/src/caf\xc3\xa9.c"), 0}} << QStringList();
    QTest::newRow("Latin-1 name stays")
        << QStringList{QString::fromUtf8("/src/caf\xc3\xa9.c")}
        << QList<File>{{QString::fromUtf8("/src/caf\xc3\xa9.c"), 0}} << QStringList();
    QTest::newRow("empty argument") << QStringList{""} << QList<File>() << QStringList();
}

void TestToolArgs::parse()
{
    QFETCH(QStringList, args);
    QFETCH(QList<File>, files);
    QFETCH(QStringList, ignored);

    const ToolArgs parsed = ToolArgs::parse(args, QStringLiteral("/work"));
    QCOMPARE(parsed.files.size(), files.size());
    for (qsizetype i = 0; i < files.size(); ++i) {
        QCOMPARE(parsed.files.at(i).path, files.at(i).path);
        QCOMPARE(parsed.files.at(i).line, files.at(i).line);
    }
    QCOMPARE(parsed.ignored, ignored);
}

void TestToolArgs::existingFileWithColonKeepsItsName()
{
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("odd:12"));
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.close();
    const ToolArgs parsed = ToolArgs::parse({QStringLiteral("odd:12")}, dir.path());
    QCOMPARE(parsed.files.size(), 1);
    QCOMPARE(parsed.files.first().path, path);
    QCOMPARE(parsed.files.first().line, 0);
}

QTEST_GUILESS_MAIN(TestToolArgs)
#include "tst_toolargs.moc"
