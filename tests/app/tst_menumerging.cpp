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

int subMenuCount(const QMenu *menu, const QString &title)
{
    int count = 0;
    for (const QMenu *child : menu->findChildren<QMenu *>(Qt::FindDirectChildrenOnly))
        count += child->title() == title ? 1 : 0;
    return count;
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
    void openingTwiceKeepsOneCopyOfEachSubMenu();
    void subMenuShowsNoSeparators();
    void toolActionsFollowAPlaceholder_data();
    void toolActionsFollowAPlaceholder();
    void oddRecordsAreSkippedOrWarned();
    void toolWithoutConnectionListIsHosted();

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
}

void TestMenuMerging::init()
{
    FakeControl::instance()->reset();
    BaseUsrSettings("SRC_EDITOR").clear();
}

void TestMenuMerging::menusFromTheCatalogue_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QStringList>("expected");

    QTest::newRow("file") << 0
                          << split(
                                 "New|Open|-|Close|Close All|-|Save|Save As|Save All|-|Page Setup|"
                                 "Print Preview|Print|-|-|Exit");
    QTest::newRow("edit") << 1
                          << split("Undo|Redo|-|Cut|Copy|Paste|-|Find|Find Next|Replace|"
                                   "Find in Files...|Go To|-|Clear|Select All");
    QTest::newRow("view") << 2 << split("Status Bar");
    QTest::newRow("tools") << 3 << split("Option...|[EXTRAS]");
}

void TestMenuMerging::menusFromTheCatalogue()
{
    QFETCH(int, index);
    QFETCH(QStringList, expected);

    MainWindow window({});
    QMenu *menu = window.menu(index);
    QVERIFY(menu->actions().isEmpty());
    emit menu->aboutToShow();
    QCOMPARE(texts(menu), expected);
}

void TestMenuMerging::openingTwiceKeepsOneCopyOfEachSubMenu()
{
    MainWindow window({});
    window.onFileSaved("/tmp/recent.c");
    for (int i = 0; i < 2; ++i) {
        emit window.menu(0)->aboutToShow();
        emit window.menu(3)->aboutToShow();
    }
    QCOMPARE(subMenuCount(window.menu(0), "Recent Files"), 1);
    QCOMPARE(subMenuCount(window.menu(3), "EXTRAS"), 1);
    QCOMPARE(texts(window.menu(0)).count("[Recent Files]"), 1);
    QCOMPARE(texts(window.menu(3)), split("Option...|[EXTRAS]"));
}

void TestMenuMerging::subMenuShowsNoSeparators()
{
    MainWindow window({});
    window.updateMenu();
    QMenu *extras = window.menu(3)->findChild<QMenu *>("EXTRAS");
    QVERIFY(extras);
    QCOMPARE(extras->actions(), QList<QAction *>({m_extraShell, m_extraTool}));
}

void TestMenuMerging::toolActionsFollowAPlaceholder_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<bool>("toolHasActions");
    QTest::addColumn<QStringList>("tail");

    QTest::newRow("edit") << 1 << true << split("Clear|Select All|-|Comment|Indent");
    QTest::newRow("view") << 2 << true << split("Status Bar|-|Wrap");
    QTest::newRow("edit, no tool actions, no separator") << 1 << false << split("Clear|Select All");
    QTest::newRow("view, no tool actions, no separator") << 2 << false << split("Status Bar");
}

void TestMenuMerging::toolActionsFollowAPlaceholder()
{
    QFETCH(int, index);
    QFETCH(bool, toolHasActions);
    QFETCH(QStringList, tail);

    QAction comment("Comment");
    QAction indent("Indent");
    QAction wrap("Wrap");
    if (toolHasActions) {
        FakeControl::instance()->configure = [&](FakeTool *tool, const QStringList &) {
            tool->editActions = {&comment, &indent};
            tool->viewActions = {&wrap};
        };
    }
    MainWindow window({"/tmp/a.c"});
    FakeTool *tool = FakeControl::instance()->liveTools().value(0);
    QVERIFY(tool);
    tool->menuActionRequests.clear();
    for (int menu = 0; menu < 5; ++menu)
        QMetaObject::invokeMethod(&window, "updateMenu");

    const QStringList shown = texts(window.menu(index));
    QCOMPARE(shown.mid(shown.size() - tail.size()), tail);
    // Only the Edit and View placeholders ask the tool.
    for (int asked : std::as_const(tool->menuActionRequests))
        QVERIFY(asked == 1 || asked == 2);
    QVERIFY(tool->menuActionRequests.contains(index));
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
    QCOMPARE(tool->commandsReceived.value("onCommand"), 1);
    emit tool->stateChanged(false);
    QVERIFY(!fallback->isEnabled());
    emit tool->stateChanged(true);
    QVERIFY(fallback->isEnabled());

    // Leaving the tool disables what it drove, the stand-by action included.
    window.onNewFile();
    QVERIFY(!fallback->isEnabled());
    fallback->setEnabled(true);
}

void TestMenuMerging::toolWithoutConnectionListIsHosted()
{
    FakeControl::instance()->configure = [](FakeTool *tool, const QStringList &) {
        tool->publishConnections = false;
    };
    MainWindow window({"/tmp/a.c"});
    window.onOpenFile("/tmp/b.c", 1);
    QCOMPARE(window.tools().size(), 2);
}

QTEST_MAIN(TestMenuMerging)
#include "tst_menumerging.moc"
