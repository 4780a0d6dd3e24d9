#pragma once

#include "sedguiexport.h"
#include "session/sessionrecord.h"

#include <QHash>
#include <QObject>
#include <QPointer>
#include <QRect>

#include <memory>

class QAction;
class QMainWindow;
class QTabWidget;

namespace koru::sedgui {

class CloseBatch;
class SedGUI;

// Attached to the main window from main(): keeps the batch closes of the
// window together and keeps the session across clean exits.
//
// A close of the window (Quit) and the shell's Close All action are seen
// before the shell acts: the modified documents are asked about in one
// prompt, and the shell's own requests to each tool then follow that answer
// (see CloseBatch). When the window's close is accepted, the open files, their
// carets, the current tab and the window's geometry are stored; start()
// brings them back. The keeper is a child of the window.
class SEDGUI_EXPORT SessionKeeper : public QObject
{
    Q_OBJECT

public:
    // tabs: the window's tabs, whose order is the session's. closeAll: the
    // shell's Close All action, or null.
    SessionKeeper(QMainWindow *window, QTabWidget *tabs, QAction *closeAll);
    ~SessionKeeper() override;

    // Called once before the window is first shown: restores the window's
    // geometry and, when reopenFiles, the files of the last session (unless the
    // user turned restoring off), then fits the window into its screen. Files
    // that no longer exist are skipped and named in one note.
    void start(bool reopenFiles);

    // The session as it is now.
    SessionRecord capture() const;
    // Stores the session as it is now, for an end that does not close the
    // window (a signal, the desktop session's end).
    void keep() const;
    // A document whose unsaved work came back from its journal (journal: the
    // journal's document id) goes to its place among the last session's
    // tabs, with its caret and view; an untitled one would otherwise stay at
    // the end.
    void place(SedGUI *document, const QByteArray &journal);

    // frame moved and shrunk as little as possible to lie within available.
    static QRect fitted(const QRect &frame, const QRect &available);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QList<SedGUI *> documents() const;
    void reopen(const SessionRecord &record);
    static void setView(SedGUI *document, const SessionRecord::File &file);
    void fitToScreen();
    void beginCloseAll();
    void endCloseAll();

    QMainWindow *m_window = nullptr;
    QPointer<QTabWidget> m_tabs;
    std::unique_ptr<CloseBatch> m_closeAllBatch;
    // The session start() brought back, and its untitled documents restored
    // since, by journal.
    SessionRecord m_record;
    QHash<QByteArray, QPointer<SedGUI>> m_placed;
    bool m_closing = false;
};

} // namespace koru::sedgui
