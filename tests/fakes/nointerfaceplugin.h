#pragma once

#include <QObject>

// A valid Qt plug-in whose root object does not offer the tool interface.
class NoInterfacePlugin : public QObject
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "org.sourceeditor.tests.NoInterface/1.0")
};
