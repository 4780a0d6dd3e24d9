#include "mainwindow.h"

#include "hubappinterface.h"
#include "menuactionman.h"
#include "optdlg.h"
#include "tabcornerwidget.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <QStatusBar>
#include <QTabWidget>
#include <QToolBar>

MainWindow::MainWindow(const QStringList &args, QWidget *parent, Qt::WindowFlags flags)
    : QMainWindow(parent, flags)
{
    setObjectName(QStringLiteral("MainWindow"));
    setWindowTitle(QStringLiteral("Source Editor"));
    arguments = args;
    fileMenu = editMenu = viewMenu = toolsMenu = helpMenu = nullptr;
    statusBar()->showMessage(tr("Ready"));

    createCentralWidget();
    createStatusBar();
    createRecentFileActions();
    createToolBars();
    createMenus();
    // The start-up tool is made here, before the commands are connected and
    // before the options dialog exists.
    loadToolPlugin();
    connectActions();

    appInterfaces.append(appInterface);
    optDlg = new OptDlg(&appInterfaces, this, {});
}

MainWindow::~MainWindow()
{
    if (m_factoryObject)
        delete appInterface;
}

QMenu *MainWindow::menu(int index) const
{
    switch (index) {
    case MenuActionMan::FileMenu:
        return fileMenu;
    case MenuActionMan::EditMenu:
        return editMenu;
    case MenuActionMan::ViewMenu:
        return viewMenu;
    case MenuActionMan::ToolsMenu:
        return toolsMenu;
    case MenuActionMan::HelpMenu:
        return helpMenu;
    default:
        return nullptr;
    }
}

void MainWindow::createCentralWidget()
{
    m_tabWidget = new QTabWidget(this);
    m_cornerWidget = new TabCornerWidget(this);
    m_tabWidget->setTabPosition(QTabWidget::North);
    m_tabWidget->setTabShape(QTabWidget::Triangular);
    m_tabWidget->setCornerWidget(m_cornerWidget, Qt::TopRightCorner);
    connect(m_cornerWidget, SIGNAL(sigCloseTool()), this, SLOT(onFileClose()));
    connect(m_tabWidget, SIGNAL(currentChanged(int)), this, SLOT(onCurrentChanged(int)));
    setCentralWidget(m_tabWidget);
    MenuActionMan::instance();
}

void MainWindow::createStatusBar()
{
    MenuActionMan::instance()->getAction("Status Bar", MenuActionMan::ViewMenu)->setChecked(true);
    statusBar()->setVisible(true);
    statusBar()->showMessage(tr("Ready"));
}

void MainWindow::createToolBars()
{
    MenuActionMan *registry = MenuActionMan::instance();
    const QSize iconSize(24, 24);

    m_fileToolBar = new QToolBar(QStringLiteral("File"));
    m_fileToolBar->setObjectName(QStringLiteral("FileToolBar"));
    for (const char *name : {"New", "Open", "Save", "Save All", "Print"})
        m_fileToolBar->addAction(registry->getAction(name, MenuActionMan::FileMenu));
    m_fileToolBar->setIconSize(iconSize);
    addToolBar(m_fileToolBar);

    m_editToolBar = new QToolBar(QStringLiteral("Edit"));
    m_editToolBar->setObjectName(QStringLiteral("EditToolBar"));
    for (const char *name : {"Undo", "Redo", "Cut", "Copy", "Paste"})
        m_editToolBar->addAction(registry->getAction(name, MenuActionMan::EditMenu));
    m_editToolBar->setIconSize(iconSize);
    addToolBar(m_editToolBar);

    // Made and kept, never filled nor shown.
    m_viewToolBar = new QToolBar(QStringLiteral("View"));
}

void MainWindow::createMenus()
{
    fileMenu = menuBar()->addMenu(tr("&File"));
    connect(fileMenu, SIGNAL(aboutToShow()), this, SLOT(onFileMenuAboutToShow()));
    editMenu = menuBar()->addMenu(tr("&Edit"));
    connect(editMenu, SIGNAL(aboutToShow()), this, SLOT(onEditMenuAboutToShow()));
    viewMenu = menuBar()->addMenu(tr("&View"));
    connect(viewMenu, SIGNAL(aboutToShow()), this, SLOT(onViewMenuAboutToShow()));
    toolsMenu = menuBar()->addMenu(tr("&Tools"));
    connect(toolsMenu, SIGNAL(aboutToShow()), this, SLOT(onToolsMenuAboutToShow()));
}

void MainWindow::connectActions()
{
    MenuActionMan *registry = MenuActionMan::instance();
    registry->connectAction(MenuActionMan::FileMenu, "New", this, SLOT(onNewFile()));
    registry->connectAction(MenuActionMan::FileMenu, "Open", this, SLOT(onOpenFile()));
    registry->connectAction(MenuActionMan::FileMenu, "Close", this, SLOT(onFileClose()));
    registry->connectAction(MenuActionMan::FileMenu, "Close All", this, SLOT(onFileCloseAll()));
    registry->connectAction(MenuActionMan::FileMenu, "Save All", this, SLOT(onFileSaveAll()));
    registry->connectAction(MenuActionMan::FileMenu, "Exit", this, SLOT(onFileExit()));
    registry->connectAction(MenuActionMan::ViewMenu, "Status Bar", this, SLOT(onViewStatusBar()));
    registry->connectAction(MenuActionMan::ToolsMenu, "Option", this, SLOT(OnOptDlg()));
}

void MainWindow::onFileExit()
{
    close();
    qDebug("Menu Item: %s.", "onFileExit");
}

void MainWindow::onViewStatusBar()
{
    if (auto *action = qobject_cast<QAction *>(sender()))
        statusBar()->setVisible(action->isChecked());
    qDebug("Menu Item: %s.", "onViewStatusBar");
}

void MainWindow::OnOptDlg()
{
    if (optDlg) {
        optDlg->refreshCurrentPage();
        optDlg->exec();
    }
    qDebug("Menu Item: %s.", "onToolsOption");
}

void MainWindow::onHelpKoruHelp()
{
    qDebug("Menu Item: %s.", "onHelpKoruHelp");
}
