#include "baseusrsettings.h"
#include "fakecontrol.h"
#include "faketool.h"
#include "mainwindow.h"
#include "menuactionman.h"
#include "messagelog.h"

#include <QAction>
#include <QMenu>
#include <QTabWidget>
#include <QTest>

namespace {

QStringList texts(const QMenu *menu)
{
    QStringList list;
    for (const QAction *action : menu->actions()) {
        if (action->isSeparator())
            list.append(QStringLiteral("-"));
        else if (action->menu())
            list.append(QStringLiteral("[") + action->text() + u']');
        else
            list.append(action->text());
    }
    return list;
}

QStringList split(const char *items)
{
    return QString::fromLatin1(items).split(u'|');
}

} // namespace

// Menus rebuilt from the registry and the tools' connection records.
class TestMenuMerging : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void menusFromTheCatalogue_data();
    void menusFromTheCatalogue();
    void subMenusAreBuiltOnceWithoutSeparators();
    void oddRecordsAreSkippedOrWarned();
    void toolWithoutConnectionListIsHostedUnwired_data();
    void toolWithoutConnectionListIsHostedUnwired();

private:
    QAction *m_extraShell = nullptr;
    QAction *m_extraTool = nullptr;
};

void TestMenuMerging::initTestCase()
{
    // A sub-menu in the Tools menu, with a separator that must not show.
    MenuActionMan *registry = MenuActionMan::instance();
    SubMenuName *extras = registry->addSubMenu("EXTRAS", MenuActionMan::ToolsMenu);
    m_extraShell = new QAction("Shell Extra", registry);
    registry->registerAction("ONE", m_extraShell, ShellAction, MenuActionMan::ToolsMenu, extras);
    extras->addItem(new MenuName("Separator", Separator));
    m_extraTool = new QAction("Tool Extra", registry);
    registry->registerAction("TWO", m_extraTool, ToolAction, MenuActionMan::ToolsMenu, extras);
    // Placeholders where the tool has no say, and an item after Edit's.
    registry->addPlaceholder(MenuActionMan::FileMenu);
    registry->addPlaceholder(MenuActionMan::ToolsMenu);
    registry->registerAction("AFTER", new QAction("After", registry), ShellAction,
                             MenuActionMan::EditMenu);
}

void TestMenuMerging::init()
{
    FakeControl::instance()->reset();
    BaseUsrSettings("SRC_EDITOR").clear();
}

void TestMenuMerging::menusFromTheCatalogue_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("tool");
    QTest::addColumn<QStringList>("expected");

    const QStringList file = split("New|Open|-|Close|Close All|-|Save|Save As|Save All|-|"
                                   "Page Setup|Print Preview|Print|-|-|Exit");
    const QString edit = "Undo|Redo|-|Cut|Copy|Paste|-|Find|Find Next|Replace|"
                         "Find in Files...|Go To|-|Clear|Select All";
    QTest::newRow("file") << 0 << "none" << file;
    QTest::newRow("edit") << 1 << "none" << split(qPrintable(edit + "|After"));
    QTest::newRow("view") << 2 << "none" << split("Status Bar");
    QTest::newRow("tools") << 3 << "none" << split("Option...|[EXTRAS]");
    // The tool offers actions for every menu: only Edit and View take them,
    // at the placeholder, before what follows it.
    QTest::newRow("file, tool") << 0 << "offering" << file;
    QTest::newRow("edit, tool") << 1 << "offering"
                                << split(qPrintable(edit + "|-|Comment|Indent|After"));
    QTest::newRow("view, tool") << 2 << "offering" << split("Status Bar|-|Wrap");
    QTest::newRow("tools, tool") << 3 << "offering" << split("Option...|[EXTRAS]");
    QTest::newRow("edit, tool offers none: no separator")
        << 1 << "silent" << split(qPrintable(edit + "|After"));
    QTest::newRow("view, tool offers none") << 2 << "silent" << split("Status Bar");
}

void TestMenuMerging::menusFromTheCatalogue()
{
    QFETCH(int, index);
    QFETCH(QString, tool);
    QFETCH(QStringList, expected);

    QAction comment("Comment");
    QAction indent("Indent");
    QAction wrap("Wrap");
    QAction stray("Stray");
    if (tool == "offering") {
        FakeControl::instance()->configure = [&](FakeTool *fake, const QStringList &) {
            fake->menuActions = {
                {0, {&stray}}, {1, {&comment, &indent}}, {2, {&wrap}}, {3, {&stray}}};
        };
    }
    MainWindow window(tool == "none" ? QStringList() : QStringList{"/tmp/a.c"});
    QMenu *menu = window.menu(index);
    if (tool == "none")
        QVERIFY(menu->actions().isEmpty()); // built when first shown
    emit menu->aboutToShow();
    QCOMPARE(texts(menu), expected);
    if (FakeTool *fake = FakeControl::instance()->liveTools().value(0)) {
        for (int asked : std::as_const(fake->menuActionRequests))
            QVERIFY2(asked == 1 || asked == 2, "only Edit and View ask the tool");
    }
}

void TestMenuMerging::subMenusAreBuiltOnceWithoutSeparators()
{
    MainWindow window({});
    window.onFileSaved("/tmp/recent.c");
    for (int i = 0; i < 2; ++i) {
        emit window.menu(0)->aboutToShow();
        emit window.menu(3)->aboutToShow();
    }
    QCOMPARE(window.menu(0)->findChildren<QMenu *>(Qt::FindDirectChildrenOnly).size(), 1);
    QCOMPARE(texts(window.menu(0)).count("[Recent Files]"), 1);
    QCOMPARE(window.menu(3)->findChildren<QMenu *>(Qt::FindDirectChildrenOnly).size(), 1);
    QCOMPARE(texts(window.menu(3)), split("Option...|[EXTRAS]"));
    QMenu *extras = window.menu(3)->findChild<QMenu *>("EXTRAS");
    QVERIFY(extras);
    QCOMPARE(extras->actions(), QList<QAction *>({m_extraShell, m_extraTool}));
}

void TestMenuMerging::oddRecordsAreSkippedOrWarned()
{
    MenuActionMan *registry = MenuActionMan::instance();
    registry->getAction("Nowhere", 0); // leaves a null entry under NOWHERE
    FakeControl::instance()->configure = [](FakeTool *tool, const QStringList &) {
        // Both keys set: skipped in both directions.
        tool->addConnection("COPY", "2triggered()", "PASTE", "1onCommand()");
        // Both keys null: a tool-to-action link to the stand-by action.
        tool->addConnection(nullptr, "2stateChanged(bool)", nullptr, "1setEnabled(bool)");
        // A key resolving to null warns, and the loop goes on.
        tool->addConnection(nullptr, "2stateChanged(bool)", "Nowhere", "1setEnabled(bool)");
        tool->addConnection("Nowhere", "2triggered()", nullptr, "1onCommand()");
        tool->addConnection("COPY", "2triggered()", nullptr, "1onCommand()");
    };
    QAction *fallback = registry->getDefaultAction();
    fallback->setEnabled(true);
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

    // Leaving the tool disables what it drove, the stand-by action included.
    window.onNewFile();
    QVERIFY(!fallback->isEnabled());
    fallback->setEnabled(true);
}

void TestMenuMerging::toolWithoutConnectionListIsHostedUnwired_data()
{
    QTest::addColumn<bool>("published");
    QTest::newRow("list published") << true;
    QTest::newRow("no list") << false;
}

void TestMenuMerging::toolWithoutConnectionListIsHostedUnwired()
{
    QFETCH(bool, published);
    FakeControl::instance()->configure = [=](FakeTool *tool, const QStringList &) {
        tool->addConnection("COPY", "2triggered()", nullptr, "1onCommand()");
        tool->publishConnections = published;
    };
    MessageLog log;
    MainWindow window({"/tmp/a.c"});
    window.onOpenFile("/tmp/b.c", 1);
    QCOMPARE(window.tools().size(), 2);
    QCOMPARE(log.count("MainWindow::registerSharedMenus"), published ? 2 : 0);
    FakeTool *b = FakeControl::instance()->liveTools().value(1);
    QAction *copy = MenuActionMan::instance()->findToolAction("EDIT > COPY");
    copy->setEnabled(true);
    copy->trigger();
    QCOMPARE(b->commandsReceived, published ? 1 : 0);
}

QTEST_MAIN(TestMenuMerging)
#include "tst_menumerging.moc"
