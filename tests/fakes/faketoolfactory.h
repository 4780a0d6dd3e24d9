#pragma once

#include "fakeoptionpage.h"
#include "hubappinterface.h"

#include <QObject>

// The root object of the fake tool plug-in: a factory that follows the
// script of FakeControl.
class FakeToolFactory : public QObject, public hubAppInterface
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID hubAppInterface_iid)
    Q_INTERFACES(hubAppInterface)

public:
    FakeToolFactory() { ++FakeControl::instance()->factoriesMade; }
    ~FakeToolFactory() override { ++FakeControl::instance()->factoriesDeleted; }

    QString getAppName() const override { return QStringLiteral("Fake Tools"); }
    QString getOptionTitle() const override { return getAppName(); }
    QWidget *createTool(QWidget *parent, int, QStringList args, QString *, int) override
    {
        return FakeControl::instance()->createTool(parent, args);
    }
    QStringList getOptionPageNames() const override { return FakeControl::instance()->pageNames; }
    OptWidget *getOptionPage(const QString &name) override
    {
        return FakeControl::instance()->optionPage(name);
    }
};
