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

namespace {

using Page = std::unique_ptr<OptWidget>;

Page shownPage(const char *name)
{
    Page page(OptionPages::create(QLatin1String(name)));
    page->refreshPage();
    return page;
}

template<typename T = QCheckBox> T *control(const Page &page, const char *name)
{
    T *widget = page->findChild<T *>(QLatin1String(name));
    if (!widget)
        qFatal("no control %s", name);
    return widget;
}

} // namespace

class TstOptionPages : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { BaseUsrSettings("SRC_EDITOR").clear(); }

    void applyChangesEveryOpenToolAndPersists()
    {
        SedGUI first;
        SedGUI second;
        {
            Page page = shownPage("Editor");
            control<QSpinBox>(page, "tabWidth")->setValue(7);
            control<QSpinBox>(page, "fontSize")->setValue(19);
            control(page, "wordWrap")->setChecked(true);
            for (const char *name : {"lineNumbers", "indentWithSpaces", "highlightCurrentLine"})
                control(page, name)->setChecked(false);
            page->applyPage();
        }
        // A new tool and a new page (the next start) read only what is in the store.
        SedGUI next;
        for (SedGUI *tool : {&first, &second, &next}) {
            QsciScintilla *editor = tool->editor();
            QCOMPARE(editor->tabWidth(), 7);
            QCOMPARE(editor->font().pointSize(), 19);
            QCOMPARE(editor->wrapMode(), QsciScintilla::WrapWord);
            QCOMPARE(editor->marginWidth(0), 0);
            QVERIFY(editor->indentationsUseTabs());
            QVERIFY(!editor->SendScintilla(QsciScintillaBase::SCI_GETCARETLINEVISIBLE));
        }
        Page page = shownPage("Editor");
        QCOMPARE(control<QSpinBox>(page, "tabWidth")->value(), 7);
        QVERIFY(!control(page, "highlightCurrentLine")->isChecked());
    }

    // Only applying a shown page writes: OK over pages never opened (their
    // controls are blank), Cancel and Defaults leave the store and the tools alone.
    void onlyApplyingAShownPageWrites()
    {
        EditorSettings::Values stored = EditorSettings::defaults();
        stored.tabWidth = 2;
        stored.showWhitespace = true;
        stored.trimTrailingWhitespace = true;
        QVERIFY(EditorSettings::store(stored));
        QCOMPARE(OptionPages::names(), (QStringList{"Editor", "Files"}));
        for (const QString &name : OptionPages::names())
            Page(OptionPages::create(name))->applyPage();

        SedGUI tool;
        Page page = shownPage("Editor");
        auto *tabWidth = control<QSpinBox>(page, "tabWidth");
        QCOMPARE(tabWidth->value(), 2);
        tabWidth->setValue(5);
        control(page, "lineNumbers")->setChecked(false);
        page->refreshPage(); // Cancel, then the next opening
        QCOMPARE(tabWidth->value(), 2);
        QVERIFY(control(page, "lineNumbers")->isChecked());
        page->restoreDefaults();
        QCOMPARE(tabWidth->value(), EditorSettings::defaults().tabWidth);
        QVERIFY(!control(page, "showWhitespace")->isChecked());

        QCOMPARE(EditorSettings::load().tabWidth, 2);
        QVERIFY(EditorSettings::load().trimTrailingWhitespace);
        QCOMPARE(tool.editor()->tabWidth(), 2);
        QCOMPARE(tool.editor()->whitespaceVisibility(), QsciScintilla::WsVisible);
        QVERIFY(tool.editor()->marginWidth(0) > 0);
    }

    void filesPageStoresItsValuesAndTrimsOnSave()
    {
        SedGUI tool;
        tool.editor()->setText(QStringLiteral("a  \nb\t\n"));
        tool.prepareForSave();
        QCOMPARE(tool.editor()->text(), QStringLiteral("a  \nb\t\n"));

        Page page = shownPage("Files");
        auto *encoding = control<QComboBox>(page, "defaultEncoding");
        auto *lineEnding = control<QComboBox>(page, "defaultLineEnding");
        encoding->setCurrentIndex(encoding->findData(QByteArray("ISO-8859-1")));
        lineEnding->setCurrentIndex(lineEnding->findData(int(LineEnding::CR)));
        control(page, "reloadUnmodifiedSilently")->setChecked(true);
        control(page, "trimTrailingWhitespace")->setChecked(true);
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
};

QTEST_MAIN(TstOptionPages)
#include "tst_optionpages.moc"
