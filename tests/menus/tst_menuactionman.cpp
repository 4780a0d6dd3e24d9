#include "menuactionman.h"

#include <QAction>
#include <QTest>

namespace {

enum Lookup { Shell, Tool, ByName, Menu = 10 }; // Menu + n: getAction(key, n)

QStringList split(const char *items)
{
    return QString::fromLatin1(items).split(u'|', Qt::SkipEmptyParts);
}

QStringList describe(const QList<MenuName *> &items)
{
    QStringList lines;
    for (const MenuName *item : items)
        lines.append(QString::number(item->kind()) + u':' + item->name());
    return lines;
}

QList<QStringList> allItems(const MenuActionMan &registry)
{
    QList<QStringList> all;
    for (int menu = 0; menu < MenuActionMan::MenuCount; ++menu)
        all.append(describe(registry.menuItems(menu)));
    return all;
}

} // namespace

class TestMenuActionMan : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void lookUpByKey_data();
    void lookUpByKey();
    void registeringAndConnecting();
    void menuIndexOutsideRangeIsIgnored();
    void catalogue();
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
    row("dots kept", Shell, "edit > find in files...", "Find in Files...");
    row("tools menu keys use Help", Shell, "help > option", "Option...");
    row("by name, two words", ByName, "select all", "Select All");
    row("shell actions not by name", ByName, "SAVE ALL", "");
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
    QAction *action = how == Shell    ? registry.findShellAction(key)
                      : how == Tool   ? registry.findToolAction(key)
                      : how == ByName ? registry.findActionByName(key)
                                      : registry.getAction(key.toLatin1().constData(), how - Menu);
    QCOMPARE(action, expected.isEmpty() ? registry.getDefaultAction()
                                        : registry.findChild<QAction *>(expected));
}

void TestMenuActionMan::registeringAndConnecting()
{
    MenuActionMan registry;
    SubMenuName *mixed = registry.addSubMenu("Tools", 0);
    registry.registerAction("Run", new QAction("Run it", &registry), ShellAction, 0, mixed);
    SubMenuName *upper = registry.addSubMenu("BUILD", 0);
    auto *found = new QAction(QStringLiteral("Run it"), &registry);
    registry.registerAction("MAKE", found, ShellAction, 0, upper);
    QCOMPARE(describe(mixed->items()), QStringList{"4:Tools > Run"});
    QCOMPARE(registry.menuItems(0).mid(registry.menuItems(0).size() - 2),
             QList<MenuName *>({mixed, upper}));
    QCOMPARE(registry.findShellAction("Tools > Run"), registry.getDefaultAction());
    QCOMPARE(registry.findShellAction("BUILD > MAKE"), found);
    // Registering a name twice replaces the entry and lists the item twice.
    const qsizetype before = registry.menuItems(1).size();
    auto *second = new QAction(QStringLiteral("Sort Lines"), &registry);
    registry.registerAction("Sort", new QAction(QStringLiteral("Sort"), &registry), ToolAction, 1);
    registry.registerAction("Sort", second, ToolAction, 1);
    QCOMPARE(registry.findToolAction("EDIT > SORT"), second);
    QCOMPARE(registry.findActionByName("sort"), second);
    QCOMPARE(describe(registry.menuItems(1)).mid(before), split("5:EDIT > SORT|5:EDIT > SORT"));
    QAction receiver;
    receiver.setCheckable(true);
    QAction *option = registry.connectAction(3, "Option", &receiver, SLOT(toggle()));
    QCOMPARE(option, registry.findShellAction("HELP > OPTION"));
    option->trigger();
    QVERIFY(receiver.isChecked());

    QCOMPARE(registry.connectAction(1, "Exit", &receiver, SLOT(toggle())), nullptr);
    // An unknown name leaves a null by-name entry: found as null, not as the stand-by.
    QCOMPARE(registry.getAction("Nothing", 0), registry.getDefaultAction());
    QCOMPARE(registry.findActionByName("NOTHING"), nullptr);
    QCOMPARE(registry.connectAction(0, "Nothing", &receiver, SLOT(toggle())), nullptr);
    registry.getDefaultAction()->trigger();
    QVERIFY(receiver.isChecked());
}

void TestMenuActionMan::menuIndexOutsideRangeIsIgnored()
{
    MenuActionMan registry;
    QList<QStringList> before = allItems(registry);
    QVERIFY(registry.menuItems(-1).isEmpty());
    registry.addSeparator(7);
    registry.addSeparator(5);
    registry.addPlaceholder(-2);
    QCOMPARE(allItems(registry), before);
    QVERIFY(registry.menuItems(7).isEmpty());
    registry.addSeparator(4);
    before[4].append("2:Separator");
    QCOMPARE(allItems(registry), before);
}

void TestMenuActionMan::catalogue()
{
    MenuActionMan registry;
    // Each action item is filed under its key, a tool action also by its bare
    // name; tool actions start disabled and only they are disabled later.
    QHash<QAction *, bool> isTool;
    for (int menu = 0; menu < MenuActionMan::MenuCount; ++menu) {
        for (MenuName *item : registry.menuItems(menu)) {
            const QString &key = item->name();
            if (item->kind() == ToolAction) {
                isTool.insert(registry.findToolAction(key), true);
                QCOMPARE(registry.findActionByName(key.section(" > ", 1)),
                         registry.findToolAction(key));
            } else if (item->kind() == ShellAction) {
                isTool.insert(registry.findShellAction(key), false);
            }
        }
    }
    QCOMPARE(isTool.size(), 25);
    QVERIFY(!isTool.contains(registry.getDefaultAction()));
    for (int pass = 0; pass < 2; ++pass) {
        for (auto it = isTool.cbegin(); it != isTool.cend(); ++it) {
            QVERIFY2(it.key()->isEnabled() != it.value(), qPrintable(it.key()->text()));
            it.key()->setEnabled(true);
        }
        registry.disableToolActions();
    }
}

QTEST_MAIN(TestMenuActionMan)
#include "tst_menuactionman.moc"
