#include "documentprinter.h"

#include <QFile>
#include <QFontMetrics>
#include <QPainter>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

#include <Qsci/qscilexercpp.h>
#include <Qsci/qsciscintilla.h>

using namespace koru::sedgui;

class TstDocumentPrinter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void pdfHasTheExpectedPageCount_data()
    {
        QTest::addColumn<double>("pages"); // how many pages' worth of lines to print
        QTest::newRow("one line") << 0.0;
        QTest::newRow("two and a half pages") << 2.5;
        QTest::newRow("five and a half pages") << 5.5;
    }
    void pdfHasTheExpectedPageCount()
    {
        QFETCH(double, pages);
        QTemporaryDir dir;
        DocumentPrinter printer;
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(dir.filePath(QStringLiteral("out.pdf")));
        printer.setPageSize(QPageSize(QPageSize::A4));
        printer.setPageMargins(QMarginsF(20, 20, 20, 20), QPageLayout::Millimeter);
        printer.setDocumentTitle(QStringLiteral("/tmp/example.cpp"));
        QsciScintilla editor;
        QsciLexerCPP lexer;
        const QFont font(QStringLiteral("DejaVu Sans Mono"), 10);
        lexer.setDefaultFont(font);
        lexer.setFont(font);
        editor.setLexer(&lexer);

        // Lines per page measured apart from the printer's layout; the half
        // page of slack either way keeps the count exact.
        const QRect pageRect = printer.pageLayout().paintRectPixels(printer.resolution());
        const int linesPerPage = pageRect.height() / QFontMetrics(font, &printer).lineSpacing();
        QVERIFY(linesPerPage > 20);
        QStringList lines;
        for (int i = 0; i < std::max(1, int(linesPerPage * pages)); ++i)
            lines << QStringLiteral("int value%1 = %1; // short").arg(i);
        editor.setText(lines.join(QLatin1Char('\n')));
        editor.setWhitespaceVisibility(QsciScintilla::WsVisible);

        const int expected = std::max(1, int(std::ceil(pages)));
        QCOMPARE(printer.printDocument(&editor), expected);
        QFile pdf(printer.outputFileName());
        QVERIFY(pdf.open(QIODevice::ReadOnly));
        // Page objects, not the page tree ("/Type /Pages").
        static const QRegularExpression page(QStringLiteral("/Type\\s*/Page(?![a-zA-Z])"));
        QCOMPARE(QString::fromLatin1(pdf.readAll()).count(page), expected);
        // Markers are left off the paper only.
        QCOMPARE(editor.whitespaceVisibility(), QsciScintilla::WsVisible);
        editor.setLexer(nullptr);
    }

    void headerTakesRoomFromTheText()
    {
        DocumentPrinter printer(QPrinter::ScreenResolution);
        printer.setDocumentTitle(QStringLiteral("name.txt"));
        QImage image(400, 400, QImage::Format_RGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        QRect area(10, 10, 380, 380);
        printer.formatPage(painter, true, area, 3);
        painter.end();
        QVERIFY(area.top() > 20);
        QCOMPARE(area.bottom(), 389);
        // The title and page number are drawn above the text area.
        QImage blank(380, area.top() - 10, image.format());
        blank.fill(Qt::white);
        QVERIFY(image.copy(10, 10, 380, area.top() - 10) != blank);
    }
};

QTEST_MAIN(TstDocumentPrinter)
#include "tst_documentprinter.moc"
