#include "fakecontrol.h"

#include "fakeoptionpage.h"
#include "faketool.h"

#include <QFileInfo>

FakeControl *FakeControl::instance()
{
    static FakeControl control;
    return &control;
}

QList<FakeTool *> FakeControl::liveTools() const
{
    QList<FakeTool *> tools;
    for (FakeTool *tool : m_tools)
        tools.append(tool);
    tools.removeAll(nullptr);
    return tools;
}

FakeOptionPage *FakeControl::page(const QString &name) const
{
    return m_pages.value(name);
}

QWidget *FakeControl::createTool(QWidget *parent, const QStringList &args)
{
    createCalls.append(args);
    if (returnNull)
        return nullptr;
    const QString path = args.value(0);
    for (FakeTool *tool : liveTools()) {
        if (!path.isEmpty() && tool->fileName == path)
            return tool;
    }
    auto *tool = new FakeTool(parent);
    tool->fileName = path;
    tool->title = path.isEmpty() ? QStringLiteral("Untitled") : path;
    tool->tabText = path.isEmpty() ? tool->title : QFileInfo(path).fileName();
    m_tools.append(tool);
    if (configure)
        configure(tool, args);
    return tool;
}

FakeOptionPage *FakeControl::optionPage(const QString &name)
{
    if (!pageNames.contains(name))
        return nullptr;
    if (!page(name))
        m_pages.insert(name, new FakeOptionPage(name));
    return page(name);
}
