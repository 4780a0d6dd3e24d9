#include "journalwriter.h"

#include "documentjournal.h"
#include "journalstore.h"
#include "safesaver.h"

#include <QCoreApplication>
#include <QDebug>

namespace koru::sedgui {

struct JournalWriter::Job
{
    bool remove = false;
    JournalEntry entry;
    QByteArray text;
};

JournalWriter *JournalWriter::instance()
{
    // Lives until the program ends, after every document: the thread drains
    // its queue before the store closes.
    static JournalWriter writer;
    return &writer;
}

JournalWriter::JournalWriter()
    : m_store(std::make_shared<JournalStore>())
{
    if (!m_store->isReady())
        qWarning().noquote() << m_store->error();
    else
        // An in-place save's copy of the original lives with the journals, so
        // that the next start can undo a save cut short. Saves call these from
        // any thread (a replace in files saves on its worker).
        SafeSaver::setOriginalKeeper(
            {[store = m_store](const QString &target, const QByteArray &original,
                               const QByteArray &replacement) {
                 return store->keepOriginal(target, original, replacement);
             },
             [store = m_store](const QString &copy) { store->dropOriginal(copy); },
             [store = m_store](const QString &temporary) {
                 return store->noteTemporary(temporary);
             },
             [store = m_store](const QString &record) { store->dropTemporary(record); }});
    m_thread = std::thread([this] { run(); });
}

JournalWriter::~JournalWriter()
{
    SafeSaver::setOriginalKeeper({});
    {
        std::lock_guard lock(m_mutex);
        m_stopping = true;
    }
    m_changed.notify_all();
    m_thread.join();
}

void JournalWriter::write(const JournalEntry &entry, const QByteArray &text)
{
    auto job = std::make_shared<Job>();
    job->entry = entry;
    job->text = text;
    {
        std::lock_guard lock(m_mutex);
        if (!m_pending.contains(entry.documentId))
            m_order.append(entry.documentId);
        m_pending.insert(entry.documentId, job);
    }
    m_changed.notify_all();
}

void JournalWriter::remove(const QByteArray &documentId)
{
    auto job = std::make_shared<Job>();
    job->remove = true;
    job->entry.documentId = documentId;
    {
        std::lock_guard lock(m_mutex);
        if (!m_pending.contains(documentId))
            m_order.append(documentId);
        m_pending.insert(documentId, job);
    }
    m_changed.notify_all();
}

void JournalWriter::waitUntilIdle()
{
    std::unique_lock lock(m_mutex);
    m_changed.wait(lock, [this] { return m_order.isEmpty() && !m_busy; });
}

void JournalWriter::run()
{
    std::unique_lock lock(m_mutex);
    for (;;) {
        m_changed.wait(lock, [this] { return m_stopping || !m_order.isEmpty(); });
        if (m_order.isEmpty())
            return;
        const QByteArray id = m_order.takeFirst();
        const std::shared_ptr<Job> job = m_pending.take(id);
        m_busy = true;
        lock.unlock();
        QString error;
        if (job->remove)
            m_store->remove(id);
        else if (!m_store->write(job->entry, job->text, &error))
            // The user relies on the journal: say so where the document is.
            QMetaObject::invokeMethod(
                QCoreApplication::instance(),
                [id, error] { DocumentJournal::reportFailure(id, error); }, Qt::QueuedConnection);
        lock.lock();
        m_busy = false;
        m_changed.notify_all();
    }
}

} // namespace koru::sedgui
