#include "sedapp.h"

#include "dialogs/userprompt.h"
#include "options/optionpages.h"
#include "optwidget.h"
#include "sedgui.h"
#include "templatetree.h"
#include "toolargs.h"

#include <QDir>
#include <QMetaObject>

namespace koru::sedgui {

SedApp::SedApp() = default;

SedApp::~SedApp() = default;

QString SedApp::getAppName() const
{
    return QStringLiteral("Source Editor tools");
}

// The node above the pages names the whole tool library; a page's name
// there would show that page twice ("Editor > Editor").
QString SedApp::getOptionTitle() const
{
    return tr("Source Editor");
}

QWidget *SedApp::createTool(QWidget *parent, int, QStringList args, QString *errorText, int)
{
    const ToolArgs parsed = ToolArgs::parse(args, QDir::currentPath());
    if (!parsed.refused.isEmpty()) {
        const QString why = parsed.refused.join(QLatin1Char('\n'));
        UserPrompt::tell(parent, UserPrompt::Icon::Warning, tr("Open File"), why);
        if (errorText)
            *errorText = why;
        if (parsed.files.isEmpty())
            return nullptr;
    }
    if (parsed.files.isEmpty())
        return new SedGUI(parent);

    SedGUI *tool =
        openTool(parent, parsed.files.first().path, parsed.files.first().line, errorText);
    for (qsizetype i = 1; i < parsed.files.size(); ++i) {
        const ToolArgs::File &file = parsed.files.at(i);
        if (parent)
            QMetaObject::invokeMethod(parent, "onOpenFile", Qt::QueuedConnection,
                                      Q_ARG(QString, file.path), Q_ARG(int, file.line));
    }
    return tool;
}

SedGUI *SedApp::openTool(QWidget *parent, const QString &path, int line, QString *errorText)
{
    if (SedGUI *open = TemplateTree::Instance()->findDocument(path)) {
        if (line > 0)
            open->goToLine(line);
        return open;
    }
    auto *tool = new SedGUI(parent);
    QString error;
    if (!tool->openFile(path, &error)) {
        delete tool;
        UserPrompt::tell(parent, UserPrompt::Icon::Warning, tr("Open File"), error);
        if (errorText)
            *errorText = error;
        return nullptr;
    }
    if (line > 0)
        tool->goToLine(line);
    return tool;
}

QStringList SedApp::getOptionPageNames() const
{
    return OptionPages::names();
}

OptWidget *SedApp::getOptionPage(const QString &name)
{
    QPointer<OptWidget> &page = m_pages[name];
    if (!page)
        page = OptionPages::create(name);
    return page;
}

} // namespace koru::sedgui
