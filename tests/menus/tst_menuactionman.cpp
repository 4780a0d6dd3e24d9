#include "menuactionman.h"

#include <QAction>
#include <QSignalSpy>
#include <QTest>

namespace {

enum Lookup { Shell, Tool, ByName };

QAction *lookUp(const MenuActionMan &registry, int how, const QString &key)
{
    switch (how) {
    case Shell:
        return registry.findShellAction(key);
    case Tool:
        return registry.findToolAction(key);
    default:
        return registry.findActionByName(key);
    }
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
    void getAction_data();
    void getAction();
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
    void objectNamesFollowTheText();
    void disableToolActionsDisablesEveryToolAction();
    void instanceIsOneRegistry();
};

void TestMenuActionMan::lookUpByKey_data()
{
    QTest::addColumn<int>("how");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("expected"); // object name; empty: the default action

    QTest::newRow("tool key, lower case") << int(Tool) << "file > save"
                                          << "Save";
    QTest::newRow("tool key, upper case") << int(Tool) << "FILE > SAVE AS"
                                          << "Save As";
    QTest::newRow("tool key asked as shell") << int(Shell) << "FILE > SAVE"
                                             << "";
    QTest::newRow("shell key") << int(Shell) << "File > Save All"
                               << "Save All";
    QTest::newRow("shell key asked as tool") << int(Tool) << "FILE > SAVE ALL"
                                             << "";
    QTest::newRow("dots kept") << int(Shell) << "edit > find in files..."
                               << "Find in Files...";
    QTest::newRow("view key") << int(Shell) << "VIEW > STATUS BAR"
                              << "Status Bar";
    QTest::newRow("tools menu keys use Help") << int(Shell) << "help > option"
                                              << "Option...";
    QTest::newRow("no TOOLS title") << int(Shell) << "TOOLS > OPTION"
                                    << "";
    QTest::newRow("by name, lower case") << int(ByName) << "save"
                                         << "Save";
    QTest::newRow("by name, two words") << int(ByName) << "Select All"
                                        << "Select All";
    QTest::newRow("shell actions not by name") << int(ByName) << "SAVE ALL"
                                               << "";
    QTest::newRow("path key is no name") << int(ByName) << "FILE > SAVE"
                                         << "";
    QTest::newRow("blank separator exact") << int(Tool) << "FILE>SAVE"
                                           << "";
    QTest::newRow("empty") << int(ByName) << ""
                           << "";
}

void TestMenuActionMan::lookUpByKey()
{
    QFETCH(int, how);
    QFETCH(QString, key);
    QFETCH(QString, expected);

    MenuActionMan registry;
    QAction *action = lookUp(registry, how, key);
    QVERIFY(action);
    if (expected.isEmpty())
        QCOMPARE(action, registry.getDefaultAction());
    else
        QCOMPARE(action->objectName(), expected);
    // The const char* overloads answer the same.
    const QByteArray latin1 = key.toLatin1();
    QAction *again = how == Shell  ? registry.findShellAction(latin1.constData())
                     : how == Tool ? registry.findToolAction(latin1.constData())
                                   : registry.findActionByName(latin1.constData());
    QCOMPARE(again, action);
}

void TestMenuActionMan::getAction_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<int>("menu");
    QTest::addColumn<QString>("expected"); // object name; empty: the default action

    QTest::newRow("option in tools") << QByteArray("Option") << 3 << "Option...";
    QTest::newRow("display text is no name") << QByteArray("Option...") << 3 << "";
    QTest::newRow("help index unsupported") << QByteArray("Option") << 4 << "";
    QTest::newRow("negative index") << QByteArray("New") << -1 << "";
    QTest::newRow("shell action") << QByteArray("Save All") << 0 << "Save All";
    QTest::newRow("tool action") << QByteArray("Print") << 0 << "Print";
    QTest::newRow("name in lower case") << QByteArray("undo") << 1 << "Undo";
    QTest::newRow("tool action of another menu by name") << QByteArray("Copy") << 0 << "Copy";
    QTest::newRow("shell action of another menu") << QByteArray("Exit") << 1 << "";
    QTest::newRow("checkable view action") << QByteArray("Status Bar") << 2 << "Status Bar";
}

void TestMenuActionMan::getAction()
{
    QFETCH(QByteArray, name);
    QFETCH(int, menu);
    QFETCH(QString, expected);

    MenuActionMan registry;
    QAction *action = registry.getAction(name.constData(), menu);
    QVERIFY(action);
    if (expected.isEmpty())
        QCOMPARE(action, registry.getDefaultAction());
    else
        QCOMPARE(action->objectName(), expected);
}

void TestMenuActionMan::getActionLeavesNullEntryForUnknownName()
{
    MenuActionMan registry;
    QCOMPARE(registry.findActionByName("Nothing"), registry.getDefaultAction());
    QCOMPARE(registry.getAction("Nothing", 0), registry.getDefaultAction());
    QCOMPARE(registry.findActionByName("Nothing"), nullptr);
    QCOMPARE(registry.findActionByName("NOTHING"), nullptr);

    Receiver receiver;
    QCOMPARE(registry.connectAction(0, "Nothing", &receiver, SLOT(onTriggered())), nullptr);
    // Other names are not affected.
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

    // Tools menu forms its key with "Help".
    QAction *option = registry.connectAction(3, "Option", &receiver, SLOT(onTriggered()));
    QCOMPARE(option, registry.findShellAction("HELP > OPTION"));
    option->trigger();
    QCOMPARE(receiver.calls, 2);

    // A tool action of another menu is found by its bare name.
    QAction *copy = registry.connectAction(0, "Copy", &receiver, SLOT(onTriggered()));
    QCOMPARE(copy, registry.findToolAction("EDIT > COPY"));

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

    QCOMPARE(subMenu->kind(), int(SubMenu));
    QCOMPARE(describe(subMenu->items()),
             QStringList{QString::number(ShellAction) + u':' + storedKey});
    QCOMPARE(registry.menuItems(0).last(), subMenu);
    QCOMPARE(registry.findShellAction(storedKey) == action, found);
    QCOMPARE(action->objectName(), QStringLiteral("Run it"));
}

void TestMenuActionMan::registeringTwiceReplacesEntryAndListsItemTwice()
{
    MenuActionMan registry;
    const qsizetype before = registry.menuItems(1).size();
    auto *first = new QAction(QStringLiteral("Sort"), &registry);
    auto *second = new QAction(QStringLiteral("Sort Lines"), &registry);
    registry.registerAction("Sort", first, ToolAction, 1);
    registry.registerAction("Sort", second, ToolAction, 1);

    QCOMPARE(registry.findToolAction("EDIT > SORT"), second);
    QCOMPARE(registry.findActionByName("sort"), second);
    const QStringList tail = describe(registry.menuItems(1)).mid(before);
    QCOMPARE(tail, QStringList({"5:EDIT > SORT", "5:EDIT > SORT"}));

    // Kinds other than shell and tool actions file the action nowhere.
    auto *other = new QAction(QStringLiteral("Odd"), &registry);
    registry.registerAction("Odd", other, Separator, 1);
    QCOMPARE(registry.findShellAction("EDIT > ODD"), registry.getDefaultAction());
    QCOMPARE(registry.findToolAction("EDIT > ODD"), registry.getDefaultAction());
    QCOMPARE(registry.menuItems(1).last()->name(), QStringLiteral("EDIT > ODD"));
}

void TestMenuActionMan::menuIndexOutsideRangeIsIgnored()
{
    MenuActionMan registry;
    QVERIFY(registry.menuItems(5).isEmpty());
    QVERIFY(registry.menuItems(-1).isEmpty());
    registry.addSeparator(7);
    registry.addPlaceholder(-2);
    QVERIFY(registry.menuItems(7).isEmpty());
    registry.addSeparator(4);
    QCOMPARE(describe(registry.menuItems(4)), QStringList{"2:Separator"});
}

void TestMenuActionMan::catalogueItems_data()
{
    QTest::addColumn<int>("menu");
    QTest::addColumn<QStringList>("items");

    QTest::newRow("file") << 0
                          << QStringList{
                                 "4:FILE > NEW",   "4:FILE > OPEN",       "2:Separator",
                                 "4:FILE > CLOSE", "4:FILE > CLOSE ALL",  "2:Separator",
                                 "5:FILE > SAVE",  "5:FILE > SAVE AS",    "4:FILE > SAVE ALL",
                                 "2:Separator",    "5:FILE > PAGE SETUP", "5:FILE > PRINT PREVIEW",
                                 "5:FILE > PRINT", "2:Separator",         "1:Recent Files",
                                 "2:Separator",    "4:FILE > EXIT"};
    QTest::newRow("edit") << 1
                          << QStringList{"5:EDIT > UNDO",
                                         "5:EDIT > REDO",
                                         "2:Separator",
                                         "5:EDIT > CUT",
                                         "5:EDIT > COPY",
                                         "5:EDIT > PASTE",
                                         "2:Separator",
                                         "5:EDIT > FIND",
                                         "5:EDIT > FIND NEXT",
                                         "5:EDIT > REPLACE",
                                         "4:EDIT > FIND IN FILES...",
                                         "5:EDIT > GO TO",
                                         "2:Separator",
                                         "5:EDIT > CLEAR",
                                         "5:EDIT > SELECT ALL",
                                         "3:Placeholder"};
    QTest::newRow("view") << 2 << QStringList{"4:VIEW > STATUS BAR", "3:Placeholder"};
    QTest::newRow("tools") << 3 << QStringList{"4:HELP > OPTION"};
    QTest::newRow("help") << 4 << QStringList{};
}

void TestMenuActionMan::catalogueItems()
{
    QFETCH(int, menu);
    QFETCH(QStringList, items);

    MenuActionMan registry;
    QCOMPARE(describe(registry.menuItems(menu)), items);
    for (MenuName *item : registry.menuItems(menu)) {
        if (item->kind() == DynamicSubMenu) {
            QVERIFY(dynamic_cast<SubMenuName *>(item));
            QVERIFY(static_cast<SubMenuName *>(item)->items().isEmpty());
        }
    }
}

void TestMenuActionMan::toolActionsStartDisabledShellActionsEnabled()
{
    MenuActionMan registry;
    int tools = 0;
    int shells = 0;
    for (int menu = 0; menu < MenuActionMan::MenuCount; ++menu) {
        for (MenuName *item : registry.menuItems(menu)) {
            if (item->kind() == ToolAction) {
                QAction *action = registry.findToolAction(item->name());
                QVERIFY2(!action->isEnabled(), qPrintable(item->name()));
                QVERIFY(action != registry.getDefaultAction());
                ++tools;
            } else if (item->kind() == ShellAction) {
                QAction *action = registry.findShellAction(item->name());
                QVERIFY2(action->isEnabled(), qPrintable(item->name()));
                QVERIFY(action != registry.getDefaultAction());
                ++shells;
            }
        }
    }
    QCOMPARE(tools, 16);
    QCOMPARE(shells, 9);
    QVERIFY(registry.findShellAction("VIEW > STATUS BAR")->isCheckable());
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
    QTest::newRow("find in files, untranslated text")
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
    const QStringList names{"SAVE",    "SAVE AS", "PAGE SETUP", "PRINT PREVIEW",
                            "PRINT",   "UNDO",    "REDO",       "CUT",
                            "COPY",    "PASTE",   "FIND",       "FIND NEXT",
                            "REPLACE", "GO TO",   "CLEAR",      "SELECT ALL"};
    QSet<QAction *> seen;
    for (const QString &name : names) {
        QAction *action = registry.findActionByName(name);
        QVERIFY2(action != registry.getDefaultAction(), qPrintable(name));
        QCOMPARE(action->text().toUpper(), name);
        seen.insert(action);
    }
    QCOMPARE(seen.size(), 16);
}

void TestMenuActionMan::objectNamesFollowTheText()
{
    MenuActionMan registry;
    QCOMPARE(registry.findShellAction("HELP > OPTION")->objectName(), QStringLiteral("Option..."));
    QCOMPARE(registry.findShellAction("HELP > OPTION")->text(), QStringLiteral("Option..."));
    QCOMPARE(registry.findShellAction("EDIT > FIND IN FILES...")->text(),
             QStringLiteral("Find in Files..."));
    QCOMPARE(registry.findToolAction("FILE > PAGE SETUP")->objectName(),
             QStringLiteral("Page Setup"));
    QCOMPARE(registry.getDefaultAction()->text(), QStringLiteral("Default Action"));
    QCOMPARE(registry.getDefaultAction()->parent(), &registry);
    QCOMPARE(registry.findToolAction("FILE > PRINT")->parent(), &registry);
}

void TestMenuActionMan::disableToolActionsDisablesEveryToolAction()
{
    MenuActionMan registry;
    QAction *save = registry.findToolAction("FILE > SAVE");
    QAction *paste = registry.findToolAction("EDIT > PASTE");
    save->setEnabled(true);
    paste->setEnabled(true);
    registry.disableToolActions();
    QVERIFY(!save->isEnabled());
    QVERIFY(!paste->isEnabled());
    QVERIFY(registry.findShellAction("FILE > NEW")->isEnabled());
}

void TestMenuActionMan::instanceIsOneRegistry()
{
    MenuActionMan *first = MenuActionMan::instance();
    QObject other;
    QCOMPARE(MenuActionMan::instance(&other), first);
    QCOMPARE(first->parent(), nullptr);
    QCOMPARE(first->metaObject()->className(), "MenuActionMan");
    QVERIFY(qobject_cast<MenuActionMan *>(static_cast<QObject *>(first)));
}

QTEST_MAIN(TestMenuActionMan)
#include "tst_menuactionman.moc"
