#pragma once

#include <QSettings>

// The user's settings store for a settings name, e.g. "SRC_EDITOR".
class BaseUsrSettings : public QSettings
{
    Q_OBJECT

public:
    BaseUsrSettings(const char *name, QObject *parent = nullptr);
};
