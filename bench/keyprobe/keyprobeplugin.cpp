#include "keyprobeplugin.h"

#include "keyprobe.h"

QObject *KeyProbePlugin::create(const QString &name, const QString &)
{
    return name == QLatin1String("keyprobe") ? new KeyProbe : nullptr;
}
