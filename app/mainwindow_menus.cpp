#include "connection.h"
#include "hubguitool.h"
#include "mainwindow.h"
#include "menuactionman.h"

#include <QAction>
#include <QMenu>

namespace {

// One connection record with its action found: the tool on one side, the
// shared action on the other.
struct ActionLink
{
    QObject *sender;
    const char *signal;
    QObject *receiver;
    const char *slot;
    QAction *action;
    bool toolDrivesAction;
};

// The tool's records as links. A record with both keys set is skipped; a
// name that resolves to no action is reported and skipped.
QList<ActionLink> actionLinks(QWidget *tool, const QList<Connection *> &records)
{
    MenuActionMan *registry = MenuActionMan::instance();
    QList<ActionLink> links;
    for (const Connection *record : records) {
        if (record->senderKey && record->receiverKey)
            continue;
        const bool toolDrivesAction = !record->senderKey;
        const char *key = toolDrivesAction ? record->receiverKey : record->senderKey;
        QAction *action = registry->findActionByName(key);
        if (!action) {
            qWarning("MainWindow::registerToolMenuItems: Cannot get menu action %s.", key);
            continue;
        }
        if (toolDrivesAction)
            links.append({tool, record->signal, action, record->slot, action, true});
        else
            links.append({action, record->signal, tool, record->slot, action, false});
    }
    return links;
}

QList<Connection *> *connectionRecords(QWidget *tool)
{
    auto *hubTool = dynamic_cast<HubGUITool *>(tool);
    return hubTool ? hubTool->getConnectionList() : nullptr;
}

} // namespace

void MainWindow::registerToolMenuItems(QWidget *tool)
{
    const QList<Connection *> *records = connectionRecords(tool);
    if (!records)
        return;
    // Only the actions the tool drove lose their state with it; actions that
    // call into the tool keep theirs.
    for (const ActionLink &link : actionLinks(tool, *records)) {
        QObject::disconnect(link.sender, link.signal, link.receiver, link.slot);
        if (link.toolDrivesAction)
            link.action->setEnabled(false);
    }
}

void MainWindow::registerSharedMenus(QWidget *tool)
{
    const QList<Connection *> *records = connectionRecords(tool);
    if (!records)
        return;
    qDebug("MainWindow::registerSharedMenus");
    for (const ActionLink &link : actionLinks(tool, *records))
        QObject::connect(link.sender, link.signal, link.receiver, link.slot, Qt::AutoConnection);
}

void MainWindow::rebuildMenu(QMenu *menu, int index)
{
    if (!menu)
        return;
    menu->clear();
    // clear() keeps sub-menus, which are children of the menu: drop them so
    // that every rebuild leaves one copy of each.
    const QObjectList children = menu->children();
    for (QObject *child : children) {
        if (auto *subMenu = dynamic_cast<QMenu *>(child)) {
            subMenu->clear();
            delete subMenu;
        }
    }

    MenuActionMan *registry = MenuActionMan::instance();
    const QList<MenuName *> items = registry->menuItems(index);
    for (MenuName *item : items) {
        const int kind = item->kind();
        const QString name = item->name();
        switch (kind) {
        case SubMenu:
            if (auto *subMenuItem = dynamic_cast<SubMenuName *>(item)) {
                QMenu *subMenu = menu->addMenu(name);
                subMenu->setObjectName(name);
                const QList<MenuName *> children = subMenuItem->items();
                for (MenuName *child : children) {
                    if (child->kind() == ShellAction)
                        subMenu->addAction(registry->findShellAction(child->name()));
                    else if (child->kind() == ToolAction)
                        subMenu->addAction(registry->findToolAction(child->name()));
                }
            }
            break;
        case DynamicSubMenu:
            if (index == MenuActionMan::FileMenu)
                addRecentFilesMenu(menu, item);
            break;
        case Separator:
            menu->addSeparator();
            break;
        case Placeholder:
            addToolActions(menu, index);
            break;
        case ShellAction:
            menu->addAction(registry->findShellAction(name));
            break;
        case ToolAction:
            menu->addAction(registry->findToolAction(name));
            break;
        default:
            break;
        }
    }
}

void MainWindow::addToolActions(QMenu *menu, int index)
{
    auto *tool = dynamic_cast<HubGUITool *>(activeTool);
    if (!tool)
        return;
    if (index != MenuActionMan::EditMenu && index != MenuActionMan::ViewMenu)
        return;
    const QList<QAction *> *actions = tool->getMenuActions(index);
    if (!actions || actions->isEmpty())
        return;
    menu->addSeparator();
    for (QAction *action : *actions)
        menu->addAction(action);
}

void MainWindow::onFileMenuAboutToShow()
{
    rebuildMenu(fileMenu, MenuActionMan::FileMenu);
}

void MainWindow::onEditMenuAboutToShow()
{
    rebuildMenu(editMenu, MenuActionMan::EditMenu);
}

void MainWindow::onViewMenuAboutToShow()
{
    rebuildMenu(viewMenu, MenuActionMan::ViewMenu);
}

void MainWindow::onToolsMenuAboutToShow()
{
    rebuildMenu(toolsMenu, MenuActionMan::ToolsMenu);
}

void MainWindow::onHelpMenuAboutToShow()
{
    rebuildMenu(helpMenu, MenuActionMan::HelpMenu);
}

void MainWindow::updateMenu()
{
    onFileMenuAboutToShow();
    onEditMenuAboutToShow();
    onViewMenuAboutToShow();
    onToolsMenuAboutToShow();
    onHelpMenuAboutToShow();
}
