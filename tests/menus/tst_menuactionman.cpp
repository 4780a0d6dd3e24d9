#include "menuactionman.h"

#include <QAction>
#include <QTest>

namespace {

// Menu + n: getAction(key, n).
enum Lookup { Shell, Tool, ByName, Menu = 10 };

QStringList split(const char *items)
{
    return QString::fromLatin1(items).split(u'|', Qt::SkipEmptyParts);
}

// "kind:name" for each item of a list, the way the tables below spell menus.
QStringList describe(const QList<MenuName *> &items)
{
    QStringList lines;
    for (const MenuName *item : items)
        lines.append(QString::number(item->kind()) + u':' + item->name());
    return lines;
}

class Receiver : public QObject
{
    Q_OBJECT

public:
    int calls = 0;

public Q_SLOTS:
    void onTriggered() { ++calls; }
};

} // namespace

class TestMenuActionMan : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void lookUpByKey_data();
    void lookUpByKey();
    void getActionLeavesNullEntryForUnknownName();
    void connectActionJoinsTriggeredToSlot();
    void subMenuKeysAreNotUpperCased_data();
    void subMenuKeysAreNotUpperCased();
    void registeringTwiceReplacesEntryAndListsItemTwice();
    void menuIndexOutsideRangeIsIgnored();
    void catalogueItems_data();
    void catalogueItems();
    void toolActionsStartDisabledShellActionsEnabled();
    void shortcutsAndStatusTips_data();
    void shortcutsAndStatusTips();
    void byNameIndexHoldsTheSixteenToolActions();
    void disableToolActionsDisablesEveryToolAction();
};

void TestMenuActionMan::lookUpByKey_data()
{
    QTest::addColumn<int>("how");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("expected"); // object name; empty: the default action

    const auto row = [](const char *tag, int how, const char *key, const char *expected) {
        QTest::newRow(tag) << how << QString::fromLatin1(key) << QString::fromLatin1(expected);
    };
    row("tool key, lower case", Tool, "file > save", "Save");
    row("tool key asked as shell", Shell, "FILE > SAVE", "");
    row("shell key", Shell, "File > Save All", "Save All");
    row("shell key asked as tool", Tool, "FILE > SAVE ALL", "");
    row("dots kept", Shell, "edit > find in files...", "Find in Files...");
    row("tools menu keys use Help", Shell, "help > option", "Option...");
    row("no TOOLS title", Shell, "TOOLS > OPTION", "");
    row("by name, two words", ByName, "select all", "Select All");
    row("shell actions not by name", ByName, "SAVE ALL", "");
    row("path key is no name", ByName, "FILE > SAVE", "");
    row("blank separator exact", Tool, "FILE>SAVE", "");
    row("getAction: option in tools", Menu + 3, "Option", "Option...");
    row("getAction: display text is no name", Menu + 3, "Option...", "");
    row("getAction: help index unsupported", Menu + 4, "Option", "");
    row("getAction: negative index", Menu - 1, "New", "");
    row("getAction: name in lower case", Menu + 1, "undo", "Undo");
    row("getAction: tool action of another menu", Menu, "Copy", "Copy");
    row("getAction: shell action of another menu", Menu + 1, "Exit", "");
}

void TestMenuActionMan::lookUpByKey()
{
    QFETCH(int, how);
    QFETCH(QString, key);
    QFETCH(QString, expected);

    MenuActionMan registry;
    const QByteArray raw = key.toLatin1();
    QAction *action = how == Shell    ? registry.findShellAction(key)
                      : how == Tool   ? registry.findToolAction(key)
                      : how == ByName ? registry.findActionByName(key)
                                      : registry.getAction(raw.constData(), how - Menu);
    QVERIFY(action);
    if (expected.isEmpty())
        QCOMPARE(action, registry.getDefaultAction());
    else
        QCOMPARE(action->objectName(), expected);
}

void TestMenuActionMan::getActionLeavesNullEntryForUnknownName()
{
    MenuActionMan registry;
    QCOMPARE(registry.getAction("Nothing", 0), registry.getDefaultAction());
    QCOMPARE(registry.findActionByName("NOTHING"), nullptr);

    Receiver receiver;
    QCOMPARE(registry.connectAction(0, "Nothing", &receiver, SLOT(onTriggered())), nullptr);
    QCOMPARE(registry.findActionByName("Anything"), registry.getDefaultAction());
}

void TestMenuActionMan::connectActionJoinsTriggeredToSlot()
{
    MenuActionMan registry;
    Receiver receiver;

    QAction *open = registry.connectAction(0, "Open", &receiver, SLOT(onTriggered()));
    QCOMPARE(open, registry.findShellAction("FILE > OPEN"));
    open->trigger();
    QCOMPARE(receiver.calls, 1);
    // The Tools menu forms its key with "Help".
    QAction *option = registry.connectAction(3, "Option", &receiver, SLOT(onTriggered()));
    QCOMPARE(option, registry.findShellAction("HELP > OPTION"));
    option->trigger();
    QCOMPARE(receiver.calls, 2);

    QCOMPARE(registry.connectAction(0, "Unknown", &receiver, SLOT(onTriggered())), nullptr);
    QCOMPARE(registry.connectAction(1, "Exit", &receiver, SLOT(onTriggered())), nullptr);
    registry.getDefaultAction()->trigger();
    QCOMPARE(receiver.calls, 2);
}

void TestMenuActionMan::subMenuKeysAreNotUpperCased_data()
{
    QTest::addColumn<QByteArray>("title");
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QString>("storedKey");
    QTest::addColumn<bool>("found");

    QTest::newRow("mixed case is lost")
        << QByteArray("Tools") << QByteArray("Run") << "Tools > Run" << false;
    QTest::newRow("upper case is found")
        << QByteArray("TOOLS") << QByteArray("RUN") << "TOOLS > RUN" << true;
    QTest::newRow("upper title, mixed name")
        << QByteArray("BUILD") << QByteArray("Make") << "BUILD > Make" << false;
}

void TestMenuActionMan::subMenuKeysAreNotUpperCased()
{
    QFETCH(QByteArray, title);
    QFETCH(QByteArray, name);
    QFETCH(QString, storedKey);
    QFETCH(bool, found);

    MenuActionMan registry;
    SubMenuName *subMenu = registry.addSubMenu(title.constData(), 0);
    auto *action = new QAction(QStringLiteral("Run it"), &registry);
    registry.registerAction(name.constData(), action, ShellAction, 0, subMenu);

    QCOMPARE(describe(subMenu->items()),
             QStringList{QString::number(ShellAction) + u':' + storedKey});
    QCOMPARE(registry.menuItems(0).last(), subMenu);
    QCOMPARE(registry.findShellAction(storedKey) == action, found);
}

void TestMenuActionMan::registeringTwiceReplacesEntryAndListsItemTwice()
{
    MenuActionMan registry;
    const qsizetype before = registry.menuItems(1).size();
    auto *second = new QAction(QStringLiteral("Sort Lines"), &registry);
    registry.registerAction("Sort", new QAction(QStringLiteral("Sort"), &registry), ToolAction, 1);
    registry.registerAction("Sort", second, ToolAction, 1);

    QCOMPARE(registry.findToolAction("EDIT > SORT"), second);
    QCOMPARE(registry.findActionByName("sort"), second);
    QCOMPARE(describe(registry.menuItems(1)).mid(before), split("5:EDIT > SORT|5:EDIT > SORT"));
}

void TestMenuActionMan::menuIndexOutsideRangeIsIgnored()
{
    MenuActionMan registry;
    const auto lists = [&registry] {
        QList<QStringList> all;
        for (int menu = 0; menu < 5; ++menu)
            all.append(describe(registry.menuItems(menu)));
        return all;
    };
    QList<QStringList> before = lists();
    QVERIFY(registry.menuItems(-1).isEmpty());
    registry.addSeparator(7);
    registry.addSeparator(5);
    registry.addPlaceholder(-2);
    QCOMPARE(lists(), before);
    QVERIFY(registry.menuItems(7).isEmpty());
    registry.addSeparator(4);
    before[4].append("2:Separator");
    QCOMPARE(lists(), before);
}

void TestMenuActionMan::catalogueItems_data()
{
    QTest::addColumn<int>("menu");
    QTest::addColumn<QStringList>("items");

    QTest::newRow("file") << 0
                          << split("4:FILE > NEW|4:FILE > OPEN|2:Separator|4:FILE > CLOSE|"
                                   "4:FILE > CLOSE ALL|2:Separator|5:FILE > SAVE|5:FILE > SAVE AS|"
                                   "4:FILE > SAVE ALL|2:Separator|5:FILE > PAGE SETUP|"
                                   "5:FILE > PRINT PREVIEW|5:FILE > PRINT|2:Separator|"
                                   "1:Recent Files|2:Separator|4:FILE > EXIT");
    QTest::newRow("edit") << 1
                          << split("5:EDIT > UNDO|5:EDIT > REDO|2:Separator|5:EDIT > CUT|"
                                   "5:EDIT > COPY|5:EDIT > PASTE|2:Separator|5:EDIT > FIND|"
                                   "5:EDIT > FIND NEXT|5:EDIT > REPLACE|4:EDIT > FIND IN FILES...|"
                                   "5:EDIT > GO TO|2:Separator|5:EDIT > CLEAR|5:EDIT > SELECT ALL|"
                                   "3:Placeholder");
    QTest::newRow("view") << 2 << split("4:VIEW > STATUS BAR|3:Placeholder");
    QTest::newRow("tools") << 3 << split("4:HELP > OPTION");
    QTest::newRow("help") << 4 << QStringList{};
}

void TestMenuActionMan::catalogueItems()
{
    QFETCH(int, menu);
    QFETCH(QStringList, items);

    MenuActionMan registry;
    QCOMPARE(describe(registry.menuItems(menu)), items);
}

void TestMenuActionMan::toolActionsStartDisabledShellActionsEnabled()
{
    MenuActionMan registry;
    int tools = 0;
    int shells = 0;
    for (int menu = 0; menu < MenuActionMan::MenuCount; ++menu) {
        for (MenuName *item : registry.menuItems(menu)) {
            const bool tool = item->kind() == ToolAction;
            if (!tool && item->kind() != ShellAction)
                continue;
            QAction *action = tool ? registry.findToolAction(item->name())
                                   : registry.findShellAction(item->name());
            QVERIFY(action != registry.getDefaultAction());
            QVERIFY2(action->isEnabled() != tool, qPrintable(item->name()));
            ++(tool ? tools : shells);
        }
    }
    QCOMPARE(tools, 16);
    QCOMPARE(shells, 9);
    QVERIFY(registry.findShellAction("VIEW > STATUS BAR")->isCheckable());
    QCOMPARE(registry.findShellAction("HELP > OPTION")->objectName(), QStringLiteral("Option..."));
}

void TestMenuActionMan::shortcutsAndStatusTips_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QKeySequence>("shortcut"); // empty: not checked
    QTest::addColumn<QString>("statusTip");

    QTest::newRow("undo") << "EDIT > UNDO" << QKeySequence(Qt::CTRL | Qt::Key_Z) << "";
    QTest::newRow("redo") << "EDIT > REDO" << QKeySequence(Qt::CTRL | Qt::Key_Y) << "";
    QTest::newRow("cut") << "EDIT > CUT" << QKeySequence(Qt::CTRL | Qt::Key_X) << "";
    QTest::newRow("copy") << "EDIT > COPY" << QKeySequence(Qt::CTRL | Qt::Key_C) << "";
    QTest::newRow("paste") << "EDIT > PASTE" << QKeySequence(Qt::CTRL | Qt::Key_V)
                           << "Pastes the text stored in the clipboard";
    QTest::newRow("find in files")
        << "EDIT > FIND IN FILES..." << QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_F) << "";
    QTest::newRow("print") << "FILE > PRINT" << QKeySequence() << "Print document that has focus";
    QTest::newRow("exit") << "FILE > EXIT" << QKeySequence() << "Exit";
}

void TestMenuActionMan::shortcutsAndStatusTips()
{
    QFETCH(QString, key);
    QFETCH(QKeySequence, shortcut);
    QFETCH(QString, statusTip);

    MenuActionMan registry;
    QAction *action = registry.findToolAction(key);
    if (action == registry.getDefaultAction())
        action = registry.findShellAction(key);
    QVERIFY(action != registry.getDefaultAction());
    if (!shortcut.isEmpty())
        QCOMPARE(action->shortcut(), shortcut);
    QCOMPARE(action->statusTip(), statusTip);
}

void TestMenuActionMan::byNameIndexHoldsTheSixteenToolActions()
{
    MenuActionMan registry;
    QSet<QAction *> seen;
    for (const QString &name : split("SAVE|SAVE AS|PAGE SETUP|PRINT PREVIEW|PRINT|UNDO|REDO|CUT|"
                                     "COPY|PASTE|FIND|FIND NEXT|REPLACE|GO TO|CLEAR|SELECT ALL")) {
        QAction *action = registry.findActionByName(name);
        QVERIFY2(action != registry.getDefaultAction(), qPrintable(name));
        QCOMPARE(action->text().toUpper(), name);
        seen.insert(action);
    }
    QCOMPARE(seen.size(), 16);
}

void TestMenuActionMan::disableToolActionsDisablesEveryToolAction()
{
    MenuActionMan registry;
    QAction *save = registry.findToolAction("FILE > SAVE");
    QAction *paste = registry.findToolAction("EDIT > PASTE");
    save->setEnabled(true);
    paste->setEnabled(true);
    registry.disableToolActions();
    QVERIFY(!save->isEnabled() && !paste->isEnabled());
    QVERIFY(registry.findShellAction("FILE > NEW")->isEnabled());
}

QTEST_MAIN(TestMenuActionMan)
#include "tst_menuactionman.moc"
