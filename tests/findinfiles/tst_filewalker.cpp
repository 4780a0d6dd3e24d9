#include "filescanner.h"
#include "filewalker.h"
#include "searchoptions.h"
#include "textmatcher.h"
#include "writefile.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <unistd.h>

class TestFileWalker : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void walksTheFilesToSearch_data();
    void walksTheFilesToSearch();
    void scansFilesAsTheEditorDecodesThem_data();
    void scansFilesAsTheEditorDecodesThem();

private:
    QTemporaryDir m_tree;
};

void TestFileWalker::initTestCase()
{
    QVERIFY(m_tree.isValid());
    const QString root = m_tree.path() + QLatin1Char('/');
    for (const char *name :
         {"a.c", "b.h", "sub/c.cpp", "sub/deep/d.txt", ".hidden/e.c", ".f.c", ".git/config",
          "build/out.c", "node_modules/m.js", "par(1)/g (2).c", "other/x.c"})
        writeFile(root + QLatin1String(name), "text\n");
    // A link back to the root, one to a folder walked anyway and one to nowhere.
    QVERIFY(QFile::link(m_tree.path(), root + QStringLiteral("sub/deep/loop")));
    QVERIFY(QFile::link(root + QStringLiteral("sub"), root + QStringLiteral("sublink")));
    QVERIFY(QFile::link(root + QStringLiteral("gone"), root + QStringLiteral("dangling.c")));
    QVERIFY(QFile::link(root + QStringLiteral("a.c"), root + QStringLiteral("z-link.c")));
}

void TestFileWalker::walksTheFilesToSearch_data()
{
    QTest::addColumn<QString>("include");
    QTest::addColumn<QString>("exclude");
    QTest::addColumn<bool>("hidden");
    QTest::addColumn<QStringList>("expected");

    const QString defaults = SearchOptions::defaultExcludeGlobs().join(QLatin1Char(';'));
    auto files = [](const char *list) { return QString::fromLatin1(list).split(u'|'); };
    QTest::newRow("defaults skip hidden, version-control and build folders; links once")
        << "" << defaults << false
        << files("a.c|b.h|z-link.c|other/x.c|par(1)/g (2).c|sub/c.cpp|sub/deep/d.txt");
    QTest::newRow("include globs")
        << "*.c; *.h" << defaults << false << files("a.c|b.h|z-link.c|other/x.c|par(1)/g (2).c");
    QTest::newRow("exclude a folder and a file glob; a link still reaches the folder")
        << "" << defaults + ";sub;*.h" << false
        << files("a.c|z-link.c|other/x.c|par(1)/g (2).c|sublink/c.cpp|sublink/deep/d.txt");
    QTest::newRow("hidden files") << "*.c" << defaults << true
                                  << files(
                                         ".f.c|a.c|z-link.c|.hidden/e.c|other/x.c|par(1)/g (2).c");
    QTest::newRow("nothing excluded")
        << ""
        << "" << true
        << files(".f.c|a.c|b.h|z-link.c|.git/config|.hidden/e.c|build/out.c|node_modules/m.js|"
                 "other/x.c|par(1)/g (2).c|sub/c.cpp|sub/deep/d.txt");
}

void TestFileWalker::walksTheFilesToSearch()
{
    QFETCH(QString, include);
    QFETCH(QString, exclude);
    QFETCH(bool, hidden);
    QFETCH(QStringList, expected);

    SearchOptions options;
    options.folder = m_tree.path();
    options.includeGlobs = SearchOptions::splitGlobs(include);
    options.excludeGlobs = SearchOptions::splitGlobs(exclude);
    options.includeHidden = hidden;
    FileWalker walker(options);
    QStringList walked;
    const QString prefix = QDir::cleanPath(m_tree.path()) + QLatin1Char('/');
    QVERIFY(walker.walk([&](const QByteArray &path) {
        walked.append(QFile::decodeName(path).mid(prefix.size()));
        return true;
    }));
    QCOMPARE(walked, expected);
    QCOMPARE(walker.unreadableFolders(), 0);
}

void TestFileWalker::scansFilesAsTheEditorDecodesThem_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("result");
    QTest::addColumn<QStringList>("expected");

    const int searched = int(FileScanner::Result::Searched);
    const int binary = int(FileScanner::Result::Binary);
    QTest::newRow("binary file") << QByteArray("foo\0bar\nfoo\n", 12) << "foo" << binary
                                 << QStringList{};
    QTest::newRow("NUL after the first block is text")
        << QByteArray(9000, 'x') + QByteArray("\nfoo\0\n", 6) << "foo" << searched
        << QStringList{QStringLiteral("2:foo") + QChar(0)};
    QTest::newRow("Latin-1 text, ASCII search")
        << QByteArray("caf\xe9 foo\n") << "foo" << searched
        << QStringList{QString::fromUtf8("1:caf\xc3\xa9 foo")};
    QTest::newRow("Latin-1 text, non-ASCII search")
        << QByteArray("x\ncaf\xe9 au lait\n") << QString::fromUtf8("caf\xc3\xa9") << searched
        << QStringList{QString::fromUtf8("2:caf\xc3\xa9 au lait")};
    QTest::newRow("Windows-1252 quotes")
        << QByteArray("\x93quoted\x94 foo\n") << "foo" << searched
        << QStringList{QString::fromUtf8("1:\xe2\x80\x9cquoted\xe2\x80\x9d foo")};
    QTest::newRow("UTF-8 with a byte order mark") << QByteArray("\xef\xbb\xbf"
                                                                "foo\n")
                                                  << "foo" << searched << QStringList{"1:foo"};
    QTest::newRow("UTF-16 with a byte order mark is not binary")
        << QByteArray("\xff\xfe"
                      "a\0\n\0f\0o\0o\0\n\0",
                      14)
        << "foo" << searched << QStringList{"2:foo"};
    QTest::newRow("empty file") << QByteArray() << "foo" << searched << QStringList{};
}

void TestFileWalker::scansFilesAsTheEditorDecodesThem()
{
    QFETCH(QByteArray, content);
    QFETCH(QString, text);
    QFETCH(int, result);
    QFETCH(QStringList, expected);

    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("f.txt"));
    writeFile(path, content);
    SearchOptions options;
    options.text = text;
    const TextMatcher matcher(options);
    FileScanner scanner(matcher);
    QList<TextMatcher::LineHit> hits;
    QCOMPARE(int(scanner.scan(QFile::encodeName(path), hits)), result);
    QStringList lines;
    for (const auto &hit : hits)
        lines.append(QString::number(hit.line) + QLatin1Char(':') + hit.text);
    QCOMPARE(lines, expected);
}

QTEST_GUILESS_MAIN(TestFileWalker)
#include "tst_filewalker.moc"
