#include "findinfiles.h"
#include "findinfilesdialog.h"
#include "resultwindow.h"
#include "searchengine.h"
#include "writefile.h"

#include <QAction>
#include <QComboBox>
#include <QDir>
#include <QDockWidget>
#include <QMainWindow>
#include <QSignalSpy>
#include <QStatusBar>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>

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
    Q_INVOKABLE QString selectedText() const { return selection; }
};

class TestFindInFiles : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void actionOpensTheDialogWithSelectionAndFolder();
    void searchFillsThePaneAndDoubleClickOpensTheHit();
    void paneStopAndEscapeStopTheSearch();
    void lastSearchesAreRemembered();

private:
    SearchOptions needleInDir() const
    {
        SearchOptions options;
        options.folder = m_dir->path();
        options.text = QStringLiteral("needle");
        return options;
    }

    FakeWindow *m_window = nullptr;
    FakeTool *m_tool = nullptr;
    QAction *m_action = nullptr;
    FindInFiles *m_fif = nullptr;
    QTemporaryDir *m_dir = nullptr;
};

void TestFindInFiles::init()
{
    m_window = new FakeWindow;
    auto *tabs = new QTabWidget(m_window);
    m_tool = new FakeTool;
    tabs->addTab(m_tool, QStringLiteral("tool"));
    m_window->setCentralWidget(tabs);
    m_action = new QAction(QStringLiteral("Find in Files..."), m_window);
    m_fif = new FindInFiles(m_window, m_action);
    m_window->show();
    m_dir = new QTemporaryDir;
    QDir::setCurrent(m_dir->path());
}

void TestFindInFiles::cleanup()
{
    delete m_window; // owns the controller
    delete m_dir;
}

void TestFindInFiles::actionOpensTheDialogWithSelectionAndFolder()
{
    m_tool->selection = QStringLiteral("selected_word");
    m_action->trigger();
    FindInFilesDialog *dialog = m_fif->dialog();
    QVERIFY(dialog && dialog->isVisible());
    QCOMPARE(dialog->options().text, QStringLiteral("selected_word"));
    QCOMPARE(dialog->options().folder, QDir::currentPath());

    // A selection over several lines is no search text: the last one stays.
    m_tool->selection = QStringLiteral("two\nlines");
    m_action->trigger();
    QCOMPARE(dialog->options().text, QStringLiteral("selected_word"));
}

void TestFindInFiles::searchFillsThePaneAndDoubleClickOpensTheHit()
{
    const QString file = m_dir->filePath(QStringLiteral("src (1)/f(2).c"));
    writeFile(file, "a\nint f(x): needle\nneedle\n");
    QSignalSpy finished(m_fif->engine(), &SearchEngine::finished);
    m_fif->startSearch(needleInDir());
    QVERIFY(finished.wait());

    ResultWindow *pane = m_fif->resultWindow();
    QVERIFY(pane);
    auto *dock = qobject_cast<QDockWidget *>(pane->parentWidget());
    QVERIFY(dock && dock->isVisible());
    QCOMPARE(m_window->dockWidgetArea(dock), Qt::BottomDockWidgetArea);
    const QStringList lines = pane->toPlainText().split(QLatin1Char('\n'));
    QCOMPARE(lines.size(), 4); // heading, two hits, summary
    QVERIFY(lines.first().contains(QLatin1String("needle")));
    QVERIFY(m_window->statusBar()->currentMessage().startsWith(QLatin1String("2 hits in 1 file")));

    for (const QString &line : lines)
        pane->openResultLine(line);
    const QList<std::pair<QString, int>> expected{
        {QString(), 0}, {file, 2}, {file, 3}, {QString(), 0}};
    QCOMPARE(m_window->opened, expected);
}

void TestFindInFiles::paneStopAndEscapeStopTheSearch()
{
    // A search runs until the event loop hands its results on, which this test never lets it do.
    writeFile(m_dir->filePath(QStringLiteral("a.txt")), "needle\n");
    const SearchOptions options = needleInDir();
    m_fif->startSearch(options);
    QVERIFY(m_fif->engine()->isRunning());
    m_fif->resultWindow()->stopSearch();
    QVERIFY(!m_fif->engine()->isRunning());
    QVERIFY(m_window->statusBar()->currentMessage().endsWith(QLatin1String("search stopped")));

    m_fif->showDialog();
    m_fif->startSearch(options);
    QVERIFY(m_fif->engine()->isRunning());
    QTest::keyClick(m_fif->dialog(), Qt::Key_Escape);
    QVERIFY(!m_fif->engine()->isRunning());
    QVERIFY(m_fif->dialog()->isVisible()); // the first Escape only stops
    QTest::keyClick(m_fif->dialog(), Qt::Key_Escape);
    QVERIFY(!m_fif->dialog()->isVisible());
}

void TestFindInFiles::lastSearchesAreRemembered()
{
    writeFile(m_dir->filePath(QStringLiteral("a.txt")), "x\n");
    m_fif->showDialog();
    for (const char *text : {"first", "second", "first"}) {
        m_fif->dialog()->setSearchText(QLatin1String(text));
        QSignalSpy requested(m_fif->dialog(), &FindInFilesDialog::findRequested);
        QTest::keyClick(m_fif->dialog(), Qt::Key_Return);
        QCOMPARE(requested.size(), 1);
        QSignalSpy finished(m_fif->engine(), &SearchEngine::finished);
        if (m_fif->engine()->isRunning())
            QVERIFY(finished.wait());
    }

    FindInFilesDialog fresh;
    auto *combo = fresh.findChild<QComboBox *>();
    QVERIFY(combo);
    QStringList history;
    for (int i = 0; i < combo->count(); ++i)
        history.append(combo->itemText(i));
    QCOMPARE(history, (QStringList{"first", "second"}));
}

QTEST_MAIN(TestFindInFiles)
#include "tst_findinfiles.moc"
