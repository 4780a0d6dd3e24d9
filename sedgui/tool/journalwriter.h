#pragma once

#include "sedguiexport.h"

#include <QByteArray>
#include <QHash>
#include <QList>

#include <condition_variable>
#include <memory>
#include <mutex>
#include <thread>

namespace koru::sedgui {

class JournalStore;
struct JournalEntry;

// The process's recovery journal store and the thread that writes to it, so
// that writing a large document's journal never holds up typing. Jobs are
// kept per document: a newer snapshot replaces one not yet written, and one
// document is never written twice at once.
class SEDGUI_EXPORT JournalWriter
{
public:
    // The writer of this process, made on first use, its store in
    // JournalStore::defaultFolder().
    static JournalWriter *instance();

    // The store; list() it from the GUI thread only.
    JournalStore *store() const { return m_store.get(); }

    // Queues the document's journal; text is shared, not copied.
    void write(const JournalEntry &entry, const QByteArray &text);
    // Queues the removal of the document's journal.
    void remove(const QByteArray &documentId);
    // Returns when every queued job is done.
    void waitUntilIdle();

    ~JournalWriter();

private:
    JournalWriter();
    void run();

    struct Job;
    // Shared with the safe saver's keeper: a save on another thread that took
    // the keeper before this writer went keeps the store until it ends.
    std::shared_ptr<JournalStore> m_store;
    std::mutex m_mutex;
    std::condition_variable m_changed;
    QHash<QByteArray, std::shared_ptr<Job>> m_pending;
    QList<QByteArray> m_order;
    bool m_busy = false;
    bool m_stopping = false;
    std::thread m_thread;
};

} // namespace koru::sedgui
