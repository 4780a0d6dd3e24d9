#pragma once

#include <QGenericPlugin>

// Loads the typing probe into any Qt widgets program started with
// QT_QPA_GENERIC_PLUGINS=keyprobe and this folder's plug-in directory on
// QT_PLUGIN_PATH, so that the editor and the floor are measured alike,
// neither of them knowing.
class KeyProbePlugin : public QGenericPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "keyprobe.json")

public:
    QObject *create(const QString &name, const QString &) override;
};
