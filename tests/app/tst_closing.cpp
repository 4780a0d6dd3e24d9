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
    void init() { FakeControl::instance()->reset(); }
    void closeCommandTrace_data();
    void closeCommandTrace();
    void windowClosesUnlessAToolRefuses_data();
    void windowClosesUnlessAToolRefuses();
    void activationChecksForChangedFiles();
};

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

void TestClosing::windowClosesUnlessAToolRefuses_data()
{
    QTest::addColumn<QStringList>("files");
    QTest::addColumn<int>("refusing"); // index into files, -1: none
    const QStringList three{"/tmp/a.c", "/tmp/b.c", "/tmp/c.c"};
    QTest::newRow("no tool") << QStringList() << -1;
    QTest::newRow("all agree") << three << -1;
    QTest::newRow("the middle one refuses") << three << 1;
}

void TestClosing::windowClosesUnlessAToolRefuses()
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

void TestClosing::activationChecksForChangedFiles()
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
    QCOMPARE(log.count("====check file changed==="), 1);

    // The same change is reported once: later activations only activate.
    const int activations = a->activateCount;
    QVERIFY(!window.eventFilter(&window, &activate));
    QCoreApplication::sendEvent(&window, &activate);
    QCOMPARE(log.count("====check file changed==="), 3);
    QCOMPARE(a->activateCount, activations + 2);
    QEvent other(QEvent::WindowDeactivate);
    QCoreApplication::sendEvent(&window, &other);
    QCOMPARE(a->activateCount, activations + 2);
}

QTEST_MAIN(TestClosing)
#include "tst_closing.moc"
