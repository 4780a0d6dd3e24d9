#include "fakecontrol.h"
#include "fakeoptionpage.h"
#include "optdlg.h"
#include "toolset.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QPluginLoader>
#include <QPushButton>
#include <QStackedWidget>
#include <QTest>
#include <QTreeView>

namespace {

// What a row of the table does after selecting: press a standard button,
// press "&Default", or refresh the page on show as each opening does.
enum Action { Default = QDialogButtonBox::NoButton, Reopen = -1 };

// Two tools with pages, a null entry, a tool without pages, and a page without widget.
struct Fixture
{
    Fixture() { dialog.show(); }
    void select(int toolRow, int pageRow)
    {
        QModelIndex index = tree->model()->index(toolRow, 0);
        tree->setCurrentIndex(pageRow < 0 ? index : tree->model()->index(pageRow, 0, index));
    }
    QAbstractButton *button(int action) const
    {
        if (action != Default)
            return buttons->button(QDialogButtonBox::StandardButton(action));
        for (QAbstractButton *button : buttons->buttons()) {
            if (button->text() == QStringLiteral("&Default"))
                return button;
        }
        return nullptr;
    }

    ToolSet set{QStringList{"Editor:Font,Files", "", "Bare:", "Other:General,!Broken"}};
    OptDlg dialog{&set.list, nullptr, {}};
    QTreeView *tree = dialog.findChild<QTreeView *>();
    QStackedWidget *stack = dialog.findChild<QStackedWidget *>();
    QDialogButtonBox *buttons = dialog.findChild<QDialogButtonBox *>();
};

} // namespace

class TestOptDlg : public QObject
{
    Q_OBJECT

private slots:
    void startsOnTheEmptyPage();
    void selectThenAct_data();
    void selectThenAct();
    void drivesPagesOfLoadedPlugin();
};

void TestOptDlg::startsOnTheEmptyPage()
{
    Fixture f;
    QCOMPARE(f.stack->currentIndex(), 0);
    QCOMPARE(f.stack->widget(0)->findChild<QLabel *>()->text(), "no setting for this tool");
    QStringList pages;
    for (int i = 1; i < f.stack->count(); ++i)
        pages << f.stack->widget(i)->objectName();
    QCOMPARE(pages, (QStringList{"Editor/Font", "Editor/Files", "Other/General"}));
    f.dialog.refreshCurrentPage();
    QVERIFY(f.set.journal.isEmpty());
}

void TestOptDlg::selectThenAct_data()
{
    QTest::addColumn<int>("toolRow");
    QTest::addColumn<int>("pageRow"); // -1 selects the tool node
    QTest::addColumn<int>("action");
    QTest::addColumn<QString>("journal");

    const int ok = QDialogButtonBox::Ok, apply = QDialogButtonBox::Apply;
    const int cancel = QDialogButtonBox::Cancel, reopen = Reopen, restore = Default;
    QTest::newRow("tool node shows its first page")
        << 0 << -1 << reopen << "refresh Editor/Font; refresh Editor/Font";
    QTest::newRow("page node shows its page")
        << 0 << 1 << reopen << "refresh Editor/Files; refresh Editor/Files";
    QTest::newRow("null entry shows the empty page") << 1 << -1 << reopen << "";
    QTest::newRow("tool without pages shows the empty page") << 2 << -1 << reopen << "";
    QTest::newRow("page without widget shows the empty page") << 3 << 1 << reopen << "";
    QTest::newRow("OK applies every page in tree order, also unseen ones")
        << 0 << 1 << ok
        << "refresh Editor/Files; apply Editor/Font; apply Editor/Files; apply Other/General";
    QTest::newRow("Apply applies only the page on show")
        << 0 << 0 << apply << "refresh Editor/Font; apply Editor/Font";
    QTest::newRow("Default restores only the page on show")
        << 0 << 1 << restore << "refresh Editor/Files; default Editor/Files";
    QTest::newRow("Cancel applies nothing") << 0 << 0 << cancel << "refresh Editor/Font";
    QTest::newRow("Apply on the empty page") << 2 << -1 << apply << "";
    QTest::newRow("Default on the empty page") << 2 << -1 << restore << "";
}

void TestOptDlg::selectThenAct()
{
    QFETCH(int, toolRow);
    QFETCH(int, pageRow);
    QFETCH(int, action);
    QFETCH(QString, journal);
    Fixture f;
    f.select(3, 0); // start elsewhere, so every row is a real change
    f.set.journal.clear();

    QTest::ignoreMessage(
        QtDebugMsg,
        qPrintable(
            QStringLiteral("(0, 0) is changed to (%1, 0)").arg(pageRow >= 0 ? pageRow : toolRow)));
    f.select(toolRow, pageRow);
    if (action == QDialogButtonBox::Ok)
        QTest::ignoreMessage(QtDebugMsg, "go to apply all");
    if (action == Reopen)
        f.dialog.refreshCurrentPage();
    else
        QTest::mouseClick(f.button(action), Qt::LeftButton);

    QCOMPARE(f.set.journal.join(QStringLiteral("; ")), journal);
    const bool closes = action == QDialogButtonBox::Ok || action == QDialogButtonBox::Cancel;
    QCOMPARE(f.dialog.isVisible(), !closes);
    if (closes)
        QCOMPARE(f.dialog.result(),
                 int(action == QDialogButtonBox::Ok ? QDialog::Accepted : QDialog::Rejected));
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
    auto *buttons = dialog.findChild<QDialogButtonBox *>();
    tree->setCurrentIndex(tree->model()->index(1, 0, tree->model()->index(1, 0)));
    QTest::mouseClick(buttons->button(QDialogButtonBox::Apply), Qt::LeftButton);
    QTest::mouseClick(buttons->button(QDialogButtonBox::Ok), Qt::LeftButton);

    const FakeOptionPage *editor = fake.page("Editor");
    const FakeOptionPage *files = fake.page("Files");
    QVERIFY(editor && files);
    // Files refreshed on show, applied by Apply and by OK; Editor applied by OK only.
    QCOMPARE((QList<int>{files->refreshCount, files->applyCount, editor->applyCount}),
             (QList<int>{1, 2, 1}));
}

QTEST_MAIN(TestOptDlg)
#include "tst_optdlg.moc"
