#include "fakecontrol.h"
#include "faketool.h"
#include "mainwindow.h"
#include "menuactionman.h"
#include "messagelog.h"
#include "modalwatcher.h"

#include <QAction>
#include <QDialog>
#include <QEvent>
#include <QMenu>
#include <QMenuBar>
#include <QStatusBar>
#include <QTabWidget>
#include <QTest>

// The frame of the main window, its small commands, window activation (the
// external-change check) and closing the window.
class TestMainWindow : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { FakeControl::instance()->reset(); }
    void emptyFrameAndItsSmallCommands();
    void closeCommandTrace_data();
    void closeCommandTrace();
    void windowClosesUnlessAToolRefuses_data();
    void windowClosesUnlessAToolRefuses();
    void activationChecksForChangedFiles();
};

void TestMainWindow::emptyFrameAndItsSmallCommands()
{
    MessageLog log;
    ModalWatcher watcher;
    MainWindow window({});
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QCOMPARE(window.windowTitle(), QStringLiteral("Source Editor"));
    QCOMPARE(window.statusBar()->currentMessage(), QStringLiteral("Ready"));
    QCOMPARE(window.tabWidget()->count(), 0);
    QVERIFY(FakeControl::instance()->createCalls.isEmpty() && watcher.seen.isEmpty());
    QCOMPARE(window.menuBar()->actions().size(), 4);
    for (int index = 0; index < 4; ++index)
        QCOMPARE(window.menuBar()->actions().at(index)->menu(), window.menu(index));

    MenuActionMan *registry = MenuActionMan::instance();
    QAction *statusBar = registry->findShellAction("VIEW > STATUS BAR");
    QVERIFY(window.statusBar()->isVisible());
    statusBar->trigger();
    QVERIFY(!window.statusBar()->isVisible());
    statusBar->trigger();
    QVERIFY(window.statusBar()->isVisible());

    // The options dialog runs modally; the trace comes after it closes.
    int tracesWhileOpen = -1;
    watcher.handler = [&](QWidget *modal) {
        tracesWhileOpen = log.count("Menu Item: onToolsOption.");
        static_cast<QDialog *>(modal)->reject();
    };
    registry->findShellAction("HELP > OPTION")->trigger();
    QCOMPARE(watcher.seen.size(), 1);
    QCOMPARE(watcher.seen.first().className, QStringLiteral("OptDlg"));
    QCOMPARE(tracesWhileOpen, 0);
    QCOMPARE(log.count("Menu Item: onToolsOption."), 1);

    registry->findShellAction("FILE > EXIT")->trigger();
    QVERIFY(!window.isVisible());
    const qsizetype closeAll = log.messages.indexOf("Menu Item: onFileCloseAll.");
    QVERIFY(closeAll >= 0 && log.messages.indexOf("Menu Item: onFileExit.") > closeAll);
}

void TestMainWindow::closeCommandTrace_data()
{
    QTest::addColumn<QString>("front");
    QTest::addColumn<int>("traces");
    QTest::newRow("no tab") << "none" << 1;
    QTest::newRow("a tool") << "tool" << 1;
    QTest::newRow("a widget that is no tool") << "widget" << 0;
}

void TestMainWindow::closeCommandTrace()
{
    QFETCH(QString, front);
    QFETCH(int, traces);
    MainWindow window(front == "tool" ? QStringList{"/tmp/a.c"} : QStringList());
    if (front == "widget")
        window.tabWidget()->addTab(new QWidget, "plain");
    MessageLog log;
    window.onFileClose();
    QCOMPARE(log.count("Menu Item: onFileClose."), traces);
    QCOMPARE(window.tabWidget()->count(), front == "widget" ? 1 : 0);
}

void TestMainWindow::windowClosesUnlessAToolRefuses_data()
{
    QTest::addColumn<QStringList>("files");
    QTest::addColumn<int>("refusing"); // index into files, -1: none
    const QStringList three{"/tmp/a.c", "/tmp/b.c", "/tmp/c.c"};
    QTest::newRow("all agree") << three << -1;
    QTest::newRow("the middle one refuses") << three << 1;
}

void TestMainWindow::windowClosesUnlessAToolRefuses()
{
    QFETCH(QStringList, files);
    QFETCH(int, refusing);
    FakeControl::instance()->configure = [&](FakeTool *tool, const QStringList &args) {
        tool->refuseClose = args.value(0) == files.value(refusing);
    };
    MainWindow window({});
    for (const QString &file : files)
        window.onOpenFile(file, 1);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    const QList<FakeTool *> tools = FakeControl::instance()->liveTools();
    QCOMPARE(window.close(), refusing < 0);
    QCOMPARE(window.isVisible(), refusing >= 0);
    QCOMPARE(window.tools(), refusing < 0 ? QList<QWidget *>() : QList<QWidget *>{tools[refusing]});
    for (FakeTool *tool : tools)
        QCOMPARE(tool->closeRequests, 1);
    // The tools that closed dispose of themselves.
    QTRY_COMPARE(FakeControl::instance()->liveTools().size(), refusing < 0 ? 0 : 1);
}

void TestMainWindow::activationChecksForChangedFiles()
{
    MessageLog log;
    MainWindow window({});
    QEvent activate(QEvent::WindowActivate);
    QCoreApplication::sendEvent(&window, &activate);
    QCOMPARE(log.count("====check file changed==="), 0); // no tool, no check

    window.onOpenFile("/tmp/a.c", 1);
    window.onOpenFile("/tmp/b.c", 1);
    FakeTool *a = FakeControl::instance()->liveTools().value(0);
    FakeTool *b = FakeControl::instance()->liveTools().value(1);
    a->changedOutside = true;
    const int bActivations = b->activateCount;
    QVERIFY(window.eventFilter(&window, &activate));
    QCOMPARE(window.tabWidget()->currentWidget(), a);
    QCOMPARE(b->activateCount, bActivations);

    // The same change is reported once: later activations only activate.
    const int activations = a->activateCount;
    QVERIFY(!window.eventFilter(&window, &activate));
    QCoreApplication::sendEvent(&window, &activate);
    QCOMPARE(a->activateCount, activations + 2);
    QEvent other(QEvent::WindowDeactivate);
    QCoreApplication::sendEvent(&window, &other);
    QCOMPARE(a->activateCount, activations + 2);
}

QTEST_MAIN(TestMainWindow)
#include "tst_mainwindow.moc"
