#include "faketool.h"

#include <utility>

FakeTool::FakeTool(QWidget *parent)
    : koru::sedgui::SedGUI(parent)
{}

FakeTool::~FakeTool() = default;

QString FakeTool::getTitle() const
{
    return title;
}

QString FakeTool::getTabText() const
{
    return tabText;
}

QString FakeTool::getFileName() const
{
    return fileName;
}

QList<Connection *> *FakeTool::getConnectionList()
{
    return publishConnections ? &m_connections : nullptr;
}

QList<QAction *> *FakeTool::getMenuActions(int menuKind)
{
    menuActionRequests.append(menuKind);
    return menuActions.contains(menuKind) ? &menuActions[menuKind] : nullptr;
}

void FakeTool::closeTool(bool force)
{
    ++closeRequests;
    if (refuseClose && !force)
        return;
    emit sigToolClose(this);
    deleteLater();
}

void FakeTool::saveFile()
{
    ++saveCount;
}

void FakeTool::activate()
{
    ++activateCount;
}

void FakeTool::processArgs(QWidget *, QStringList args)
{
    processArgsCalls.append(args);
}

bool FakeTool::handleExternalChange()
{
    return std::exchange(changedOutside, false);
}

void FakeTool::addConnection(const char *senderKey, const char *signal, const char *receiverKey,
                             const char *slot)
{
    m_records.push_back(std::make_unique<Connection>(senderKey, signal, receiverKey, slot));
    m_connections.append(m_records.back().get());
}

void FakeTool::onCommand()
{
    ++commandsReceived[QStringLiteral("onCommand")];
}

void FakeTool::onOtherCommand()
{
    ++commandsReceived[QStringLiteral("onOtherCommand")];
}
