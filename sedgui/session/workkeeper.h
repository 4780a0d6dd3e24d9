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
//   the work back.
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

Q_SIGNALS:
    // The program is about to end without closing its documents; their
    // journals are on disk.
    void endingKeepingWork();
    // A document's unsaved work came back from the journal of that document id.
    void restored(koru::sedgui::SedGUI *document, const QByteArray &journal);

private:
    void onSignal();
    void onCommitData(QSessionManager &manager);

    QPointer<QMainWindow> m_window;
    QSocketNotifier *m_notifier = nullptr;
    bool m_ending = false;
};

} // namespace koru::sedgui
