#include "faketool.h"

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

void FakeTool::addConnection(const char *senderKey, const char *signal, const char *receiverKey,
                             const char *slot)
{
    m_connections.append(&m_records.emplace_back(senderKey, signal, receiverKey, slot));
}
