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

QVariantList fields(const EditorSettings::Values &v)
{
    return QVariantList() << v.font.family() << v.font.pointSize() << v.tabWidth
                          << v.indentWithSpaces << v.autoIndent << v.lineNumbers << v.wordWrap
                          << v.showWhitespace << v.highlightCurrentLine << v.braceMatching
                          << v.defaultEncoding << int(v.defaultLineEnding)
                          << v.reloadUnmodifiedSilently << v.trimTrailingWhitespace;
}

} // namespace

class TstOptionPages : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { BaseUsrSettings("SRC_EDITOR").clear(); }

    // Each malformed value must read as its own default.
    void malformedValuesReadAsDefaults()
    {
        const QVariantMap stored{{"Editor/TabWidth", 0},
                                 {"Editor/FontSize", 500},
                                 {"Editor/LineNumbers", "maybe"},
                                 {"Editor/WordWrap", QStringList{"a", "b"}},
                                 {"Files/DefaultEncoding", "NO-SUCH-CODE"},
                                 {"Files/DefaultLineEnding", "LFCR"},
                                 {"Files/TrimTrailingWhitespace", 7}};
        BaseUsrSettings settings("SRC_EDITOR");
        for (auto it = stored.cbegin(); it != stored.cend(); ++it)
            settings.setValue(it.key(), it.value());
        settings.sync();
        QCOMPARE(fields(EditorSettings::load()), fields(EditorSettings::defaults()));
    }

    // Each page's Apply reaches every open tool and the store, and keeps the other page's values.
    void applyChangesEveryOpenToolAndPersists()
    {
        SedGUI first;
        SedGUI second;
        first.editor()->setText(QStringLiteral("a  \nb\t\n"));
        first.prepareForSave();
        QCOMPARE(first.editor()->text(), QStringLiteral("a  \nb\t\n"));
        {
            Page page = shownPage("Files");
            auto *encoding = control<QComboBox>(page, "defaultEncoding");
            auto *lineEnding = control<QComboBox>(page, "defaultLineEnding");
            encoding->setCurrentIndex(encoding->findData(QByteArray("ISO-8859-1")));
            lineEnding->setCurrentIndex(lineEnding->findData(int(LineEnding::CR)));
            control(page, "reloadUnmodifiedSilently")->setChecked(true);
            control(page, "trimTrailingWhitespace")->setChecked(true);
            page->applyPage();
        }
        {
            Page page = shownPage("Editor");
            control<QSpinBox>(page, "tabWidth")->setValue(7);
            control<QSpinBox>(page, "fontSize")->setValue(19);
            control(page, "wordWrap")->setChecked(true);
            for (const char *name : {"lineNumbers", "indentWithSpaces", "highlightCurrentLine"})
                control(page, name)->setChecked(false);
            page->applyPage();
        }
        first.prepareForSave();
        QCOMPARE(first.editor()->text(), QStringLiteral("a\nb\n"));
        const EditorSettings::Values values = EditorSettings::load();
        QCOMPARE(values.defaultEncoding, QByteArray("ISO-8859-1"));
        QCOMPARE(values.defaultLineEnding, LineEnding::CR);
        QVERIFY(values.reloadUnmodifiedSilently);

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
        for (const char *name : {"Editor", "Files"})
            Page(OptionPages::create(QLatin1String(name)))->applyPage();

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
};

QTEST_MAIN(TstOptionPages)
#include "tst_optionpages.moc"
