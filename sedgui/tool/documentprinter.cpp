#include "tool/documentprinter.h"

#include <QCoreApplication>
#include <QFontDatabase>
#include <QFontMetrics>
#include <QPainter>

#include <Qsci/qsciscintilla.h>

namespace koru::sedgui {

DocumentPrinter::DocumentPrinter(QPrinter::PrinterMode mode)
    : QsciPrinter(mode)
{
    setWrapMode(QsciScintilla::WrapWord);
    setPageMargins(QMarginsF(15, 15, 15, 15), QPageLayout::Millimeter);
    // Print at the document's own size, whatever the view is zoomed to.
    setMagnification(0);
}

int DocumentPrinter::printDocument(QsciScintillaBase *editor)
{
    if (!m_title.isEmpty()) {
        setDocName(m_title);
    }
    int from = -1;
    int to = -1;
    if (QPrinter::printRange() == QPrinter::Selection) {
        const long start = editor->SendScintilla(QsciScintillaBase::SCI_GETSELECTIONSTART);
        const long end = editor->SendScintilla(QsciScintillaBase::SCI_GETSELECTIONEND);
        from = int(editor->SendScintilla(QsciScintillaBase::SCI_LINEFROMPOSITION,
                                         static_cast<unsigned long>(start)));
        to = int(editor->SendScintilla(QsciScintillaBase::SCI_LINEFROMPOSITION,
                                       static_cast<unsigned long>(end)));
    }
    m_pagesPrinted = 0;
    // Whitespace and line-end markers help on screen, not on paper.
    const unsigned long whitespace = editor->SendScintilla(QsciScintillaBase::SCI_GETVIEWWS);
    const unsigned long lineEnds = editor->SendScintilla(QsciScintillaBase::SCI_GETVIEWEOL);
    editor->SendScintilla(QsciScintillaBase::SCI_SETVIEWWS, 0UL);
    editor->SendScintilla(QsciScintillaBase::SCI_SETVIEWEOL, 0UL);
    // printRange() only tells success; the pages are counted as they are drawn.
    const bool printed = printRange(editor, from, to);
    editor->SendScintilla(QsciScintillaBase::SCI_SETVIEWWS, whitespace);
    editor->SendScintilla(QsciScintillaBase::SCI_SETVIEWEOL, lineEnds);
    return printed ? m_pagesPrinted : 0;
}

void DocumentPrinter::formatPage(QPainter &painter, bool drawing, QRect &area, int pageNumber)
{
    QFont font = QFontDatabase::systemFont(QFontDatabase::GeneralFont);
    font.setPointSize(9);
    const QFontMetrics metrics(font, painter.device());
    const int height = metrics.height();
    const QRect header(area.left(), area.top(), area.width(), height);

    if (drawing) {
        ++m_pagesPrinted;
        painter.save();
        painter.setFont(font);
        painter.setPen(Qt::black);
        const QString pageText =
            QCoreApplication::translate("koru::sedgui::DocumentPrinter", "Page %1").arg(pageNumber);
        const int pageWidth = metrics.horizontalAdvance(pageText);
        const QString title = metrics.elidedText(m_title, Qt::ElideMiddle,
                                                 std::max(0, area.width() - pageWidth - height));
        painter.drawText(header, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, title);
        painter.drawText(header, Qt::AlignRight | Qt::AlignVCenter | Qt::TextSingleLine, pageText);
        const int ruleY = header.bottom() + height / 4;
        painter.drawLine(area.left(), ruleY, area.right(), ruleY);
        painter.restore();
    }
    area.setTop(header.bottom() + height / 2);
}

} // namespace koru::sedgui
