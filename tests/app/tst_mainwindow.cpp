#include "fakecontrol.h"
#include "mainwindow.h"
#include "menuactionman.h"
#include "messagelog.h"
#include "modalwatcher.h"

#include <QAction>
#include <QDialog>
#include <QMenu>
#include <QMenuBar>
#include <QStatusBar>
#include <QTabWidget>
#include <QTest>

// The frame of the main window with no tool, and its small commands.
class TestMainWindow : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { FakeControl::instance()->reset(); }
    void emptyFrameTogglesStatusBarAndExits();
    void optionRunsTheDialogModallyThenTraces();
};

void TestMainWindow::emptyFrameTogglesStatusBarAndExits()
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

    registry->findShellAction("FILE > EXIT")->trigger();
    QVERIFY(!window.isVisible());
    const qsizetype closeAll = log.messages.indexOf("Menu Item: onFileCloseAll.");
    QVERIFY(closeAll >= 0 && log.messages.indexOf("Menu Item: onFileExit.") > closeAll);
}

void TestMainWindow::optionRunsTheDialogModallyThenTraces()
{
    MessageLog log;
    ModalWatcher watcher;
    int tracesWhileOpen = -1;
    watcher.handler = [&](QWidget *modal) {
        tracesWhileOpen = log.count("Menu Item: onToolsOption.");
        static_cast<QDialog *>(modal)->reject();
    };
    MainWindow window({});
    MenuActionMan::instance()->findShellAction("HELP > OPTION")->trigger();
    QCOMPARE(watcher.seen.size(), 1);
    QCOMPARE(watcher.seen.first().className, QStringLiteral("OptDlg"));
    QCOMPARE(tracesWhileOpen, 0);
    QCOMPARE(log.count("Menu Item: onToolsOption."), 1);
}

QTEST_MAIN(TestMainWindow)
#include "tst_mainwindow.moc"
