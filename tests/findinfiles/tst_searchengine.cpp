#include "searchengine.h"
#include "writefile.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QScopeGuard>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

#include <memory>
#include <optional>
#include <unistd.h>

namespace {

const char ChildDirVariable[] = "FIF_TEST_UNPRIVILEGED_DIR";

int threadCount()
{
    return int(QDir(QStringLiteral("/proc/self/task"))
                   .entryList(QDir::Dirs | QDir::NoDotAndDotDot)
                   .size());
}

// The result pane's reading of a line: the file, the line, or an empty file name.
std::pair<QString, int> parseLikeThePane(const QString &line)
{
    static const QRegularExpression hit(QStringLiteral("^(.+)\\(([^:]+)\\):(.+)$"));
    const QRegularExpressionMatch match = hit.match(line);
    if (!match.hasMatch())
        return {QString(), 0};
    return {match.captured(1), match.captured(2).toInt()};
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

SearchOptions optionsFor(const QString &folder, const QString &text = QStringLiteral("needle"))
{
    SearchOptions options;
    options.folder = folder;
    options.text = text;
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
    void everyHitLineReadsBackToItsFileAndLine();
    void endingARunningSearchLeavesNoThread_data();
    void endingARunningSearchLeavesNoThread();
    void limitAndErrorShowInTheSummary();
    void unreadableFileIsSkippedAndCounted();
};

void TestSearchEngine::everyHitLineReadsBackToItsFileAndLine()
{
    QTemporaryDir dir;
    const QString root = dir.path() + QLatin1Char('/');
    writeFile(root + "plain.c", "int f(x): needle\n\nneedle(1):2\n");
    writeFile(root + "par(1)/g (2).c", "x\nneedle here\n");
    writeFile(root + "crlf.txt", "a\r\nneedle\r\n");
    writeFile(root + "binary.bin", QByteArray("needle\0", 7));
    writeFile(root + "long.txt", QByteArray(5000, 'y') + " needle):end\n");

    const Collected collected = search(optionsFor(dir.path()));
    QCOMPARE(collected.summaries.size(), 1);
    const SearchSummary summary = collected.summaries.first();
    QCOMPARE(summary.binaryFilesSkipped, 1);
    QCOMPARE(summary.hits, 5);
    QCOMPARE(summary.filesWithHits, 4);
    QCOMPARE(collected.lines.size(), 5);
    for (const QString &line : std::as_const(collected.lines)) {
        const auto [file, number] = parseLikeThePane(line);
        QFile source(file);
        QVERIFY2(source.open(QIODevice::ReadOnly), qPrintable(line));
        const QList<QByteArray> sourceLines = source.readAll().split('\n');
        QVERIFY2(number >= 1 && number <= sourceLines.size(), qPrintable(line));
        QVERIFY2(sourceLines.at(number - 1).contains("needle"), qPrintable(line));
        QVERIFY2(line.contains(QLatin1String("needle")) && !line.contains(QLatin1Char('\r')),
                 qPrintable(line));
    }
}

void TestSearchEngine::endingARunningSearchLeavesNoThread_data()
{
    QTest::addColumn<End>("end");
    QTest::newRow("stop from the slot that shows the first batch") << End::Stop;
    QTest::newRow("start another search from that slot") << End::StartAnother;
    QTest::newRow("destroy the engine") << End::Destroy;
}

void TestSearchEngine::endingARunningSearchLeavesNoThread()
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
        QCOMPARE(parseLikeThePane(collected.lines.last()).first,
                 second.filePath(QStringLiteral("one.txt")));
    }
}

void TestSearchEngine::limitAndErrorShowInTheSummary()
{
    QTemporaryDir dir;
    writeFile(dir.filePath(QStringLiteral("a.txt")), "needle\nneedle\n");
    writeFile(dir.filePath(QStringLiteral("b.txt")), "needle\nneedle\nneedle\n");
    SearchOptions options = optionsFor(dir.path());
    options.maxHitLines = 3;
    Collected collected = search(options);
    QCOMPARE(collected.summaries.size(), 1);
    QCOMPARE(collected.lines.size(), 3);
    const SearchSummary limited = collected.summaries.first();
    QCOMPARE((QList<qint64>{limited.hits, limited.hitsNotShown, limited.filesWithHits}),
             (QList<qint64>{5, 2, 2}));

    options.text = QStringLiteral("a(b");
    options.regularExpression = true;
    collected = search(options);
    QCOMPARE(collected.summaries.size(), 1);
    QVERIFY(!collected.summaries.first().error.isEmpty());
    QCOMPARE(collected.summaries.first().filesSearched, 0);
}

void TestSearchEngine::unreadableFileIsSkippedAndCounted()
{
    const QByteArray childDir = qgetenv(ChildDirVariable);
    QString root;
    // Outside the test's own temporary folder, which only root may enter.
    std::optional<QTemporaryDir> parentDir;
    auto unlock = qScopeGuard([&] {
        if (parentDir)
            QFile::setPermissions(root + "/locked",
                                  QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    });
    if (childDir.isEmpty()) {
        parentDir.emplace(QStringLiteral("/tmp/fif-unreadable-XXXXXX"));
        QVERIFY(parentDir->isValid());
        root = parentDir->path();
        writeFile(root + "/readable.txt", "needle\n");
        writeFile(root + "/secret.txt", "needle\n");
        writeFile(root + "/locked/inner.txt", "needle\n");
        QVERIFY(QFile::setPermissions(root + "/secret.txt", {}));
        QVERIFY(QFile::setPermissions(root + "/locked", {}));
        QVERIFY(QFile::setPermissions(root, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner |
                                                QFile::ReadOther | QFile::ExeOther));
        if (geteuid() == 0) {
            // Permission checks pass for root: search again as an unprivileged user.
            const QString setpriv = QStandardPaths::findExecutable(QStringLiteral("setpriv"));
            if (setpriv.isEmpty())
                QSKIP("Running as root and setpriv is missing: cannot make a file unreadable.");
            QProcess child;
            QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
            env.insert(QString::fromLatin1(ChildDirVariable), root);
            for (const char *name : {"HOME", "TMPDIR", "XDG_CONFIG_HOME"})
                env.insert(QLatin1String(name), root);
            env.remove(QStringLiteral("XDG_RUNTIME_DIR"));
            child.setProcessEnvironment(env);
            child.setProcessChannelMode(QProcess::MergedChannels);
            child.start(setpriv, {"--reuid=65534", "--regid=65534", "--clear-groups",
                                  QCoreApplication::applicationFilePath(),
                                  "unreadableFileIsSkippedAndCounted"});
            QVERIFY(child.waitForFinished(120000));
            const QByteArray output = child.readAll();
            QVERIFY2(
                output.contains("PASS   : TestSearchEngine::unreadableFileIsSkippedAndCounted"),
                output.constData());
            return;
        }
    } else {
        root = QString::fromLocal8Bit(childDir);
        QVERIFY(geteuid() != 0);
    }

    const Collected collected = search(optionsFor(root));
    QCOMPARE(collected.summaries.size(), 1);
    const SearchSummary summary = collected.summaries.first();
    QCOMPARE(summary.unreadable, 2); // the file and the folder
    QCOMPARE(summary.hits, 1);
    QCOMPARE(collected.lines.size(), 1);
    QCOMPARE(parseLikeThePane(collected.lines.first()).first, root + "/readable.txt");
}

QTEST_GUILESS_MAIN(TestSearchEngine)
#include "tst_searchengine.moc"
