#include "documentjournal.h"

#include "journalstore.h"
#include "journalwriter.h"
#include "sedgui.h"
#include "templatetree.h"
#include "tool/documentstate.h"

#include <Qsci/qsciscintilla.h>

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
    QsciScintilla *editor = m_tool->m_editor;
    const auto length =
        static_cast<qsizetype>(editor->SendScintilla(QsciScintillaBase::SCI_GETLENGTH));
    const auto *data = static_cast<const char *>(
        editor->SendScintillaPtrResult(QsciScintillaBase::SCI_GETCHARACTERPOINTER));
    // One copy: the writer thread needs bytes that typing does not change.
    return QByteArray(data, length);
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
    JournalEntry entry;
    entry.documentId = m_documentId;
    entry.path = doc.filePath;
    entry.untitledNumber = doc.untitledNumber;
    entry.identity = doc.diskIdentity;
    entry.format = doc.format;
    JournalWriter::instance()->write(entry, snapshot());
    m_written = true;
}

void DocumentJournal::onChanged()
{
    if (m_tool->isModified())
        m_timer.start();
}

void DocumentJournal::onModified(bool modified)
{
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

void DocumentJournal::restore(SedGUI *tool, const JournalEntry &entry, const QByteArray &text)
{
    tool->m_doc->format = entry.format;
    // One undo step back to the file's text.
    tool->applyDecoded(text, true);
    tool->setForcedModified(true);
    tool->m_journal->writeNow();
    JournalWriter::instance()->waitUntilIdle();
}

} // namespace koru::sedgui
