#include "baseusrsettings.h"
#include "fakecontrol.h"
#include "mainwindow.h"

#include <QAction>
#include <QMenu>
#include <QTest>

namespace {

QStringList storedList()
{
    return BaseUsrSettings("SRC_EDITOR").value("Recent_Files/RecentFileList").toStringList();
}

void store(const QStringList &list)
{
    BaseUsrSettings("SRC_EDITOR").setValue("Recent_Files/RecentFileList", list);
}

QStringList numbered(const QString &prefix, int count)
{
    QStringList list;
    for (int i = 1; i <= count; ++i)
        list.append(prefix + QString::number(i));
    return list;
}

QList<QMenu *> recentMenus(const MainWindow &window)
{
    QList<QMenu *> menus;
    for (QMenu *menu : window.menu(0)->findChildren<QMenu *>(Qt::FindDirectChildrenOnly)) {
        if (menu->title() == QLatin1String("Recent Files"))
            menus.append(menu);
    }
    return menus;
}

QList<QAction *> visibleActions(QMenu *menu)
{
    QList<QAction *> visible;
    for (QAction *action : menu->actions()) {
        if (action->isVisible())
            visible.append(action);
    }
    return visible;
}

} // namespace

// The list of recently opened files: its store, its order and its menu.
class TestRecentFiles : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void addition_data();
    void addition();
    void storedListIsTheBaseOfEachChange();
    void subMenuShowsFifteenNumberedEntries();
    void choosingAnEntryOpensIt_data();
    void choosingAnEntryOpensIt();
};

void TestRecentFiles::init()
{
    FakeControl::instance()->reset();
    BaseUsrSettings("SRC_EDITOR").clear();
}

void TestRecentFiles::addition_data()
{
    QTest::addColumn<QStringList>("stored");
    QTest::addColumn<QString>("path");
    QTest::addColumn<QStringList>("expected");
    const QStringList ten = numbered("/p", 10);
    QTest::newRow("first entry") << QStringList() << "/a" << QStringList{"/a"};
    QTest::newRow("most recent first") << QStringList{"/a"} << "/b" << QStringList{"/b", "/a"};
    QTest::newRow("position 7 moves to the front")
        << ten << "/p7" << (QStringList{"/p7"} + ten.mid(0, 6) + ten.mid(7));
    QTest::newRow("letter case makes another entry")
        << QStringList{"/a.txt"} << "/A.txt" << QStringList{"/A.txt", "/a.txt"};
    QTest::newRow("exact strings, no normalising")
        << QStringList{"/x/../a"} << "/a" << QStringList{"/a", "/x/../a"};
    QTest::newRow("every duplicate removed")
        << QStringList{"/a", "/b", "/a"} << "/a" << QStringList{"/a", "/b"};
    QTest::newRow("long stored list is cut to 15")
        << numbered("/p", 20) << "/new" << (QStringList{"/new"} + numbered("/p", 14));
}

void TestRecentFiles::addition()
{
    QFETCH(QStringList, stored);
    QFETCH(QString, path);
    QFETCH(QStringList, expected);

    store(stored);
    MainWindow window({});
    QCOMPARE(window.recentFileList(), stored);
    window.onFileSaved(path);
    QCOMPARE(storedList(), expected);
    QCOMPARE(window.recentFileList(), expected);
}

void TestRecentFiles::storedListIsTheBaseOfEachChange()
{
    MainWindow first({});
    MainWindow second({});
    first.onFileSaved("/a");
    second.onFileSaved("/b");
    first.onFileSaved("/c");
    QCOMPARE(storedList(), QStringList({"/c", "/b", "/a"}));
}

void TestRecentFiles::subMenuShowsFifteenNumberedEntries()
{
    MainWindow window({});
    window.updateMenu();
    QVERIFY(recentMenus(window).isEmpty()); // none while the list is empty
    store(numbered("/p", 20));
    MainWindow loaded({});
    QCOMPARE(loaded.recentFileList(), numbered("/p", 20));
    loaded.updateMenu();
    loaded.updateMenu();
    QCOMPARE(recentMenus(loaded).size(), 1);
    QList<QAction *> visible = visibleActions(recentMenus(loaded).first());
    QCOMPARE(visible.size(), 15);
    QCOMPARE(visible[9]->text(), QStringLiteral("&10 /p10"));
    QCOMPARE(visible.last()->data().toString(), QStringLiteral("/p15"));
    loaded.onFileSaved("/p10");
    loaded.updateMenu();
    visible = visibleActions(recentMenus(loaded).value(0));
    QCOMPARE(visible[0]->text(), QStringLiteral("&1 /p10"));
    QCOMPARE(visible[1]->text(), QStringLiteral("&2 /p1"));
}

void TestRecentFiles::choosingAnEntryOpensIt_data()
{
    QTest::addColumn<bool>("opens");
    QTest::addColumn<QStringList>("stored"); // after choosing the third entry
    QTest::newRow("opened: moves to the front") << true << QStringList{"/c", "/a", "/b"};
    QTest::newRow("failed: list unchanged") << false << QStringList{"/a", "/b", "/c"};
}

void TestRecentFiles::choosingAnEntryOpensIt()
{
    QFETCH(bool, opens);
    QFETCH(QStringList, stored);
    store({"/a", "/b", "/c"});
    FakeControl::instance()->returnNull = !opens;
    MainWindow window({});
    window.updateMenu();
    QAction *third = recentMenus(window).value(0)->actions().value(2);
    QVERIFY(third);
    third->trigger();
    QCOMPARE(FakeControl::instance()->createCalls, QList<QStringList>{{"/c"}});
    QCOMPARE(window.tools().size(), opens ? 1 : 0);
    QCOMPARE(storedList(), stored);
}

QTEST_MAIN(TestRecentFiles)
#include "tst_recentfiles.moc"
