#include "session/sessionkeeper.h"

#include "dialogs/infobar.h"
#include "displayname.h"
#include "options/editorsettings.h"
#include "posixfile.h"
#include "sedgui.h"
#include "session/closebatch.h"
#include "session/tabopener.h"
#include "templatetree.h"
#include "tool/documentjournal.h"

#include <QAction>
#include <QCloseEvent>
#include <QGuiApplication>
#include <QMainWindow>
#include <QScopedValueRollback>
#include <QScreen>
#include <QStatusBar>
#include <QTabBar>
#include <QTabWidget>

#include <Qsci/qsciscintilla.h>

namespace koru::sedgui {

SessionKeeper::SessionKeeper(QMainWindow *window, QTabWidget *tabs, QAction *closeAll)
    : QObject(window)
    , m_window(window)
    , m_tabs(tabs)
{
    window->installEventFilter(this);
    if (!closeAll)
        return;
    // Our slot has to run before the shell's: take the shell's connection off
    // and put it back behind ours, unchanged, and end the batch after it.
    const bool shellConnected =
        QObject::disconnect(closeAll, SIGNAL(triggered(bool)), window, SLOT(onFileCloseAll()));
    connect(closeAll, &QAction::triggered, this, &SessionKeeper::beginCloseAll);
    if (shellConnected)
        QObject::connect(closeAll, SIGNAL(triggered(bool)), window, SLOT(onFileCloseAll()));
    connect(closeAll, &QAction::triggered, this, &SessionKeeper::endCloseAll);
}

SessionKeeper::~SessionKeeper() = default;

QList<SedGUI *> SessionKeeper::documents() const
{
    QList<SedGUI *> found;
    for (int i = 0; m_tabs && i < m_tabs->count(); ++i) {
        if (auto *document = qobject_cast<SedGUI *>(m_tabs->widget(i)))
            found.append(document);
    }
    return found;
}

void SessionKeeper::keep() const
{
    capture().store();
}

SessionRecord SessionKeeper::capture() const
{
    SessionRecord record;
    for (SedGUI *document : documents()) {
        SessionRecord::File file;
        file.path = document->getFileName();
        // An untitled document comes back from its journal only, kept when
        // the program ends without closing it.
        if (file.path.isEmpty())
            file.journal = document->findChild<DocumentJournal *>()->documentId();
        document->editor()->getCursorPosition(&file.line, &file.column);
        file.firstVisibleLine = document->editor()->firstVisibleLine();
        if (document == m_tabs->currentWidget())
            record.current = int(record.files.size());
        record.files.append(file);
    }
    record.geometry = m_window->saveGeometry();
    record.windowState = m_window->saveState();
    return record;
}

bool SessionKeeper::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != m_window || event->type() != QEvent::Close)
        return QObject::eventFilter(watched, event);
    // A second close while the first one asks the user waits for that answer.
    if (m_closing) {
        event->ignore();
        return true;
    }
    QScopedValueRollback<bool> guard(m_closing, true);
    if (EditorSettings::load().keepWorkOnQuit) {
        // Nothing is asked and no document closes: each one's journal is
        // kept, marked for the next start to bring back silently, and the
        // documents go with the window, which closes as after any Quit.
        DocumentJournal::keepAllOnQuit();
        capture().store();
        event->accept();
        return true;
    }
    CloseBatch batch(documents());
    const bool settled = batch.settle(m_window);
    // Taken after the saves (an untitled document may have a name now) and
    // before the tools close; kept only if the window really closes.
    const SessionRecord record = capture();
    // The window's own handling asks every tool to close and accepts the
    // event only when none is left; the batch answers for the tools.
    static_cast<QObject *>(m_window)->event(event);
    if (settled && event->isAccepted())
        record.store();
    return true;
}

void SessionKeeper::beginCloseAll()
{
    m_closeAllBatch = std::make_unique<CloseBatch>(documents());
    m_closeAllBatch->settle(m_window);
}

void SessionKeeper::endCloseAll()
{
    m_closeAllBatch.reset();
}

void SessionKeeper::start(bool reopenFiles)
{
    if (EditorSettings::load().restoreSession) {
        const SessionRecord record = SessionRecord::load();
        if (!record.geometry.isEmpty())
            m_window->restoreGeometry(record.geometry);
        if (!record.windowState.isEmpty())
            m_window->restoreState(record.windowState);
        if (reopenFiles) {
            m_record = record;
            reopen(record);
        }
    }
    fitToScreen();
}

void SessionKeeper::reopen(const SessionRecord &record)
{
    QStringList skipped;
    SedGUI *front = nullptr;
    for (qsizetype i = 0; i < record.files.size(); ++i) {
        const SessionRecord::File &file = record.files.at(i);
        // Untitled documents come back with their journals (place()).
        if (file.path.isEmpty())
            continue;
        SedGUI *document =
            PosixFile::isFile(file.path) ? TabOpener::open(m_window, file.path) : nullptr;
        if (!document) {
            skipped.append(file.path);
            continue;
        }
        setView(document, file);
        if (i == record.current)
            front = document;
    }
    if (front && m_tabs)
        m_tabs->setCurrentWidget(front);
    if (skipped.isEmpty())
        return;

    const QString note = tr("Not reopened, no longer found: %1")
                             .arg(DisplayName::visible(skipped.join(QLatin1String(", "))));
    auto *current = m_tabs ? qobject_cast<SedGUI *>(m_tabs->currentWidget()) : nullptr;
    // A notice the document already shows is not replaced.
    if (current && current->infoBar()->message().isEmpty())
        current->infoBar()->showMessage(note);
    else
        m_window->statusBar()->showMessage(note);
}

void SessionKeeper::setView(SedGUI *document, const SessionRecord::File &file)
{
    // Placed without scrolling to it: the window may not have its size yet,
    // and the view is set from the record right after.
    QsciScintilla *editor = document->editor();
    editor->SendScintilla(QsciScintilla::SCI_SETEMPTYSELECTION,
                          editor->positionFromLineIndex(file.line, file.column));
    editor->setFirstVisibleLine(file.firstVisibleLine);
}

void SessionKeeper::place(SedGUI *document, const QByteArray &journal)
{
    const QList<SessionRecord::File> &files = m_record.files;
    const auto isOf = [&](const SessionRecord::File &file) {
        return file.path.isEmpty() ? file.journal == journal : file.path == document->getFileName();
    };
    const qsizetype at = std::find_if(files.begin(), files.end(), isOf) - files.begin();
    if (at == files.size() || !m_tabs || m_tabs->indexOf(document) < 0)
        return;
    if (files.at(at).path.isEmpty())
        m_placed.insert(journal, document);
    // Behind the tabs of the session's documents before it; those are in
    // the session's order, as they came back in it.
    int index = 0;
    for (qsizetype i = 0; i < at; ++i) {
        const SessionRecord::File &file = files.at(i);
        SedGUI *before = file.path.isEmpty() ? m_placed.value(file.journal).data()
                                             : TemplateTree::Instance()->findDocument(file.path);
        if (before && m_tabs->indexOf(before) >= 0)
            ++index;
    }
    m_tabs->tabBar()->moveTab(m_tabs->indexOf(document), index);
    setView(document, files.at(at));
    if (at == m_record.current)
        m_tabs->setCurrentWidget(document);
}

QRect SessionKeeper::fitted(const QRect &frame, const QRect &available)
{
    QRect result(frame.topLeft(), frame.size().boundedTo(available.size()));
    if (result.right() > available.right())
        result.moveRight(available.right());
    if (result.bottom() > available.bottom())
        result.moveBottom(available.bottom());
    if (result.left() < available.left())
        result.moveLeft(available.left());
    if (result.top() < available.top())
        result.moveTop(available.top());
    return result;
}

void SessionKeeper::fitToScreen()
{
    if (m_window->isMaximized() || m_window->isFullScreen())
        return;
    QScreen *screen = QGuiApplication::screenAt(m_window->geometry().center());
    if (!screen)
        screen = m_window->screen();
    if (!screen)
        return;
    const QRect wanted = m_window->geometry();
    const QRect fit = fitted(wanted, screen->availableGeometry());
    if (fit != wanted)
        m_window->setGeometry(fit);
}

} // namespace koru::sedgui
