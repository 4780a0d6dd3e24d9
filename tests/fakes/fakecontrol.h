#pragma once

#include "faketoolsexport.h"

#include <QList>
#include <QPointer>
#include <QStringList>

#include <functional>

class FakeOptionPage;
class FakeTool;
class QWidget;

// The script and the record of the fake tool plug-in.
//
// The plug-in (tests/fakes, built as <tests/bin>/toolapps/libsedapp.so) and
// the tests both link libfaketools.so, so they share this one object: a test
// sets the script, lets the shell load the plug-in and call its factory, and
// reads back what the factory was asked.
//
//   FakeControl &fake = *FakeControl::instance();
//   fake.reset();
//   fake.configure = [](FakeTool *tool, const QStringList &args) {
//       tool->refuseClose = true;                    // script each new tool
//   };
//   fake.returnNull = true;                          // createTool gives null
//   fake.pageNames = {"Editor", "Files"};            // option pages offered
//   ... fake.createCalls ...                         // every argument list
//
// createTool makes a FakeTool for (), (path), (path, "-line", N) or any other
// list; its file name is the first argument, its title that path (or
// "Untitled"), its tab text the path's file name. A first argument that names
// the file of a tool made before and still open returns that tool instead.
// Tools themselves are scripted through their public members (faketool.h).
class FAKETOOLS_EXPORT FakeControl
{
public:
    static FakeControl *instance();

    // Forgets the script and the record; tools already made stay as they are.
    void reset();

    // Every tool made and still alive, oldest first.
    QList<FakeTool *> liveTools() const;
    // The option page of that name, once the factory made it.
    FakeOptionPage *page(const QString &name) const;

    // Script.
    bool returnNull = false;
    std::function<void(FakeTool *, const QStringList &)> configure;
    QString appName = QStringLiteral("Fake Tools");
    QString optionTitle = QStringLiteral("Fake Tools");
    QStringList pageNames;

    // Record.
    QList<QStringList> createCalls;
    QList<QWidget *> createParents;
    QList<QPointer<FakeTool>> createdTools;
    QList<QPointer<FakeOptionPage>> createdPages;
    int factoriesMade = 0;
    int factoriesDeleted = 0;

    // Used by the plug-in's factory.
    QWidget *createTool(QWidget *parent, const QStringList &args);
    FakeOptionPage *optionPage(const QString &name);
};
