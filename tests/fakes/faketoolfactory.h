#pragma once

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
    FakeToolFactory();
    ~FakeToolFactory() override;

    QString getAppName() const override;
    QString getOptionTitle() const override;
    QWidget *createTool(QWidget *parent, int reserved, QStringList args, QString *errorText,
                        int flags) override;
    QStringList getOptionPageNames() const override;
    OptWidget *getOptionPage(const QString &name) override;
};
