#include "fakecontrol.h"
#include "fakeoptionpage.h"
#include "hubappinterface.h"
#include "optdlg.h"
#include "opttreemodel.h"

#include <QAbstractItemModelTester>
#include <QDialogButtonBox>
#include <QPluginLoader>
#include <QPushButton>
#include <QStackedWidget>
#include <QTest>
#include <QTreeView>

#include <optional>

namespace {

// Logs the dialog's calls as "<call> <name>" to a journal shared by all pages.
class CountingPage : public OptWidget
{
public:
    CountingPage(const QString &name, QStringList *journal, QWidget *owner)
        : OptWidget(owner)
        , m_journal(journal)
    {
        setObjectName(name);
    }
    void refreshPage() override { log("refresh "); }
    void applyPage() override { log("apply "); }
    void restoreDefaults() override { log("default "); }

private:
    void log(const char *call) { m_journal->append(objectName().prepend(QLatin1String(call))); }
    QStringList *m_journal;
};

// "T:a,b" has the pages "T/a" and "T/b"; a name starting with '!' has no page
// widget. The names may be changed at any time. Owns the pages no dialog took.
class FakeOptionTool : public QWidget, public hubAppInterface
{
public:
    FakeOptionTool(const QString &description, QStringList *journal)
        : names(description.section(u':', 1).split(u',', Qt::SkipEmptyParts))
        , m_title(description.section(u':', 0, 0))
    {
        for (const QString &name : std::as_const(names)) {
            if (!name.startsWith(u'!'))
                m_pages.insert(name, new CountingPage(m_title + u'/' + name, journal, this));
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

// "Title[page,page];<null>[]"; '*' marks a node that is more than selectable
// and enabled or answers another role than display.
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

// Two tools with pages, a null entry, a tool without pages, and a page without widget.
struct Fixture
{
    Fixture()
    {
        for (const char *entry : {"E:a,b", "", "B:", "O:c,!d"}) {
            owned << (*entry ? new FakeOptionTool(entry, &journal) : nullptr);
            tools << owned.last();
        }
        dialog.emplace(&tools, nullptr, Qt::WindowFlags());
        dialog->show();
    }
    ~Fixture() { qDeleteAll(owned); }
    void select(int toolRow, int pageRow)
    {
        QModelIndex index = model()->index(toolRow, 0);
        tree()->setCurrentIndex(pageRow < 0 ? index : model()->index(pageRow, 0, index));
    }
    QTreeView *tree() const { return dialog->findChild<QTreeView *>(); }
    QAbstractItemModel *model() const { return tree()->model(); }

    QStringList journal;
    QList<FakeOptionTool *> owned;
    QList<hubAppInterface *> tools;
    std::optional<OptDlg> dialog;
};

} // namespace

class TestOptDlg : public QObject
{
    Q_OBJECT

private slots:
    void startsOnTheEmptyPage();
    void selectThenAct_data();
    void selectThenAct();
    void modelSeesChangesWithoutSignals();
    void drivesPagesOfLoadedPlugin();
};

void TestOptDlg::startsOnTheEmptyPage()
{
    Fixture f;
    QAbstractItemModelTester tester(f.model(),
                                    QAbstractItemModelTester::FailureReportingMode::QtTest);
    QCOMPARE(dump(*f.model()), "E[a,b];<null>[];B[];O[c,!d]");
    QCOMPARE(f.dialog->findChild<QStackedWidget *>()->count(), 4); // the empty page first
    f.dialog->refreshCurrentPage();
    QVERIFY(f.journal.isEmpty());

    // Nothing in the shell resets every page, but the model offers it.
    QTest::ignoreMessage(QtDebugMsg, "go to apply all");
    static_cast<OptTreeModel *>(f.model())->setDefaultAll();
    QCOMPARE(f.journal.join(u' '), "default E/a default E/b default O/c");
}

void TestOptDlg::selectThenAct_data()
{
    QTest::addColumn<int>("toolRow");
    QTest::addColumn<int>("pageRow"); // -1 selects the tool node
    QTest::addColumn<int>("role");    // of the button pressed; none refreshes as on showing
    QTest::addColumn<QString>("journal");

    const int ok = QDialogButtonBox::AcceptRole, apply = QDialogButtonBox::ApplyRole;
    const int cancel = QDialogButtonBox::RejectRole, restore = QDialogButtonBox::ActionRole;
    const int reopen = QDialogButtonBox::InvalidRole;
    QTest::newRow("tool node: first page") << 0 << -1 << reopen << "refresh E/a refresh E/a";
    QTest::newRow("page node: its page") << 0 << 1 << reopen << "refresh E/b refresh E/b";
    QTest::newRow("null entry: empty page") << 1 << -1 << reopen << "";
    QTest::newRow("tool without pages: empty page") << 2 << -1 << reopen << "";
    QTest::newRow("page without widget: empty page") << 3 << 1 << reopen << "";
    QTest::newRow("OK applies all pages")
        << 0 << 1 << ok << "refresh E/b apply E/a apply E/b apply O/c";
    QTest::newRow("Apply: page on show") << 0 << 0 << apply << "refresh E/a apply E/a";
    QTest::newRow("Default: page on show") << 0 << 1 << restore << "refresh E/b default E/b";
    QTest::newRow("Cancel applies nothing") << 0 << 0 << cancel << "refresh E/a";
}

void TestOptDlg::selectThenAct()
{
    QFETCH(int, toolRow);
    QFETCH(int, pageRow);
    QFETCH(int, role);
    QFETCH(QString, journal);
    Fixture f;
    f.select(3, 0); // start elsewhere, so every row is a real change
    f.journal.clear();

    QTest::ignoreMessage(
        QtDebugMsg,
        qPrintable(
            QStringLiteral("(0, 0) is changed to (%1, 0)").arg(pageRow >= 0 ? pageRow : toolRow)));
    f.select(toolRow, pageRow);
    if (role == QDialogButtonBox::AcceptRole)
        QTest::ignoreMessage(QtDebugMsg, "go to apply all");
    if (role == QDialogButtonBox::InvalidRole)
        f.dialog->refreshCurrentPage();
    press(f.dialog->findChild<QDialogButtonBox *>(), role);

    QCOMPARE(f.journal.join(u' '), journal);
    const bool closes =
        role == QDialogButtonBox::AcceptRole || role == QDialogButtonBox::RejectRole;
    QCOMPARE(f.dialog->isVisible(), !closes);
    if (closes)
        QCOMPARE(f.dialog->result(), role == QDialogButtonBox::AcceptRole ? 1 : 0);
}

// The shell appends the plug-in's interface after the model exists, and tools
// may change their page names; the view must see both on its next look.
void TestOptDlg::modelSeesChangesWithoutSignals()
{
    Fixture f;
    f.owned.first()->names = QStringList{"a", "x"};
    f.tools << f.tools.first();
    QCOMPARE(dump(*f.model()), "E[a,x];<null>[];B[];O[c,!d];E[a,x]");
    // A tool listed twice: its pages belong to its first row.
    QCOMPARE(f.model()->parent(f.model()->index(0, 0, f.model()->index(4, 0))),
             f.model()->index(0, 0));
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
    QList<hubAppInterface *> tools{nullptr, tool};
    OptDlg dialog(&tools, nullptr, {});
    dialog.show();
    auto *tree = dialog.findChild<QTreeView *>();
    tree->setCurrentIndex(tree->model()->index(1, 0, tree->model()->index(1, 0)));
    press(dialog.findChild<QDialogButtonBox *>(), QDialogButtonBox::ApplyRole);
    press(dialog.findChild<QDialogButtonBox *>(), QDialogButtonBox::AcceptRole);

    const FakeOptionPage *editor = fake.page("Editor");
    const FakeOptionPage *files = fake.page("Files");
    QVERIFY(editor && files);
    // Files refreshed on show, applied by Apply and by OK; Editor applied by OK only.
    QCOMPARE((QList<int>{files->refreshCount, files->applyCount, editor->applyCount}),
             (QList<int>{1, 2, 1}));
}

QTEST_MAIN(TestOptDlg)
#include "tst_optdlg.moc"
