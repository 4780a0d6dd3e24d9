#include "baseusrsettings.h"
#include "fakecontrol.h"
#include "mainwindow.h"

#include <QAction>
#include <QMenu>
#include <QTest>

namespace {

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

// The list of recently opened files: its store, its order and its menu.
class TestRecentFiles : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        FakeControl::instance()->reset();
        BaseUsrSettings("SRC_EDITOR").clear();
    }
    void addition_data();
    void addition();
    void subMenuShowsFifteenNumberedEntries();
    void choosingAnEntryOpensIt_data();
    void choosingAnEntryOpensIt();
};

void TestRecentFiles::addition_data()
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
void TestRecentFiles::addition()
{
    QFETCH(QStringList, stored);
    QFETCH(QString, path);
    QFETCH(QStringList, expected);
    MainWindow adding({});
    BaseUsrSettings("SRC_EDITOR").setValue(key, stored);
    MainWindow window({});
    QCOMPARE(window.recentFileList(), stored);
    adding.onFileSaved(path);
    QCOMPARE(storedList(), expected);
    QCOMPARE(adding.recentFileList(), expected);
}

void TestRecentFiles::subMenuShowsFifteenNumberedEntries()
{
    MainWindow window({});
    window.updateMenu();
    QVERIFY(window.menu(0)->findChildren<QMenu *>().isEmpty()); // none while the list is empty
    BaseUsrSettings("SRC_EDITOR").setValue(key, numbered(20));
    MainWindow loaded({});
    loaded.updateMenu();
    QList<QAction *> shown = shownEntries(loaded);
    QCOMPARE(shown.size(), 15);
    QCOMPARE(shown[9]->text(), QStringLiteral("&10 /p10"));
    QCOMPARE(shown.last()->data().toString(), QStringLiteral("/p15"));
    loaded.onFileSaved("/p10");
    loaded.updateMenu();
    shown = shownEntries(loaded);
    QCOMPARE(shown[0]->text(), QStringLiteral("&1 /p10"));
    QCOMPARE(shown[1]->text(), QStringLiteral("&2 /p1"));
}

void TestRecentFiles::choosingAnEntryOpensIt_data()
{
    QTest::addColumn<bool>("opens");
    QTest::addColumn<QStringList>("stored"); // after choosing the third entry
    QTest::newRow("opened: to the front") << true << QStringList{"/c", "/a", "/b"};
    QTest::newRow("failed: unchanged") << false << QStringList{"/a", "/b", "/c"};
}

void TestRecentFiles::choosingAnEntryOpensIt()
{
    QFETCH(bool, opens);
    QFETCH(QStringList, stored);
    BaseUsrSettings("SRC_EDITOR").setValue(key, QStringList{"/a", "/b", "/c"});
    FakeControl::instance()->returnNull = !opens;
    MainWindow window({});
    window.updateMenu();
    shownEntries(window).value(2)->trigger();
    QCOMPARE(FakeControl::instance()->createCalls, QList<QStringList>{{"/c"}});
    QCOMPARE(window.tools().size(), opens ? 1 : 0);
    QCOMPARE(storedList(), stored);
}

QTEST_MAIN(TestRecentFiles)
#include "tst_recentfiles.moc"
