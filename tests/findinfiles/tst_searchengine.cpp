#include "filescanner.h"
#include "searchengine.h"
#include "textmatcher.h"
#include "writefile.h"

#include <QScopeGuard>
#include <QTemporaryDir>

#include <climits>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>

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

int threadCount()
{
    return int(QDir(QStringLiteral("/proc/self/task"), {}, QDir::NoSort, QDir::Dirs).count()) - 2;
}

struct Collected
{
    QStringList lines;
    QList<SearchSummary> summaries;
};

void collect(SearchEngine &engine, Collected &collected)
{
    QObject::connect(&engine, &SearchEngine::hitsReady, &engine,
                     [&collected](const QString &lines, int count) {
                         const QStringList batch = lines.split(QLatin1Char('\n'));
                         QCOMPARE(batch.size(), count);
                         collected.lines += batch;
                     });
    QObject::connect(
        &engine, &SearchEngine::finished, &engine,
        [&collected](const SearchSummary &summary) { collected.summaries.append(summary); });
}

SearchOptions optionsFor(const QString &folder)
{
    SearchOptions options;
    options.folder = folder;
    options.text = QStringLiteral("needle");
    return options;
}

// Runs one search to its end on a fresh engine; the caller checks that it ended once.
Collected search(const SearchOptions &options)
{
    SearchEngine engine;
    Collected collected;
    collect(engine, collected);
    engine.start(options);
    (void)QTest::qWaitFor([&] { return !collected.summaries.isEmpty(); });
    return collected;
}

// More hit batches than the queue holds: the worker cannot end until the GUI
// has taken some, so a search ended while the first batch is shown is still running.
void writeManyHits(const QString &path)
{
    QByteArray content;
    for (int i = 0; i < int(SearchEngine::MaxPendingBatches + 2) * SearchEngine::BatchHits; ++i)
        content += "needle " + QByteArray::number(i) + '\n';
    writeFile(path, content);
}

enum class End { Stop, StartAnother, Destroy };

} // namespace

class TestSearchEngine : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QVERIFY(m_tree.isValid());
        const QString root = m_tree.path() + QLatin1Char('/');
        for (const char *name :
             {"a.c", "b.h", "sub/c.cpp", "sub/deep/d.txt", ".hidden/e.c", ".f.c", ".git/config",
              "build/out.c", "node_modules/m.js", "par(1)/g (2).c", "other/x.c"})
            writeFile(root + QLatin1String(name), "needle\n");
        // A link back to the root, one to a folder walked anyway and one to nowhere.
        QVERIFY(QFile::link(m_tree.path(), root + QStringLiteral("sub/deep/loop")));
        QVERIFY(QFile::link(root + QStringLiteral("sub"), root + QStringLiteral("sublink")));
        QVERIFY(QFile::link(root + QStringLiteral("gone"), root + QStringLiteral("dangling.c")));
        QVERIFY(QFile::link(root + QStringLiteral("a.c"), root + QStringLiteral("z-link.c")));
    }
    void findsTheMatchingLines_data()
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
        row("hits on a line give one entry", "foo foo foo\nbar\nfoo", "foo", Plain,
            {"1:foo foo foo", "3:foo"});
        row("column after non-ASCII", "x\n\xc3\xa9\xc3\xa9 foo foo\n", "foo", Plain,
            {"2:éé foo foo"});
        row("overlapping occurrences", "aaaa\nxA.a.A\n", "a.a", WholeWord, {"2:xA.a.A"});
        row("case-sensitive", "Foo\nfoo\nFOO\n", "foo", CaseSensitive, {"2:foo"});
        row("case-insensitive", "Foo\nfoo\nFOO\nf0o\n", "fOo", Plain, {"1:Foo", "2:foo", "3:FOO"});
        row("any case beyond ASCII", "ÉCOLE\nécole\necole\n", "école", Plain,
            {"1:ÉCOLE", "2:école"});
        row("whole word at line and file edges",
            "foo\nfoobar\nbar foo\n_foo\nfoo_\nfoo.\nfoo1\nfoo", "foo", WholeWord | CaseSensitive,
            {"1:foo", "3:bar foo", "6:foo.", "8:foo"});
        row("whole word by a non-ASCII letter", "éfoo\nfooé\n(foo)\n", "foo", WholeWord,
            {"3:(foo)"});
        row("whole word regex", "int x1;\nint x;\n", "x\\d?", Regex | WholeWord,
            {"1:int x1;", "2:int x;"});
        row("regex start anchor", " foo\nfoo bar\n", "^foo", Regex, {"2:foo bar"});
        row("regex end anchor before CRLF", "bar \r\nfoo bar\r\n", "bar$", Regex, {"2:foo bar"});
        row("regex empty line", "a\n\nb\n", "^$", Regex, {"2:"});
        row("regex case-insensitive", "Alpha\nbeta\n", "a.p", Regex, {"1:Alpha"});
        row("CRLF leaves no CR", "one foo\r\ntwo\r\nfoo\r\n", "foo", Plain, {"1:one foo", "3:foo"});
        row("regex characters as plain text", "a.b\naxb\na(b\n", "a.b", Plain, {"1:a.b"});
        row("invalid regex", "a(b", "a(b", Regex, {"invalid"});
        row("empty text", "a(b", "", Plain, {"invalid"});
        row("binary file", QByteArray("foo\0bar\nfoo\n", 12), "foo", Plain, {binary});
        row("NUL after the first block is text", QByteArray(9000, 'x') + QByteArray("\nfoo\0\n", 6),
            "foo", Plain, {QStringLiteral("2:foo") + QChar(0)});
        row("Windows-1252", "x\n\x93q\x94 caf\xe9\n", "caf\xc3\xa9", Plain,
            {"2:\xe2\x80\x9cq\xe2\x80\x9d caf\xc3\xa9"});
        row("UTF-8 byte order mark", QByteArray("\xef\xbb\xbf") + "foo\n", "foo", Plain, {"1:foo"});
        row("UTF-16 is not binary", QByteArray::fromHex("fffe61000a0066006f006f000a00"), "foo",
            Plain, {"2:foo"});
        row("empty file", "", "foo", Plain, {});
        row("any case, straddling the 4 MiB windows the plain search reads",
            QByteArray(4 * 1024 * 1024 - 6, 'x') + "\nneedle\n", "NEEDLE", Plain, {"2:needle"});
    }
    void findsTheMatchingLines()
    {
        QFETCH(QByteArray, content);
        QFETCH(QString, text);
        QFETCH(int, flags);
        QFETCH(QStringList, expected);
        QCOMPARE(findLines(content, text, flags), expected);
    }
    void walksTheFilesToSearch_data()
    {
        QTest::addColumn<QString>("include");
        QTest::addColumn<QString>("exclude");
        QTest::addColumn<bool>("hidden");
        QTest::addColumn<QString>("expected");

        QTest::newRow("defaults skip hidden, version-control and build folders; links once")
            << ""
            << "" << false << "a.c|b.h|z-link.c|other/x.c|par(1)/g (2).c|sub/c.cpp|sub/deep/d.txt";
        QTest::newRow("include globs, hidden files; defaults still exclude")
            << "*.c; *.h"
            << "" << true << ".f.c|a.c|b.h|z-link.c|.hidden/e.c|other/x.c|par(1)/g (2).c";
        QTest::newRow("exclude a folder and a file glob; a link still reaches the folder")
            << ""
            << ";sub;*.h" << false
            << "a.c|z-link.c|other/x.c|par(1)/g (2).c|sublink/c.cpp|sublink/deep/d.txt";
    }
    void walksTheFilesToSearch()
    {
        QFETCH(QString, include);
        QFETCH(QString, exclude);
        QFETCH(bool, hidden);
        QFETCH(QString, expected);

        SearchOptions options = optionsFor(m_tree.path());
        options.includeGlobs = SearchOptions::splitGlobs(include);
        options.excludeGlobs += SearchOptions::splitGlobs(exclude);
        options.includeHidden = hidden;
        const Collected collected = search(options);
        QCOMPARE(collected.summaries.size(), 1);
        QCOMPARE(collected.summaries.first().unreadable, 0);
        QStringList walked;
        const QString prefix = QDir::cleanPath(m_tree.path()) + QLatin1Char('/');
        for (const QString &line : collected.lines)
            walked.append(line.mid(prefix.size()).remove(QStringLiteral("(1):needle")));
        QCOMPARE(walked.join(u'|'), expected);
    }
    void endingARunningSearchLeavesNoThread_data()
    {
        QTest::addColumn<End>("end");
        QTest::newRow("stop from the slot that shows the first batch") << End::Stop;
        QTest::newRow("start another search from that slot") << End::StartAnother;
        QTest::newRow("destroy the engine") << End::Destroy;
    }
    void endingARunningSearchLeavesNoThread()
    {
        QFETCH(End, end);
        QTemporaryDir first;
        QTemporaryDir second;
        writeManyHits(first.filePath(QStringLiteral("many.txt")));
        writeFile(second.filePath(QStringLiteral("one.txt")), "a needle\n");
        const int threadsBefore = threadCount();

        auto engine = std::make_unique<SearchEngine>();
        Collected collected;
        collect(*engine, collected);
        connect(engine.get(), &SearchEngine::hitsReady, engine.get(), [&] {
            if (end == End::Stop)
                engine->stop();
            else if (end == End::StartAnother && collected.summaries.isEmpty())
                engine->start(optionsFor(second.path()));
        });
        engine->start(optionsFor(first.path()));
        QVERIFY(engine->isRunning());
        QCOMPARE(threadCount(), threadsBefore + 1);
        if (end == End::Destroy) {
            engine.reset();
            QCOMPARE(threadCount(), threadsBefore);
            return;
        }

        const int searches = end == End::StartAnother ? 2 : 1;
        QTRY_COMPARE(collected.summaries.size(), searches);
        QVERIFY(!engine->isRunning());
        QCOMPARE(threadCount(), threadsBefore);
        // The first search showed its first batch only: nothing of it follows the end.
        QVERIFY(collected.summaries.first().cancelled);
        QCOMPARE(collected.summaries.first().hits, SearchEngine::BatchHits);
        QCOMPARE(collected.lines.size(), SearchEngine::BatchHits + searches - 1);
        if (end == End::StartAnother) {
            QVERIFY(!collected.summaries.last().cancelled);
            QCOMPARE(collected.summaries.last().hits, 1);
            QCOMPARE(collected.lines.last(),
                     second.filePath(QStringLiteral("one.txt(1):a needle")));
        }
    }
    void limitBinaryAndErrorShowInTheSummary()
    {
        QTemporaryDir dir;
        writeFile(dir.filePath(QStringLiteral("a.txt")), "needle\nneedle\n");
        writeFile(dir.filePath(QStringLiteral("b.txt")), "needle\nneedle\nneedle\n");
        writeFile(dir.filePath(QStringLiteral("c.bin")), QByteArray("needle\0", 7));
        SearchOptions options = optionsFor(dir.path());
        options.maxHitLines = 3;
        Collected collected = search(options);
        QCOMPARE(collected.summaries.size(), 1);
        QCOMPARE(collected.lines.size(), 3);
        const SearchSummary limited = collected.summaries.first();
        QCOMPARE((QList<qint64>{limited.hits, limited.hitsNotShown, limited.filesWithHits,
                                limited.binaryFilesSkipped}),
                 (QList<qint64>{5, 2, 2, 1}));

        options.text = QStringLiteral("a(b");
        options.regularExpression = true;
        collected = search(options);
        QCOMPARE(collected.summaries.size(), 1);
        QVERIFY(!collected.summaries.first().error.isEmpty());
        QCOMPARE(collected.summaries.first().filesSearched, 0);
    }
    // A path longer than the system takes cannot be opened, not even by root: a file and a
    // folder whose paths just pass that length are unreadable entries of the tree.
    void unreadableEntriesAreSkippedAndCounted()
    {
        QTemporaryDir dir;
        QString deep = dir.path();
        while (deep.size() < PATH_MAX - 250)
            deep += QLatin1Char('/') + QString(100, QLatin1Char('d'));
        writeFile(deep + QStringLiteral("/readable.txt"), "needle\n");
        const int deepFd = open(QFile::encodeName(deep).constData(), O_RDONLY | O_DIRECTORY);
        QVERIFY(deepFd >= 0);
        const QByteArray file = 'f' + QByteArray(249, 'x'), folder = 'd' + QByteArray(249, 'x');
        auto cleanup = qScopeGuard([&] {
            unlinkat(deepFd, file.constData(), 0);
            unlinkat(deepFd, folder.constData(), AT_REMOVEDIR);
            close(deepFd);
        });
        const int fileFd = openat(deepFd, file.constData(), O_WRONLY | O_CREAT, 0644);
        QVERIFY(fileFd >= 0 && write(fileFd, "needle\n", 7) == 7 && close(fileFd) == 0);
        QVERIFY(mkdirat(deepFd, folder.constData(), 0755) == 0);

        const Collected collected = search(optionsFor(dir.path()));
        QCOMPARE(collected.summaries.size(), 1);
        QCOMPARE(collected.summaries.first().unreadable, 2);
        QCOMPARE(collected.summaries.first().hits, 1);
        QCOMPARE(collected.lines, QStringList{deep + QStringLiteral("/readable.txt(1):needle")});
    }

private:
    QTemporaryDir m_tree;
};

QTEST_GUILESS_MAIN(TestSearchEngine)
#include "tst_searchengine.moc"
