#include "fakeoptiontool.h"
#include "opttreemodel.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QStackedWidget>
#include <QTest>

#include <memory>
#include <vector>

namespace {

// One tool per entry, "Title:page1,page2"; an empty entry is a null interface.
// A page name starting with '!' has no page widget.
struct ToolSet
{
    explicit ToolSet(const QStringList &description)
    {
        for (const QString &entry : description) {
            if (entry.isEmpty()) {
                list << nullptr;
                continue;
            }
            const QString title = entry.section(u':', 0, 0);
            const QStringList names = entry.section(u':', 1).split(u',', Qt::SkipEmptyParts);
            QStringList pageless = names.filter(QStringLiteral("!"));
            owned.push_back(std::make_unique<FakeOptionTool>(title, names, &journal, pageless));
            list << owned.back().get();
        }
    }
    FakeOptionTool *tool(int i) const { return static_cast<FakeOptionTool *>(list.at(i)); }

    QStringList journal;
    std::vector<std::unique_ptr<FakeOptionTool>> owned;
    QList<hubAppInterface *> list;
};

QString dump(const QAbstractItemModel &model)
{
    QStringList tools;
    for (int r = 0; r < model.rowCount(); ++r) {
        const QModelIndex tool = model.index(r, 0);
        QStringList pages;
        for (int p = 0; p < model.rowCount(tool); ++p)
            pages << model.index(p, 0, tool).data().toString();
        const QVariant title = tool.data();
        tools << (title.isValid() ? title.toString() : QStringLiteral("<null>")) + '[' +
                     pages.join(u',') + ']';
    }
    return tools.join(u';');
}

} // namespace

class TestOptTreeModel : public QObject
{
    Q_OBJECT

private slots:
    void tree_data();
    void tree();
    void onlyDisplayRoleAndFixedFlags();
    void pageParentIsFirstOccurrence();
    void changesSeenWithoutSignals();
    void wholeTreeWalks_data();
    void wholeTreeWalks();
    void pageForIndex();
    void addPagesToAppendsInTreeOrder();
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

void TestOptTreeModel::onlyDisplayRoleAndFixedFlags()
{
    ToolSet set({"Editor:Font", ""});
    OptTreeModel model(&set.list, nullptr);
    const QModelIndex tool = model.index(0, 0);
    const QModelIndexList nodes{tool, model.index(0, 0, tool), model.index(1, 0)};
    for (const QModelIndex &node : nodes) {
        QVERIFY(node.isValid());
        QCOMPARE(int(model.flags(node)), 33);
        for (int role : {Qt::DecorationRole, Qt::EditRole, Qt::ToolTipRole, Qt::UserRole})
            QVERIFY2(!model.data(node, role).isValid(), qPrintable(QString::number(role)));
    }
    QCOMPARE(model.rowCount(nodes.at(1)), 0);
}

void TestOptTreeModel::pageParentIsFirstOccurrence()
{
    ToolSet set({"Other:x", "Editor:Font"});
    set.list << set.list.at(1);
    OptTreeModel model(&set.list, nullptr);
    const QModelIndex page = model.index(0, 0, model.index(2, 0));
    QCOMPARE(page.data().toString(), QStringLiteral("Font"));
    QCOMPARE(model.parent(page), model.index(1, 0));
}

void TestOptTreeModel::changesSeenWithoutSignals()
{
    ToolSet set({"Editor:Font"});
    OptTreeModel model(&set.list, nullptr);
    QSignalSpy reset(&model, &QAbstractItemModel::modelReset);
    QSignalSpy inserted(&model, &QAbstractItemModel::rowsInserted);
    QCOMPARE(dump(model), QStringLiteral("Editor[Font]"));

    set.tool(0)->names = QStringList{"Font", "Colours"};
    ToolSet later({"Files:Encoding"});
    set.list << later.list.at(0);

    QCOMPARE(dump(model), QStringLiteral("Editor[Font,Colours];Files[Encoding]"));
    QCOMPARE(reset.count() + inserted.count(), 0);
}

void TestOptTreeModel::wholeTreeWalks_data()
{
    QTest::addColumn<bool>("apply");
    QTest::newRow("applyAll") << true;
    QTest::newRow("setDefaultAll") << false;
}

void TestOptTreeModel::wholeTreeWalks()
{
    QFETCH(bool, apply);
    ToolSet set({"A:one,!none,two", "", "B:", "C:three"});
    OptTreeModel model(&set.list, nullptr);
    QTest::ignoreMessage(QtDebugMsg, "go to apply all"); // fails the test if not logged
    apply ? model.applyAll() : model.setDefaultAll();

    const QString verb = apply ? QStringLiteral("apply ") : QStringLiteral("default ");
    QCOMPARE(set.journal, (QStringList{verb + "A/one", verb + "A/two", verb + "C/three"}));
}

void TestOptTreeModel::pageForIndex()
{
    ToolSet set({"A:one,two", "", "B:", "C:!none"});
    OptTreeModel model(&set.list, nullptr);
    const QModelIndex a = model.index(0, 0);
    QCOMPARE(model.pageForIndex(a), set.tool(0)->page("one"));
    QCOMPARE(model.pageForIndex(model.index(1, 0, a)), set.tool(0)->page("two"));
    for (int row : {1, 2, 3}) // null entry, no pages, page without widget
        QCOMPARE(model.pageForIndex(model.index(row, 0)), nullptr);
}

void TestOptTreeModel::addPagesToAppendsInTreeOrder()
{
    ToolSet set({"A:one,!none,two", "", "B:three"});
    OptTreeModel model(&set.list, nullptr);
    QStackedWidget stack;
    auto *existing = new QWidget;
    stack.addWidget(existing);

    model.addPagesTo(&stack);

    const QList<QWidget *> expected{existing, set.tool(0)->page("one"), set.tool(0)->page("two"),
                                    set.tool(2)->page("three")};
    QList<QWidget *> widgets;
    for (int i = 0; i < stack.count(); ++i)
        widgets << stack.widget(i);
    QCOMPARE(widgets, expected);
}

QTEST_MAIN(TestOptTreeModel)
#include "tst_opttreemodel.moc"
