#include "baseusrsettings.h"
#include "fakecontrol.h"
#include "faketool.h"
#include "mainwindow.h"
#include "menuactionman.h"
#include "modalwatcher.h"

#include <QAction>
#include <QFileDialog>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>

namespace {

QStringList tabTexts(const MainWindow &window)
{
    QStringList texts;
    for (int i = 0; i < window.tabWidget()->count(); ++i)
        texts.append(window.tabWidget()->tabText(i));
    return texts;
}

FakeTool *fake(QWidget *widget)
{
    return qobject_cast<FakeTool *>(widget);
}

QString touch(const QTemporaryDir &dir, const QString &name)
{
    QFile file(dir.filePath(name));
    return file.open(QIODevice::WriteOnly) ? file.fileName() : QString();
}

QAction *action(const char *key)
{
    MenuActionMan *registry = MenuActionMan::instance();
    QAction *shell = registry->findShellAction(key);
    return shell != registry->getDefaultAction() ? shell : registry->findToolAction(key);
}

} // namespace

// Loading the factory, tools in tabs, the active tool and the file commands.
class TestToolHosting : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        FakeControl::instance()->reset();
        BaseUsrSettings("SRC_EDITOR").clear();
    }
    void cleanup() { QDir::setCurrent(QCoreApplication::applicationDirPath()); }
    void pluginLoadsFromProgramFolderWhateverTheCurrentDirectory();
    void commandsAskTheFactory_data();
    void commandsAskTheFactory();
    void openThreeFilesFromOneDialog_data();
    void openThreeFilesFromOneDialog();
    void closingAnEarlierTabKeepsTheCurrentToolWiredOnce();
};

void TestToolHosting::pluginLoadsFromProgramFolderWhateverTheCurrentDirectory()
{
    QTemporaryDir dir; // a broken plug-in where a relative path would look
    QVERIFY(QDir(dir.path()).mkpath("toolapps"));
    QFile bogus(dir.filePath("toolapps/libsedapp.so"));
    QVERIFY(bogus.open(QIODevice::WriteOnly) && bogus.write("not a library") > 0);
    bogus.close();
    QVERIFY(QDir::setCurrent(dir.path()));
    ModalWatcher watcher;
    {
        MainWindow window({});
        QVERIFY(window.toolFactory() && FakeControl::instance()->factoriesDeleted == 0);
    }
    QCOMPARE(FakeControl::instance()->factoriesMade, 1);
    QCOMPARE(FakeControl::instance()->factoriesDeleted, 1);
    QVERIFY(watcher.seen.isEmpty());
}

void TestToolHosting::commandsAskTheFactory_data()
{
    QTest::addColumn<QStringList>("startup");
    QTest::addColumn<QString>("command");
    QTest::addColumn<QList<QStringList>>("calls");
    QTest::addColumn<QStringList>("tabs");
    QTest::addColumn<QStringList>("recent");

    using L = QStringList;
    using C = QList<QStringList>;
    const L atLine{"/tmp/a.c", "-line", "12"};
    const L a{"a.c"};
    QTest::newRow("start-up, path -line N") << atLine << "" << C{atLine} << a << L();
    QTest::newRow("start-up, two paths in one list")
        << L{"/tmp/a.c", "/tmp/b.c"} << "" << C{L{"/tmp/a.c", "/tmp/b.c"}} << a << L();
    QTest::newRow("new: untitled") << L() << "new" << C{L()} << L{"Untitled"} << L();
    QTest::newRow("open at line") << L() << "line" << C{atLine} << a << L{"/tmp/a.c"};
    QTest::newRow("cancelled open dialog") << L() << "dialog" << C() << L() << L();
    QTest::newRow("empty path") << L() << "empty" << C() << L() << L();
    QTest::newRow("null at start-up") << L{"/tmp/a.c"} << "" << C{L{"/tmp/a.c"}} << L() << L();
    QTest::newRow("null for new") << L() << "new" << C{L()} << L() << L();
    QTest::newRow("null at line") << L() << "line" << C{atLine} << L() << L();
}

void TestToolHosting::commandsAskTheFactory()
{
    QFETCH(QStringList, startup);
    QFETCH(QString, command);
    QFETCH(QList<QStringList>, calls);
    QFETCH(QStringList, tabs);
    QFETCH(QStringList, recent);

    // A request that reached the factory and added no tab got null from it.
    const bool nullTool = !calls.isEmpty() && tabs.isEmpty();
    QWidget *parent = nullptr;
    FakeControl::instance()->returnNull = nullTool;
    FakeControl::instance()->configure = [&](FakeTool *tool, auto &) {
        parent = tool->parentWidget();
    };
    ModalWatcher watcher;
    MainWindow window(startup);
    if (command == "new")
        action("FILE > NEW")->trigger();
    else if (command == "line" || command == "empty")
        window.onOpenFile(command == "line" ? "/tmp/a.c" : "", 12);
    else if (command == "dialog")
        window.onOpenFile();
    QCOMPARE(watcher.seen.size(), command == "dialog" ? 1 : 0);
    QCOMPARE(FakeControl::instance()->createCalls, calls);
    QCOMPARE(parent, tabs.isEmpty() ? nullptr : &window);
    QCOMPARE(tabTexts(window), tabs);
    QCOMPARE(window.currentTool(), window.tabWidget()->widget(0));
    QCOMPARE(window.recentFileList(), recent);
    if (command == "line" && !nullTool) {
        // Every request goes to the factory again; an open tool comes to the
        // front and moves to the line.
        QWidget *a = window.currentTool();
        window.onOpenFile("/tmp/b.c", 3);
        window.onOpenFile("/tmp/a.c", 7);
        QCOMPARE(fake(a)->processArgsCalls.last(), QStringList({"/tmp/a.c", "-line", "7"}));
        QCOMPARE(FakeControl::instance()->createCalls.size(), 3);
        QCOMPARE(tabTexts(window), QStringList({"a.c", "b.c"}));
        QCOMPARE(window.tabWidget()->currentWidget(), a);
        QCOMPARE(window.tools().first(), a);
    }
}

void TestToolHosting::openThreeFilesFromOneDialog_data()
{
    // The dialog is driven through its field and button wherever focus is.
    QTest::addColumn<QString>("focus");
    QTest::newRow("focus in the file name field") << "fileNameEdit";
    QTest::newRow("focus in the file list") << "listView";
    QTest::newRow("focus left alone") << "";
}

void TestToolHosting::openThreeFilesFromOneDialog()
{
    QFETCH(QString, focus);
    QTemporaryDir dir;
    const QStringList paths{touch(dir, "b.txt"), touch(dir, "c.txt"), touch(dir, "a.txt")};
    QVERIFY(QDir::setCurrent(dir.path()));

    MainWindow window({});
    ModalWatcher watcher;
    QString startDir;
    QStringList filters;
    bool chosen = false;
    watcher.handler = [&](QWidget *modal) {
        auto *dialog = qobject_cast<QFileDialog *>(modal);
        if (!dialog)
            return;
        startDir = dialog->directory().absolutePath();
        filters = dialog->nameFilters();
        if (QWidget *target = dialog->findChild<QWidget *>(focus); target && !focus.isEmpty())
            target->setFocus();
        chosen = ModalWatcher::chooseFiles(dialog, R"("b.txt" "c.txt" "a.txt")");
        if (!chosen)
            dialog->reject();
    };
    action("FILE > OPEN")->trigger();

    QVERIFY(chosen);
    QCOMPARE(watcher.seen.size(), 1);
    QCOMPARE(startDir, QDir(dir.path()).absolutePath());
    QVERIFY(filters.contains("All Files (*)"));
    QCOMPARE(tabTexts(window), QStringList({"b.txt", "c.txt", "a.txt"}));
    QCOMPARE(window.tabWidget()->currentIndex(), 2);
    QCOMPARE(fake(window.tools().first())->fileName, paths[2]);
    QCOMPARE(window.currentTool(), window.tools().first());
    QCOMPARE(window.recentFileList(), QStringList({paths[2], paths[1], paths[0]}));
}

// The tool in front drives the shared actions, the title and the working
// directory. Closing an earlier tab changes the current index while the tool
// in front stays: its links are dropped and made again, never doubled, never
// lost. Closing the last tool resets the title and the tool actions.
void TestToolHosting::closingAnEarlierTabKeepsTheCurrentToolWiredOnce()
{
    QTemporaryDir one;
    QTemporaryDir two;
    const QString first = touch(one, "first.txt");
    const QString second = touch(two, "second.txt");
    FakeControl::instance()->configure = [&](FakeTool *tool, const QStringList &args) {
        // Every tool drives COPY's enabled state and receives its trigger.
        tool->addConnection(nullptr, "2stateChanged(bool)", "COPY", "1setEnabled(bool)");
        tool->addConnection("Copy", "2triggered()", nullptr, "1onCommand()");
        if (args.value(0) == first) // only the first tool drives CUT
            tool->addConnection(nullptr, "2stateChanged(bool)", "cut", "1setEnabled(bool)");
    };
    QAction *copy = action("EDIT > COPY");
    QAction *cut = action("EDIT > CUT");
    MainWindow window({first});
    FakeTool *a = fake(window.currentTool());
    emit a->stateChanged(true);
    QVERIFY(copy->isEnabled() && cut->isEnabled());

    window.onOpenFile(second, 1);
    FakeTool *b = fake(window.currentTool());
    QCOMPARE(window.windowTitle(), second);
    QCOMPARE(QDir::currentPath(), QDir(two.path()).canonicalPath());
    QVERIFY(!copy->isEnabled() && !cut->isEnabled());
    emit a->stateChanged(true);
    QVERIFY(!copy->isEnabled() && !cut->isEnabled());
    emit b->stateChanged(true);
    QVERIFY(copy->isEnabled() && !cut->isEnabled());
    copy->trigger();
    QVERIFY(a->commandsReceived == 0 && b->commandsReceived == 1);

    const int activations = a->activateCount;
    emit a->sigActiveWidget(a);
    QCOMPARE(window.currentTool(), a);
    QCOMPARE(window.windowTitle(), first);
    QCOMPARE(QDir::currentPath(), QDir(one.path()).canonicalPath());
    QCOMPARE(a->activateCount, activations + 1);
    QCOMPARE(window.tools().first(), a);

    emit b->sigFileHasOpened(b);
    QCOMPARE(window.currentTool(), b);
    b->title = "/tmp/renamed.c";
    b->tabText = "renamed.c*";
    emit b->sigTitleChange(b);
    QCOMPARE(window.windowTitle(), QStringLiteral("/tmp/renamed.c"));
    QCOMPARE(tabTexts(window), QStringList({"first.txt", "renamed.c*"}));
    emit a->sigFileSaved("/tmp/saved-as.c");
    QCOMPARE(window.recentFileList().first(), QStringLiteral("/tmp/saved-as.c"));
    action("FILE > SAVE ALL")->trigger();
    QVERIFY(a->saveCount == 1 && b->saveCount == 1);

    emit a->sigToolClose(a);
    QCOMPARE(window.tools(), QList<QWidget *>{b});
    QCOMPARE(window.tabWidget()->currentIndex(), 0);
    QCOMPARE(window.currentTool(), b);
    emit b->stateChanged(false);
    QVERIFY(!copy->isEnabled());
    emit b->stateChanged(true);
    QVERIFY(copy->isEnabled());
    copy->trigger();
    QCOMPARE(b->commandsReceived, 2);

    window.onOpenFile("/tmp/c.c", 1);
    FakeTool *c = fake(window.currentTool());
    QWidget *corner = window.tabWidget()->cornerWidget(Qt::TopRightCorner);
    QVERIFY(corner && QMetaObject::invokeMethod(corner, "sigCloseTool"));
    QCOMPARE(c->closeRequests, 1);
    QCOMPARE(tabTexts(window), QStringList{"renamed.c*"});
    QAction *print = action("FILE > PRINT");
    print->setEnabled(true);
    action("FILE > CLOSE ALL")->trigger();
    QCOMPARE(b->closeRequests, 1);
    QVERIFY(window.tools().isEmpty());
    QCOMPARE(window.currentTool(), nullptr);
    QCOMPARE(window.windowTitle(), QStringLiteral("Source Editor"));
    QVERIFY(!print->isEnabled());
}

QTEST_MAIN(TestToolHosting)
#include "tst_toolhosting.moc"
