#pragma once

#include "sedguiexport.h"

#include <QList>
#include <QString>
#include <QStringList>
#include <QWidget>

class QAction;
struct Connection;

namespace koru::sedgui {
class SedGUI;
}

// Base of every tool widget that the shell hosts in a tab. A tool belongs to
// the tab widget once added and disposes of itself after it has closed.
class SEDGUI_EXPORT HubGUITool : public QWidget
{
    Q_OBJECT

public:
    enum MenuKind { EditMenu = 1, ViewMenu = 2 };

    explicit HubGUITool(QWidget *parent = nullptr);
    ~HubGUITool() override;

    // Main window title while this tool is current.
    virtual QString getTitle() const;
    // Tab label.
    virtual QString getTabText() const;
    // Path of the tool's file; empty for an untitled document.
    virtual QString getFileName() const;
    // Links between the tool and shared actions, owned by the tool; or null.
    virtual QList<Connection *> *getConnectionList();
    // The tool's own actions for the Edit (1) or View (2) menu, owned by the
    // tool; or null.
    virtual QList<QAction *> *getMenuActions(int menuKind);
    // Closes if it can (asking the user as needed), then emits sigToolClose.
    // A tool that stays open emits nothing.
    virtual void closeTool(bool force);
    // Saves the tool's file.
    virtual void saveFile();
    // The tool is, or has become, the active tool: re-emit every state that
    // drives a shared action.
    virtual void activate();
    // Handles an argument list again after creation, e.g. (path, "-line", N).
    virtual void processArgs(QWidget *mainWindow, QStringList args);

Q_SIGNALS:
    void sigToolClose(QWidget *tool);
    void sigFileHasOpened(void *tool);
    void sigActiveWidget(koru::sedgui::SedGUI *tool);
    void sigTitleChange(HubGUITool *tool);
    void sigFileSaved(const QString fileName);
};
