#pragma once

#include <QString>

// Kinds of menu items, as stored in every MenuName.
enum MenuItemKind : int {
    SubMenu = 0,        // a SubMenuName whose children are shown as a sub-menu
    DynamicSubMenu = 1, // a sub-menu that the main window fills itself (recent files)
    Separator = 2,
    Placeholder = 3, // where the active tool's own actions go
    ShellAction = 4, // handled by the main window
    ToolAction = 5,  // handled by the active tool
};

// One entry of a menu's item list: its kind and its name. For actions the
// name is the full path key ("FILE > SAVE AS"), for sub-menus the title.
class MenuName
{
public:
    MenuName(const QString &name, int kind);
    virtual ~MenuName();

    MenuName(const MenuName &) = delete;
    MenuName &operator=(const MenuName &) = delete;

    virtual int kind() const;
    virtual QString name() const;

private:
    int m_kind;
    QString m_name;
};
