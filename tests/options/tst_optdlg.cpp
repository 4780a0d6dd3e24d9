#include "fakecontrol.h"
#include "fakeoptionpage.h"
#include "hubappinterface.h"
#include "optdlg.h"
#include "opttreemodel.h"

#include <QAbstractItemModelTester>
#include <QDialogButtonBox>
#include <QPluginLoader>
#include <QPushButton>
#include <QTest>
#include <QTreeView>

#include <optional>

namespace {

QStringList journal; // "<call> <page name>" for every call a page got

class CountingPage : public OptWidget
{
public:
    using OptWidget::OptWidget;
    void refreshPage() override { log("refresh "); }
    void applyPage() override { log("apply "); }
    void restoreDefaults() override { log("default "); }
    void log(const char *call) { journal.append(objectName().prepend(QLatin1String(call))); }
};

// "T:a,b" has the pages "T/a" and "T/b"; a name starting with '!' has no page
// widget. The names may be changed at any time. Owns the pages no dialog took.
class FakeOptionTool : public QWidget, public hubAppInterface
{
public:
    explicit FakeOptionTool(const QString &description)
        : names(description.section(u':', 1).split(u',', Qt::SkipEmptyParts))
        , m_title(description.section(u':', 0, 0))
    {
        for (const QString &name : std::as_const(names)) {
            if (!name.startsWith(u'!'))
                m_pages.insert(name, new CountingPage(this))
                    .value()
                    ->setObjectName(m_title + u'/' + name);
        }
    }

    QString getAppName() const override { return m_title; }
    QString getOptionTitle() const override { return m_title; }
    QWidget *createTool(QWidget *, int, QStringList, QString *, int) override { return nullptr; }
    QStringList getOptionPageNames() const override { return names; }
    OptWidget *getOptionPage(const QString &name) override { return m_pages.value(name); }

    QStringList names;

private:
    QString m_title;
    QMap<QString, QPointer<OptWidget>> m_pages;
};

// "Title[page,page];<null>[]", '*' after a node with more flags or roles than a label.
QString dump(const QAbstractItemModel &model, const QModelIndex &parent = {})
{
    QStringList rows;
    for (int r = 0; r < model.rowCount(parent); ++r) {
        const QModelIndex node = model.index(r, 0, parent);
        QString text = node.data().isValid() ? node.data().toString() : QStringLiteral("<null>");
        if (model.flags(node) != (Qt::ItemIsSelectable | Qt::ItemIsEnabled) ||
            node.data(Qt::EditRole).isValid())
            text += u'*';
        rows << (parent.isValid() ? text : text + u'[' + dump(model, node) + u']');
    }
    return rows.join(parent.isValid() ? u',' : u';');
}

void press(QDialogButtonBox *box, int role)
{
    for (QAbstractButton *button : box->buttons()) {
        if (box->buttonRole(button) == role)
            QTest::mouseClick(button, Qt::LeftButton);
    }
}

// Two tools with pages, a null entry, a tool without pages, a page without
// widget, then the extra tool if one is given.
struct Fixture
{
    explicit Fixture(hubAppInterface *extra = nullptr)
    {
        journal.clear();
        for (const char *entry : {"E:a,b", "", "B:", "O:c,!d"}) {
            owned << (*entry ? new FakeOptionTool(entry) : nullptr);
            tools << owned.last();
        }
        if (extra)
            tools << extra;
        dialog.emplace(&tools, nullptr, Qt::WindowFlags());
        dialog->show();
    }
    ~Fixture() { qDeleteAll(owned); }
    void select(int toolRow, int pageRow)
    {
        QModelIndex index = model()->index(toolRow, 0);
        dialog->findChild<QTreeView *>()->setCurrentIndex(
            pageRow < 0 ? index : model()->index(pageRow, 0, index));
    }
    QAbstractItemModel *model() const { return dialog->findChild<QTreeView *>()->model(); }
    QDialogButtonBox *buttons() const { return dialog->findChild<QDialogButtonBox *>(); }

    QList<FakeOptionTool *> owned;
    QList<hubAppInterface *> tools;
    std::optional<OptDlg> dialog;
};

} // namespace

class TestOptDlg : public QObject
{
    Q_OBJECT

private slots:
    void treeOfToolsAndPages();
    void selectThenAct_data();
    void selectThenAct();
    void drivesPagesOfLoadedPlugin();
};

void TestOptDlg::treeOfToolsAndPages()
{
    Fixture f;
    QAbstractItemModel &m = *f.model();
    QAbstractItemModelTester tester(&m, QAbstractItemModelTester::FailureReportingMode::QtTest);
    QCOMPARE(dump(m), "E[a,b];<null>[];B[];O[c,!d]");
    QCOMPARE(f.dialog->findChildren<OptWidget *>().size(), 4); // and the empty page
    f.dialog->refreshCurrentPage();
    QVERIFY(journal.isEmpty());

    // Nothing in the shell resets every page, but the model offers it.
    QTest::ignoreMessage(QtDebugMsg, "go to apply all");
    static_cast<OptTreeModel &>(m).setDefaultAll();
    QCOMPARE(journal.join(u' '), "default E/a default E/b default O/c");

    // Tools appended and page names changed later show without any signal.
    f.owned.first()->names = QStringList{"a", "x"};
    f.tools << f.tools.first();
    QCOMPARE(dump(m), "E[a,x];<null>[];B[];O[c,!d];E[a,x]");
    // A tool listed twice: its pages belong to its first row.
    QCOMPARE(m.parent(m.index(0, 0, m.index(4, 0))), m.index(0, 0));
}

void TestOptDlg::selectThenAct_data()
{
    QTest::addColumn<int>("toolRow");
    QTest::addColumn<int>("pageRow");      // -1 selects the tool node
    QTest::addColumn<int>("role");         // of the button pressed; none refreshes as on showing
    QTest::addColumn<QString>("expected"); // the pages' journal, then the dialog's result

    const int ok = QDialogButtonBox::AcceptRole, apply = QDialogButtonBox::ApplyRole;
    const int cancel = QDialogButtonBox::RejectRole, restore = QDialogButtonBox::ActionRole;
    const int reopen = QDialogButtonBox::InvalidRole;
    QTest::newRow("tool node: first page") << 0 << -1 << reopen << "refresh E/a refresh E/a";
    QTest::newRow("page node: its page") << 0 << 1 << reopen << "refresh E/b refresh E/b";
    QTest::newRow("null entry: empty page") << 1 << -1 << reopen << "";
    QTest::newRow("tool without pages: empty page") << 2 << -1 << reopen << "";
    QTest::newRow("page without widget: empty page") << 3 << 1 << reopen << "";
    QTest::newRow("OK applies all pages")
        << 0 << 1 << ok << "refresh E/b apply E/a apply E/b apply O/c closed 1";
    QTest::newRow("Apply: page on show") << 0 << 0 << apply << "refresh E/a apply E/a";
    QTest::newRow("Default: page on show") << 0 << 1 << restore << "refresh E/b default E/b";
    QTest::newRow("Cancel applies nothing") << 0 << 0 << cancel << "refresh E/a closed 0";
}

void TestOptDlg::selectThenAct()
{
    QFETCH(int, toolRow);
    QFETCH(int, pageRow);
    QFETCH(int, role);
    QFETCH(QString, expected);
    Fixture f;
    f.select(3, 0); // start elsewhere, so every row is a real change
    journal.clear();

    const QString logged = QStringLiteral("(0, 0) is changed to (%1, 0)");
    QTest::ignoreMessage(QtDebugMsg, qPrintable(logged.arg(pageRow < 0 ? toolRow : pageRow)));
    f.select(toolRow, pageRow);
    if (role == QDialogButtonBox::AcceptRole)
        QTest::ignoreMessage(QtDebugMsg, "go to apply all");
    if (role == QDialogButtonBox::InvalidRole)
        f.dialog->refreshCurrentPage();
    press(f.buttons(), role);

    if (!f.dialog->isVisible())
        journal << QStringLiteral("closed %1").arg(f.dialog->result());
    QCOMPARE(journal.join(u' '), expected);
}

// The pages come from the plug-in's library: the dialog must still take them for pages.
void TestOptDlg::drivesPagesOfLoadedPlugin()
{
    FakeControl &fake = *FakeControl::instance();
    fake.reset();
    fake.pageNames = QStringList{"Editor", "Files"};
    QPluginLoader loader(QCoreApplication::applicationDirPath() + "/toolapps/libsedapp.so");
    auto *tool = qobject_cast<hubAppInterface *>(loader.instance());
    QVERIFY2(tool, qPrintable(loader.errorString()));
    Fixture f(tool);
    f.select(4, 1);
    press(f.buttons(), QDialogButtonBox::ApplyRole);
    press(f.buttons(), QDialogButtonBox::AcceptRole);

    const FakeOptionPage *editor = fake.page("Editor");
    const FakeOptionPage *files = fake.page("Files");
    QVERIFY(editor && files);
    // Files refreshed on show, applied by Apply and by OK; Editor applied by OK only.
    QCOMPARE((QList<int>{files->refreshCount, files->applyCount, editor->applyCount}),
             (QList<int>{1, 2, 1}));
}

QTEST_MAIN(TestOptDlg)
#include "tst_optdlg.moc"
