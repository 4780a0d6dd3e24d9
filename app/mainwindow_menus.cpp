#include "connection.h"
#include "hubguitool.h"
#include "mainwindow.h"
#include "menuactionman.h"

#include <QAction>
#include <QMenu>

namespace {

void warnMissingAction(const char *key)
{
    qWarning("MainWindow::registerToolMenuItems: Cannot get menu action %s.", key);
}

} // namespace

void MainWindow::registerToolMenuItems(QWidget *tool)
{
    auto *hubTool = dynamic_cast<HubGUITool *>(tool);
    if (!hubTool)
        return;
    QList<Connection *> *records = hubTool->getConnectionList();
    if (!records)
        return;
    MenuActionMan *registry = MenuActionMan::instance();
    const QList<Connection *> copy = *records;
    for (const Connection *record : copy) {
        if (!record->senderKey) {
            QAction *action = registry->findActionByName(record->receiverKey);
            if (!action) {
                warnMissingAction(record->receiverKey);
                continue;
            }
            QObject::disconnect(tool, record->signal, action, record->slot);
            action->setEnabled(false);
        } else if (!record->receiverKey) {
            QAction *action = registry->findActionByName(record->senderKey);
            if (!action) {
                warnMissingAction(record->senderKey);
                continue;
            }
            QObject::disconnect(action, record->signal, tool, record->slot);
        }
    }
}

void MainWindow::registerSharedMenus(QWidget *tool)
{
    auto *hubTool = dynamic_cast<HubGUITool *>(tool);
    if (!hubTool)
        return;
    QList<Connection *> *records = hubTool->getConnectionList();
    if (!records)
        return;
    MenuActionMan *registry = MenuActionMan::instance();
    qDebug("MainWindow::registerSharedMenus");
    const QList<Connection *> copy = *records;
    for (const Connection *record : copy) {
        if (!record->senderKey) {
            QAction *action = registry->findActionByName(record->receiverKey);
            if (!action) {
                warnMissingAction(record->receiverKey);
                continue;
            }
            QObject::connect(tool, record->signal, action, record->slot, Qt::AutoConnection);
        } else if (!record->receiverKey) {
            QAction *action = registry->findActionByName(record->senderKey);
            if (!action) {
                warnMissingAction(record->senderKey);
                continue;
            }
            QObject::connect(action, record->signal, tool, record->slot, Qt::AutoConnection);
        }
    }
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
