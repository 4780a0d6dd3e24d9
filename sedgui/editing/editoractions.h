#pragma once

#include "sedguiexport.h"

#include <QKeySequence>
#include <QList>
#include <QObject>

class QAction;
class QMenu;

namespace koru::sedgui {

class MultiSelection;
class SedGUI;
struct TextFormat;
class WordCompleter;

// The editor tool's own Edit and View actions. Every tool has its own set,
// so the checks show that tool's state. The actions are added to the tool
// widget with a widget-with-children context: their shortcuts work while the
// tool has the focus, before any menu has been opened, and never reach a tool
// in another tab.
class SEDGUI_EXPORT EditorActions : public QObject
{
    Q_OBJECT

public:
    explicit EditorActions(SedGUI *tool);

    // The actions for the Edit (1) or View (2) menu, with their checks brought
    // up to date; null for other menus. Owned by this object.
    QList<QAction *> *menuActions(int menuKind);

    // Shows or hides the line-number margin; kept up to date as lines come and go.
    void setLineNumbersVisible(bool visible);
    bool lineNumbersVisible() const { return m_lineNumbers; }

    // An action by object name ("toggleComment", "wordWrap", ...), for tests.
    QAction *action(const QString &name) const;
    QMenu *encodingMenu() const { return m_encodingMenu; }
    QMenu *lineEndingMenu() const { return m_lineEndingMenu; }
    QMenu *syntaxMenu() const { return m_syntaxMenu; }
    QMenu *indentationMenu() const { return m_indentationMenu; }

    // Saves the document in encoding (UTF-8 with a byte order mark when
    // utf8Bom), after checking that it holds every character; otherwise says
    // which character on which line it cannot hold and changes nothing.
    bool saveWithEncoding(const QByteArray &encoding, bool utf8Bom = false);

private:
    QAction *addAction(QList<QAction *> &list, const QString &name, const QString &text,
                       const QKeySequence &shortcut = {});
    void releaseEditorKey(const QKeySequence &shortcut);
    void addSeparator(QList<QAction *> &list);
    QMenu *addSubMenu(QList<QAction *> &list, const QString &name, const QString &title);
    void syncChecks();
    void fillEncodingMenu();
    void fillLineEndingMenu();
    void fillSyntaxMenu();
    void fillIndentationMenu();

    SedGUI *m_tool;
    QList<QAction *> m_editActions;
    QList<QAction *> m_viewActions;
    QMenu *m_encodingMenu = nullptr;
    QMenu *m_lineEndingMenu = nullptr;
    QMenu *m_syntaxMenu = nullptr;
    QMenu *m_indentationMenu = nullptr;
    bool m_lineNumbers = false;
    MultiSelection *m_multiSelection = nullptr;
    WordCompleter *m_completer = nullptr;
};

} // namespace koru::sedgui
