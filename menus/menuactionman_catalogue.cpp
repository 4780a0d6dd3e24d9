#include "baseaction.h"
#include "menuactionman.h"
#include "standardactions.h"

#include <QAction>
#include <QKeySequence>

void MenuActionMan::createStandardActions()
{
    createFileActions();
    createEditActions();
    createViewActions();
    createToolsActions();
    disableToolActions();
}

void MenuActionMan::createFileActions()
{
    registerAction("New", new BaseAction("New", this), ShellAction, FileMenu);
    registerAction("Open", new BaseAction("Open", this), ShellAction, FileMenu);
    addSeparator(FileMenu);
    registerAction("Close", new BaseAction("Close", this), ShellAction, FileMenu);
    registerAction("Close All", new BaseAction("Close All", this), ShellAction, FileMenu);
    addSeparator(FileMenu);
    registerAction("Save", new BaseAction("Save", this), ToolAction, FileMenu);
    registerAction("Save As", new BaseAction("Save As", this), ToolAction, FileMenu);
    registerAction("Save All", new BaseAction("Save All", this), ShellAction, FileMenu);
    addSeparator(FileMenu);
    registerAction("Page Setup", new BaseAction("Page Setup", this), ToolAction, FileMenu);
    registerAction("Print Preview", new BaseAction("Print Preview", this), ToolAction, FileMenu);
    auto *print = new BaseAction("Print", this);
    print->setStatusTip(tr("Print document that has focus"));
    registerAction("Print", print, ToolAction, FileMenu);
    addSeparator(FileMenu);
    addDynamicSubMenu("Recent Files", FileMenu);
    addSeparator(FileMenu);
    auto *exit = new BaseAction("Exit", this);
    exit->setStatusTip(tr("Exit"));
    registerAction("Exit", exit, ShellAction, FileMenu);
}

void MenuActionMan::createEditActions()
{
    auto *undo = new BaseAction("Undo", this);
    undo->setShortcut(QKeySequence(tr("Ctrl+Z")));
    registerAction("Undo", undo, ToolAction, EditMenu);
    auto *redo = new BaseAction("Redo", this);
    redo->setShortcut(QKeySequence(tr("Ctrl+Y")));
    registerAction("Redo", redo, ToolAction, EditMenu);
    addSeparator(EditMenu);
    auto *cut = new BaseAction("Cut", this);
    cut->setShortcut(QKeySequence(tr("Ctrl+X")));
    registerAction("Cut", cut, ToolAction, EditMenu);
    auto *copy = new BaseAction("Copy", this);
    copy->setShortcut(QKeySequence(tr("Ctrl+C")));
    registerAction("Copy", copy, ToolAction, EditMenu);
    auto *paste = new BaseAction("Paste", this);
    paste->setShortcut(QKeySequence(tr("Ctrl+V")));
    paste->setStatusTip(tr("Pastes the text stored in the clipboard"));
    registerAction("Paste", paste, ToolAction, EditMenu);
    addSeparator(EditMenu);
    registerAction("Find", new BaseAction("Find", this), ToolAction, EditMenu);
    registerAction("Find Next", new BaseAction("Find Next", this), ToolAction, EditMenu);
    registerAction("Replace", new BaseAction("Replace", this), ToolAction, EditMenu);
    auto *findInFiles = new QAction(QStringLiteral("Find in Files..."), this);
    findInFiles->setShortcut(QKeySequence(tr("Ctrl+Shift+F")));
    findInFiles->setIcon(StandardActions::icon(QStringLiteral("Find in Files...")));
    registerAction("Find in Files...", findInFiles, ShellAction, EditMenu);
    registerAction("Go To", new BaseAction("Go To", this), ToolAction, EditMenu);
    addSeparator(EditMenu);
    registerAction("Clear", new BaseAction("Clear", this), ToolAction, EditMenu);
    registerAction("Select All", new BaseAction("Select All", this), ToolAction, EditMenu);
    addPlaceholder(EditMenu);
}

void MenuActionMan::createViewActions()
{
    auto *statusBar = new QAction(tr("Status Bar"), this);
    statusBar->setCheckable(true);
    registerAction("Status Bar", statusBar, ShellAction, ViewMenu);
    addPlaceholder(ViewMenu);
}

void MenuActionMan::createToolsActions()
{
    auto *option = new QAction(tr("Option..."), this);
    option->setIcon(StandardActions::icon(QStringLiteral("Option")));
    registerAction("Option", option, ShellAction, ToolsMenu);
}
