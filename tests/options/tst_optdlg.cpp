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
    void click(QAbstractButton *button) { QTest::mouseClick(button, Qt::LeftButton); }
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
    void toolNodeThenFirstPageShowSamePage();
    void okAppliesEveryPageAndCloses();
    void applyOnlyPageOnShowAndStaysOpen();
    void cancelAppliesNothing();
    void defaultRestoresOnlyPageOnShow();
    void emptyPageIgnoresApplyAndDefault();
    void drivesPagesOfLoadedPlugin();
};

void TestOptDlg::startsOnTheEmptyPage()
{
    Fixture f;
    QVERIFY(f.tree && f.stack && f.buttons && f.defaultButton());
    QVERIFY(f.showsEmptyPage());
    QCOMPARE(f.stack->count(), 4); // the empty page, Font, Files, General
    QVERIFY(f.tree->isHeaderHidden());
    QVERIFY(f.tree->isExpanded(f.tree->model()->index(0, 0)));
    QVERIFY(f.buttons->button(QDialogButtonBox::Ok) &&
            f.buttons->button(QDialogButtonBox::Cancel) &&
            f.buttons->button(QDialogButtonBox::Apply));
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

void TestOptDlg::toolNodeThenFirstPageShowSamePage()
{
    Fixture f;
    f.select(0);
    QWidget *first = f.shown();
    f.select(0, 0);
    QCOMPARE(f.shown(), first);
    QCOMPARE(f.editor.page("Font")->refreshed, 2);
}

void TestOptDlg::okAppliesEveryPageAndCloses()
{
    Fixture f;
    f.select(0, 1);
    f.journal.clear();
    QTest::ignoreMessage(QtDebugMsg, "go to apply all");
    f.click(f.buttons->button(QDialogButtonBox::Ok));
    QCOMPARE(f.journal,
             (QStringList{"apply Editor/Font", "apply Editor/Files", "apply Other/General"}));
    QVERIFY(!f.dialog->isVisible());
    QCOMPARE(f.dialog->result(), int(QDialog::Accepted));
}

void TestOptDlg::applyOnlyPageOnShowAndStaysOpen()
{
    Fixture f;
    f.select(3, 0);
    f.journal.clear();
    f.click(f.buttons->button(QDialogButtonBox::Apply));
    QCOMPARE(f.journal, QStringList{"apply Other/General"});
    QVERIFY(f.dialog->isVisible());
}

void TestOptDlg::cancelAppliesNothing()
{
    Fixture f;
    f.select(0, 0);
    f.click(f.buttons->button(QDialogButtonBox::Apply));
    f.journal.clear();
    f.click(f.buttons->button(QDialogButtonBox::Cancel));
    QVERIFY(f.journal.isEmpty());
    QCOMPARE(f.editor.page("Font")->applied, 1);
    QVERIFY(!f.dialog->isVisible());
    QCOMPARE(f.dialog->result(), int(QDialog::Rejected));
}

void TestOptDlg::defaultRestoresOnlyPageOnShow()
{
    Fixture f;
    f.select(0, 1);
    f.journal.clear();
    f.click(f.defaultButton());
    QCOMPARE(f.journal, QStringList{"default Editor/Files"});
    QVERIFY(f.dialog->isVisible());
}

void TestOptDlg::emptyPageIgnoresApplyAndDefault()
{
    Fixture f;
    f.select(2);
    QVERIFY(f.showsEmptyPage());
    f.click(f.buttons->button(QDialogButtonBox::Apply));
    f.click(f.defaultButton());
    f.dialog->refreshCurrentPage();
    f.dialog->applyCurrentPage();
    QVERIFY(f.journal.isEmpty());
    QVERIFY(f.dialog->isVisible());
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
