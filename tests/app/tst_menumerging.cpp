#include "baseusrsettings.h"
#include "fakecontrol.h"
#include "faketool.h"
#include "mainwindow.h"
#include "menuactionman.h"
#include "messagelog.h"

#include <QAction>
#include <QMenu>
#include <QTest>

namespace {

QStringList texts(const QMenu *menu)
{
    QStringList list;
    for (const QAction *action : menu->actions())
        list.append(action->isSeparator() ? "-"
                    : action->menu()      ? '[' + action->text() + ']'
                                          : action->text());
    return list;
}

const QString key = QStringLiteral("Recent_Files/RecentFileList");

QStringList storedList()
{
    return BaseUsrSettings("SRC_EDITOR").value(key).toStringList();
}

QStringList numbered(int count)
{
    QStringList list;
    for (int i = 1; i <= count; ++i)
        list.append("/p" + QString::number(i));
    return list;
}

// The visible entries of the Recent Files sub-menu.
QList<QAction *> shownEntries(const MainWindow &window)
{
    QList<QAction *> shown;
    if (auto *menu = window.menu(0)->findChild<QMenu *>(QString(), Qt::FindDirectChildrenOnly)) {
        for (QAction *action : menu->actions()) {
            if (action->isVisible())
                shown.append(action);
        }
    }
    return shown;
}

} // namespace

// Menus rebuilt from the registry, the tools' connection records and the
// list of recently opened files, with that list's store and order.
class TestMenuMerging : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init()
    {
        FakeControl::instance()->reset();
        BaseUsrSettings("SRC_EDITOR").clear();
    }
    void toolActionsAtThePlaceholder_data();
    void toolActionsAtThePlaceholder();
    void oddRecordsAndToolWithoutConnectionList();
    void addition_data();
    void addition();
    void subMenusAreBuiltOnce();
};

void TestMenuMerging::initTestCase()
{
    // A sub-menu in the Tools menu, with a separator that must not show.
    MenuActionMan *registry = MenuActionMan::instance();
    SubMenuName *extras = registry->addSubMenu("EXTRAS", MenuActionMan::ToolsMenu);
    registry->registerAction("ONE", new QAction("Shell Extra", registry), ShellAction,
                             MenuActionMan::ToolsMenu, extras);
    extras->addItem(new MenuName("Separator", Separator));
    registry->registerAction("TWO", new QAction("Tool Extra", registry), ToolAction,
                             MenuActionMan::ToolsMenu, extras);
    // Placeholders where the tool has no say, and an item after Edit's.
    registry->addPlaceholder(MenuActionMan::FileMenu);
    registry->addPlaceholder(MenuActionMan::ToolsMenu);
    registry->registerAction("AFTER", new QAction("After", registry), ShellAction,
                             MenuActionMan::EditMenu);
}

// The tool offers actions for every menu: only Edit and View take them, at
// their placeholder, before what follows it.
void TestMenuMerging::toolActionsAtThePlaceholder_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<bool>("offering");
    QTest::addColumn<QString>("ending");
    QTest::newRow("file") << 0 << true << "Print|-|-|Exit";
    QTest::newRow("edit") << 1 << true << "Select All|-|Comment|Indent|After";
    QTest::newRow("view") << 2 << true << "Status Bar|-|Wrap";
    QTest::newRow("edit, none offered: no separator") << 1 << false << "Select All|After";
}

void TestMenuMerging::toolActionsAtThePlaceholder()
{
    QFETCH(int, index);
    QFETCH(bool, offering);
    QFETCH(QString, ending);
    QAction comment("Comment");
    QAction indent("Indent");
    QAction wrap("Wrap");
    QAction stray("Stray");
    FakeControl::instance()->configure = [&](FakeTool *fake, const QStringList &) {
        if (offering)
            fake->menuActions = {
                {0, {&stray}}, {1, {&comment, &indent}}, {2, {&wrap}}, {3, {&stray}}};
    };
    MainWindow window({"/tmp/a.c"});
    emit window.menu(index)->aboutToShow();
    QVERIFY2(texts(window.menu(index)).join(u'|').endsWith(ending),
             qPrintable(texts(window.menu(index)).join(u'|')));
    for (int asked :
         std::as_const(FakeControl::instance()->liveTools().value(0)->menuActionRequests))
        QVERIFY2(asked == 1 || asked == 2, "only Edit and View ask the tool");
}

// Records with both keys set are skipped, with both keys null the tool drives
// the stand-by action, a key resolving to null warns and the loop goes on; a
// tool without a connection list is hosted unwired.
void TestMenuMerging::oddRecordsAndToolWithoutConnectionList()
{
    MenuActionMan *registry = MenuActionMan::instance();
    registry->getAction("Nowhere", 0); // leaves a null entry under NOWHERE
    FakeControl::instance()->configure = [](FakeTool *tool, const QStringList &args) {
        tool->publishConnections = !args.isEmpty(); // a new file publishes none
        tool->addConnection("COPY", "2triggered()", "PASTE", "1onCommand()");
        tool->addConnection(nullptr, "2stateChanged(bool)", nullptr, "1setEnabled(bool)");
        tool->addConnection(nullptr, "2stateChanged(bool)", "Nowhere", "1setEnabled(bool)");
        tool->addConnection("Nowhere", "2triggered()", nullptr, "1onCommand()");
        tool->addConnection("COPY", "2triggered()", nullptr, "1onCommand()");
    };
    QAction *fallback = registry->getDefaultAction();
    MessageLog log;
    MainWindow window({"/tmp/a.c"});
    QCOMPARE(log.count("MainWindow::registerToolMenuItems: Cannot get menu action Nowhere."), 2);
    FakeTool *tool = FakeControl::instance()->liveTools().value(0);
    QAction *copy = registry->findToolAction("EDIT > COPY");
    copy->setEnabled(true);
    copy->trigger();
    QCOMPARE(tool->commandsReceived, 1);
    emit tool->stateChanged(false);
    QVERIFY(!fallback->isEnabled());
    emit tool->stateChanged(true);
    QVERIFY(fallback->isEnabled());

    window.onNewFile();
    QCOMPARE(window.tools().size(), 2);
    QCOMPARE(log.count("MainWindow::registerSharedMenus"), 1);
    copy->setEnabled(true);
    copy->trigger();
    QCOMPARE(FakeControl::instance()->liveTools().value(1)->commandsReceived, 0);
    QCOMPARE(tool->commandsReceived, 1);
}

void TestMenuMerging::addition_data()
{
    QTest::addColumn<QStringList>("stored");
    QTest::addColumn<QString>("path");
    QTest::addColumn<QStringList>("expected");
    using L = QStringList;
    QTest::newRow("most recent first") << L{"/a"} << "/b" << L{"/b", "/a"};
    QTest::newRow("every duplicate goes")
        << L{"/a", "/b", "/c", "/b"} << "/b" << L{"/b", "/a", "/c"};
    QTest::newRow("letter case counts") << L{"/a.txt"} << "/A.txt" << L{"/A.txt", "/a.txt"};
    QTest::newRow("no normalising") << L{"/x/../a"} << "/a" << L{"/a", "/x/../a"};
    QTest::newRow("cut to 15") << numbered(20) << "/new" << (L{"/new"} + numbered(14));
}

// The window that adds was made before the store changed: the stored list,
// not the one it loaded, is the base of the change.
void TestMenuMerging::addition()
{
    QFETCH(QStringList, stored);
    QFETCH(QString, path);
    QFETCH(QStringList, expected);
    MainWindow adding({});
    BaseUsrSettings("SRC_EDITOR").setValue(key, stored);
    adding.onFileSaved(path);
    QCOMPARE(storedList(), expected);
    QCOMPARE(adding.recentFileList(), expected);
}

// Recent Files shows fifteen numbered entries that open their file; rebuilds
// keep one copy of each sub-menu, and the separator in EXTRAS does not show.
void TestMenuMerging::subMenusAreBuiltOnce()
{
    MainWindow window({});
    window.updateMenu();
    QVERIFY(window.menu(0)->findChildren<QMenu *>().isEmpty()); // none while the list is empty
    BaseUsrSettings("SRC_EDITOR").setValue(key, numbered(20));
    MainWindow loaded({});
    loaded.updateMenu();
    loaded.updateMenu();
    for (int index : {0, 3})
        QCOMPARE(loaded.menu(index)->findChildren<QMenu *>(Qt::FindDirectChildrenOnly).size(), 1);
    QMenu *extras = loaded.menu(3)->findChild<QMenu *>("EXTRAS");
    QVERIFY(extras);
    QCOMPARE(texts(extras), QStringList({"Shell Extra", "Tool Extra"}));
    QList<QAction *> shown = shownEntries(loaded);
    QCOMPARE(shown.size(), 15);
    QCOMPARE(shown[9]->text(), QStringLiteral("&10 /p10"));
    QCOMPARE(shown.last()->data().toString(), QStringLiteral("/p15"));
    loaded.onFileSaved("/p10");
    loaded.updateMenu();
    shown = shownEntries(loaded);
    QCOMPARE(shown[0]->text(), QStringLiteral("&1 /p10"));
    QCOMPARE(shown[1]->text(), QStringLiteral("&2 /p1"));

    // Choosing an entry opens it; only an opened file moves to the front.
    const QStringList before = storedList();
    FakeControl::instance()->returnNull = true;
    shown[2]->trigger();
    QCOMPARE(storedList(), before);
    FakeControl::instance()->returnNull = false;
    shown[2]->trigger();
    QCOMPARE(FakeControl::instance()->createCalls, QList<QStringList>({{"/p2"}, {"/p2"}}));
    QCOMPARE(loaded.tools().size(), 1);
    QCOMPARE(storedList().first(), QStringLiteral("/p2"));
}

QTEST_MAIN(TestMenuMerging)
#include "tst_menumerging.moc"
