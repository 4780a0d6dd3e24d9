#include "submenuname.h"

SubMenuName::SubMenuName(const QString &title, int kind)
    : MenuName(title, kind)
{}

SubMenuName::~SubMenuName()
{
    while (!m_items.isEmpty())
        delete m_items.takeFirst();
}

bool SubMenuName::addItem(MenuName *item)
{
    m_items.append(item);
    return true;
}

QList<MenuName *> SubMenuName::items() const
{
    return m_items;
}
