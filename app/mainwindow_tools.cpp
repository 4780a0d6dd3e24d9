#include "ccommon.h"
#include "hubappinterface.h"
#include "hubguitool.h"
#include "mainwindow.h"
#include "menuactionman.h"
#include "sedgui.h"

#include <QAction>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QTabWidget>
#include <QVariant>

void MainWindow::addTool(QWidget *tool)
{
    if (!tool)
        return;
    // The tool's signal names are matched as the tool declares them.
    connect(tool, SIGNAL(sigToolClose(QWidget *)), this, SLOT(onWindowClose(QWidget *)));
    connect(tool, SIGNAL(sigFileHasOpened(void *)), this, SLOT(onFileHasOpened(void *)));
    connect(tool, SIGNAL(sigActiveWidget(koru::sedgui::SedGUI *)), this,
            SLOT(onActiveWidget(koru::sedgui::SedGUI *)));
    connect(tool, SIGNAL(sigTitleChange(HubGUITool *)), this, SLOT(onTitleChange()));
    connect(tool, SIGNAL(sigFileSaved(const QString)), this, SLOT(onFileSaved(const QString)));
    installEventFilter(this);

    const qsizetype known = toolList.lastIndexOf(tool);
    if (known >= 0) {
        // The factory handed back a tool that is already open.
        toolList.removeAt(known);
        toolList.prepend(tool);
        m_tabWidget->setCurrentWidget(tool);
        activeTool = tool;
        return;
    }

    QWidget *focus = tool->focusWidget();
    toolList.prepend(tool);
    auto *hubTool = dynamic_cast<HubGUITool *>(tool);
    m_tabWidget->addTab(tool, QIcon(), hubTool ? hubTool->getTabText() : QString());
    if (focus)
        focus->setFocus(Qt::OtherFocusReason);
    m_tabWidget->setCurrentWidget(tool);
    activeTool = tool;
}

void MainWindow::onNewFile()
{
    if (!appInterface)
        return;
    QString errorText;
    QWidget *tool = appInterface->createTool(this, 0, QStringList(), &errorText, 0);
    if (tool) {
        addTool(tool);
        updateMenu();
    }
}

void MainWindow::openFile(const QString &path)
{
    if (path.isEmpty() || !appInterface)
        return;
    QString errorText;
    QWidget *tool = appInterface->createTool(this, 0, QStringList{path}, &errorText, 0);
    if (tool) {
        addTool(tool);
        updateMenu();
        addRecentFile(path);
    }
}

void MainWindow::onOpenFile()
{
    const QString filter = koru::sedgui::CCommon::Instance()->getSupportFileDesc();
    const QStringList paths =
        QFileDialog::getOpenFileNames(this, tr("Open File"), QDir::currentPath(), filter);
    for (const QString &path : paths)
        openFile(path);
}

void MainWindow::onOpenFile(const QString &path, int line)
{
    if (path.isEmpty() || !appInterface)
        return;
    const QStringList args{path, QStringLiteral("-line"), QVariant(line).toString()};
    QString errorText;
    QWidget *tool = appInterface->createTool(this, 0, args, &errorText, 0);
    if (tool) {
        addTool(tool);
        updateMenu();
        addRecentFile(path);
        if (auto *hubTool = dynamic_cast<HubGUITool *>(tool))
            hubTool->processArgs(this, args);
    }
}

void MainWindow::openRecentFile()
{
    if (auto *action = qobject_cast<QAction *>(sender()))
        openFile(action->data().toString());
}

void MainWindow::onFileClose()
{
    QWidget *current = m_tabWidget->currentWidget();
    if (!current) {
        qDebug("Menu Item: %s.", "onFileClose");
        return;
    }
    auto *tool = qobject_cast<koru::sedgui::SedGUI *>(current);
    if (!tool)
        return;
    tool->closeTool(false);
    qDebug("Menu Item: %s.", "onFileClose");
}

void MainWindow::onFileCloseAll()
{
    // A tool that closes leaves toolList during the call.
    const QList<QWidget *> tools = toolList;
    for (QWidget *widget : tools) {
        if (auto *tool = qobject_cast<koru::sedgui::SedGUI *>(widget))
            tool->closeTool(false);
    }
    qDebug("Menu Item: %s.", "onFileCloseAll");
}

void MainWindow::onFileSaveAll()
{
    const QList<QWidget *> tools = toolList;
    for (QWidget *widget : tools) {
        if (auto *tool = qobject_cast<HubGUITool *>(widget))
            tool->saveFile();
    }
    qDebug("Menu Item: %s.", "onFileSaveAll");
}

void MainWindow::onWindowClose(QWidget *view)
{
    if (!view)
        return;
    const int index = m_tabWidget->indexOf(view);
    if (index >= 0)
        m_tabWidget->removeTab(index);
    if (!qobject_cast<HubGUITool *>(view))
        return;
    toolList.removeOne(view);
    if (toolList.isEmpty()) {
        activeTool = nullptr;
        setWindowTitle(QStringLiteral("Source Editor"));
        MenuActionMan::instance()->disableToolActions();
    }
}

void MainWindow::onFileHasOpened(void *tool)
{
    if (tool)
        m_tabWidget->setCurrentWidget(static_cast<QWidget *>(tool));
}

void MainWindow::onActiveWidget(koru::sedgui::SedGUI *tool)
{
    if (tool)
        m_tabWidget->setCurrentWidget(tool);
}

void MainWindow::onTitleChange()
{
    auto *tool = qobject_cast<koru::sedgui::SedGUI *>(activeTool);
    if (!tool)
        return;
    m_tabWidget->setTabText(m_tabWidget->currentIndex(), tool->getTabText());
    setWindowTitle(tool->getTitle());
}

void MainWindow::onCurrentChanged(int)
{
    QWidget *widget = m_tabWidget->currentWidget();
    if (!widget)
        return;
    registerToolMenuItems(activeTool);
    if (qobject_cast<HubGUITool *>(widget)) {
        const qsizetype known = toolList.lastIndexOf(widget);
        if (known >= 0)
            toolList.move(known, 0);
    }
    activeTool = widget;
    qDebug("+++++++++++++MainWindow::onCurrentChanged === %s %d", widget->metaObject()->className(),
           static_cast<int>(reinterpret_cast<quintptr>(widget)));

    auto *tool = dynamic_cast<HubGUITool *>(widget);
    if (!tool)
        return;
    // Characters outside Latin-1 show as "?", as the title always did.
    setWindowTitle(QString::fromLatin1(tool->getTitle().toLatin1()));
    registerSharedMenus(tool);
    tool->activate();
    QDir::setCurrent(QFileInfo(tool->getFileName()).absolutePath());
    updateMenu();
}
