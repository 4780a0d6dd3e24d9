#include "documentjournal.h"

#include "dialogs/infobar.h"
#include "journalstore.h"
#include "journalwriter.h"
#include "sedgui.h"
#include "templatetree.h"
#include "tool/documentstate.h"

#include <Qsci/qsciscintilla.h>

#include <cstring>

namespace koru::sedgui {

DocumentJournal::DocumentJournal(SedGUI *tool)
    : QObject(tool)
    , m_tool(tool)
    , m_documentId(JournalWriter::instance()->store()->newDocumentId())
{
    m_timer.setSingleShot(true);
    m_timer.setInterval(DelayMs);
    connect(&m_timer, &QTimer::timeout, this, &DocumentJournal::writeNow);
    connect(tool->editor(), &QsciScintilla::textChanged, this, &DocumentJournal::onChanged);
    connect(tool, &SedGUI::sigModified, this, &DocumentJournal::onModified);
    connect(tool, &HubGUITool::sigToolClose, this, &DocumentJournal::forget);
}

QByteArray DocumentJournal::snapshot() const
{
    const DocumentState &doc = *m_tool->m_doc;
    if (doc.displayOnly)
        return doc.displayOnlyText;
    // The two parts around the editor's gap, read where they are: asking for
    // one pointer to the whole text would first move up to all of it.
    QsciScintilla *editor = m_tool->m_editor;
    const auto length =
        static_cast<qsizetype>(editor->SendScintilla(QsciScintillaBase::SCI_GETLENGTH));
    const auto gap =
        static_cast<qsizetype>(editor->SendScintilla(QsciScintillaBase::SCI_GETGAPPOSITION));
    const auto *before = reinterpret_cast<const char *>(
        editor->SendScintilla(QsciScintillaBase::SCI_GETRANGEPOINTER, 0UL, long(gap)));
    const auto *after = reinterpret_cast<const char *>(
        editor->SendScintilla(QsciScintillaBase::SCI_GETRANGEPOINTER,
                              static_cast<unsigned long>(gap), long(length - gap)));
    // One copy, which the writer thread reads while typing goes on. The
    // buffer is reused once the writer is done with it, with room to grow:
    // fresh memory costs a page fault per 4 KB, ten times the copy itself.
    if (!m_buffer.isDetached() || m_buffer.capacity() < length) {
        m_buffer = QByteArray();
        m_buffer.reserve(length + length / 8 + 4096);
    }
    m_buffer.resize(length);
    std::memcpy(m_buffer.data(), before, size_t(gap));
    std::memcpy(m_buffer.data() + gap, after, size_t(length - gap));
    return m_buffer;
}

void DocumentJournal::writeNow()
{
    m_timer.stop();
    const DocumentState &doc = *m_tool->m_doc;
    if (doc.closing)
        return;
    if (!m_tool->isModified()) {
        forget();
        return;
    }
    // Already on disk as it is: its time stays the time of the last change.
    if (m_written && !m_changed)
        return;
    JournalEntry entry;
    entry.documentId = m_documentId;
    entry.path = doc.filePath;
    entry.untitledNumber = doc.untitledNumber;
    entry.identity = doc.diskIdentity;
    entry.format = doc.format;
    entry.keptOnQuit = m_keptOnQuit;
    JournalWriter::instance()->write(entry, snapshot());
    m_written = true;
    m_changed = false;
}

void DocumentJournal::onChanged()
{
    m_changed = true;
    if (m_tool->isModified())
        m_timer.start();
}

void DocumentJournal::onModified(bool modified)
{
    m_changed = true;
    if (modified)
        m_timer.start();
    else
        forget();
}

void DocumentJournal::forget()
{
    m_timer.stop();
    if (std::exchange(m_written, false))
        JournalWriter::instance()->remove(m_documentId);
}

void DocumentJournal::writeAll()
{
    const QList<SedGUI *> documents = TemplateTree::Instance()->documents();
    for (SedGUI *document : documents)
        document->m_journal->writeNow();
    JournalWriter::instance()->waitUntilIdle();
}

void DocumentJournal::keepAllOnQuit()
{
    const QList<SedGUI *> documents = TemplateTree::Instance()->documents();
    for (SedGUI *document : documents) {
        DocumentJournal *journal = document->m_journal;
        // Written again even when unchanged: the mark is new.
        journal->m_keptOnQuit = true;
        journal->m_changed = true;
        journal->writeNow();
    }
    JournalWriter::instance()->waitUntilIdle();
}

void DocumentJournal::writeAndWait()
{
    writeNow();
    JournalWriter::instance()->waitUntilIdle();
}

void DocumentJournal::restore(SedGUI *tool, const JournalEntry &entry, const QByteArray &text)
{
    tool->m_doc->format = entry.format;
    // One undo step back to the file's text.
    tool->applyDecoded(text, true);
    tool->setForcedModified(true);
    tool->m_journal->writeNow();
    JournalWriter::instance()->waitUntilIdle();
}

void DocumentJournal::reportFailure(const QByteArray &documentId, const QString &error)
{
    for (SedGUI *document : TemplateTree::Instance()->documents()) {
        if (document->m_journal->documentId() == documentId) {
            document->infoBar()->showMessage(
                tr("Your unsaved changes cannot be kept for recovery after a crash. %1")
                    .arg(error));
            return;
        }
    }
}

} // namespace koru::sedgui
