#include "filenameescape.h"
#include "findinfiles.h"
#include "findinfilesdialog.h"
#include "hitformatter.h"
#include "resultwindow.h"
#include "searchengine.h"
#include "toolargs.h"
#include "writefile.h"

#include <QAction>
#include <QComboBox>
#include <QDockWidget>
#include <QFormLayout>
#include <QLineEdit>
#include <QMainWindow>
#include <QSignalSpy>
#include <QStatusBar>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTextBlock>

#include <fcntl.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

// Stands in for the shell's window: the slot the pane's hits are connected to.
class FakeWindow : public QMainWindow
{
    Q_OBJECT

public:
    QList<std::pair<QString, int>> opened;

public slots:
    void onOpenFile(const QString &path, int line) { opened.append({path, line}); }
};

// Stands in for an editor tool: a selection the dialog picks up.
class FakeTool : public QWidget
{
    Q_OBJECT

public:
    QString selection;
    QList<QVariantList> selected;
    QVariantMap document; // what documentText() gives
    QList<QVariantList> spans;
    Q_INVOKABLE QVariantMap documentText() const { return document; }
    Q_INVOKABLE bool selectSpan(int line, int column, int length)
    {
        spans.append({line, column, length});
        return true;
    }
    Q_INVOKABLE QString selectedText() const { return selection; }
    Q_INVOKABLE void selectRange(const QString &file, int line, int column, int length)
    {
        selected.append({file, line, column, length});
    }
};

class TestFindInFiles : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_window = new FakeWindow;
        auto *tabs = new QTabWidget(m_window);
        m_tool = new FakeTool;
        tabs->addTab(m_tool, QStringLiteral("tool"));
        m_window->setCentralWidget(tabs);
        m_action = new QAction(QStringLiteral("Find in Files..."), m_window);
        m_fif = new FindInFiles(m_window, m_action);
        m_window->show();
        QDir::setCurrent(m_dir.path());
    }
    void cleanup() { delete m_window; } // owns the controller
    void actionOpensTheDialogWithSelectionAndFolder()
    {
        m_tool->selection = QStringLiteral("selected_word");
        m_action->trigger();
        FindInFilesDialog *dialog = m_fif->dialog();
        QVERIFY(dialog && dialog->isVisible());
        QCOMPARE(dialog->options().text, QStringLiteral("selected_word"));
        QCOMPARE(dialog->options().folder, QDir::currentPath());

        // Tab goes from the search text to the next row's field, the replacement.
        const auto *form = dialog->findChild<QFormLayout *>();
        QWidget *next = form->itemAt(0, QFormLayout::FieldRole)->widget();
        do
            next = next->nextInFocusChain();
        while (next->parentWidget() != dialog || !(next->focusPolicy() & Qt::TabFocus));
        QCOMPARE(next, form->itemAt(1, QFormLayout::FieldRole)->widget());

        // Opened again after working in another field: the search text again.
        form->itemAt(3, QFormLayout::FieldRole)->widget()->setFocus();
        m_action->trigger();
        auto *text = qobject_cast<QComboBox *>(form->itemAt(0, QFormLayout::FieldRole)->widget());
        QCOMPARE(dialog->focusWidget(), text);
        QCOMPARE(text->lineEdit()->selectedText(), QStringLiteral("selected_word"));
    }
    void searchFillsThePaneAndDoubleClickOpensTheHit()
    {
        const QString file = m_dir.filePath(QStringLiteral("src (1)/f(2).c"));
        writeFile(file, "a\nint f(x): y\nf(x):\n");
        SearchOptions options;
        options.folder = m_dir.path();
        options.text = QStringLiteral("f(x):"); // in the heading, it must not read as a hit either
        // Stopped from the pane before the event loop can hand any result on.
        m_fif->startSearch(options);
        m_fif->resultWindow()->stopSearch();
        QVERIFY(!m_fif->engine()->isRunning());
        QVERIFY(m_window->statusBar()->currentMessage().endsWith(QLatin1String("search stopped")));

        QSignalSpy finished(m_fif->engine(), &SearchEngine::finished);
        m_fif->startSearch(options);
        QVERIFY(finished.wait());

        ResultWindow *pane = m_fif->resultWindow();
        auto *dock = qobject_cast<QDockWidget *>(pane->parentWidget());
        QVERIFY(dock && dock->isVisible());
        QCOMPARE(m_window->dockWidgetArea(dock), Qt::BottomDockWidgetArea);
        const QStringList lines = pane->toPlainText().split(QLatin1Char('\n'));
        QCOMPARE(lines.size(), 4); // heading, two hits, summary
        QVERIFY(
            m_window->statusBar()->currentMessage().startsWith(QLatin1String("2 hits in 1 file")));

        for (const QString &line : lines)
            pane->openResultLine(line);
        const QList<std::pair<QString, int>> expected{
            {QString(), 0}, {file, 2}, {file, 3}, {QString(), 0}};
        QCOMPARE(m_window->opened, expected);
    }
    void hitLineReadsBackToItsFileAndLine_data()
    {
        QTest::addColumn<QString>("file");
        QTest::addColumn<int>("line");
        QTest::addColumn<QString>("text");
        QTest::newRow("a hit line inside the path") << "/d/x(12):y/f(3).c" << 3 << "x";
        QTest::newRow("several paren-colons in the text") << "/d/f.c" << 5 << "(a):b(c):d (e):";
        QTest::newRow("blank text") << "/d/f.c" << 2 << " \t ";
        QTest::newRow("controls and line separators")
            << "/d/f.c" << 3
            << QStringLiteral("a\rb") + QChar(0x2028) + "c" + QChar(0x2029) + QChar(0) + "(1):d";
        QTest::newRow("large line number") << "/d/f.c" << 2000000000 << "x";
    }
    void hitLineReadsBackToItsFileAndLine()
    {
        QFETCH(QString, file);
        QFETCH(int, line);
        QFETCH(QString, text);
        const QString hit = HitFormatter::hitLine(file, line, text, 0);
        QVERIFY2(!hit.contains(QLatin1Char('\n')) && !hit.contains(QLatin1Char('\r')),
                 qPrintable(hit));
        ResultWindow pane(nullptr);
        QSignalSpy opened(&pane, &ResultWindow::sigOpenFile);
        pane.openResultLine(hit);
        QCOMPARE(opened.size(), 1);
        QCOMPARE(opened.first(), (QVariantList{file, line}));
    }
    // Every character that breaks a line of Qt's text layout, a bidirectional
    // control and a byte that is not UTF-8, in a file's name or in its hit line:
    // one pane line, which the tool factory reads back into that file, the
    // same bytes, at line 2.
    void eachHitIsOnePaneLineThatReachesItsFile_data()
    {
        QTest::addColumn<QByteArray>("name");
        QTest::addColumn<QByteArray>("line");
        for (const char32_t c : {U'\n', U'\r', U'\v', U'\f', U'\u0085', U'\u2028', U'\u2029',
                                 U'\uFDD0', U'\uFDD1', U'\u202E', U'\uFEFF'}) {
            const QByteArray utf8 = QString::fromUcs4(&c, 1).toUtf8();
            const QByteArray tag = "U+" + QByteArray::number(uint(c), 16).rightJustified(4, '0');
            QTest::newRow(QByteArray(tag + " in the name").constData())
                << "a" + utf8 + "b(1):c" << QByteArray("needle");
            if (c != U'\n' && c != U'\r')
                QTest::newRow(QByteArray(tag + " in the text").constData())
                    << QByteArray("t.c") << "x" + utf8 + "needle" + utf8 + "(2):y";
        }
        QTest::newRow("a name that is not UTF-8")
            << QByteArray("bad\xff.c") << QByteArray("needle");
        QTest::newRow("not UTF-8, a backslash escape spelt out")
            << QByteArray("\\x{41}\xc3(\xe9.c") << QByteArray("needle");
    }
    void eachHitIsOnePaneLineThatReachesItsFile()
    {
        QFETCH(QByteArray, name);
        QFETCH(QByteArray, line);
        QTemporaryDir dir;
        const QByteArray path = QFile::encodeName(dir.path()) + '/' + name;
        const QByteArray content = "first\n" + line + "\n";
        const int fd = open(path.constData(), O_WRONLY | O_CREAT, 0644);
        QVERIFY(fd >= 0);
        QCOMPARE(write(fd, content.constData(), size_t(content.size())), content.size());
        close(fd);

        SearchOptions options;
        options.folder = dir.path();
        options.text = QStringLiteral("needle");
        QSignalSpy finished(m_fif->engine(), &SearchEngine::finished);
        m_fif->startSearch(options);
        QVERIFY(finished.wait());
        const QTextDocument *pane = m_fif->resultWindow()->document();
        QCOMPARE(pane->blockCount(), 3); // heading, the hit, summary
        const QString hit = pane->findBlockByNumber(1).text();
        for (const QChar c : hit) {
            const QChar::Category category = c.category();
            const bool breaksOrHides = category == QChar::Other_Control ||
                                       category == QChar::Other_Format ||
                                       category == QChar::Separator_Line ||
                                       category == QChar::Separator_Paragraph || c.isNonCharacter();
            // A tab is kept in texts; a zero-width space keeps "):" from ending a name.
            QVERIFY2(!breaksOrHides || c == u'\t' || c == QChar(0x200B),
                     qPrintable(QString::number(c.unicode(), 16)));
        }

        m_fif->resultWindow()->openResultLine(hit);
        QCOMPARE(m_window->opened.size(), 1);
        QCOMPARE(m_window->opened.first().second, 2);
        const auto parsed = koru::sedgui::ToolArgs::parse({m_window->opened.first().first}, "/");
        QCOMPARE(parsed.files.size(), 1);
        QCOMPARE(koru::sedgui::FileNameEscape::toNative(parsed.files.first().path), path);
    }
    // A double-click, Enter, F4 from the heading and Shift+F4 from the summary all open
    // the hit at its line and select its match (in the file's line, not the pane's),
    // also in the pane of a search that follows one that filled it.
    void keysOpenTheHitLikeADoubleClick_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("line");
        QTest::addColumn<QVariantList>("span");
        QTest::addColumn<int>("linesBefore"); // hits of an earlier search
        const QString beyondBmp = QString::fromUtf8("\xc3\xa4\xf0\x9f\x98\x80 ");
        QTest::newRow("a hit-like path")
            << u"x(2):y/f(3).c"_s << u"(1):neeedle;"_s << QVariantList{4, 7} << 0;
        QTest::newRow("outside the BMP")
            << u"f.c"_s << beyondBmp + "needle" << QVariantList{4, 6} << 0;
        QTest::newRow("long line")
            << u"f.c"_s << QString(4000, u'y') + " needle" << QVariantList{4001, 6} << 0;
        QTest::newRow("after a full pane")
            << u"f.c"_s << u"needle"_s << QVariantList{0, 6} << FindInFiles::PaneDisposedAbove + 1;
    }
    void keysOpenTheHitLikeADoubleClick()
    {
        QFETCH(QString, name);
        QFETCH(QString, line);
        QFETCH(QVariantList, span);
        QFETCH(int, linesBefore);
        QTemporaryDir dir;
        const QString file = dir.filePath(name);
        writeFile(file, "first\n" + line.toUtf8() + "\nlast\n");
        SearchOptions options;
        options.folder = dir.path();
        options.text = QStringLiteral("ne+dle");
        options.regularExpression = true;
        QSignalSpy finished(m_fif->engine(), &SearchEngine::finished);
        if (linesBefore > 0) {
            QTemporaryDir before;
            writeFile(before.filePath(u"many.c"_s), QByteArray("needle\n").repeated(linesBefore));
            SearchOptions first = options;
            first.folder = before.path();
            m_fif->startSearch(first);
            QVERIFY(finished.wait());
            QCOMPARE(m_fif->resultWindow()->blockCount(), linesBefore + 2);
            // The next pane keeps the font; a view left at the end would show no line.
            m_fif->resultWindow()->setFont(QFont(u"Monospace"_s, 17));
            m_fif->resultWindow()->moveCursor(QTextCursor::End);
        }
        m_fif->startSearch(options);
        QVERIFY(finished.wait());
        ResultWindow *pane = m_fif->resultWindow();
        QCOMPARE(pane->document()->blockCount(), 3); // heading, the hit, summary
        const QTextCursor hit(pane->document()->findBlockByNumber(1));
        QTest::mouseDClick(pane->viewport(), Qt::LeftButton, {}, pane->cursorRect(hit).center());
        pane->setTextCursor(hit);
        QTest::keyClick(pane, Qt::Key_Return);
        pane->setTextCursor(QTextCursor(pane->document()->firstBlock()));
        m_fif->nextHitAction()->trigger();
        pane->setTextCursor(QTextCursor(pane->document()->lastBlock()));
        m_fif->previousHitAction()->trigger();
        QCOMPARE(m_window->opened, (QList<std::pair<QString, int>>(4, {file, 2})));
        QCOMPARE(m_tool->selected, QList<QVariantList>(4, QVariantList{file, 2} + span));
        QCOMPARE(pane->document()->defaultFont(), pane->font());
        QVERIFY(!pane->document()->isUndoRedoEnabled());
    }
    // Only the open documents, as their buffers are now, are searched; a hit in
    // a file goes through the window's open, one in an untitled document to its tab.
    void openDocumentsOnlySearchesTheBuffers_data()
    {
        QTest::addColumn<QByteArray>("disk"); // the file's bytes on disk
        QTest::addColumn<bool>("open");
        QTest::addColumn<bool>("untitled");
        QTest::addColumn<QByteArray>("buffer");
        QTest::addColumn<int>("hitLine"); // 0: no hit
        QTest::newRow("modified, the disk without the text")
            << QByteArray("none\n") << true << false << QByteArray("a\r\nb needle\n") << 2;
        QTest::newRow("modified, the text only on disk")
            << QByteArray("needle\n") << true << false << QByteArray("gone\n") << 0;
        QTest::newRow("a file not open")
            << QByteArray("needle\n") << false << false << QByteArray() << 0;
        QTest::newRow("untitled") << QByteArray() << true << true << QByteArray("a\rb\rx needle")
                                  << 3;
    }
    void openDocumentsOnlySearchesTheBuffers()
    {
        QFETCH(QByteArray, disk);
        QFETCH(bool, open);
        QFETCH(bool, untitled);
        QFETCH(QByteArray, buffer);
        QFETCH(int, hitLine);
        QTemporaryDir dir;
        const QString file = dir.filePath(u"f.c"_s);
        writeFile(file, disk);
        auto *doc = new FakeTool;
        doc->document = {{u"file"_s, untitled ? QString() : file},
                         {u"name"_s, untitled ? u"Untitled 2"_s : u"f.c"_s},
                         {u"text"_s, buffer}};
        auto *tabs = qobject_cast<QTabWidget *>(m_window->centralWidget());
        if (open)
            tabs->addTab(doc, u"doc"_s);
        SearchOptions options;
        options.folder = dir.path();
        options.text = u"needle"_s;
        options.openDocumentsOnly = true;
        m_fif->startSearch(options);
        const QTextDocument *pane = m_fif->resultWindow()->document();
        QCOMPARE(pane->blockCount(), hitLine ? 3 : 2); // heading, the hit, summary
        if (hitLine) {
            m_fif->resultWindow()->openLineAt(QTextCursor(pane->findBlockByNumber(1)));
            const QList<std::pair<QString, int>> opened{{file, hitLine}};
            QCOMPARE(m_window->opened, untitled ? decltype(opened)() : opened);
            QCOMPARE(tabs->currentWidget(), untitled ? doc : m_tool);
            const QList<QVariantList> span{{hitLine, 2, 6}};
            QCOMPARE(doc->spans, untitled ? span : QList<QVariantList>());
        }
        delete doc;
    }
    void longLineKeepsTheMatchInView()
    {
        const QString text = QString(5000, QLatin1Char('y')) + QStringLiteral(" needle ") +
                             QString(5000, QLatin1Char('z'));
        const QString shown = HitFormatter::displayText(text, 5001);
        QVERIFY(shown.size() <= HitFormatter::MaxTextLength + 2);
        QVERIFY(shown.contains(QLatin1String("needle")));
    }

private:
    FakeWindow *m_window = nullptr;
    FakeTool *m_tool = nullptr;
    QAction *m_action = nullptr;
    FindInFiles *m_fif = nullptr;
    QTemporaryDir m_dir;
};

QTEST_MAIN(TestFindInFiles)
#include "tst_findinfiles.moc"
