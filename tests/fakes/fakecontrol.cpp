#include "fakecontrol.h"

#include "fakeoptionpage.h"
#include "faketool.h"

#include <QFileInfo>

FakeControl *FakeControl::instance()
{
    static FakeControl control;
    return &control;
}

void FakeControl::reset()
{
    *this = FakeControl();
}

QList<FakeTool *> FakeControl::liveTools() const
{
    QList<FakeTool *> tools;
    for (const QPointer<FakeTool> &tool : createdTools) {
        if (tool)
            tools.append(tool);
    }
    return tools;
}

FakeOptionPage *FakeControl::page(const QString &name) const
{
    for (const QPointer<FakeOptionPage> &page : createdPages) {
        if (page && page->objectName() == name)
            return page;
    }
    return nullptr;
}

QWidget *FakeControl::createTool(QWidget *parent, const QStringList &args)
{
    createCalls.append(args);
    createParents.append(parent);
    if (returnNull)
        return nullptr;

    const QString path = args.value(0);
    if (!path.isEmpty()) {
        for (FakeTool *tool : liveTools()) {
            if (tool->fileName == path)
                return tool;
        }
    }

    auto *tool = new FakeTool(parent);
    tool->fileName = path;
    tool->title = path.isEmpty() ? QStringLiteral("Untitled") : path;
    tool->tabText = path.isEmpty() ? QStringLiteral("Untitled") : QFileInfo(path).fileName();
    createdTools.append(tool);
    if (configure)
        configure(tool, args);
    return tool;
}

FakeOptionPage *FakeControl::optionPage(const QString &name)
{
    if (!pageNames.contains(name))
        return nullptr;
    if (FakeOptionPage *made = page(name))
        return made;
    auto *made = new FakeOptionPage(name);
    createdPages.append(made);
    return made;
}
