#include "hubguitool.h"
#include "mainwindow.h"
#include "templatetree.h"

#include <QCloseEvent>
#include <QDebug>
#include <QTabWidget>

bool MainWindow::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::WindowActivate) {
        qDebug() << "====check file changed===";
        if (QWidget *changed = koru::sedgui::TemplateTree::Instance()->checkFileChanged()) {
            m_tabWidget->setCurrentWidget(changed);
            activeTool = changed;
            return true;
        }
        if (auto *tool = dynamic_cast<HubGUITool *>(activeTool))
            tool->activate();
    }
    return QMainWindow::eventFilter(watched, event);
}

void MainWindow::closeEvent(QCloseEvent *event)
{
    onFileCloseAll();
    if (toolList.isEmpty())
        event->accept();
    else
        event->ignore();
}
