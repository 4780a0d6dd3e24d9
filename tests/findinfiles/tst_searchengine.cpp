#include "../textcore/searchpatterns.h"
#include "filescanner.h"
#include "filewalker.h"
#include "findinfiles.h"
#include "iconvcodec.h"
#include "searchengine.h"
#include "textfilecodec.h"
#include "textmatcher.h"
#include "writefile.h"

#include <QScopeGuard>
#include <QTemporaryDir>

#include <chrono>
#include <climits>
#include <condition_variable>
#include <fcntl.h>
#include <git2.h>
#include <memory>
#include <mutex>
#include <sys/stat.h>
#include <unistd.h>

namespace {

// A search in folder (none for a matcher alone).
SearchOptions optionsFor(const QString &folder, const QString &text = QStringLiteral("needle"),
                         searchpatterns::Options flags = {})
{
    SearchOptions options;
    options.folder = folder;
    options.text = text;
    options.regularExpression = flags.testFlag(searchpatterns::R);
    options.caseSensitive = flags.testFlag(searchpatterns::C);
    options.wholeWord = flags.testFlag(searchpatterns::W);
    return options;
}

// "line:text" per hit of a file scanned as a search scans it, with a '|' where
// the hit's first match starts; or why the file gave no hits.
QStringList scanLines(const QByteArray &content, const TextMatcher &matcher, int readSize = 0)
{
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("f.txt"));
    writeFile(path, content);
    QList<TextMatcher::LineHit> hits;
    FileScanner scanner(matcher);
    if (readSize > 0)
        scanner.setReadSize(readSize);
    const FileScanner::Result result = scanner.scan(QFile::encodeName(path), hits);
    if (result != FileScanner::Result::Searched)
        return {QStringLiteral("result %1").arg(int(result))};
    QStringList lines;
    for (const auto &hit : hits)
        lines.append(QString::number(hit.line) + QLatin1Char(':') +
                     QString(hit.text).insert(hit.column, QLatin1Char('|')));
    return lines;
}

QByteArray utf16le(const char16_t *text)
{
    QByteArray bytes = QByteArray::fromHex("fffe");
    for (const char16_t *c = text; *c; ++c)
        bytes += char(*c & 0xFF) + QByteArray(1, char(*c >> 8));
    return bytes;
}

QByteArray encode(const QByteArray &utf8, const char *encoding)
{
    QByteArray bytes;
    if (!koru::sedgui::IconvCodec::fromUtf8(utf8, encoding, &bytes))
        qFatal("cannot encode the test text as %s", encoding);
    return bytes;
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
    void sharedPatternRows_data() { searchpatterns::addMatchRows(); }
    void sharedPatternRows()
    {
        QFETCH(QString, pattern);
        QFETCH(searchpatterns::Options, options);
        QFETCH(QByteArray, text);
        QFETCH(QStringList, expected);
        const TextMatcher matcher(optionsFor({}, pattern, options));
        // A faulty pattern or an empty text is refused (the core's test checks the error).
        QCOMPARE(matcher.isValid(), !pattern.isEmpty() && !expected.value(0).startsWith(u"error"));
        if (!matcher.isValid())
            return;
        QStringList wanted; // the first match of each line
        for (const QString &match : expected)
            if (wanted.isEmpty() || !match.startsWith(wanted.last().section(u':', 0, 0) + u':'))
                wanted.append(match);
        // Hits are only taken from UTF-8, which the scanner makes of other text first.
        if (!FileScanner::isValidUtf8(text.data(), text.size()))
            text = koru::sedgui::TextFileCodec::decode(text).utf8;
        QList<TextMatcher::LineHit> hits;
        matcher.findLines(text, hits);
        // Each hit: where its line's first match starts, in the line without its break.
        QStringList found;
        for (const auto &hit : hits) {
            QVERIFY(!hit.text.contains(u'\n') && !hit.text.contains(u'\r'));
            const QString want = wanted.value(found.size()).section(u':', 1);
            found << QString::number(hit.line) + u':' + hit.text.mid(hit.column, hit.length);
        }
        QCOMPARE(found, wanted);
    }
    void findsTheMatchingLines_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<QString>("text");
        QTest::addColumn<searchpatterns::Options>("flags");
        QTest::addColumn<QStringList>("expected");
        QTest::addColumn<int>("readSize"); // 0: the scanner's own

        auto row = [](const QByteArray &tag, const QByteArray &content, const char *text,
                      searchpatterns::Options flags, const QStringList &expected,
                      int readSize = 0) {
            QTest::newRow(tag.constData())
                << content << QString::fromUtf8(text) << flags << expected << readSize;
        };
        const QString binary = QStringLiteral("result %1").arg(int(FileScanner::Result::Binary));
        row("binary file", QByteArray("foo\0bar\nfoo\n", 12), "foo", {}, {binary});
        row("NUL after the first block is text", QByteArray(9000, 'x') + QByteArray("\nfoo\0\n", 6),
            "foo", {}, {QStringLiteral("2:|foo") + QChar(0)});
        row("Windows-1252", "x\n\x93q\x94 caf\xe9\n", "caf\xc3\xa9", {},
            {"2:\xe2\x80\x9cq\xe2\x80\x9d |caf\xc3\xa9"});
        row("UTF-8 byte order mark", QByteArray("\xef\xbb\xbf") + "foo\n", "foo", {}, {"1:|foo"});
        row("UTF-16 is not binary", QByteArray::fromHex("fffe61000a0066006f006f000a00"), "foo", {},
            {"2:|foo"});
        row("empty file", "", "foo", {}, {});
        row("line starts and numbers across the 4 MiB windows",
            "needle x\n" + QByteArray(4 * 1024 * 1024, 'x') + "\nneedle\nx needle", "^needle",
            searchpatterns::R, {"1:|needle x", "3:|needle"});
        // Read 8 bytes at a time: lines and line breaks split between reads.
        row("CRLF split between reads", "abcdefg\r\nneedle\rx\r\r\nneedle", "needle", {},
            {"2:|needle", "5:|needle"}, 8);
        row("a line over many reads", "x\n" + QByteArray(20, 'y') + "needle\nneedle", "needle", {},
            {"2:" + QString(20, u'y') + "|needle", "3:|needle"}, 8);
        // Cut after 32 bytes, the last 8 kept as context: the hit shows what is left of its line.
        row("a line too long is cut: a match across the cut, one hit per line",
            QByteArray(30, 'z') + "needle" + QByteArray(40, 'z') + "needle\nneedle", "needle", {},
            {"1:zzzzzz|needle" + QString(20, u'z'), "2:|needle"}, 8);
        row("UTF-16LE with BOM, decoded across reads", utf16le(u"x\n\u00e9 needle\r\nneedle"),
            "needle", {}, {"2:\xc3\xa9 |needle", "3:|needle"}, 8);
        // Legacy encodings as the editor detects them; each row's text repeats a
        // sentence so that detection has enough to go on.
        const char *japanese = "\xe6\x97\xa5\xe6\x9c\xac\xe8\xaa\x9e\xe3\x81\xae\xe6"
                               "\x96\x87\xe7\xab\xa0\xe3\x81\xa7\xe3\x81\x99\xe3\x80\x82";
        const char *chinese = "\xe8\xbf\x99\xe6\x98\xaf\xe4\xb8\xad\xe6\x96\x87\xe7"
                              "\x9a\x84\xe6\x96\x87\xe4\xbb\xb6\xe3\x80\x82";
        const char *russian = "\xd1\x8d\xd1\x82\xd0\xbe \xd1\x80\xd1\x83\xd1\x81\xd1"
                              "\x81\xd0\xba\xd0\xb8\xd0\xb9 \xd1\x82\xd0\xb5\xd0\xba"
                              "\xd1\x81\xd1\x82.";
        for (const auto &[encoding, sentence] :
             {std::pair{"SHIFT_JIS", japanese}, {"GB18030", chinese}, {"KOI8-R", russian}}) {
            const QByteArray utf8 = QByteArray(sentence) + "\n";
            const QByteArray text = utf8.repeated(20) + "needle " + sentence + '\n';
            const QString hit = QStringLiteral("21:|needle ") + QString::fromUtf8(sentence);
            row(encoding, encode(text, encoding), "needle", {}, {hit});
            // A text that is not ASCII is only found in the decoded text.
            QStringList all;
            for (int line = 1; line <= 20; ++line)
                all << QString::number(line) + ":|" + QString::fromUtf8(sentence);
            all << QStringLiteral("21:needle |") + QString::fromUtf8(sentence);
            row(QByteArray(encoding) + ", non-ASCII text", encode(text, encoding), sentence, {},
                all);
        }
    }
    void findsTheMatchingLines()
    {
        QFETCH(QByteArray, content);
        QFETCH(QString, text);
        QFETCH(searchpatterns::Options, flags);
        QFETCH(QStringList, expected);
        QFETCH(int, readSize);
        QCOMPARE(scanLines(content, TextMatcher(optionsFor({}, text, flags)), readSize), expected);
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
        QVERIFY(threadCount() > threadsBefore);
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
    // Read 64 bytes at a time; after the first read one file is cut short, one
    // deleted and one lengthened: the search ends, names them, keeps what it read.
    void filesChangedWhileReadAreNamed()
    {
        QTemporaryDir dir;
        QByteArray content;
        for (int i = 0; i < 20; ++i)
            content += "needle " + QByteArray::number(i) + '\n';
        const QString cut = dir.filePath(QStringLiteral("a-cut.txt"));
        const QString gone = dir.filePath(QStringLiteral("b-gone.txt"));
        const QString grows = dir.filePath(QStringLiteral("c-grows.txt"));
        for (const QString &file : {cut, gone, grows})
            writeFile(file, content);
        writeFile(dir.filePath(QStringLiteral("d.txt")), "needle\n");

        SearchEngine engine;
        engine.setScannerHooks(64, [&](const QByteArray &path, qint64 bytesRead) {
            if (bytesRead != 64)
                return;
            if (path == QFile::encodeName(cut)) {
                (void)truncate(path.constData(), 20);
            } else if (path == QFile::encodeName(gone)) {
                unlink(path.constData());
            } else if (path == QFile::encodeName(grows)) {
                QFile file(grows);
                if (file.open(QIODevice::Append))
                    file.write(QByteArray(100000, 'x'));
            }
        });
        Collected collected;
        collect(engine, collected);
        engine.start(optionsFor(dir.path()));
        QTRY_COMPARE(collected.summaries.size(), 1);
        const SearchSummary summary = collected.summaries.first();
        QCOMPARE(summary.changedFiles, (QStringList{cut, grows}));
        QCOMPARE(summary.deletedFiles, QStringList{gone});
        // Seven whole lines in the first 64 bytes of the cut file; the deleted one
        // is still read to its end, the lengthened one up to its old size.
        QCOMPARE(summary.hits, 7 + 20 + 20 + 1);
        const QString text = FindInFiles::summaryText(summary);
        QVERIFY2(text.contains(QLatin1String("2 changed while searched")) &&
                     text.contains(QLatin1String("1 deleted while searched")),
                 qPrintable(text));
    }
    // The first file waits in its first read until the third is read, which a
    // scanner takes only once the second is done: hits still come in walk order.
    // When the second holds more hits than may wait behind the first, its
    // scanner waits too, the first goes on after its bounded wait, and nothing
    // is lost or out of order.
    void hitsComeInWalkOrder_data()
    {
        QTest::addColumn<int>("secondHits");
        QTest::addColumn<int>("firstWaitsMs");
        QTest::newRow("one hit each") << 1 << 5000;
        QTest::newRow("second file over the held bound")
            << int(SearchEngine::MaxHeldHits) + 2 * SearchEngine::BatchHits << 500;
    }
    void hitsComeInWalkOrder()
    {
        QFETCH(int, secondHits);
        QFETCH(int, firstWaitsMs);
        QTemporaryDir dir;
        const QString a = dir.filePath(QStringLiteral("a.txt"));
        const QString b = dir.filePath(QStringLiteral("b.txt"));
        const QString c = dir.filePath(QStringLiteral("c.txt"));
        writeFile(a, "needle\n");
        writeFile(b, QByteArray("needle\n").repeated(secondHits));
        writeFile(c, "needle\n");
        std::mutex mutex;
        std::condition_variable cRead;
        bool cWasRead = false;
        SearchEngine engine;
        engine.setScannerHooks(FileScanner::ReadBytes, [&](const QByteArray &path, qint64) {
            std::unique_lock lock(mutex);
            if (path == QFile::encodeName(c)) {
                cWasRead = true;
                cRead.notify_all();
            } else if (path == QFile::encodeName(a)) {
                // Bounded: with one scanner thread nothing else is read meanwhile.
                cRead.wait_for(lock, std::chrono::milliseconds(firstWaitsMs),
                               [&] { return cWasRead; });
            }
        });
        Collected collected;
        collect(engine, collected);
        engine.start(optionsFor(dir.path()));
        QTRY_COMPARE_WITH_TIMEOUT(collected.summaries.size(), 1, 20000);
        QCOMPARE(collected.lines.size(), secondHits + 2);
        QCOMPARE(collected.lines.first(), a + QStringLiteral("(1):needle"));
        QCOMPARE(collected.lines.at(secondHits), b + QStringLiteral("(%1):needle").arg(secondHits));
        QCOMPARE(collected.lines.last(), c + QStringLiteral("(1):needle"));
        QCOMPARE(collected.summaries.first().hits, secondHits + 2);
    }
    // The GUI takes no hits until the last file is read: the hits pile up for
    // it, the scanners leave the files to one of them, and the search must
    // still end with every hit.
    void searchEndsWhileTheGuiIsBehind()
    {
        QTemporaryDir dir;
        constexpr int Files = 20;
        constexpr int HitsPerFile = 2 * SearchEngine::BatchHits;
        for (int i = 0; i < Files; ++i)
            writeFile(dir.filePath(QStringLiteral("f%1.txt").arg(i, 2, 10, QLatin1Char('0'))),
                      QByteArray("needle\n").repeated(HitsPerFile));
        const QByteArray last =
            QFile::encodeName(dir.filePath(QStringLiteral("f%1.txt").arg(Files - 1)));
        std::mutex mutex;
        std::condition_variable lastRead;
        bool lastWasRead = false;
        SearchEngine engine;
        engine.setScannerHooks(FileScanner::ReadBytes, [&](const QByteArray &path, qint64) {
            std::lock_guard lock(mutex);
            lastWasRead = lastWasRead || path == last;
            lastRead.notify_all();
        });
        Collected collected;
        collect(engine, collected);
        engine.start(optionsFor(dir.path()));
        {
            std::unique_lock lock(mutex);
            QVERIFY(lastRead.wait_for(lock, std::chrono::seconds(20), [&] { return lastWasRead; }));
        }
        QTRY_COMPARE_WITH_TIMEOUT(collected.summaries.size(), 1, 20000);
        QCOMPARE(collected.lines.size(), Files * HitsPerFile);
        QCOMPARE(collected.summaries.first().hits, Files * HitsPerFile);
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

    // Which files of a git work tree a search takes, from the top and from below it: nested
    // files, negation, anchors, info/exclude, an ignored folder no later rule reopens.
    void gitIgnoreRulesDecideWhatIsSearched_data()
    {
        QTest::addColumn<QString>("file");
        QTest::addColumn<bool>("searched");
        for (const bool searched : {true, false}) {
            for (const QString &file : gitFiles(searched))
                QTest::newRow(qPrintable(file)) << file << searched;
        }
        const QString root = m_gitTree.path() + QLatin1Char('/');
        git_libgit2_init();
        git_repository *repo = nullptr;
        QCOMPARE(git_repository_init(&repo, QFile::encodeName(root).constData(), 0), 0);
        git_repository_free(repo);
        git_libgit2_shutdown();
        writeFile(root + ".gitignore", "*.log\n!keep.log\nignored/\n/rootonly.txt\n");
        writeFile(root + "sub/.gitignore", "*.tmp\n");
        writeFile(root + ".git/info/exclude", "excluded.c\n");
        for (const QString &file : gitFiles(true) + gitFiles(false))
            writeFile(root + file, "needle\n");
    }
    void gitIgnoreRulesDecideWhatIsSearched()
    {
        QFETCH(QString, file);
        QFETCH(bool, searched);
        const QDir top(m_gitTree.path());
        for (const QString &below : {QString(), QStringLiteral("sub/")}) {
            for (const bool respect : {true, false}) {
                SearchOptions options = optionsFor(top.filePath(below));
                options.respectGitIgnore = respect;
                QStringList walked;
                FileWalker(options).walk([&](const QByteArray &path) {
                    walked.append(top.relativeFilePath(QFile::decodeName(path)));
                    return true;
                });
                if (file.startsWith(below))
                    QCOMPARE(walked.contains(file), searched || !respect);
            }
        }
    }

private:
    static QStringList gitFiles(bool searched)
    {
        return QString::fromLatin1(searched ? "a.c keep.log sub/rootonly.txt y.tmp"
                                            : "x.log ignored/f.c ignored/keep.log sub/ignored/g.c "
                                              "rootonly.txt sub/y.tmp excluded.c")
            .split(u' ');
    }
    QTemporaryDir m_gitTree;
    QTemporaryDir m_tree;
};

QTEST_GUILESS_MAIN(TestSearchEngine)
#include "tst_searchengine.moc"
