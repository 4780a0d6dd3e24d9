#include "workkeeper.h"

#include "dialogs/userprompt.h"
#include "journalstore.h"
#include "sedgui.h"
#include "session/recoverydialog.h"
#include "session/tabopener.h"
#include "tool/documentjournal.h"
#include "tool/journalwriter.h"

#include <QGuiApplication>
#include <QMainWindow>
#include <QSessionManager>
#include <QSocketNotifier>
#include <QTimer>
#include <QWindow>

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <sys/socket.h>
#include <unistd.h>

namespace koru::sedgui {

namespace {

// The signal handler only writes a byte here; the GUI thread reads it.
int signalPipe[2] = {-1, -1};

void onTerminationSignal(int)
{
    const int saved = errno;
    const char byte = 1;
    [[maybe_unused]] const ssize_t written = ::write(signalPipe[1], &byte, 1);
    errno = saved;
}

bool installSignalHandlers()
{
    if (signalPipe[0] < 0 &&
        ::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0, signalPipe) != 0)
        return false;
    struct sigaction action = {};
    action.sa_handler = onTerminationSignal;
    sigemptyset(&action.sa_mask);
    action.sa_flags = SA_RESTART;
    return ::sigaction(SIGTERM, &action, nullptr) == 0 &&
           ::sigaction(SIGHUP, &action, nullptr) == 0;
}

void restoreSignalHandlers()
{
    ::signal(SIGTERM, SIG_DFL);
    ::signal(SIGHUP, SIG_DFL);
}

} // namespace

WorkKeeper::WorkKeeper(QMainWindow *window)
    : QObject(window)
    , m_window(window)
{
    if (installSignalHandlers()) {
        m_notifier = new QSocketNotifier(signalPipe[0], QSocketNotifier::Read, this);
        connect(m_notifier, &QSocketNotifier::activated, this, &WorkKeeper::onSignal);
    }
    connect(qGuiApp, &QGuiApplication::commitDataRequest, this, &WorkKeeper::onCommitData);
    // The session's end reaches the program as a request to quit; the
    // window's first exposure says it is on screen.
    qGuiApp->installEventFilter(this);
}

WorkKeeper::~WorkKeeper()
{
    restoreSignalHandlers();
}

void WorkKeeper::onSignal()
{
    char bytes[64];
    while (::read(signalPipe[0], bytes, sizeof bytes) > 0) {
    }
    endKeepingWork();
}

void WorkKeeper::onCommitData(QSessionManager &)
{
    commitData();
}

void WorkKeeper::commitData()
{
    m_committed = true;
    DocumentJournal::writeAll();
    emit workKept();
}

bool WorkKeeper::eventFilter(QObject *watched, QEvent *event)
{
    // The offer waits for the window to be on screen, where the window
    // manager put it, so that the prompt is centred on it.
    if (event->type() == QEvent::Expose && m_offerDue && m_window &&
        watched == m_window->windowHandle() && m_window->windowHandle()->isExposed()) {
        m_offerDue = false;
        QTimer::singleShot(0, this, &WorkKeeper::offerRecovery);
    }
    // After a commit, a request to quit while the window is still open is
    // the session ending: left to the application, it would close the
    // window and ask about every unsaved document. (The window's own close
    // ends in a request to quit too, with the window gone.)
    if (event->type() == QEvent::Quit && watched == qGuiApp && m_committed && m_window &&
        m_window->isVisible()) {
        endKeepingWork();
        return true;
    }
    return QObject::eventFilter(watched, event);
}

void WorkKeeper::endKeepingWork()
{
    if (m_ending)
        return;
    m_ending = true;
    DocumentJournal::writeAll();
    emit workKept();
    // Ends the event loops without closing the window, whose closing would
    // ask about every unsaved document; the documents are destroyed with the
    // window and keep their journals.
    QCoreApplication::exit(0);
}

void WorkKeeper::offerRecovery()
{
    JournalStore *store = JournalWriter::instance()->store();
    if (!m_window || !store->isReady())
        return;
    QList<JournalStore::Found> dead;
    QList<JournalStore::Found> kept;
    QStringList corrupt;
    QStringList interrupted;
    for (const JournalStore::Found &found : store->list()) {
        if (found.state == JournalStore::State::Dead && found.entry.keptOnQuit)
            kept.append(found);
        else if (found.state == JournalStore::State::Dead)
            dead.append(found);
        else if (found.state == JournalStore::State::Corrupt)
            corrupt.append(tr("%1: %2").arg(found.fileName, found.problem));
        else if (found.state == JournalStore::State::InterruptedSave)
            interrupted.append(tr("%1: %2").arg(found.entry.path, found.problem));
    }
    if (!interrupted.isEmpty())
        UserPrompt::tell(m_window, UserPrompt::Icon::Warning, tr("Recover Unsaved Work"),
                         tr("The editor ended while saving:\n\n%1\n\nThe text that was being "
                            "saved is offered back if it was not saved.")
                             .arg(interrupted.join(QLatin1Char('\n'))));
    if (!corrupt.isEmpty())
        UserPrompt::tell(
            m_window, UserPrompt::Icon::Warning, tr("Recover Unsaved Work"),
            tr("These recovery files could not be read and were moved to %1:\n\n%2")
                .arg(store->folder() + QLatin1String("/corrupt"), corrupt.join(QLatin1Char('\n'))));
    const auto restore = [&](const QList<JournalStore::Found> &journals) {
        for (const JournalStore::Found &found : journals) {
            if (SedGUI *tool = TabOpener::open(m_window, found.entry.path)) {
                DocumentJournal::restore(tool, found.entry, found.text);
                emit restored(tool, found.entry.documentId);
                store->discard(found);
            }
        }
    };
    // Work the user chose to keep on quit comes back as it was left, into the
    // tabs the session reopened (or new ones for untitled documents).
    restore(kept);
    if (dead.isEmpty()) {
        store->releaseClaims();
        return;
    }

    RecoveryDialog dialog(dead, m_window);
    dialog.exec();
    switch (dialog.choice()) {
    case RecoveryDialog::Restore:
        restore(dead);
        break;
    case RecoveryDialog::Discard:
        for (const JournalStore::Found &found : std::as_const(dead))
            store->discard(found);
        break;
    case RecoveryDialog::Later:
        break;
    }
    store->releaseClaims();
}

} // namespace koru::sedgui
