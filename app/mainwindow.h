#pragma once

#include <QList>
#include <QMainWindow>
#include <QPointer>
#include <QStringList>

#include <array>

class HubGUITool;
class MenuName;
class OptDlg;
class QAction;
class QMenu;
class QTabWidget;
class QToolBar;
class TabCornerWidget;
class hubAppInterface;

namespace koru::sedgui {
class SedGUI;
}

// The single top-level window: hosts the tools in tabs, owns the menu bar,
// the tool bars and the status bar, and joins the registry's shared actions
// to its own commands and to the active tool.
//
// The class is split by concern: mainwindow.cpp (construction, the small
// commands), mainwindow_plugin.cpp (loading the tool factory),
// mainwindow_tools.cpp (tabs, the active tool, file commands),
// mainwindow_recent.cpp (recent files), mainwindow_menus.cpp (menu rebuilding
// and the tools' connection records) and mainwindow_close.cpp (window
// activation and closing).
//
// The order of the signals and slots below is part of the window's interface.
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    static constexpr int MaxRecentFiles = 15;

    explicit MainWindow(const QStringList &args, QWidget *parent = nullptr,
                        Qt::WindowFlags flags = {});
    ~MainWindow() override;

    // The open tools, most recently activated first.
    const QList<QWidget *> &tools() const { return toolList; }
    // The tool whose menu links are made; null when no tool is open.
    QWidget *currentTool() const { return activeTool; }
    QTabWidget *tabWidget() const { return m_tabWidget; }
    // The menu of a menu index (0 File to 4 Help); null for Help.
    QMenu *menu(int index) const;
    // The tool factory; null when loading failed.
    hubAppInterface *toolFactory() const { return appInterface; }
    OptDlg *optionsDialog() const { return optDlg; }
    QStringList recentFileList() const { return recentFiles; }

    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    void sigCloseView();
    void sigCrossProbing(QWidget *sender, QStringList args);
    void sigOutputResult(QString);

private Q_SLOTS:
    void onWindowClose(QWidget *view);
    void onFileHasOpened(void *);
    void onActiveWidget(koru::sedgui::SedGUI *);
    void onTitleChange();

public Q_SLOTS:
    void onNewFile();
    void onOpenFile();
    void onOpenFile(const QString &path, int line);
    void onFileClose();
    void onFileCloseAll();
    void onFileSaveAll();
    void onFileExit();
    void onViewStatusBar();
    void OnOptDlg();
    void onCurrentChanged(int);
    void openRecentFile();
    void onFileSaved(const QString &fileName);
    void onFileMenuAboutToShow();
    void onEditMenuAboutToShow();
    void onViewMenuAboutToShow();
    void onToolsMenuAboutToShow();
    void onHelpMenuAboutToShow();
    void updateMenu();
    void onHelpKoruHelp();

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    void createCentralWidget();
    void createStatusBar();
    void createToolBars();
    void createMenus();
    void connectActions();

    void loadToolPlugin();

    void addTool(QWidget *tool);
    void openFile(const QString &path);

    void createRecentFileActions();
    void loadRecentFiles();
    void addRecentFile(const QString &path);
    void updateRecentFileActions();
    void addRecentFilesMenu(QMenu *menu, MenuName *item);

    void registerToolMenuItems(QWidget *tool);
    void registerSharedMenus(QWidget *tool);
    void rebuildMenu(QMenu *menu, int index);
    void addToolActions(QMenu *menu, int index);

    QMenu *fileMenu = nullptr;
    QMenu *editMenu = nullptr;
    QMenu *viewMenu = nullptr;
    QMenu *toolsMenu = nullptr;
    QMenu *helpMenu = nullptr;
    QToolBar *m_fileToolBar = nullptr;
    QToolBar *m_editToolBar = nullptr;
    QToolBar *m_viewToolBar = nullptr;
    QTabWidget *m_tabWidget = nullptr;
    TabCornerWidget *m_cornerWidget = nullptr;
    QList<QWidget *> toolList;
    QList<hubAppInterface *> appInterfaces;
    hubAppInterface *appInterface = nullptr;
    // The plug-in's root object: every window of the process gets the same
    // one, and only the first window to go deletes it.
    QPointer<QObject> m_factoryObject;
    QStringList arguments;
    QStringList recentFiles;
    OptDlg *optDlg = nullptr;
    QWidget *activeTool = nullptr;
    std::array<QAction *, MaxRecentFiles> recentFileActions{};
};
