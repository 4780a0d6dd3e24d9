#include "searchengine.h"

#include "filenameescape.h"
#include "filescanner.h"
#include "filewalker.h"
#include "hitformatter.h"
#include "textmatcher.h"

#include <QFile>
#include <QMetaObject>
#include <QThread>

#include <algorithm>
#include <chrono>
#include <climits>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <sys/resource.h>
#include <unistd.h>
#include <vector>

namespace {

// A batch not yet full is handed over once it is this old.
constexpr auto BatchAge = std::chrono::milliseconds(40);
// Time one turn of the event loop spends handing batches on.
constexpr qint64 DeliverySliceMs = 4;
constexpr int ProgressIntervalMs = 100;
// How much nicer than the editor the search threads are: when they and the
// window want the processors at once, the window goes first.
constexpr int SearchNiceness = 2;

void yieldToTheWindow()
{
    const int now = getpriority(PRIO_PROCESS, 0);
    setpriority(PRIO_PROCESS, gettid(), std::min(now + SearchNiceness, 19));
}
// Batches waiting for the GUI from which only one scanner goes on.
constexpr size_t GuiBehind = 16;

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

    // One walked file: filled by the scanner that took it, released in walk order.
    struct Slot
    {
        QByteArray path;
        QString file;
        std::deque<Batch> chunks; // hits not yet released
        qint64 hits = 0;          // all of the file's hits, once done
        qint64 notFormatted = 0;  // hits after the shown ones reached the limit
        FileScanner::Result result = FileScanner::Result::Searched;
        bool done = false;
    };

    const SearchOptions options;
    const qsizetype readSize;
    const FileScanner::ReadHook readHook;
    std::atomic<bool> cancel{false};
    // Set once the hits released reach maxHitLines: later hits are only counted.
    std::atomic<bool> shownFull{false};

    std::mutex mutex;
    // Each waits for one thing; whoever changes it wakes only those waiting.
    std::condition_variable walkerRoom;  // the window has room again
    std::condition_variable scannerWork; // a file to take, or the walk is done
    std::condition_variable heldFewer;   // hits held back were released
    std::condition_variable allReleased; // every file released and batched
    bool walkerWaiting = false;
    int scannersIdle = 0;
    int scannersHeld = 0;
    int scanning = 0;       // scanners in the middle of a file
    std::deque<Slot> files; // the window, from the oldest file not yet released
    size_t claimed = 0;     // files taken by a scanner
    qint64 heldHits = 0;    // hit lines in the slots, over all files
    bool walkDone = false;
    Batch pending; // released hits gathered into a batch
    std::chrono::steady_clock::time_point pendingStarted;
    qint64 shown = 0;
    std::deque<Batch> batches;
    bool deliveryPosted = false;
    bool done = false;
    SearchSummary summary; // counts of the files released so far

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
    summary.hits = run->hitsDelivered + summary.hitsNotShown;
    emit finished(summary);
}

void SearchEngine::cancel(Run &run)
{
    {
        // Set under the lock: a thread between testing the flag and waiting
        // would otherwise miss the wake-up and never end.
        std::lock_guard lock(run.mutex);
        run.cancel = true;
    }
    run.walkerRoom.notify_all();
    run.scannerWork.notify_all();
    run.heldFewer.notify_all();
    run.allReleased.notify_all();
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

int SearchEngine::scanThreads()
{
    // Two threads read and search as fast as the disk cache gives the data; more
    // add contention and take cores the editor needs.
    return std::clamp(QThread::idealThreadCount(), 1, 2);
}

void SearchEngine::runSearch(const std::shared_ptr<Run> &run)
{
    yieldToTheWindow();
    const TextMatcher matcher(run->options);
    if (!matcher.isValid()) {
        std::lock_guard lock(run->mutex);
        run->summary.error = matcher.errorString();
        run->done = true;
        post(run);
        return;
    }

    std::vector<std::thread> scanners;
    for (int i = 0; i < scanThreads(); ++i)
        scanners.emplace_back([this, run] { scanFiles(run); });

    FileWalker walker(run->options);
    walker.walk(
        [&](const QByteArray &path) {
            std::unique_lock lock(run->mutex);
            if (run->files.size() >= MaxSlots && !run->cancel) {
                run->walkerWaiting = true;
                run->walkerRoom.wait(
                    lock, [&] { return run->files.size() < MaxSlots || run->cancel.load(); });
                run->walkerWaiting = false;
            }
            if (run->cancel)
                return false;
            run->files.emplace_back().path = path;
            if (run->scannersIdle > 0)
                run->scannerWork.notify_one();
            return true;
        },
        &run->cancel);

    std::unique_lock lock(run->mutex);
    run->walkDone = true;
    run->scannerWork.notify_all();
    release(run); // the last hits, when they came before the walk ended

    // Until every file is released and the last hits are batched for the GUI.
    run->allReleased.wait(lock, [&] {
        return (run->files.empty() && run->pending.count == 0) || run->cancel.load();
    });
    lock.unlock();
    for (std::thread &scanner : scanners)
        scanner.join();

    lock.lock();
    run->summary.unreadable += walker.unreadableFolders();
    run->summary.cancelled = run->cancel;
    run->done = true;
    post(run);
}

// One scanner thread: takes the next file of the window until the walk is done.
void SearchEngine::scanFiles(const std::shared_ptr<Run> &run)
{
    yieldToTheWindow();
    const TextMatcher matcher(run->options);
    FileScanner scanner(matcher);
    scanner.setReadSize(run->readSize);
    scanner.setReadHook(run->readHook);
    const qint64 maxHitLines = run->options.maxHitLines;

    for (;;) {
        Run::Slot *slot = nullptr;
        {
            std::unique_lock lock(run->mutex);
            ++run->scannersIdle;
            run->scannerWork.wait(lock, [&] {
                // While the GUI is behind with the hits, a second scanner
                // would only take the processor the pane needs.
                const bool mayTake = run->claimed < run->files.size() &&
                                     (run->scanning == 0 || run->batches.size() < GuiBehind);
                const bool noMore = run->walkDone && run->claimed >= run->files.size();
                return mayTake || noMore || run->cancel.load();
            });
            --run->scannersIdle;
            if (run->cancel || run->claimed >= run->files.size())
                return;
            // Slots are only popped once done, so the element stays where it is.
            slot = &run->files[run->claimed++];
            ++run->scanning;
        }

        // Decoded at the first hit: most files have none.
        QString file;
        Run::Batch batch;
        qint64 hits = 0;
        qint64 notFormatted = 0;
        auto handOver = [&]() {
            std::unique_lock lock(run->mutex);
            run->heldHits += batch.count;
            slot->chunks.push_back(std::move(batch));
            batch = Run::Batch();
            release(run);
            // The file being released goes on while the GUI takes batches;
            // a later one waits once too much is held back behind it.
            auto mayGoOn = [&] {
                return slot->chunks.empty() || run->heldHits < MaxHeldHits || run->cancel.load();
            };
            if (!mayGoOn()) {
                ++run->scannersHeld;
                run->heldFewer.wait(lock, mayGoOn);
                --run->scannersHeld;
            }
        };
        const TextMatcher::HitSink onHit = [&](const TextMatcher::LineHit &hit) {
            ++hits;
            if (hits > maxHitLines || run->shownFull.load(std::memory_order_relaxed)) {
                ++notFormatted;
                return true;
            }
            if (file.isNull())
                file = koru::sedgui::FileNameEscape::fromBytes(slot->path);
            if (batch.count > 0)
                batch.lines += QLatin1Char('\n');
            HitFormatter::appendHitLine(batch.lines, file, hit.line, hit.text, hit.column);
            batch.spans.append({int(std::min<qsizetype>(hit.column, INT_MAX)),
                                int(std::min<qsizetype>(hit.length, INT_MAX))});
            if (++batch.count >= BatchHits)
                handOver();
            return !run->cancel.load(std::memory_order_relaxed);
        };
        const FileScanner::Result result = scanner.scan(slot->path, onHit, &run->cancel);

        if (file.isNull() &&
            (result == FileScanner::Result::Changed || result == FileScanner::Result::Deleted))
            file = koru::sedgui::FileNameEscape::fromBytes(slot->path);
        std::unique_lock lock(run->mutex);
        if (batch.count > 0) {
            run->heldHits += batch.count;
            slot->chunks.push_back(std::move(batch));
        }
        slot->file = file;
        slot->hits = hits;
        slot->notFormatted = notFormatted;
        slot->result = result;
        slot->done = true;
        --run->scanning;
        release(run);
        if (result == FileScanner::Result::Cancelled)
            return;
        // Files with a few hits each hold them too: the next file waits
        // until they are released. The slot may be gone by now.
        auto fewer = [&] { return run->heldHits < MaxHeldHits || run->cancel.load(); };
        if (!fewer()) {
            ++run->scannersHeld;
            run->heldFewer.wait(lock, fewer);
            --run->scannersHeld;
        }
    }
}

// Called with run->mutex held, by the scanners and by the GUI thread once it
// has taken batches: moves the hits of the oldest files into batches for the
// GUI, and counts each file in the summary once all of it is released.
void SearchEngine::release(const std::shared_ptr<Run> &run)
{
    Run &r = *run;
    SearchSummary &summary = r.summary;
    const auto now = std::chrono::steady_clock::now();
    auto pushPending = [&] {
        r.batches.push_back(std::move(r.pending));
        r.pending = Run::Batch();
        post(run);
    };
    const qint64 heldBefore = r.heldHits;
    while (!r.files.empty() && r.batches.size() < MaxPendingBatches) {
        Run::Slot &slot = r.files.front();
        if (!slot.chunks.empty()) {
            Run::Batch chunk = std::move(slot.chunks.front());
            slot.chunks.pop_front();
            r.heldHits -= chunk.count;
            const qint64 room = std::max<qint64>(r.options.maxHitLines - r.shown, 0);
            if (chunk.count > room) {
                // Beyond the limit: counted, not shown.
                summary.hitsNotShown += chunk.count - room;
                qsizetype end = 0;
                for (qint64 i = 0; i < room; ++i)
                    end = chunk.lines.indexOf(QLatin1Char('\n'), end) + 1;
                chunk.lines.truncate(room > 0 ? end - 1 : 0);
                chunk.spans.resize(room);
                chunk.count = int(room);
            }
            r.shown += chunk.count;
            if (r.shown >= r.options.maxHitLines)
                r.shownFull = true;
            if (chunk.count == 0)
                continue;
            if (r.pending.count == 0) {
                r.pending = std::move(chunk);
                r.pendingStarted = now;
            } else {
                r.pending.lines += QLatin1Char('\n');
                r.pending.lines += chunk.lines;
                r.pending.spans += chunk.spans;
                r.pending.count += chunk.count;
            }
            if (r.pending.count >= BatchHits)
                pushPending();
            continue;
        }
        if (!slot.done)
            break;

        summary.hits += slot.hits;
        summary.hitsNotShown += slot.notFormatted;
        if (slot.hits > 0)
            ++summary.filesWithHits;
        switch (slot.result) {
        case FileScanner::Result::Binary:
            ++summary.binaryFilesSkipped;
            break;
        case FileScanner::Result::Unreadable:
            ++summary.unreadable;
            break;
        case FileScanner::Result::Cancelled:
            break;
        case FileScanner::Result::Changed:
            ++summary.filesSearched;
            if (summary.changed++ < SearchSummary::MaxNamedFiles)
                summary.changedFiles.append(slot.file);
            break;
        case FileScanner::Result::Deleted:
            ++summary.filesSearched;
            if (summary.deleted++ < SearchSummary::MaxNamedFiles)
                summary.deletedFiles.append(slot.file);
            break;
        case FileScanner::Result::Searched:
            ++summary.filesSearched;
            break;
        }
        r.files.pop_front();
        --r.claimed;
    }
    // A batch not yet full goes once it has aged, or with the last file.
    if (r.pending.count > 0 && r.batches.size() < MaxPendingBatches &&
        (now - r.pendingStarted >= BatchAge || (r.walkDone && r.files.empty())))
        pushPending();

    if (r.walkerWaiting && r.files.size() <= MaxSlots - MaxSlots / 4)
        r.walkerRoom.notify_one();
    if (r.scannersHeld > 0 && r.heldHits < heldBefore)
        r.heldFewer.notify_all();
    // A scanner that left the files to the other one while the GUI was
    // behind takes one again, or ends with the last file.
    if (r.scannersIdle > 0) {
        if (r.claimed < r.files.size() ? r.batches.size() < GuiBehind : r.walkDone)
            r.scannerWork.notify_all();
    }
    if (r.walkDone && r.files.empty() && r.pending.count == 0)
        r.allReleased.notify_one();
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
            // Room for the hits waiting with the scanners.
            release(run);
        }
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
    if (!m_run)
        return;
    qint64 filesSearched = 0;
    qint64 hitsNotShown = 0;
    {
        std::lock_guard lock(m_run->mutex);
        filesSearched = m_run->summary.filesSearched;
        hitsNotShown = m_run->summary.hitsNotShown;
    }
    emit progress(filesSearched, m_run->hitsDelivered + hitsNotShown);
}
