#include "baseusrsettings.h"
#include "editorsettings.h"
#include "optionpages.h"
#include "optwidget.h"
#include "sedgui.h"

#include <QCheckBox>
#include <QComboBox>
#include <QSpinBox>
#include <QTest>

#include <Qsci/qsciscintilla.h>

#include <memory>

using namespace koru::sedgui;

class TstOptionPages : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void pagesAreEditorAndFiles();
    void applyChangesEveryOpenTool();
    void cancelAfterEditingChangesNothing();
    void defaultsRestoreControlsOnly();
    void valuesLoadOnTheNextStart();
    void pageNeverShownAppliesNothing();
    void filesPageStoresItsValues();
    void trimOnSaveFollowsTheOption();

private:
    template<typename T> static T *control(OptWidget *page, const char *name)
    {
        T *widget = page->findChild<T *>(QLatin1String(name));
        if (!widget) {
            qFatal("no control %s", name);
        }
        return widget;
    }
};

void TstOptionPages::init()
{
    BaseUsrSettings("SRC_EDITOR").clear();
}

void TstOptionPages::pagesAreEditorAndFiles()
{
    QCOMPARE(OptionPages::names(), (QStringList{"Editor", "Files"}));
    for (const QString &name : OptionPages::names()) {
        std::unique_ptr<OptWidget> page(OptionPages::create(name));
        QVERIFY(page);
    }
    QVERIFY(!OptionPages::create(QStringLiteral("Nope")));
}

void TstOptionPages::applyChangesEveryOpenTool()
{
    SedGUI first;
    SedGUI second;
    std::unique_ptr<OptWidget> page(OptionPages::create(QStringLiteral("Editor")));
    page->refreshPage();
    control<QSpinBox>(page.get(), "tabWidth")->setValue(7);
    control<QCheckBox>(page.get(), "wordWrap")->setChecked(true);
    control<QCheckBox>(page.get(), "lineNumbers")->setChecked(false);
    control<QCheckBox>(page.get(), "indentWithSpaces")->setChecked(false);
    control<QSpinBox>(page.get(), "fontSize")->setValue(19);
    page->applyPage();

    for (SedGUI *tool : {&first, &second}) {
        QCOMPARE(tool->editor()->tabWidth(), 7);
        QCOMPARE(tool->editor()->wrapMode(), QsciScintilla::WrapWord);
        QCOMPARE(tool->editor()->marginWidth(0), 0);
        QVERIFY(tool->editor()->indentationsUseTabs());
        QCOMPARE(tool->editor()->font().pointSize(), 19);
    }
    QCOMPARE(EditorSettings::load().tabWidth, 7);
}

void TstOptionPages::cancelAfterEditingChangesNothing()
{
    SedGUI tool;
    const int tabWidth = tool.editor()->tabWidth();
    const int margin = tool.editor()->marginWidth(0);
    QVERIFY(margin > 0);
    std::unique_ptr<OptWidget> page(OptionPages::create(QStringLiteral("Editor")));
    page->refreshPage();
    control<QSpinBox>(page.get(), "tabWidth")->setValue(tabWidth + 3);
    control<QCheckBox>(page.get(), "lineNumbers")->setChecked(false);
    // Cancel applies nothing; the next opening shows what is stored.
    page->refreshPage();

    QCOMPARE(control<QSpinBox>(page.get(), "tabWidth")->value(), tabWidth);
    QVERIFY(control<QCheckBox>(page.get(), "lineNumbers")->isChecked());
    QCOMPARE(tool.editor()->tabWidth(), tabWidth);
    QCOMPARE(tool.editor()->marginWidth(0), margin);
    QCOMPARE(EditorSettings::load().tabWidth, tabWidth);
}

void TstOptionPages::defaultsRestoreControlsOnly()
{
    EditorSettings::Values stored = EditorSettings::defaults();
    stored.tabWidth = 2;
    stored.showWhitespace = true;
    QVERIFY(EditorSettings::store(stored));
    SedGUI tool;
    QCOMPARE(tool.editor()->tabWidth(), 2);

    std::unique_ptr<OptWidget> page(OptionPages::create(QStringLiteral("Editor")));
    page->refreshPage();
    QCOMPARE(control<QSpinBox>(page.get(), "tabWidth")->value(), 2);
    page->restoreDefaults();

    QCOMPARE(control<QSpinBox>(page.get(), "tabWidth")->value(),
             EditorSettings::defaults().tabWidth);
    QVERIFY(!control<QCheckBox>(page.get(), "showWhitespace")->isChecked());
    QCOMPARE(EditorSettings::load().tabWidth, 2);
    QCOMPARE(tool.editor()->tabWidth(), 2);
    QCOMPARE(tool.editor()->whitespaceVisibility(), QsciScintilla::WsVisible);
}

void TstOptionPages::valuesLoadOnTheNextStart()
{
    {
        std::unique_ptr<OptWidget> page(OptionPages::create(QStringLiteral("Editor")));
        page->refreshPage();
        control<QSpinBox>(page.get(), "tabWidth")->setValue(5);
        control<QCheckBox>(page.get(), "highlightCurrentLine")->setChecked(false);
        page->applyPage();
    }
    // A new page and a new tool read only what is in the store.
    std::unique_ptr<OptWidget> page(OptionPages::create(QStringLiteral("Editor")));
    page->refreshPage();
    QCOMPARE(control<QSpinBox>(page.get(), "tabWidth")->value(), 5);
    QVERIFY(!control<QCheckBox>(page.get(), "highlightCurrentLine")->isChecked());
    SedGUI tool;
    QCOMPARE(tool.editor()->tabWidth(), 5);
    QVERIFY(!tool.editor()->SendScintilla(QsciScintillaBase::SCI_GETCARETLINEVISIBLE));
}

// OK applies every page, also those the user never opened: such a page must
// not write its blank controls over the stored values.
void TstOptionPages::pageNeverShownAppliesNothing()
{
    EditorSettings::Values stored = EditorSettings::load();
    stored.tabWidth = 7;
    stored.trimTrailingWhitespace = true;
    QVERIFY(EditorSettings::store(stored));
    for (const QString &name : OptionPages::names()) {
        std::unique_ptr<OptWidget> page(OptionPages::create(name));
        page->applyPage();
    }
    QCOMPARE(EditorSettings::load().tabWidth, 7);
    QVERIFY(EditorSettings::load().trimTrailingWhitespace);
}

void TstOptionPages::filesPageStoresItsValues()
{
    std::unique_ptr<OptWidget> page(OptionPages::create(QStringLiteral("Files")));
    page->refreshPage();
    auto *encoding = control<QComboBox>(page.get(), "defaultEncoding");
    auto *lineEnding = control<QComboBox>(page.get(), "defaultLineEnding");
    QCOMPARE(encoding->currentData().toByteArray(), QByteArray("UTF-8"));
    QVERIFY(!control<QCheckBox>(page.get(), "trimTrailingWhitespace")->isChecked());

    const int latin1 = encoding->findData(QByteArray("ISO-8859-1"));
    QVERIFY(latin1 >= 0);
    encoding->setCurrentIndex(latin1);
    lineEnding->setCurrentIndex(lineEnding->findData(int(LineEnding::CR)));
    control<QCheckBox>(page.get(), "reloadUnmodifiedSilently")->setChecked(true);
    page->applyPage();

    const EditorSettings::Values values = EditorSettings::load();
    QCOMPARE(values.defaultEncoding, QByteArray("ISO-8859-1"));
    QCOMPARE(values.defaultLineEnding, LineEnding::CR);
    QVERIFY(values.reloadUnmodifiedSilently);
    // Applying one page leaves the other page's values alone.
    QCOMPARE(values.tabWidth, EditorSettings::defaults().tabWidth);
}

void TstOptionPages::trimOnSaveFollowsTheOption()
{
    SedGUI tool;
    tool.editor()->setText(QStringLiteral("a  \nb\t\n"));
    tool.prepareForSave();
    QCOMPARE(tool.editor()->text(), QStringLiteral("a  \nb\t\n"));

    std::unique_ptr<OptWidget> page(OptionPages::create(QStringLiteral("Files")));
    page->refreshPage();
    control<QCheckBox>(page.get(), "trimTrailingWhitespace")->setChecked(true);
    page->applyPage();
    tool.prepareForSave();
    QCOMPARE(tool.editor()->text(), QStringLiteral("a\nb\n"));
}

QTEST_MAIN(TstOptionPages)
#include "tst_optionpages.moc"
