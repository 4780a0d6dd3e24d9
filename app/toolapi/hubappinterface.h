#pragma once

#include <QString>
#include <QStringList>
#include <QtPlugin>

class QWidget;
class OptWidget;

// The tool factory: the root object of the tool plug-in offers this interface.
// The shell owns the interface object once loaded and deletes it on exit.
class hubAppInterface
{
public:
    virtual ~hubAppInterface() = default;

    // A short name of the tool library, written to the debug log after loading.
    virtual QString getAppName() const = 0;

    // Text of the tool's top node in the options tree.
    virtual QString getOptionTitle() const = 0;

    // Makes a tool widget for the argument list, or returns null.
    //   ()                        a new untitled document
    //   (path)                    the file at path
    //   (path, "-line", N)        the file at path, at line N
    //   argv[1..]                 the start-up command line
    // A path that is already open returns the tool that holds it. parent is the
    // main window; the two ints are reserved (the shell passes 0); errorText
    // may be null or hold the caller's text, and may be set to a reason.
    virtual QWidget *createTool(QWidget *parent, int reserved, QStringList args,
                                QString *errorText, int flags) = 0;

    // Names of the tool's option pages, in display order.
    virtual QStringList getOptionPageNames() const = 0;

    // The option page for a name, or null. The page is created once and then
    // owned by whoever shows it (the options dialog's page stack).
    virtual OptWidget *getOptionPage(const QString &name) = 0;
};

#define hubAppInterface_iid "org.sourceeditor.koruAppPlugin.hubAppInterface/1.0"
Q_DECLARE_INTERFACE(hubAppInterface, hubAppInterface_iid)
