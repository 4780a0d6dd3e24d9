#pragma once

#include "sedguiexport.h"

#include <QByteArray>
#include <QObject>
#include <QTimer>

namespace koru::sedgui {

class SedGUI;
struct JournalEntry;

// Keeps one document's unsaved text in a recovery journal (JournalWriter):
// written about two seconds after the last change, at once before a reload,
// and removed when the document is saved, back at its saved state, or closed
// through closeTool. A tool destroyed without being closed (the program
// ending on a signal or at the session's end) keeps its journal, so the next
// start offers the text back. Owned by its tool.
class SEDGUI_EXPORT DocumentJournal : public QObject
{
    Q_OBJECT

public:
    static constexpr int DelayMs = 2000;

    explicit DocumentJournal(SedGUI *tool);

    // Queues the journal now when the document has unsaved changes.
    void writeNow();
    // The text, or the encoding or line ending it is saved with, changed:
    // the journal is written again once the document rests for DelayMs.
    void onChanged();
    // The document's text as the editor holds it, as the journal keeps it.
    QByteArray snapshot() const;
    QByteArray documentId() const { return m_documentId; }

    // Writes the journal of every open document with unsaved changes and
    // returns when all are on disk.
    static void writeAll();
    // As writeAll(), each journal marked as kept on quit: the next start
    // brings them back without asking.
    static void keepAllOnQuit();
    // Writes the journal now, if the document has unsaved changes, and
    // returns when it is on disk: before anything that may cut the program
    // short, such as a save.
    void writeAndWait();
    // Puts recovered text into a tool: the text and format of the journal,
    // marked modified, the file on disk untouched. The tool's own journal is
    // written before this returns, so the recovered one may then go.
    static void restore(SedGUI *tool, const JournalEntry &entry, const QByteArray &text);
    // Tells the user, in the document's info bar, that its journal could not
    // be written.
    static void reportFailure(const QByteArray &documentId, const QString &error);

private:
    void onModified(bool modified);
    void forget();

    SedGUI *m_tool = nullptr;
    QTimer m_timer;
    QByteArray m_documentId;
    bool m_written = false;
    // Changed since the journal was last queued.
    bool m_changed = false;
    bool m_keptOnQuit = false;
    mutable QByteArray m_buffer;
};

} // namespace koru::sedgui
