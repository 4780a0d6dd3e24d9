#pragma once

#include "connection.h"
#include "faketoolsexport.h"
#include "sedgui.h"

#include <QList>
#include <QMap>
#include <QStringList>

#include <memory>
#include <vector>

// A scriptable tool: what it reports and how it answers is set through its
// public members; what the shell asked of it is counted. Its signals, and
// the two state signals below, can be emitted at will (emitAll* helpers or
// the signals themselves).
//
// Connection records use the state signals and command slots, for example
//   tool->addConnection(nullptr, "2stateChanged(bool)", "COPY", "1setEnabled(bool)");
//   tool->addConnection("COPY", "2triggered()", nullptr, "1onCommand()");
class FAKETOOLS_EXPORT FakeTool : public koru::sedgui::SedGUI
{
    Q_OBJECT

public:
    explicit FakeTool(QWidget *parent = nullptr);
    ~FakeTool() override;

    QString getTitle() const override;
    QString getTabText() const override;
    QString getFileName() const override;
    QList<Connection *> *getConnectionList() override;
    QList<QAction *> *getMenuActions(int menuKind) override;
    void closeTool(bool force) override;
    void saveFile() override;
    void activate() override;
    void processArgs(QWidget *mainWindow, QStringList args) override;
    bool handleExternalChange() override;

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
    QMap<QString, int> commandsReceived;

Q_SIGNALS:
    void stateChanged(bool on);
    void otherStateChanged(bool on);

public Q_SLOTS:
    void onCommand();
    void onOtherCommand();

private:
    std::vector<std::unique_ptr<Connection>> m_records;
    QList<Connection *> m_connections;
};
