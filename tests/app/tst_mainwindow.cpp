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
    void metaObjectMethodOrder_data();
    void metaObjectMethodOrder();
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

void TestMainWindow::metaObjectMethodOrder_data()
{
    QTest::addColumn<QByteArray>("signature");
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("access");
    QTest::addColumn<QByteArray>("parameterNames");

    const int signal = QMetaMethod::Signal;
    const int slot = QMetaMethod::Slot;
    const int pub = QMetaMethod::Public;
    const int priv = QMetaMethod::Private;
    const struct
    {
        const char *signature;
        int type;
        int access;
        const char *names;
    } rows[] = {
        {"sigCloseView()", signal, pub, ""},
        {"sigCrossProbing(QWidget*,QStringList)", signal, pub, "sender,args"},
        {"sigOutputResult(QString)", signal, pub, nullptr},
        {"onWindowClose(QWidget*)", slot, priv, "view"},
        {"onFileHasOpened(void*)", slot, priv, nullptr},
        {"onActiveWidget(koru::sedgui::SedGUI*)", slot, priv, nullptr},
        {"onTitleChange()", slot, priv, ""},
        {"onNewFile()", slot, pub, ""},
        {"onOpenFile()", slot, pub, ""},
        {"onOpenFile(QString,int)", slot, pub, nullptr},
        {"onFileClose()", slot, pub, ""},
        {"onFileCloseAll()", slot, pub, ""},
        {"onFileSaveAll()", slot, pub, ""},
        {"onFileExit()", slot, pub, ""},
        {"onViewStatusBar()", slot, pub, ""},
        {"OnOptDlg()", slot, pub, ""},
        {"onCurrentChanged(int)", slot, pub, nullptr},
        {"openRecentFile()", slot, pub, ""},
        {"onFileSaved(QString)", slot, pub, nullptr},
        {"onFileMenuAboutToShow()", slot, pub, ""},
        {"onEditMenuAboutToShow()", slot, pub, ""},
        {"onViewMenuAboutToShow()", slot, pub, ""},
        {"onToolsMenuAboutToShow()", slot, pub, ""},
        {"onHelpMenuAboutToShow()", slot, pub, ""},
        {"updateMenu()", slot, pub, ""},
        {"onHelpKoruHelp()", slot, pub, ""},
    };
    int index = 0;
    for (const auto &row : rows) {
        QTest::addRow("%d %s", index++, row.signature)
            << QByteArray(row.signature) << row.type << row.access
            << (row.names ? QByteArray(row.names) : QByteArray("?"));
    }
}

void TestMainWindow::metaObjectMethodOrder()
{
    QFETCH(QByteArray, signature);
    QFETCH(int, type);
    QFETCH(int, access);
    QFETCH(QByteArray, parameterNames);

    const QMetaObject &meta = MainWindow::staticMetaObject;
    QCOMPARE(meta.methodCount() - meta.methodOffset(), 26);
    const int index = QByteArray(QTest::currentDataTag()).split(' ').first().toInt();
    const QMetaMethod method = meta.method(meta.methodOffset() + index);
    QCOMPARE(method.methodSignature(), signature);
    QCOMPARE(int(method.methodType()), type);
    QCOMPARE(int(method.access()), access);
    if (parameterNames != "?")
        QCOMPARE(method.parameterNames().join(','), parameterNames);
}

QTEST_MAIN(TestMainWindow)
#include "tst_mainwindow.moc"
