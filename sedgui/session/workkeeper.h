#pragma once

#include "sedguiexport.h"

#include <QList>
#include <QObject>
#include <QPointer>

class QMainWindow;
class QSessionManager;
class QSocketNotifier;

namespace koru::sedgui {

class SedGUI;

// Keeps the user's work across every way the program can end. Attached to
// the main window from main() and owned by it:
// - after the window shows, offers back the unsaved documents of editors that
//   ended without closing them (RecoveryDialog), opening them in the
//   window's tabs (TabOpener); work kept on quit by the user's choice comes
//   back without the question;
// - on SIGTERM, SIGHUP and the desktop session's end, writes every document's
//   recovery journal and ends the program as a clean exit would, without a
//   question and without deleting a journal, so that the next start offers
//   the work back. A logout first asks for the data to be committed: the
//   journals are written then and the program goes on, since the user may
//   still cancel the logout; it ends when the session ends.
class SEDGUI_EXPORT WorkKeeper : public QObject
{
    Q_OBJECT

public:
    explicit WorkKeeper(QMainWindow *window);
    ~WorkKeeper() override;

    // Looks for unsaved work of dead editors and asks the user what to do.
    void offerRecovery();
    // Writes every journal and ends the event loop (exit code 0).
    void endKeepingWork();
    // Writes every journal for a session that is about to end; the program
    // goes on, and ends keeping the work when the session ends.
    void commitData();

Q_SIGNALS:
    // Every document's journal is on disk, for an end that does not close
    // the documents (now, or the session's coming end): the session is kept.
    void workKept();
    // A document's unsaved work came back from the journal of that document id.
    void restored(koru::sedgui::SedGUI *document, const QByteArray &journal);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void onSignal();
    void onCommitData(QSessionManager &manager);

    QPointer<QMainWindow> m_window;
    QSocketNotifier *m_notifier = nullptr;
    bool m_ending = false;
    bool m_committed = false;
    bool m_offerDue = true;
};

} // namespace koru::sedgui
