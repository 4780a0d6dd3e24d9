#pragma once

#include "journalstore.h"

#include <QDialog>
#include <QList>

class QTreeWidget;

namespace koru::sedgui {

// The one question after a start that found unsaved work of an editor that
// ended without closing: lists the documents (name, folder, when, whether the
// file changed on disk since) and offers Restore, Show Differences (against
// the file on disk) and Discard. Escape decides later: the journals stay.
class RecoveryDialog : public QDialog
{
    Q_OBJECT

public:
    enum Choice { Later, Restore, Discard };

    RecoveryDialog(const QList<JournalStore::Found> &journals, QWidget *parent = nullptr);

    Choice choice() const { return m_choice; }

    // A note on the file behind a journal: empty, or that it changed or
    // vanished on disk since the journal's edits began.
    static QString diskNote(const JournalEntry &entry);
    // The unified diff of the file on disk (decoded) against the journal's text.
    static QString differences(const JournalStore::Found &journal);

private:
    void showDifferences();
    void finish(Choice choice);

    QList<JournalStore::Found> m_journals;
    QTreeWidget *m_list = nullptr;
    Choice m_choice = Later;
};

} // namespace koru::sedgui
