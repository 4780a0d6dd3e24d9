#include "opttreemodel.h"
#include "toolset.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QTest>

namespace {

// "Title[page,page];<null>[]" for a tool with two pages and a null entry. A
// node that is more than selectable and enabled, answers another role than
// the display role, or is a page with rows of its own, is marked with '*'.
QString dump(const QAbstractItemModel &model, const QModelIndex &parent = {})
{
    QStringList rows;
    for (int r = 0; r < model.rowCount(parent); ++r) {
        const QModelIndex node = model.index(r, 0, parent);
        const QVariant title = node.data();
        QString text = title.isValid() ? title.toString() : QStringLiteral("<null>");
        bool odd = model.flags(node) != (Qt::ItemIsSelectable | Qt::ItemIsEnabled);
        for (int role : {Qt::DecorationRole, Qt::EditRole, Qt::ToolTipRole})
            odd = odd || node.data(role).isValid();
        if (parent.isValid())
            odd = odd || model.rowCount(node) != 0;
        else
            text += u'[' + dump(model, node) + u']';
        rows << (odd ? text + u'*' : text);
    }
    return rows.join(parent.isValid() ? u',' : u';');
}

} // namespace

class TestOptTreeModel : public QObject
{
    Q_OBJECT

private slots:
    void tree_data();
    void tree();
    void pageParentIsFirstOccurrence();
    void changesSeenWithoutSignals();
    void setDefaultAllWalksTheTree();
};

void TestOptTreeModel::tree_data()
{
    QTest::addColumn<QStringList>("tools");
    QTest::addColumn<QString>("expected");

    QTest::newRow("no tools") << QStringList{} << "";
    QTest::newRow("one tool, two pages")
        << QStringList{"Editor:Font,Files"} << "Editor[Font,Files]";
    QTest::newRow("tool without pages") << QStringList{"Bare:"} << "Bare[]";
    QTest::newRow("null entries tolerated")
        << QStringList{"", "Editor:Font", ""} << "<null>[];Editor[Font];<null>[]";
    QTest::newRow("page without widget still listed") << QStringList{"T:a,!b"} << "T[a,!b]";
}

void TestOptTreeModel::tree()
{
    QFETCH(QStringList, tools);
    QFETCH(QString, expected);
    ToolSet set(tools);
    OptTreeModel model(&set.list, nullptr);
    QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
    QCOMPARE(dump(model), expected);
}

void TestOptTreeModel::pageParentIsFirstOccurrence()
{
    ToolSet set({"Other:x", "Editor:Font"});
    set.list << set.list.at(1);
    OptTreeModel model(&set.list, nullptr);
    QCOMPARE(model.parent(model.index(0, 0, model.index(2, 0))), model.index(1, 0));
}

// The shell appends the plug-in's interface after the model exists, and tools
// may change their page names; the view must see both on its next look.
void TestOptTreeModel::changesSeenWithoutSignals()
{
    ToolSet set({"Editor:Font"});
    ToolSet later({"Files:Encoding"});
    OptTreeModel model(&set.list, nullptr);
    QSignalSpy reset(&model, &QAbstractItemModel::modelReset);
    QSignalSpy inserted(&model, &QAbstractItemModel::rowsInserted);
    QCOMPARE(dump(model), QStringLiteral("Editor[Font]"));

    set.owned.front()->names = QStringList{"Font", "Colours"};
    set.list << later.list.at(0);

    QCOMPARE(dump(model), QStringLiteral("Editor[Font,Colours];Files[Encoding]"));
    QCOMPARE(reset.count() + inserted.count(), 0);
}

// Nothing in the shell resets every page, but the model offers it; applyAll
// walks the same way and is driven through the dialog's OK button.
void TestOptTreeModel::setDefaultAllWalksTheTree()
{
    ToolSet set({"A:one,!none,two", "", "B:", "C:three"});
    OptTreeModel model(&set.list, nullptr);
    QTest::ignoreMessage(QtDebugMsg, "go to apply all"); // fails the test if not logged
    model.setDefaultAll();
    QCOMPARE(set.journal, (QStringList{"default A/one", "default A/two", "default C/three"}));
}

QTEST_MAIN(TestOptTreeModel)
#include "tst_opttreemodel.moc"
