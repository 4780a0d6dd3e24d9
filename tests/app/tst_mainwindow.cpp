#include "fakecontrol.h"
#include "mainwindow.h"
#include "menuactionman.h"
#include "messagelog.h"
#include "modalwatcher.h"

#include <QAction>
#include <QDialog>
#include <QMenu>
#include <QMenuBar>
#include <QMetaMethod>
#include <QStatusBar>
#include <QTabWidget>
#include <QTest>
#include <QToolBar>

// The frame of the main window: what it shows with no tool and its small
// commands.
class TestMainWindow : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void startsEmptyWithTitleStatusAndFourMenus();
    void shownFrameHasToolBarsTogglesStatusBarAndExits();
    void optionRunsTheDialogModallyThenTraces();
    void metaObjectMethods();
};

void TestMainWindow::init()
{
    FakeControl::instance()->reset();
}

void TestMainWindow::startsEmptyWithTitleStatusAndFourMenus()
{
    ModalWatcher watcher;
    MainWindow window({});
    QCOMPARE(window.windowTitle(), QStringLiteral("Source Editor"));
    QCOMPARE(window.statusBar()->currentMessage(), QStringLiteral("Ready"));
    QCOMPARE(window.tabWidget()->count(), 0);
    QVERIFY(window.tabWidget()->cornerWidget(Qt::TopRightCorner));
    QVERIFY(window.toolFactory());
    QVERIFY(FakeControl::instance()->createCalls.isEmpty());
    QVERIFY(watcher.seen.isEmpty());

    QStringList titles;
    for (int index = 0; QMenu *menu = window.menu(index); ++index) {
        QCOMPARE(window.menuBar()->actions().at(index)->menu(), menu);
        titles.append(menu->title());
    }
    QCOMPARE(titles, QStringList({"&File", "&Edit", "&View", "&Tools"}));
    QCOMPARE(window.menuBar()->actions().size(), 4);
}

void TestMainWindow::shownFrameHasToolBarsTogglesStatusBarAndExits()
{
    MessageLog log;
    MainWindow window({});
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));

    MenuActionMan *r = MenuActionMan::instance();
    const QMap<QString, QList<QAction *>> expected{
        {"File",
         {r->findShellAction("FILE > NEW"), r->findShellAction("FILE > OPEN"),
          r->findToolAction("FILE > SAVE"), r->findShellAction("FILE > SAVE ALL"),
          r->findToolAction("FILE > PRINT")}},
        {"Edit",
         {r->findToolAction("EDIT > UNDO"), r->findToolAction("EDIT > REDO"),
          r->findToolAction("EDIT > CUT"), r->findToolAction("EDIT > COPY"),
          r->findToolAction("EDIT > PASTE")}}};
    QMap<QString, QList<QAction *>> visible;
    for (QToolBar *bar : window.findChildren<QToolBar *>()) {
        if (bar->isVisible())
            visible.insert(bar->windowTitle(), bar->actions());
    }
    QCOMPARE(visible, expected);

    QAction *statusBar = r->findShellAction("VIEW > STATUS BAR");
    QVERIFY(window.statusBar()->isVisible());
    statusBar->trigger();
    QVERIFY(!window.statusBar()->isVisible());
    statusBar->trigger();
    QVERIFY(window.statusBar()->isVisible());

    r->findShellAction("FILE > EXIT")->trigger();
    QVERIFY(!window.isVisible());
    const qsizetype closeAll = log.messages.indexOf("Menu Item: onFileCloseAll.");
    QVERIFY(closeAll >= 0);
    QVERIFY(log.messages.indexOf("Menu Item: onFileExit.") > closeAll);
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

// Tools connect to the window by signature, so the methods and their order
// are part of its interface: "S"/"s" signal/slot, "+"/"-" public/private.
void TestMainWindow::metaObjectMethods()
{
    const QStringList expected =
        QString::fromLatin1(
            "S+sigCloseView() S+sigCrossProbing(QWidget*,QStringList):sender,args "
            "S+sigOutputResult(QString) s-onWindowClose(QWidget*):view s-onFileHasOpened(void*) "
            "s-onActiveWidget(koru::sedgui::SedGUI*) s-onTitleChange() s+onNewFile() "
            "s+onOpenFile() "
            "s+onOpenFile(QString,int) s+onFileClose() s+onFileCloseAll() s+onFileSaveAll() "
            "s+onFileExit() s+onViewStatusBar() s+OnOptDlg() s+onCurrentChanged(int) "
            "s+openRecentFile() s+onFileSaved(QString) s+onFileMenuAboutToShow() "
            "s+onEditMenuAboutToShow() s+onViewMenuAboutToShow() s+onToolsMenuAboutToShow() "
            "s+onHelpMenuAboutToShow() s+updateMenu() s+onHelpKoruHelp()")
            .split(u' ');
    const QMetaObject &meta = MainWindow::staticMetaObject;
    QStringList actual;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
        const QMetaMethod method = meta.method(i);
        QString line = QLatin1String(method.methodType() == QMetaMethod::Signal ? "S" : "s") +
                       QLatin1String(method.access() == QMetaMethod::Public ? "+" : "-") +
                       QString::fromLatin1(method.methodSignature());
        const QByteArray names = method.parameterNames().join(',');
        if (names == "sender,args" || names == "view")
            line += u':' + QString::fromLatin1(names);
        actual.append(line);
    }
    QCOMPARE(actual, expected);
}

QTEST_MAIN(TestMainWindow)
#include "tst_mainwindow.moc"
