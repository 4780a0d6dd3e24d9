#pragma once

#include "connection.h"
#include "fakecontrol.h"
#include "sedgui.h"

#include <QMap>

#include <deque>
#include <utility>

// A tool scripted and read through its public members. Connection records use
// its state signal and command slot, for example
//   tool->addConnection(nullptr, "2stateChanged(bool)", "COPY", "1setEnabled(bool)");
//   tool->addConnection("COPY", "2triggered()", nullptr, "1onCommand()");
class FAKETOOLS_EXPORT FakeTool : public koru::sedgui::SedGUI
{
    Q_OBJECT

public:
    explicit FakeTool(QWidget *parent = nullptr)
        : koru::sedgui::SedGUI(parent)
    {}

    QString getTitle() const override { return title; }
    QString getTabText() const override { return tabText; }
    QString getFileName() const override { return fileName; }
    QList<Connection *> *getConnectionList() override;
    QList<QAction *> *getMenuActions(int menuKind) override;
    void closeTool(bool force) override;
    void saveFile() override { ++saveCount; }
    void activate() override { ++activateCount; }
    void processArgs(QWidget *, QStringList args) override { processArgsCalls.append(args); }
    bool handleExternalChange() override { return std::exchange(changedOutside, false); }

    // Adds a record that the tool owns; the strings must outlive the tool.
    void addConnection(const char *senderKey, const char *signal, const char *receiverKey,
                       const char *slot);

    // Script.
    QString title;
    QString tabText;
    QString fileName;
    bool refuseClose = false;
    bool publishConnections = true;          // false: getConnectionList returns null
    bool changedOutside = false;             // reported once by handleExternalChange
    QMap<int, QList<QAction *>> menuActions; // by menu index, not owned

    // Record.
    int activateCount = 0;
    int saveCount = 0;
    int closeRequests = 0;
    QList<int> menuActionRequests;
    QList<QStringList> processArgsCalls;
    int commandsReceived = 0;

Q_SIGNALS:
    void stateChanged(bool on);

public Q_SLOTS:
    void onCommand() { ++commandsReceived; }

private:
    std::deque<Connection> m_records;
    QList<Connection *> m_connections;
};
