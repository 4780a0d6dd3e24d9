#include "fakecontrol.h"
#include "fakeoptionpage.h"
#include "fakeoptiontool.h"
#include "optdlg.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QPluginLoader>
#include <QPushButton>
#include <QStackedWidget>
#include <QTest>
#include <QTreeView>

#include <memory>

namespace {

// Two tools with pages, a null entry and a tool without pages, in this order.
struct Fixture
{
    Fixture()
        : editor("Editor", {"Font", "Files"}, &journal)
        , bare("Bare", {}, &journal)
        , other("Other", {"General", "Broken"}, &journal, {"Broken"})
        , tools{&editor, nullptr, &bare, &other}
        , dialog(std::make_unique<OptDlg>(&tools, nullptr, Qt::WindowFlags()))
        , tree(dialog->findChild<QTreeView *>())
        , stack(dialog->findChild<QStackedWidget *>())
        , buttons(dialog->findChild<QDialogButtonBox *>())
    {
        dialog->show();
    }
    QWidget *shown() const { return stack->currentWidget(); }
    bool showsEmptyPage() const
    {
        const auto *label = shown()->findChild<QLabel *>();
        return label && label->text() == QStringLiteral("no setting for this tool");
    }
    void select(int toolRow, int pageRow = -1)
    {
        QModelIndex index = tree->model()->index(toolRow, 0);
        if (pageRow >= 0)
            index = tree->model()->index(pageRow, 0, index);
        QVERIFY(index.isValid());
        tree->setCurrentIndex(index);
    }
    QPushButton *defaultButton() const
    {
        for (QAbstractButton *button : buttons->buttons()) {
            if (button->text() == QStringLiteral("&Default"))
                return qobject_cast<QPushButton *>(button);
        }
        return nullptr;
    }

    QStringList journal;
    FakeOptionTool editor;
    FakeOptionTool bare;
    FakeOptionTool other;
    QList<hubAppInterface *> tools;
    std::unique_ptr<OptDlg> dialog;
    QTreeView *tree;
    QStackedWidget *stack;
    QDialogButtonBox *buttons;
};

} // namespace

class TestOptDlg : public QObject
{
    Q_OBJECT

private slots:
    void startsOnTheEmptyPage();
    void selectionShowsPage_data();
    void selectionShowsPage();
    void buttonActsOnPages_data();
    void buttonActsOnPages();
    void drivesPagesOfLoadedPlugin();
};

void TestOptDlg::startsOnTheEmptyPage()
{
    Fixture f;
    QVERIFY(f.showsEmptyPage());
    QCOMPARE(f.stack->count(), 4); // the empty page, Font, Files, General
    f.dialog->refreshCurrentPage();
    QVERIFY(f.journal.isEmpty());
}

void TestOptDlg::selectionShowsPage_data()
{
    QTest::addColumn<int>("toolRow");
    QTest::addColumn<int>("pageRow");
    QTest::addColumn<QString>("page");

    QTest::newRow("tool node shows its first page") << 0 << -1 << "Editor/Font";
    QTest::newRow("page node shows its page") << 0 << 1 << "Editor/Files";
    QTest::newRow("null entry shows the empty page") << 1 << -1 << "";
    QTest::newRow("tool without pages shows the empty page") << 2 << -1 << "";
    QTest::newRow("page without widget shows the empty page") << 3 << 1 << "";
}

void TestOptDlg::selectionShowsPage()
{
    QFETCH(int, toolRow);
    QFETCH(int, pageRow);
    QFETCH(QString, page);
    Fixture f;
    f.select(3, 0); // start elsewhere, so every row is a real change

    f.journal.clear();
    const int previousRow = f.tree->currentIndex().row();
    const int newRow = pageRow >= 0 ? pageRow : toolRow;
    QTest::ignoreMessage(
        QtDebugMsg,
        qPrintable(QStringLiteral("(%1, 0) is changed to (%2, 0)").arg(previousRow).arg(newRow)));
    f.select(toolRow, pageRow);

    if (page.isEmpty()) {
        QVERIFY(f.showsEmptyPage());
        QVERIFY(f.journal.isEmpty());
    } else {
        QCOMPARE(f.shown()->objectName(), page);
        QCOMPARE(f.journal, QStringList{"refresh " + page});
    }
    f.dialog->refreshCurrentPage();
    QCOMPARE(f.journal.size(), page.isEmpty() ? 0 : 2);
}

void TestOptDlg::buttonActsOnPages_data()
{
    QTest::addColumn<int>("toolRow");
    QTest::addColumn<int>("pageRow");
    QTest::addColumn<int>("button"); // a QDialogButtonBox::StandardButton, 0 for "&Default"
    QTest::addColumn<QStringList>("journal");
    QTest::addColumn<bool>("staysOpen");

    const int ok = QDialogButtonBox::Ok, apply = QDialogButtonBox::Apply;
    const int cancel = QDialogButtonBox::Cancel, restore = 0;
    QTest::newRow("OK applies every page in tree order, also unseen ones, and closes")
        << 0 << 1 << ok
        << QStringList{"apply Editor/Font", "apply Editor/Files", "apply Other/General"} << false;
    QTest::newRow("Apply applies only the page on show")
        << 3 << 0 << apply << QStringList{"apply Other/General"} << true;
    QTest::newRow("Default restores only the page on show")
        << 0 << 1 << restore << QStringList{"default Editor/Files"} << true;
    QTest::newRow("Cancel applies nothing") << 0 << 0 << cancel << QStringList{} << false;
    QTest::newRow("Apply on the empty page") << 2 << -1 << apply << QStringList{} << true;
    QTest::newRow("Default on the empty page") << 2 << -1 << restore << QStringList{} << true;
}

void TestOptDlg::buttonActsOnPages()
{
    QFETCH(int, toolRow);
    QFETCH(int, pageRow);
    QFETCH(int, button);
    QFETCH(QStringList, journal);
    QFETCH(bool, staysOpen);
    Fixture f;
    f.select(toolRow, pageRow);
    f.journal.clear();
    if (button == QDialogButtonBox::Ok)
        QTest::ignoreMessage(QtDebugMsg, "go to apply all");
    QAbstractButton *target =
        button ? f.buttons->button(QDialogButtonBox::StandardButton(button)) : f.defaultButton();
    QVERIFY(target);
    QTest::mouseClick(target, Qt::LeftButton);
    QCOMPARE(f.journal, journal);
    QCOMPARE(f.dialog->isVisible(), staysOpen);
    if (!staysOpen)
        QCOMPARE(f.dialog->result(),
                 int(button == QDialogButtonBox::Ok ? QDialog::Accepted : QDialog::Rejected));
}

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
    FakeOptionPage *editor = fake.page("Editor");
    FakeOptionPage *files = fake.page("Files");
    QVERIFY(editor && files);

    tree->setCurrentIndex(tree->model()->index(1, 0, tree->model()->index(1, 0)));
    QCOMPARE(dialog.findChild<QStackedWidget *>()->currentWidget(), files);
    QTest::mouseClick(buttons->button(QDialogButtonBox::Apply), Qt::LeftButton);
    QTest::mouseClick(buttons->button(QDialogButtonBox::Ok), Qt::LeftButton);

    QCOMPARE(files->refreshCount, 1);
    QCOMPARE(editor->refreshCount, 0);
    QCOMPARE(files->applyCount, 2);
    QCOMPARE(editor->applyCount, 1);
    QCOMPARE(editor->restoreCount + files->restoreCount, 0);
    QCOMPARE(dialog.result(), int(QDialog::Accepted));
}

QTEST_MAIN(TestOptDlg)
#include "tst_optdlg.moc"
