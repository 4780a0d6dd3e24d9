#include "menuactionman.h"

#include <QAction>

#include <utility>

namespace {

const char *const keyTitles[] = {"File", "Edit", "View", "Help"};

MenuActionMan *registryInstance = nullptr;

} // namespace

MenuActionMan *MenuActionMan::instance(QObject *parent)
{
    if (!registryInstance)
        registryInstance = new MenuActionMan(parent);
    return registryInstance;
}

MenuActionMan::MenuActionMan(QObject *parent)
    : QObject(parent)
{
    setObjectName(QStringLiteral("MenuActionMan"));
    defaultAction = new QAction(tr("Default Action"), this);
    createStandardActions();
}

MenuActionMan::~MenuActionMan()
{
    if (registryInstance == this)
        registryInstance = nullptr;
    for (QList<MenuName *> &items : m_menuItems)
        qDeleteAll(std::exchange(items, {}));
}

bool MenuActionMan::isMenuIndex(int menu)
{
    return static_cast<unsigned>(menu) < MenuCount;
}

bool MenuActionMan::hasKeyTitle(int menu)
{
    return static_cast<unsigned>(menu) < std::size(keyTitles);
}

void MenuActionMan::registerAction(const char *name, QAction *action, int kind, int menu,
                                   MenuName *parent)
{
    if (!parent && !hasKeyTitle(menu))
        return;
    action->setObjectName(action->text());
    QString key = QString::fromLatin1(name);
    if (parent)
        key = QString::fromLatin1("%1 > %2").arg(parent->name(), key);
    else
        key = QString::fromLatin1("%1 > %2").arg(QLatin1String(keyTitles[menu]), key).toUpper();

    if (kind == ShellAction) {
        shellActions.insert(key, action);
    } else if (kind == ToolAction) {
        toolActions.insert(key, action);
        actionsByName.insert(QString::fromLatin1(name).toUpper(), action);
    }

    auto *item = new MenuName(key, kind);
    if (auto *subMenu = dynamic_cast<SubMenuName *>(parent))
        subMenu->addItem(item);
    else if (parent)
        delete item;
    else
        addMenuItem(item, menu);
}

void MenuActionMan::addMenuItem(MenuName *item, int menu)
{
    if (isMenuIndex(menu))
        m_menuItems[menu].append(item);
}

SubMenuName *MenuActionMan::addSubMenu(const char *title, int menu)
{
    auto *item = new SubMenuName(QString::fromLatin1(title), SubMenu);
    addMenuItem(item, menu);
    return item;
}

void MenuActionMan::addDynamicSubMenu(const char *title, int menu)
{
    addMenuItem(new SubMenuName(QString::fromLatin1(title), DynamicSubMenu), menu);
}

void MenuActionMan::addSeparator(int menu)
{
    addMenuItem(new MenuName(QStringLiteral("Separator"), Separator), menu);
}

void MenuActionMan::addPlaceholder(int menu)
{
    addMenuItem(new MenuName(QStringLiteral("Placeholder"), Placeholder), menu);
}

QList<MenuName *> MenuActionMan::menuItems(int menu) const
{
    if (!isMenuIndex(menu))
        return {};
    return m_menuItems[menu];
}

QAction *MenuActionMan::lookUp(const QMap<QString, QAction *> &map, const QString &key,
                               QAction *fallback)
{
    const auto it = map.constFind(key.toUpper());
    return it != map.constEnd() ? it.value() : fallback;
}

QAction *MenuActionMan::findShellAction(const QString &key) const
{
    return lookUp(shellActions, key, defaultAction);
}

QAction *MenuActionMan::findShellAction(const char *key) const
{
    return findShellAction(QString::fromLatin1(key));
}

QAction *MenuActionMan::findToolAction(const QString &key) const
{
    return lookUp(toolActions, key, defaultAction);
}

QAction *MenuActionMan::findToolAction(const char *key) const
{
    return findToolAction(QString::fromLatin1(key));
}

QAction *MenuActionMan::findActionByName(const QString &name) const
{
    return lookUp(actionsByName, name, defaultAction);
}

QAction *MenuActionMan::findActionByName(const char *name) const
{
    return findActionByName(QString::fromLatin1(name));
}

QAction *MenuActionMan::getAction(const char *name, int menu)
{
    if (!hasKeyTitle(menu))
        return defaultAction;
    const QString key =
        tr("%1 > %2").arg(QLatin1String(keyTitles[menu]), QString::fromLatin1(name)).toUpper();
    QAction *result = nullptr;
    if (shellActions.contains(key))
        result = shellActions.value(key);
    else if (toolActions.contains(key))
        result = toolActions.value(key);
    else
        result = actionsByName[QString::fromLatin1(name).toUpper()];
    return result ? result : defaultAction;
}

QAction *MenuActionMan::connectAction(int menu, const char *name, QObject *receiver,
                                      const char *slot)
{
    if (!hasKeyTitle(menu))
        return nullptr;
    const QString key =
        tr("%1 > %2").arg(QLatin1String(keyTitles[menu]), QString::fromLatin1(name)).toUpper();
    const QString byName = QString::fromLatin1(name).toUpper();
    QAction *action = nullptr;
    if (shellActions.contains(key))
        action = shellActions.value(key);
    else if (toolActions.contains(key))
        action = toolActions.value(key);
    else if (actionsByName.contains(byName))
        action = actionsByName.value(byName);
    else
        return nullptr;
    if (action)
        QObject::connect(action, "2triggered(bool)", receiver, slot);
    return action;
}

void MenuActionMan::disableToolActions()
{
    for (QAction *action : std::as_const(toolActions)) {
        if (action)
            action->setEnabled(false);
    }
}
