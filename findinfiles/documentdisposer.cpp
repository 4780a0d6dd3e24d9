#include "documentdisposer.h"

#include <QTextDocument>

#ifdef __GLIBC__
#include <malloc.h>
#endif

namespace {

// Blocks of this size and more are mapped on their own (see dispose()).
constexpr int MappedFromBytes = 256 * 1024;

} // namespace

DocumentDisposer::~DocumentDisposer()
{
    {
        std::lock_guard lock(m_mutex);
        m_stopping = true;
    }
    m_wake.notify_one();
    if (m_worker.joinable())
        m_worker.join();
}

void DocumentDisposer::dispose(QTextDocument *document)
{
    // Without a thread, the document and its layout take no events and may be
    // destroyed on any thread. The view's control has disconnected from both.
    document->moveToThread(nullptr);
#ifdef __GLIBC__
    // glibc maps big blocks on their own (from 128 KiB at start) and grows
    // them by remapping, without a copy; but freeing such a block of up to
    // 32 MB raises the size from which it maps to that block's size. After a
    // big document is freed, the next one's arrays would then grow on the
    // heap, each step a copy of the whole array (65 to 72 ms at 16 and 32 MB
    // measured). Fixed, the size no longer rises.
    mallopt(M_MMAP_THRESHOLD, MappedFromBytes);
#endif
    {
        std::lock_guard lock(m_mutex);
        m_queue.push_back(document);
    }
    m_wake.notify_one();
    if (!m_worker.joinable())
        m_worker = std::thread([this] { run(); });
}

void DocumentDisposer::run()
{
    std::unique_lock lock(m_mutex);
    for (;;) {
        m_wake.wait(lock, [this] { return m_stopping || !m_queue.empty(); });
        if (m_queue.empty())
            return;
        QTextDocument *document = m_queue.front();
        m_queue.pop_front();
        lock.unlock();
        delete document;
        lock.lock();
    }
}
