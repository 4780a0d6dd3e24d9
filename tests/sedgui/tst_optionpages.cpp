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
    void init() { BaseUsrSettings("SRC_EDITOR").clear(); }
    void applyChangesEveryOpenToolAndPersists();
    void cancelAfterEditingChangesNothing();
    void defaultsRestoreControlsOnly();
    void pageNeverShownAppliesNothing();
    void filesPageStoresItsValuesAndTrimsOnSave();
};

namespace {

std::unique_ptr<OptWidget> shownPage(const char *name)
{
    std::unique_ptr<OptWidget> page(OptionPages::create(QLatin1String(name)));
    page->refreshPage();
    return page;
}

template<typename T> T *control(const std::unique_ptr<OptWidget> &page, const char *name)
{
    T *widget = page->findChild<T *>(QLatin1String(name));
    if (!widget) {
        qFatal("no control %s", name);
    }
    return widget;
}

QSpinBox *spin(const std::unique_ptr<OptWidget> &page, const char *name)
{
    return control<QSpinBox>(page, name);
}

QCheckBox *check(const std::unique_ptr<OptWidget> &page, const char *name)
{
    return control<QCheckBox>(page, name);
}

} // namespace

void TstOptionPages::applyChangesEveryOpenToolAndPersists()
{
    SedGUI first;
    SedGUI second;
    {
        auto page = shownPage("Editor");
        spin(page, "tabWidth")->setValue(7);
        check(page, "wordWrap")->setChecked(true);
        check(page, "lineNumbers")->setChecked(false);
        check(page, "indentWithSpaces")->setChecked(false);
        check(page, "highlightCurrentLine")->setChecked(false);
        spin(page, "fontSize")->setValue(19);
        page->applyPage();
    }
    // A new page and a new tool (the next start) read only what is in the store.
    SedGUI next;
    for (SedGUI *tool : {&first, &second, &next}) {
        QCOMPARE(tool->editor()->tabWidth(), 7);
        QCOMPARE(tool->editor()->wrapMode(), QsciScintilla::WrapWord);
        QCOMPARE(tool->editor()->marginWidth(0), 0);
        QVERIFY(tool->editor()->indentationsUseTabs());
        QVERIFY(!tool->editor()->SendScintilla(QsciScintillaBase::SCI_GETCARETLINEVISIBLE));
        QCOMPARE(tool->editor()->font().pointSize(), 19);
    }
    auto page = shownPage("Editor");
    QCOMPARE(spin(page, "tabWidth")->value(), 7);
    QVERIFY(!check(page, "highlightCurrentLine")->isChecked());
}

void TstOptionPages::cancelAfterEditingChangesNothing()
{
    SedGUI tool;
    const int tabWidth = tool.editor()->tabWidth();
    const int margin = tool.editor()->marginWidth(0);
    QVERIFY(margin > 0);
    auto page = shownPage("Editor");
    spin(page, "tabWidth")->setValue(tabWidth + 3);
    check(page, "lineNumbers")->setChecked(false);
    // Cancel applies nothing; the next opening shows what is stored.
    page->refreshPage();

    QCOMPARE(spin(page, "tabWidth")->value(), tabWidth);
    QVERIFY(check(page, "lineNumbers")->isChecked());
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
    auto page = shownPage("Editor");
    QCOMPARE(spin(page, "tabWidth")->value(), 2);
    page->restoreDefaults();

    QCOMPARE(spin(page, "tabWidth")->value(), EditorSettings::defaults().tabWidth);
    QVERIFY(!check(page, "showWhitespace")->isChecked());
    QCOMPARE(EditorSettings::load().tabWidth, 2);
    QCOMPARE(tool.editor()->tabWidth(), 2);
    QCOMPARE(tool.editor()->whitespaceVisibility(), QsciScintilla::WsVisible);
}

// OK applies every page, also those the user never opened: such a page must
// not write its blank controls over the stored values.
void TstOptionPages::pageNeverShownAppliesNothing()
{
    EditorSettings::Values stored = EditorSettings::load();
    stored.tabWidth = 7;
    stored.trimTrailingWhitespace = true;
    QVERIFY(EditorSettings::store(stored));
    QCOMPARE(OptionPages::names(), (QStringList{"Editor", "Files"}));
    for (const QString &name : OptionPages::names()) {
        std::unique_ptr<OptWidget> page(OptionPages::create(name));
        page->applyPage();
    }
    QCOMPARE(EditorSettings::load().tabWidth, 7);
    QVERIFY(EditorSettings::load().trimTrailingWhitespace);
}

void TstOptionPages::filesPageStoresItsValuesAndTrimsOnSave()
{
    SedGUI tool;
    tool.editor()->setText(QStringLiteral("a  \nb\t\n"));
    tool.prepareForSave();
    QCOMPARE(tool.editor()->text(), QStringLiteral("a  \nb\t\n"));

    auto page = shownPage("Files");
    auto *encoding = control<QComboBox>(page, "defaultEncoding");
    auto *lineEnding = control<QComboBox>(page, "defaultLineEnding");
    QCOMPARE(encoding->currentData().toByteArray(), QByteArray("UTF-8"));
    QVERIFY(!check(page, "trimTrailingWhitespace")->isChecked());

    encoding->setCurrentIndex(encoding->findData(QByteArray("ISO-8859-1")));
    lineEnding->setCurrentIndex(lineEnding->findData(int(LineEnding::CR)));
    check(page, "reloadUnmodifiedSilently")->setChecked(true);
    check(page, "trimTrailingWhitespace")->setChecked(true);
    page->applyPage();
    tool.prepareForSave();
    QCOMPARE(tool.editor()->text(), QStringLiteral("a\nb\n"));

    const EditorSettings::Values values = EditorSettings::load();
    QCOMPARE(values.defaultEncoding, QByteArray("ISO-8859-1"));
    QCOMPARE(values.defaultLineEnding, LineEnding::CR);
    QVERIFY(values.reloadUnmodifiedSilently);
    // Applying one page leaves the other page's values alone.
    QCOMPARE(values.tabWidth, EditorSettings::defaults().tabWidth);
}

QTEST_MAIN(TstOptionPages)
#include "tst_optionpages.moc"
