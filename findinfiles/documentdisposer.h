#pragma once

#include <condition_variable>
#include <deque>
#include <mutex>
#include <thread>

class QTextDocument;

// Deletes text documents on a thread of its own. A pane of a few hundred
// thousand lines takes tens of milliseconds to free, block by block: handed
// here, it no longer holds the window's event loop while it goes.
//
// A document given to dispose() must be shown by no view, have no parent, and
// no QTextCursor outside it may refer to it; it loses its thread affinity, so
// no event reaches it again. The destructor waits until every document given
// is deleted.
class DocumentDisposer
{
public:
    DocumentDisposer() = default;
    ~DocumentDisposer();
    DocumentDisposer(const DocumentDisposer &) = delete;
    DocumentDisposer &operator=(const DocumentDisposer &) = delete;

    void dispose(QTextDocument *document);

private:
    void run();

    std::mutex m_mutex;
    std::condition_variable m_wake;
    std::deque<QTextDocument *> m_queue;
    bool m_stopping = false;
    std::thread m_worker;
};
