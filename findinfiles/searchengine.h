#pragma once

#include "filescanner.h"
#include "hitspan.h"
#include "searchoptions.h"
#include "searchsummary.h"

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

#include <memory>
#include <thread>

// Runs one find-in-files search at a time and hands the hit lines to the GUI
// thread in batches, in the order the files are walked. A worker thread walks
// the tree into a window of file slots; up to two scanner threads each take
// the next slot and fill it with its file's hits, and slots are released in
// walk order, so which thread scanned a file never shows.
//
// A scanner that is descheduled in the middle of a file must not hold the
// other one up: the window is thousands of files long (a slot without hits
// is only its path), and a scanner waits only when the hits held back for
// release pass a bound of a few megabytes in all. Nothing is released while a
// bounded number of batches waits for the GUI, so a search with a million
// hits takes no more memory than the pane that shows them. Each turn of the
// event loop takes batches for a few milliseconds only, so the window stays
// responsive. Threads are woken only when what they wait for has happened.
//
// A new search stops the running one first. stop() returns once the threads
// have ended (they check the cancel flag every file and every few megabytes),
// and the destructor does the same: no thread outlives the engine or a stopped
// search.
class SearchEngine : public QObject
{
    Q_OBJECT

public:
    // A batch is handed over when it holds BatchHits hits (or has aged); the
    // worker waits while MaxPendingBatches batches wait for the GUI.
    static constexpr int BatchHits = 250;
    static constexpr size_t MaxPendingBatches = 256;
    static constexpr size_t MaxSlots = 8192;
    // Hit lines scanned but not yet released, over all files.
    static constexpr qint64 MaxHeldHits = 64 * BatchHits;

    explicit SearchEngine(QObject *parent = nullptr);
    ~SearchEngine() override;

    void start(const SearchOptions &options);
    // For tests: the read size and the hook each search's scanner is given
    // (see FileScanner); the hook is called on the scanner threads.
    void setScannerHooks(qsizetype readSize, FileScanner::ReadHook hook);
    void stop();
    bool isRunning() const;

signals:
    void started(const SearchOptions &options);
    // Hit lines "file(line):text", joined by line feeds, and where each
    // line's match lies in the file's line.
    void hitsReady(const QString &lines, int count, const HitSpans &spans);
    void progress(qint64 filesSearched, qint64 hits);
    void finished(const SearchSummary &summary);

private:
    struct Run;

    static void cancel(Run &run);
    static int scanThreads();
    void runSearch(const std::shared_ptr<Run> &run);
    void scanFiles(const std::shared_ptr<Run> &run);
    void release(const std::shared_ptr<Run> &run);
    void post(const std::shared_ptr<Run> &run);
    void deliver(const std::shared_ptr<Run> &run);
    void finish(const std::shared_ptr<Run> &run);
    void reportProgress();

    std::shared_ptr<Run> m_run;
    std::thread m_worker;
    qsizetype m_readSize = FileScanner::ReadBytes;
    FileScanner::ReadHook m_readHook;
    QTimer m_progressTimer;
};
