#pragma once

#include <QList>
#include <QMap>
#include <QPointer>
#include <QStringList>

#include <functional>

#if defined(FAKETOOLS_LIBRARY)
#define FAKETOOLS_EXPORT Q_DECL_EXPORT
#else
#define FAKETOOLS_EXPORT Q_DECL_IMPORT
#endif

class FakeOptionPage;
class FakeTool;
class QWidget;

// The script and record of the fake tool plug-in, shared by its factory and
// the tests. createTool makes a FakeTool named after its first argument (title
// the path or "Untitled", tab text the file name), or returns the open tool
// of that path; configure scripts each new tool.
class FAKETOOLS_EXPORT FakeControl
{
public:
    static FakeControl *instance();
    // Forgets the script and the record; tools already made stay as they are.
    void reset() { *this = FakeControl(); }
    QList<FakeTool *> liveTools() const;             // oldest first
    FakeOptionPage *page(const QString &name) const; // once the factory made it
    // What the plug-in's factory calls.
    QWidget *createTool(QWidget *parent, const QStringList &args);
    FakeOptionPage *optionPage(const QString &name);

    // Script.
    bool returnNull = false; // createTool gives null
    std::function<void(FakeTool *, const QStringList &)> configure;
    QStringList pageNames;

    // Record.
    QList<QStringList> createCalls;
    int factoriesMade = 0;
    int factoriesDeleted = 0;

private:
    QList<QPointer<FakeTool>> m_tools;
    QMap<QString, QPointer<FakeOptionPage>> m_pages;
};
