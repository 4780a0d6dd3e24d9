#include "faketoolfactory.h"

#include "fakecontrol.h"
#include "fakeoptionpage.h"

FakeToolFactory::FakeToolFactory()
{
    ++FakeControl::instance()->factoriesMade;
}

FakeToolFactory::~FakeToolFactory()
{
    ++FakeControl::instance()->factoriesDeleted;
}

QString FakeToolFactory::getAppName() const
{
    return FakeControl::instance()->appName;
}

QString FakeToolFactory::getOptionTitle() const
{
    return FakeControl::instance()->optionTitle;
}

QWidget *FakeToolFactory::createTool(QWidget *parent, int, QStringList args, QString *, int)
{
    return FakeControl::instance()->createTool(parent, args);
}

QStringList FakeToolFactory::getOptionPageNames() const
{
    return FakeControl::instance()->pageNames;
}

OptWidget *FakeToolFactory::getOptionPage(const QString &name)
{
    return FakeControl::instance()->optionPage(name);
}
