#include "options/optionpages.h"

#include "options/editoroptionspage.h"
#include "options/filesoptionspage.h"
#include "sedgui.h"
#include "templatetree.h"

#include <QCoreApplication>
#include <QMessageBox>

namespace koru::sedgui {

namespace {

// The pages' names are what the options tree shows, so they are translated.
QString editorPage()
{
    return QCoreApplication::translate("koru::sedgui::OptionPages", "Editor");
}

QString filesPage()
{
    return QCoreApplication::translate("koru::sedgui::OptionPages", "Files");
}

} // namespace

QStringList OptionPages::names()
{
    return {editorPage(), filesPage()};
}

OptWidget *OptionPages::create(const QString &name)
{
    if (name == editorPage()) {
        return new EditorOptionsPage;
    }
    if (name == filesPage()) {
        return new FilesOptionsPage;
    }
    return nullptr;
}

bool OptionPages::storeAndApply(const EditorSettings::Values &values, QWidget *page)
{
    if (!EditorSettings::store(values)) {
        QMessageBox box(QMessageBox::Warning,
                        QCoreApplication::translate("koru::sedgui::OptionPages", "Options"),
                        QCoreApplication::translate(
                            "koru::sedgui::OptionPages",
                            "The options could not be saved: the settings file cannot be "
                            "read or written. The open documents keep their settings."),
                        QMessageBox::Ok, page);
        box.setTextFormat(Qt::PlainText);
        box.exec();
        return false;
    }
    for (SedGUI *document : TemplateTree::Instance()->documents()) {
        document->applySettings();
    }
    return true;
}

} // namespace koru::sedgui
