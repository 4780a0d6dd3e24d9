#include "dialogs/userprompt.h"
#include "sedgui.h"
#include "tool/documentprinter.h"

#include <QPageSetupDialog>
#include <QPrintDialog>
#include <QPrintPreviewDialog>

#include <Qsci/qsciscintilla.h>

#include <optional>

namespace koru::sedgui {

namespace {

// Page Setup applies to every document printed afterwards in this session.
std::optional<QPageLayout> &chosenPageLayout()
{
    static std::optional<QPageLayout> layout;
    return layout;
}

void preparePrinter(DocumentPrinter *printer, const SedGUI *tool)
{
    QString title = tool->getFileName();
    if (title.isEmpty()) {
        title = tool->getTabText();
        if (title.endsWith(QLatin1Char('*'))) {
            title.chop(1);
        }
    }
    printer->setDocumentTitle(title);
    if (chosenPageLayout()) {
        printer->setPageLayout(*chosenPageLayout());
    }
}

} // namespace

void SedGUI::pageSetup()
{
    DocumentPrinter printer;
    preparePrinter(&printer, this);
    QPageSetupDialog dialog(&printer, this);
    if (dialog.exec() == QDialog::Accepted) {
        chosenPageLayout() = printer.pageLayout();
    }
}

void SedGUI::printPreview()
{
    DocumentPrinter printer;
    preparePrinter(&printer, this);
    QPrintPreviewDialog dialog(&printer, this);
    dialog.setWindowTitle(tr("Print Preview - %1").arg(printer.documentTitle()));
    connect(&dialog, &QPrintPreviewDialog::paintRequested, this,
            [this, &printer](QPrinter *) { printer.printDocument(m_editor); });
    dialog.exec();
}

void SedGUI::print()
{
    DocumentPrinter printer;
    preparePrinter(&printer, this);
    QPrintDialog dialog(&printer, this);
    dialog.setWindowTitle(tr("Print %1").arg(printer.documentTitle()));
    dialog.setOption(QAbstractPrintDialog::PrintSelection, m_editor->hasSelectedText());
    if (dialog.exec() != QDialog::Accepted) {
        return;
    }
    chosenPageLayout() = printer.pageLayout();
    if (printer.printDocument(m_editor) == 0) {
        UserPrompt::tell(this, UserPrompt::Icon::Warning, tr("Print"),
                         tr("%1 could not be printed: the printer or the output file is not "
                            "available.")
                             .arg(printer.documentTitle()));
    }
}

} // namespace koru::sedgui
