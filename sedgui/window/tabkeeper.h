#pragma once

#include "sedguiexport.h"

#include <QList>
#include <QObject>
#include <QPointer>

class QMainWindow;
class QPoint;
class QTabWidget;

namespace koru::sedgui {

class SedGUI;

// Attached to the main window from main(): the window's tabs by keyboard and
// mouse, and their labels.
//
// Ctrl+PgUp / Ctrl+PgDn go to the previous / next tab; Ctrl+Tab and
// Ctrl+Shift+Tab go through the tabs in the order they were last used, for as
// long as Ctrl is held. A middle click closes a tab; a tab's context menu
// closes it, the others or those to its right, copies its path or opens its
// folder. Tabs can be dragged into a new order. Each tab is labelled with its
// file's name as it is (DisplayName), with the folders that tell it apart from
// same-named files (TabLabeler), and has the full path as tool tip. Closing
// goes through the document's closeTool(false), as the shell's Close does, so
// the shell removes the tab itself; several at once are asked about in one
// prompt. The keeper is a child of the window.
class SEDGUI_EXPORT TabKeeper : public QObject
{
    Q_OBJECT

public:
    TabKeeper(QMainWindow *window, QTabWidget *tabs);

    // Sets every tab's text and tool tip from its document.
    void relabel();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void createActions();
    // Relabels once when control returns to the event loop, before the next
    // paint: opening 20 files changes titles and the current tab many times.
    void relabelSoon();
    void onCurrentChanged();
    void stepBy(int step);
    void stepRecent(int step);
    void endRecentStep();
    void showMenu(const QPoint &pos);
    void closeTabs(const QList<SedGUI *> &documents);
    SedGUI *documentAt(int index) const;

    QMainWindow *m_window = nullptr;
    QPointer<QTabWidget> m_tabs;
    // The tabs' pages, most recently used first.
    QList<QPointer<QWidget>> m_recent;
    // While Ctrl+Tab is held: the order at its first press and where it is.
    QList<QPointer<QWidget>> m_stepOrder;
    qsizetype m_stepAt = -1;
    bool m_relabelPosted = false;
};

} // namespace koru::sedgui
