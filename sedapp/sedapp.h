#pragma once

#include "hubappinterface.h"

#include <QHash>
#include <QObject>
#include <QPointer>

namespace koru::sedgui {

class SedGUI;

// The tool factory the shell loads from toolapps/libsedapp.so: makes editor
// tools for argument lists and hands out the library's option pages.
class SedApp : public QObject, public hubAppInterface
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID hubAppInterface_iid)
    Q_INTERFACES(hubAppInterface)

public:
    SedApp();
    ~SedApp() override;

    QString getAppName() const override;
    QString getOptionTitle() const override;
    // (): a new untitled document. Otherwise the first file of the list (see
    // ToolArgs) becomes the tool returned, or the tool that already holds it;
    // every further file is handed to parent's onOpenFile(QString,int),
    // queued. A file that cannot be opened is reported to the user (and in
    // *errorText) and gives null.
    QWidget *createTool(QWidget *parent, int reserved, QStringList args, QString *errorText,
                        int flags) override;
    QStringList getOptionPageNames() const override;
    OptWidget *getOptionPage(const QString &name) override;

private:
    SedGUI *openTool(QWidget *parent, const QString &path, int line, QString *errorText);

    QHash<QString, QPointer<OptWidget>> m_pages;
};

} // namespace koru::sedgui
