#include "documentprinter.h"
#include "editoractions.h"
#include "findbar.h"
#include "promptrecorder.h"
#include "sedgui.h"
#include "textformat.h"

#include <QAction>
#include <QApplication>
#include <QFile>
#include <QFontMetrics>
#include <QHBoxLayout>
#include <QMenu>
#include <QMimeData>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>
#include <QUrl>

#include <Qsci/qsciscintilla.h>

using namespace koru::sedgui;

// Stands in for the main window: records open requests.
class FakeWindow : public QWidget
{
    Q_OBJECT
public:
    QStringList opened;
public Q_SLOTS:
    void onOpenFile(const QString &path, int) { opened << path; }
};

namespace {

QAction *findAction(SedGUI *tool, int menu, const char *name)
{
    for (QAction *action : *tool->getMenuActions(menu)) {
        if (action->objectName() == QLatin1String(name))
            return action;
    }
    return nullptr;
}

QAction *menuEntry(QMenu *menu, const QVariant &data, const QString &name = {})
{
    Q_EMIT menu->aboutToShow();
    for (QAction *action : menu->actions()) {
        if ((!name.isEmpty() && action->objectName() == name) ||
            (data.isValid() && action->data() == data))
            return action;
    }
    return nullptr;
}

QByteArray readFile(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<unreadable>");
}

// Writes the bytes to a file in dir and opens it in the tool.
QString openWith(SedGUI &tool, const QTemporaryDir &dir, const QByteArray &bytes)
{
    QFile file(dir.filePath(QStringLiteral("file.txt")));
    const bool written = file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
    file.close();
    return written && tool.openFile(file.fileName(), nullptr) ? file.fileName() : QString();
}

} // namespace

class TstEditorTool : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void shortcutReachesTheFocusedToolOnly()
    {
        QWidget window;
        auto *layout = new QHBoxLayout(&window);
        auto *first = new SedGUI;
        auto *second = new SedGUI;
        layout->addWidget(first);
        layout->addWidget(second);
        first->editor()->setText(QStringLiteral("one"));
        second->editor()->setText(QStringLiteral("two"));
        window.show();
        // Made active directly, not by a window manager that may be slow or absent.
        QApplication::setActiveWindow(&window);
        first->editor()->setFocus();
        QCOMPARE(QApplication::focusWidget(), first->editor());
        QTest::keyClick(first->editor(), Qt::Key_D, Qt::ControlModifier);
        QTest::keyClick(first->editor(), Qt::Key_U, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(first->editor()->text(), QStringLiteral("ONE\none"));
        QCOMPARE(second->editor()->text(), QStringLiteral("two"));
    }

    void saveWritesTheChosenFormat_data()
    {
        QTest::addColumn<QByteArray>("original");
        QTest::addColumn<QString>("lineEnding"); // action name
        QTest::addColumn<QString>("encoding");   // save with
        QTest::addColumn<QByteArray>("saved");
        QTest::newRow("mixed to CR") << QByteArray("a\r\nb\nc") << "lineEndingCR"
                                     << "UTF-8" << QByteArray("a\rb\rc");
        QTest::newRow("CRLF to LF and UTF-16LE")
            << QByteArray("a\r\n") << "lineEndingLF"
            << "UTF-16LE" << QByteArray::fromHex("fffe61000a00");
        QTest::newRow("UTF-8 to Windows-1252 and CRLF")
            << QByteArray("\xe2\x82\xac 1\n") << "lineEndingCRLF"
            << "WINDOWS-1252" << QByteArray("\x80 1\r\n");
    }
    void saveWritesTheChosenFormat()
    {
        QFETCH(QByteArray, original);
        QFETCH(QString, lineEnding);
        QFETCH(QString, encoding);
        QTemporaryDir dir;
        SedGUI tool;
        const QString path = openWith(tool, dir, original);
        QVERIFY(!path.isEmpty());
        QMenu *endings = findAction(&tool, SedGUI::ViewMenu, "lineEndings")->menu();
        QAction *ending = menuEntry(endings, {}, lineEnding);
        QVERIFY(ending);
        ending->trigger();
        QMenu *encodings = findAction(&tool, SedGUI::ViewMenu, "encoding")->menu();
        Q_EMIT encodings->aboutToShow();
        auto *saveWith = encodings->findChild<QMenu *>(QStringLiteral("saveWithEncodingMenu"));
        QVERIFY(saveWith);
        QAction *choice = menuEntry(saveWith, encoding.toLatin1());
        QVERIFY(choice);
        choice->trigger();
        QVERIFY(menuEntry(saveWith, encoding.toLatin1())->isChecked());
        QVERIFY(tool.save());
        QTEST(readFile(path), "saved");
    }

    // Refused with a message; forced onto the document, the save asks: Cancel writes nothing.
    void unencodableCharacterMakesTheSaveAsk()
    {
        QTemporaryDir dir;
        SedGUI tool;
        const QByteArray original("price: \xe2\x82\xac 5\n");
        const QString path = openWith(tool, dir, original);
        QVERIFY(!path.isEmpty());
        PromptRecorder prompts;
        QVERIFY(!tool.findChild<EditorActions *>()->saveWithEncoding("ISO-8859-1"));
        QCOMPARE(prompts.asked.size(), 1);
        QCOMPARE(tool.textFormat().encoding, QByteArray("UTF-8"));
        TextFormat latin1 = tool.textFormat();
        latin1.encoding = "ISO-8859-1";
        tool.setTextFormat(latin1);
        QVERIFY(!tool.save());
        QCOMPARE(prompts.asked.size(), 2);
        QCOMPARE(readFile(path), original);
        prompts.answers = {UserPrompt::SaveAsUtf8};
        tool.editor()->append(QStringLiteral("more\n"));
        QVERIFY(tool.save());
        QCOMPARE(readFile(path), original + "more\n");
    }

    void dropOpensFilesOrInsertsText_data()
    {
        QTest::addColumn<bool>("files"); // else text
        QTest::addColumn<QStringList>("opened");
        QTest::addColumn<QString>("text");
        QTest::newRow("local files open, remote ignored")
            << true << QStringList{"/tmp/a.txt", "/tmp/b c.txt"} << "keep";
        QTest::newRow("text is inserted") << false << QStringList() << "droppedkeep";
    }
    void dropOpensFilesOrInsertsText()
    {
        FakeWindow window;
        auto *tool = new SedGUI(&window);
        tool->editor()->setText(QStringLiteral("keep"));
        tool->editor()->setCursorPosition(0, 0);
        QFETCH(bool, files);
        QMimeData data;
        if (files)
            data.setUrls({QUrl::fromLocalFile(QStringLiteral("/tmp/a.txt")),
                          QUrl::fromLocalFile(QStringLiteral("/tmp/b c.txt")),
                          QUrl(QStringLiteral("https://example.org/remote.txt"))});
        else
            data.setText(QStringLiteral("dropped"));
        QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(tool->editor()->viewport(), &enter);
        QVERIFY(enter.isAccepted());
        QDropEvent drop(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(tool->editor()->viewport(), &drop);
        QCoreApplication::processEvents();
        QTEST(window.opened, "opened");
        QTEST(tool->editor()->text(), "text");
    }

    // The bar's replacement reaches the document (its undo step and regex rows are the
    // searcher's own tests); Find Next in another tool reuses the bar's last search.
    void findBarReplacesAndFindNextReusesTheSearch()
    {
        SedGUI tool;
        tool.editor()->setText(QStringLiteral("alpha beta\nalpha gamma\n"));
        tool.replace();
        auto *bar = tool.findChild<FindBar *>();
        QVERIFY(bar && !bar->isHidden());
        SearchQuery query;
        query.pattern = QStringLiteral("alpha");
        bar->setQuery(query);
        bar->setReplacement(QStringLiteral("omega"));
        QCOMPARE(bar->replaceAll(), qint64(2));
        QCOMPARE(tool.editor()->text(), QStringLiteral("omega beta\nomega gamma\n"));
        query.pattern = QStringLiteral("gamma");
        bar->setQuery(query);
        QVERIFY(bar->findNext().found());
        SedGUI other;
        other.editor()->setText(QStringLiteral("hay gamma hay gamma"));
        for (long end : {9, 19}) {
            other.findNext();
            QCOMPARE(other.editor()->selectedText(), QStringLiteral("gamma"));
            QCOMPARE(other.editor()->SendScintilla(QsciScintillaBase::SCI_GETCURRENTPOS), end);
        }
    }

    void syntaxMenuSwitchesTheLexerAndTheCommentSyntax()
    {
        SedGUI tool;
        QMenu *syntax = findAction(&tool, SedGUI::ViewMenu, "syntax")->menu();
        menuEntry(syntax, QStringLiteral("Python"))->trigger();
        QCOMPARE(tool.languageName(), QStringLiteral("Python"));
        QVERIFY(menuEntry(syntax, QStringLiteral("Python"))->isChecked());
        tool.editor()->setText(QStringLiteral("x = 1"));
        findAction(&tool, SedGUI::EditMenu, "toggleComment")->trigger();
        QCOMPARE(tool.editor()->text(), QStringLiteral("# x = 1"));
    }

    // Two and a half pages' worth of lines, measured apart from the printer.
    void pdfHasTheExpectedPageCount()
    {
        QTemporaryDir dir;
        DocumentPrinter printer;
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(dir.filePath(QStringLiteral("out.pdf")));
        printer.setPageSize(QPageSize(QPageSize::A4));
        printer.setPageMargins(QMarginsF(20, 20, 20, 20), QPageLayout::Millimeter);
        QsciScintilla editor;
        const QFont font(QStringLiteral("DejaVu Sans Mono"), 10);
        editor.setFont(font);
        const QRect pageRect = printer.pageLayout().paintRectPixels(printer.resolution());
        const int linesPerPage = pageRect.height() / QFontMetrics(font, &printer).lineSpacing();
        QVERIFY(linesPerPage > 20);
        QStringList lines;
        for (int i = 0; i < linesPerPage * 5 / 2; ++i)
            lines << QStringLiteral("int value%1 = %1; // short").arg(i);
        editor.setText(lines.join(QLatin1Char('\n')));
        editor.setWhitespaceVisibility(QsciScintilla::WsVisible);
        QCOMPARE(printer.printDocument(&editor), 3);
        QFile pdf(printer.outputFileName());
        QVERIFY(pdf.open(QIODevice::ReadOnly));
        // Page objects, not the page tree ("/Type /Pages").
        static const QRegularExpression page(QStringLiteral("/Type\\s*/Page(?![a-zA-Z])"));
        QCOMPARE(QString::fromLatin1(pdf.readAll()).count(page), 3);
        // Markers are left off the paper only.
        QCOMPARE(editor.whitespaceVisibility(), QsciScintilla::WsVisible);
    }
};

QTEST_MAIN(TstEditorTool)
#include "tst_editortool.moc"
