#pragma once

#include "menuname.h"

#include <QList>

// A menu item that holds its own item list: a sub-menu. It owns its items.
class SubMenuName : public MenuName
{
public:
    SubMenuName(const QString &title, int kind);
    ~SubMenuName() override;

    // Appends item, taking ownership; always succeeds.
    bool addItem(MenuName *item);
    QList<MenuName *> items() const;

private:
    QList<MenuName *> m_items;
};
