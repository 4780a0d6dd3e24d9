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
    void closeCommandTrace_data();
    void closeCommandTrace();
    void windowClosesWhenNoToolRefuses_data();
    void windowClosesWhenNoToolRefuses();
    void aRefusingToolKeepsTheWindowOpen();
    void activationBringsChangedFileToFront();
    void activationWithoutChangeActivatesTheTool();
};

void TestClosing::init()
{
    FakeControl::instance()->reset();
}

void TestClosing::closeCommandTrace_data()
{
    QTest::addColumn<QString>("front");
    QTest::addColumn<int>("traces");
    QTest::newRow("no tab") << "none" << 1;
    QTest::newRow("a tool") << "tool" << 1;
    QTest::newRow("a widget that is no tool") << "widget" << 0;
}

void TestClosing::closeCommandTrace()
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

void TestClosing::windowClosesWhenNoToolRefuses_data()
{
    QTest::addColumn<QStringList>("files");
    QTest::newRow("no tool") << QStringList();
    QTest::newRow("two agreeing tools") << QStringList{"/tmp/a.c", "/tmp/b.c"};
}

void TestClosing::windowClosesWhenNoToolRefuses()
{
    QFETCH(QStringList, files);
    MainWindow window({});
    for (const QString &file : files)
        window.onOpenFile(file, 1);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QVERIFY(window.close());
    QVERIFY(!window.isVisible());
    QVERIFY(window.tools().isEmpty());
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
    QCOMPARE(window.tools(), QList<QWidget *>{tools[1]});
    for (FakeTool *tool : tools)
        QCOMPARE(tool->closeRequests, 1);
    // The tools that closed dispose of themselves.
    QTRY_COMPARE(FakeControl::instance()->liveTools().size(), 1);
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
    MainWindow window({});
    QEvent activate(QEvent::WindowActivate);
    QCoreApplication::sendEvent(&window, &activate);
    QCOMPARE(log.count("====check file changed==="), 0); // no tool, no check

    window.onOpenFile("/tmp/a.c", 1);
    FakeTool *a = FakeControl::instance()->liveTools().value(0);
    QVERIFY(a);
    const int before = a->activateCount;
    QCoreApplication::sendEvent(&window, &activate);
    QCoreApplication::sendEvent(&window, &activate);
    QCOMPARE(a->activateCount, before + 2);
    QCOMPARE(log.count("====check file changed==="), 2);
    QEvent other(QEvent::WindowDeactivate);
    QCoreApplication::sendEvent(&window, &other);
    QCOMPARE(a->activateCount, before + 2);
}

QTEST_MAIN(TestClosing)
#include "tst_closing.moc"
