#include "baseusrsettings.h"

BaseUsrSettings::BaseUsrSettings(const char *name, QObject *parent)
    : QSettings(QSettings::NativeFormat, QSettings::UserScope, QStringLiteral("sourceeditor"),
                QString::fromLatin1(name), parent)
{
}
