#include "searchengine.h"

#include "filenameescape.h"
#include "filescanner.h"
#include "filewalker.h"
#include "hitformatter.h"
#include "textmatcher.h"

#include <QFile>
#include <QMetaObject>

#include <chrono>
#include <climits>
#include <condition_variable>
#include <deque>
#include <mutex>

namespace {

// A batch not yet full is handed over once it is this old.
constexpr auto BatchAge = std::chrono::milliseconds(40);
// Time one turn of the event loop spends handing batches on.
constexpr qint64 DeliverySliceMs = 4;
constexpr int ProgressIntervalMs = 100;

} // namespace

struct SearchEngine::Run
{
    Run(const SearchOptions &options, qsizetype readSize, FileScanner::ReadHook readHook)
        : options(options)
        , readSize(readSize)
        , readHook(std::move(readHook))
    {}

    struct Batch
    {
        QString lines;
        HitSpans spans;
        int count = 0;
    };

    const SearchOptions options;
    const qsizetype readSize;
    const FileScanner::ReadHook readHook;
    std::atomic<bool> cancel{false};
    std::atomic<qint64> filesSearched{0};
    std::atomic<qint64> filesWithHits{0};
    std::atomic<qint64> hitsNotShown{0};

    std::mutex mutex;
    std::condition_variable roomFreed;
    std::deque<Batch> batches;
    bool deliveryPosted = false;
    bool done = false;
    SearchSummary summary; // written by the worker before done is set

    // GUI thread only.
    qint64 hitsDelivered = 0;
};

SearchEngine::SearchEngine(QObject *parent)
    : QObject(parent)
{
    m_progressTimer.setInterval(ProgressIntervalMs);
    connect(&m_progressTimer, &QTimer::timeout, this, &SearchEngine::reportProgress);
}

SearchEngine::~SearchEngine()
{
    if (m_run)
        cancel(*m_run);
    if (m_worker.joinable())
        m_worker.join();
}

bool SearchEngine::isRunning() const
{
    return m_run != nullptr;
}

void SearchEngine::start(const SearchOptions &options)
{
    stop();
    auto run = std::make_shared<Run>(options, m_readSize, m_readHook);
    m_run = run;
    emit started(options);
    m_progressTimer.start();
    m_worker = std::thread([this, run] { runSearch(run); });
}

void SearchEngine::setScannerHooks(qsizetype readSize, FileScanner::ReadHook hook)
{
    m_readSize = readSize;
    m_readHook = std::move(hook);
}

void SearchEngine::stop()
{
    if (!m_run)
        return;
    const std::shared_ptr<Run> run = std::move(m_run);
    cancel(*run);
    if (m_worker.joinable())
        m_worker.join();
    m_progressTimer.stop();

    // What the worker found but the pane has not shown yet is dropped: the
    // summary counts the hits the user saw.
    SearchSummary summary;
    {
        std::lock_guard lock(run->mutex);
        summary = run->summary;
    }
    summary.cancelled = true;
    summary.filesSearched = run->filesSearched;
    summary.filesWithHits = run->filesWithHits;
    summary.hitsNotShown = run->hitsNotShown;
    summary.hits = run->hitsDelivered + summary.hitsNotShown;
    emit finished(summary);
}

void SearchEngine::cancel(Run &run)
{
    {
        // Set under the lock: a worker between testing the flag and waiting for
        // room would otherwise miss the wake-up and never end.
        std::lock_guard lock(run.mutex);
        run.cancel = true;
    }
    run.roomFreed.notify_all();
}

void SearchEngine::post(const std::shared_ptr<Run> &run)
{
    // Called with run->mutex held.
    if (run->deliveryPosted)
        return;
    run->deliveryPosted = true;
    QMetaObject::invokeMethod(
        this, [this, run] { deliver(run); }, Qt::QueuedConnection);
}

void SearchEngine::runSearch(const std::shared_ptr<Run> &run)
{
    SearchSummary summary;
    const TextMatcher matcher(run->options);
    if (!matcher.isValid()) {
        summary.error = matcher.errorString();
    } else {
        FileWalker walker(run->options);
        FileScanner scanner(matcher);
        scanner.setReadSize(run->readSize);
        scanner.setReadHook(run->readHook);
        Run::Batch batch;
        auto batchStarted = std::chrono::steady_clock::now();

        auto handOver = [&]() {
            std::unique_lock lock(run->mutex);
            run->roomFreed.wait(lock, [&] {
                return run->batches.size() < MaxPendingBatches || run->cancel.load();
            });
            if (run->cancel)
                return;
            run->batches.push_back(std::move(batch));
            post(run);
            batch = Run::Batch();
        };

        QString file;
        bool fileHasHits = false;
        const TextMatcher::HitSink onHit = [&](const TextMatcher::LineHit &hit) {
            if (!fileHasHits) {
                fileHasHits = true;
                ++summary.filesWithHits;
                ++run->filesWithHits;
            }
            ++summary.hits;
            if (summary.hits > run->options.maxHitLines) {
                ++summary.hitsNotShown;
                ++run->hitsNotShown;
                return true;
            }
            if (batch.count > 0)
                batch.lines += QLatin1Char('\n');
            HitFormatter::appendHitLine(batch.lines, file, hit.line, hit.text, hit.column);
            batch.spans.append({int(std::min<qsizetype>(hit.column, INT_MAX)),
                                int(std::min<qsizetype>(hit.length, INT_MAX))});
            ++batch.count;
            if (batch.count >= BatchHits) {
                handOver();
                batchStarted = std::chrono::steady_clock::now();
            }
            return !run->cancel.load(std::memory_order_relaxed);
        };

        walker.walk(
            [&](const QByteArray &path) {
                file = koru::sedgui::FileNameEscape::fromBytes(path);
                fileHasHits = false;
                switch (scanner.scan(path, onHit, &run->cancel)) {
                case FileScanner::Result::Binary:
                    ++summary.binaryFilesSkipped;
                    break;
                case FileScanner::Result::Unreadable:
                    ++summary.unreadable;
                    break;
                case FileScanner::Result::Cancelled:
                    return false;
                case FileScanner::Result::Changed:
                    ++run->filesSearched;
                    if (summary.changed++ < SearchSummary::MaxNamedFiles)
                        summary.changedFiles.append(file);
                    break;
                case FileScanner::Result::Deleted:
                    ++run->filesSearched;
                    if (summary.deleted++ < SearchSummary::MaxNamedFiles)
                        summary.deletedFiles.append(file);
                    break;
                case FileScanner::Result::Searched:
                    ++run->filesSearched;
                    break;
                }
                const auto now = std::chrono::steady_clock::now();
                if (batch.count > 0 && now - batchStarted >= BatchAge) {
                    handOver();
                    batchStarted = now;
                }
                return !run->cancel.load(std::memory_order_relaxed);
            },
            &run->cancel);

        if (batch.count > 0 && !run->cancel)
            handOver();
        summary.unreadable += walker.unreadableFolders();
    }

    summary.filesSearched = run->filesSearched;
    summary.cancelled = run->cancel;
    std::lock_guard lock(run->mutex);
    run->summary = summary;
    run->done = true;
    post(run);
}

void SearchEngine::deliver(const std::shared_ptr<Run> &run)
{
    if (run != m_run)
        return; // a stopped search
    QElapsedTimer slice;
    slice.start();
    for (;;) {
        Run::Batch batch;
        {
            std::lock_guard lock(run->mutex);
            if (run->batches.empty()) {
                run->deliveryPosted = false;
                if (run->done)
                    break;
                return;
            }
            batch = std::move(run->batches.front());
            run->batches.pop_front();
        }
        run->roomFreed.notify_one();
        run->hitsDelivered += batch.count;
        emit hitsReady(batch.lines, batch.count, batch.spans);
        if (run != m_run)
            return; // a slot started another search or stopped this one
        if (slice.elapsed() >= DeliverySliceMs) {
            // Let the event loop paint and take input before the next batches.
            QMetaObject::invokeMethod(
                this, [this, run] { deliver(run); }, Qt::QueuedConnection);
            return;
        }
    }
    finish(run);
}

void SearchEngine::finish(const std::shared_ptr<Run> &run)
{
    if (m_worker.joinable())
        m_worker.join();
    m_run.reset();
    m_progressTimer.stop();
    SearchSummary summary;
    {
        std::lock_guard lock(run->mutex);
        summary = run->summary;
    }
    emit progress(summary.filesSearched, summary.hits);
    emit finished(summary);
}

void SearchEngine::reportProgress()
{
    if (m_run)
        emit progress(m_run->filesSearched, m_run->hitsDelivered + m_run->hitsNotShown);
}
