#pragma once

#include "menuname.h"
#include "submenuname.h"

#include <QList>
#include <QMap>
#include <QObject>
#include <QString>

#include <array>

class QAction;

// The one owner of the shell's shared menu actions and of the item list of
// each menu (0 File, 1 Edit, 2 View, 3 Tools, 4 Help).
//
// Actions are filed under a path key "%1 > %2" made of the menu's key title
// and the action name, upper-cased ("FILE > SAVE AS"). The key titles are
// "File", "Edit", "View", "Help": the Tools menu (3) forms its keys with
// "Help", and index 4 has no title, so key-forming calls reject it. Tool
// actions are also filed under their bare upper-cased name ("SAVE AS"), the
// name a tool's connection records use.
//
// Look-ups never return null for an unknown key: they return the stand-by
// action "Default Action", which stands in no menu. The registry owns every
// action it files; the item lists own their MenuName records.
class MenuActionMan : public QObject
{
    Q_OBJECT

public:
    enum MenuIndex { FileMenu = 0, EditMenu = 1, ViewMenu = 2, ToolsMenu = 3, HelpMenu = 4 };
    static constexpr int MenuCount = 5;

    // The process-wide registry, made (with parent) on the first call; later
    // calls ignore parent.
    static MenuActionMan *instance(QObject *parent = nullptr);

    // A registry filled with the standard catalogue, all tool actions disabled.
    explicit MenuActionMan(QObject *parent = nullptr);
    ~MenuActionMan() override;

    // Files action (which the registry then owns) under its key and appends
    // its item to the menu, or to parent when given (key "parent > name",
    // not upper-cased). kind 4 files a shell action, 5 a tool action.
    void registerAction(const char *name, QAction *action, int kind, int menu,
                        MenuName *parent = nullptr);
    // Appends item to the menu's list for menus 0 to 4; otherwise ignores it.
    void addMenuItem(MenuName *item, int menu);
    SubMenuName *addSubMenu(const char *title, int menu);
    void addDynamicSubMenu(const char *title, int menu);
    void addSeparator(int menu);
    void addPlaceholder(int menu);
    // A copy of the menu's item list; empty outside 0 to 4.
    QList<MenuName *> menuItems(int menu) const;

    QAction *findShellAction(const QString &key) const;
    QAction *findShellAction(const char *key) const;
    QAction *findToolAction(const QString &key) const;
    QAction *findToolAction(const char *key) const;
    QAction *findActionByName(const QString &name) const;
    QAction *findActionByName(const char *name) const;

    // The action of that name in that menu, looked up as a shell action, a
    // tool action, then by bare name; never null. A name found nowhere is
    // left in the by-name index with a null entry.
    QAction *getAction(const char *name, int menu);
    // Connects the action's triggered(bool) to receiver's encoded slot
    // ("1onNewFile()"); returns the action, or null when no map holds it.
    QAction *connectAction(int menu, const char *name, QObject *receiver, const char *slot);

    // Disables every tool action.
    void disableToolActions();

    // The stand-by action that look-ups return for an unknown key.
    QAction *getDefaultAction() const { return defaultAction; }

private:
    void createStandardActions();
    void createFileActions();
    void createEditActions();
    void createViewActions();
    void createToolsActions();

    static bool isMenuIndex(int menu);
    static bool hasKeyTitle(int menu);
    static QAction *lookUp(const QMap<QString, QAction *> &map, const QString &key,
                           QAction *fallback);

    QMap<QString, QAction *> shellActions;
    QMap<QString, QAction *> toolActions;
    QMap<QString, QAction *> actionsByName;
    std::array<QList<MenuName *>, MenuCount> m_menuItems;
    QAction *defaultAction = nullptr;
};
