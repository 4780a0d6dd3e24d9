#pragma once

#include "sedguiexport.h"

#include <QString>

#include <Qsci/qsciprinter.h>

namespace koru::sedgui {

// Prints an editor's document with its colouring, word-wrapped, and with a
// header on every page: the document's name on the left, the page number on
// the right.
class SEDGUI_EXPORT DocumentPrinter : public QsciPrinter
{
public:
    explicit DocumentPrinter(QPrinter::PrinterMode mode = QPrinter::HighResolution);

    void setDocumentTitle(const QString &title) { m_title = title; }
    QString documentTitle() const { return m_title; }

    // Prints the whole document, or the selected lines when the print range
    // asks for the selection. Returns the number of pages; 0 when printing failed.
    int printDocument(QsciScintillaBase *editor);

    void formatPage(QPainter &painter, bool drawing, QRect &area, int pageNumber) override;

private:
    QString m_title;
    int m_pagesPrinted = 0;
};

} // namespace koru::sedgui
