#include "hubguitool.h"

HubGUITool::HubGUITool(QWidget *parent)
    : QWidget(parent)
{}

HubGUITool::~HubGUITool() = default;

QString HubGUITool::getTitle() const
{
    return {};
}

QString HubGUITool::getTabText() const
{
    return {};
}

QString HubGUITool::getFileName() const
{
    return {};
}

QList<Connection *> *HubGUITool::getConnectionList()
{
    return nullptr;
}

QList<QAction *> *HubGUITool::getMenuActions(int)
{
    return nullptr;
}

void HubGUITool::closeTool(bool) {}

void HubGUITool::saveFile() {}

void HubGUITool::activate() {}

void HubGUITool::processArgs(QWidget *, QStringList) {}
