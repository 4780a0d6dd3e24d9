#include "fakecontrol.h"
#include "faketool.h"
#include "mainwindow.h"
#include "messagelog.h"

#include <QEvent>
#include <QTabWidget>
#include <QTest>

// Window activation (the external-change check) and closing the window.
class TestClosing : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void withoutToolsTheWindowClosesAtOnce();
    void aRefusingToolKeepsTheWindowOpen();
    void whenAllAgreeTheWindowCloses();
    void activationBringsChangedFileToFront();
    void activationWithoutChangeActivatesTheTool();
    void noCheckBeforeTheFirstTool();
};

void TestClosing::init()
{
    FakeControl::instance()->reset();
}

void TestClosing::withoutToolsTheWindowClosesAtOnce()
{
    MessageLog log;
    MainWindow window({});
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QVERIFY(window.close());
    QVERIFY(!window.isVisible());
    QCOMPARE(log.count("Menu Item: onFileCloseAll."), 1);
}

void TestClosing::aRefusingToolKeepsTheWindowOpen()
{
    FakeControl::instance()->configure = [](FakeTool *tool, const QStringList &args) {
        tool->refuseClose = args.value(0) == "/tmp/b.c";
    };
    MainWindow window({"/tmp/a.c"});
    window.onOpenFile("/tmp/b.c", 1);
    window.onOpenFile("/tmp/c.c", 1);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    const QList<FakeTool *> tools = FakeControl::instance()->liveTools();
    QCOMPARE(tools.size(), 3);

    QVERIFY(!window.close());
    QVERIFY(window.isVisible());
    QCOMPARE(window.tabWidget()->count(), 1);
    QCOMPARE(window.tabWidget()->widget(0), tools[1]);
    QCOMPARE(window.tools(), QList<QWidget *>{tools[1]});
    QCOMPARE(window.currentTool(), tools[1]);
    for (FakeTool *tool : tools)
        QCOMPARE(tool->closeRequests, 1);
    // The tools that closed dispose of themselves.
    QTRY_COMPARE(FakeControl::instance()->liveTools().size(), 1);
}

void TestClosing::whenAllAgreeTheWindowCloses()
{
    MainWindow window({"/tmp/a.c"});
    window.onOpenFile("/tmp/b.c", 1);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QVERIFY(window.close());
    QVERIFY(window.tools().isEmpty());
}

void TestClosing::activationBringsChangedFileToFront()
{
    MessageLog log;
    MainWindow window({"/tmp/a.c"});
    window.onOpenFile("/tmp/b.c", 1);
    const QList<FakeTool *> tools = FakeControl::instance()->liveTools();
    FakeTool *a = tools[0];
    FakeTool *b = tools[1];
    QCOMPARE(window.tabWidget()->currentWidget(), b);
    a->changedOutside = true;
    const int bActivations = b->activateCount;

    QEvent activate(QEvent::WindowActivate);
    QVERIFY(window.eventFilter(&window, &activate));
    QCOMPARE(window.tabWidget()->currentWidget(), a);
    QCOMPARE(window.currentTool(), a);
    QCOMPARE(b->activateCount, bActivations);
    QCOMPARE(log.count("====check file changed==="), 1);

    // The same change is reported once: the next activation only activates.
    const int aActivations = a->activateCount;
    QVERIFY(!window.eventFilter(&window, &activate));
    QCOMPARE(a->activateCount, aActivations + 1);
    QCOMPARE(log.count("====check file changed==="), 2);
}

void TestClosing::activationWithoutChangeActivatesTheTool()
{
    MessageLog log;
    MainWindow window({"/tmp/a.c"});
    FakeTool *a = FakeControl::instance()->liveTools().value(0);
    QVERIFY(a);
    const int before = a->activateCount;
    QEvent activate(QEvent::WindowActivate);
    QCoreApplication::sendEvent(&window, &activate);
    QCoreApplication::sendEvent(&window, &activate);
    QCOMPARE(a->activateCount, before + 2);
    QCOMPARE(log.count("====check file changed==="), 2);

    // Other events are not looked at.
    QEvent other(QEvent::WindowDeactivate);
    QCoreApplication::sendEvent(&window, &other);
    QCOMPARE(a->activateCount, before + 2);
}

void TestClosing::noCheckBeforeTheFirstTool()
{
    MessageLog log;
    MainWindow window({});
    QEvent activate(QEvent::WindowActivate);
    QCoreApplication::sendEvent(&window, &activate);
    QCOMPARE(log.count("====check file changed==="), 0);
}

QTEST_MAIN(TestClosing)
#include "tst_closing.moc"
