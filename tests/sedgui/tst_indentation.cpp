#include "baseusrsettings.h"
#include "dialogs/statusstrip.h"
#include "editing/changerelay.h"
#include "editing/editoractions.h"
#include "editing/matchmarker.h"
#include "editing/typingassist.h"
#include "options/editorsettings.h"
#include "sedgui.h"

#include <QFile>
#include <QMenu>
#include <QTemporaryDir>
#include <QTest>
#include <QToolButton>

#include <Qsci/qsciscintilla.h>

using namespace koru::sedgui;

namespace {

void storeSettings(bool tabs, int tabWidth, int indentWidth)
{
    EditorSettings::Values values = EditorSettings::defaults();
    values.indentWithSpaces = !tabs;
    values.tabWidth = tabWidth;
    values.indentWidth = indentWidth;
    QVERIFY(EditorSettings::store(values));
}

QString describe(const QsciScintilla *editor)
{
    return QStringLiteral("%1 %2/%3")
        .arg(editor->indentationsUseTabs() ? "tabs" : "spaces")
        .arg(editor->tabWidth())
        .arg(editor->indentationWidth());
}

bool writeFile(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

QString shown(const SedGUI &tool)
{
    QStringList texts;
    for (const char *name :
         {"position", "encoding", "lineEnding", "indentation", "syntax", "overwrite"})
        texts << tool.findChild<StatusStrip *>()->entry(QLatin1String(name))->text();
    return texts.join(QLatin1String(" | "));
}

void choose(QMenu *menu, const char *name)
{
    Q_EMIT menu->aboutToShow();
    menu->findChild<QAction *>(QLatin1String(name))->trigger();
}

} // namespace

class TstIndentation : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { BaseUsrSettings("SRC_EDITOR").clear(); }

    // Opened with settings of tabs-or-spaces and widths 4 ("tabs 4/4": tabs,
    // tab width 4, indent width 4), then the opposite with widths 5 and 3.
    void sourcesInOrder_data()
    {
        QTest::addColumn<QByteArray>("editorconfig");
        QTest::addColumn<QString>("fileName");
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<bool>("settingsTabs");
        QTest::addColumn<QString>("before");
        QTest::addColumn<QString>("after");
        const auto row = [](const char *tag, const char *config, const char *name,
                            const char *content, bool tabs, const char *before, const char *after) {
            QTest::newRow(tag) << QByteArray(config) << QString(name) << QByteArray(content) << tabs
                               << QString(before) << QString(after);
        };
        row("Makefile: tabs whatever the settings and lines", "", "Makefile",
            "all:\n    cc -o x x.c\n", false, "tabs 4/4", "tabs 5/5");
        row("tab-indented C over settings with spaces", "", "x.c", "int f()\n{\n\treturn 0;\n}\n",
            false, "tabs 4/4", "tabs 5/5");
        row("4-space Python over settings with tabs", "", "x.py", "def f():\n    return 1\n", true,
            "spaces 4/4", "spaces 5/4");
        row("nothing in the file: the settings", "", "x.txt", "a\nb\n", false, "spaces 4/4",
            "tabs 5/3");
        row(".editorconfig over the language", "[Makefile]\nindent_style=space\nindent_size=2",
            "Makefile", "all:\n\tcc\n", true, "spaces 2/2", "spaces 2/2");
    }
    void sourcesInOrder()
    {
        QFETCH(QByteArray, editorconfig);
        QFETCH(QString, fileName);
        QFETCH(QByteArray, content);
        QFETCH(bool, settingsTabs);
        QFETCH(QString, before);
        QFETCH(QString, after);

        QTemporaryDir dir;
        QVERIFY(writeFile(dir.filePath(".editorconfig"), "root = true\n" + editorconfig));
        QVERIFY(writeFile(dir.filePath(fileName), content));
        storeSettings(settingsTabs, 4, 4);
        SedGUI tool;
        QVERIFY(tool.openFile(dir.filePath(fileName), nullptr));
        QsciScintilla *editor = tool.editor();
        QCOMPARE(describe(editor), before);
        storeSettings(!settingsTabs, 5, 3);
        tool.applySettings();
        QCOMPARE(describe(editor), after);
    }

    // A file this document creates is written as its .editorconfig says; an
    // existing one keeps its format. Saving trims and adds the final newline.
    void newFilesTakeTheEditorConfigFormat_data()
    {
        QTest::addColumn<int>("kind"); // 0 untitled, 1 path not existing yet, 2 existing file
        QTest::addColumn<QByteArray>("saved");
        QTest::newRow("untitled, saved to a new path") << 0 << QByteArray("a\r\n\xe9\r\n");
        QTest::newRow("opened where nothing is yet") << 1 << QByteArray("a\r\n\xe9\r\n");
        QTest::newRow("existing file") << 2 << QByteArray("a\n\xc3\xa9\n");
    }
    void newFilesTakeTheEditorConfigFormat()
    {
        QFETCH(int, kind);
        QFETCH(QByteArray, saved);
        QTemporaryDir dir;
        QVERIFY(writeFile(dir.filePath(".editorconfig"),
                          "root = true\n[*]\nend_of_line = crlf\ncharset = latin1\n"
                          "trim_trailing_whitespace = true\ninsert_final_newline = true\n"));
        const QString path = dir.filePath("new.txt");
        QVERIFY(kind < 2 || writeFile(path, "x\n"));
        SedGUI tool;
        QVERIFY(kind == 0 || tool.openFile(path, nullptr));
        tool.editor()->selectAll();
        QTest::keyClicks(tool.editor(), QStringLiteral("a  "));
        QTest::keyClick(tool.editor(), Qt::Key_Return);
        tool.editor()->insert(QStringLiteral("\u00e9"));
        QVERIFY(tool.saveTo(path));
        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(file.readAll(), saved);
    }

    // Choices in the strip's (the View menu's) menus show at once, and an
    // indentation chosen for the document outlives a change of the settings.
    void stripChoicesShowAtOnce()
    {
        SedGUI tool;
        auto *actions = tool.findChild<EditorActions *>();
        choose(actions->indentationMenu(), "indentTabs");
        choose(actions->indentationMenu(), "indentWidth8");
        choose(actions->indentationMenu(), "indentSpaces");
        choose(actions->indentationMenu(), "indentWidth2");
        tool.applySettings();
        QCOMPARE(describe(tool.editor()), "spaces 8/2");
        tool.editor()->setText(QStringLiteral("\tx\u00e9\ny")); // caret after the tab:
        tool.editor()->setSelection(1, 0, 0, 1);                // columns, characters, whole lines
        choose(actions->lineEndingMenu(), "lineEndingCRLF");
        tool.findChild<StatusStrip *>()->entry("overwrite")->click();
        QCOMPARE(shown(tool),
                 "Ln 1, Col 9 (4 chars) | UTF-8 | CRLF | Spaces: 2 | Plain Text | OVR");
        QTest::keyClick(tool.editor(), Qt::Key_Insert);
        QTRY_COMPARE(tool.findChild<StatusStrip *>()->entry("overwrite")->text(), "INS");
    }

    // Texts show the caret as "|" and a selection's anchor as "<".
    void typingAssist_data()
    {
        QTest::addColumn<QString>("language");
        QTest::addColumn<QString>("before");
        QTest::addColumn<QStringList>("keys");
        QTest::addColumn<QString>("after");
        QTest::addColumn<bool>("autoClose");
        const auto row = [](const char *tag, const char *before, const QStringList &keys,
                            const char *after, bool autoClose = true, const char *language = "") {
            QTest::newRow(tag) << QString(language) << QString(before) << keys << QString(after)
                               << autoClose;
        };
        row("typing over the closers", "f|", {"(", "[", "x", "]", ")", ";"}, "f([x]);|");
        row("a closer already there is typed", "f(|)", {")"}, "f()|)");
        row("quotes pair; not after a letter", "s = |", {"\"", "a", "\"", "x", "'"},
            "s = \"a\"x'|");
        row("selection wrapped, stays selected", "a <bc| d", {"["}, "a [<bc|] d");
        row("backspace removes the pair", "f|", {"(", "Backspace"}, "f|");
        row("option off", "f<x|", {"(", "\"", "Backspace"}, "f(|", false);
        row("closing brace goes to its block", "{\n    if (x) {\n        y();\n        |", {"}"},
            "{\n    if (x) {\n        y();\n    }|");
        row("closed blocks and comments skipped", "f()\n{\n\tif (x) {\n\t}\n\t// {\n\t\t|", {"}"},
            "f()\n{\n\tif (x) {\n\t}\n\t// {\n}|", true, "C");
        row("Alt with a letter types nothing", "a|", {"Alt+J", "Alt+Shift+F"}, "a|");
    }
    void typingAssist()
    {
        QFETCH(QString, language);
        QFETCH(QString, before);
        QFETCH(QStringList, keys);
        QFETCH(QString, after);
        QFETCH(bool, autoClose);
        SedGUI tool;
        tool.setLanguage(language);
        tool.findChild<TypingAssist *>()->setAutoClose(autoClose);
        QsciScintilla *editor = tool.editor();
        const qsizetype anchor = before.indexOf('<'); // before the caret
        const qsizetype caret = before.remove('<').indexOf('|');
        editor->setText(before.remove('|'));
        editor->SendScintilla(QsciScintillaBase::SCI_SETSEL, anchor >= 0 ? anchor : caret, caret);
        for (const QString &key : keys)
            QTest::keyClick(editor, QKeySequence(key)[0].key(),
                            QKeySequence(key)[0].keyboardModifiers());
        QString text = editor->text();
        const long end = editor->SendScintilla(QsciScintillaBase::SCI_GETCURRENTPOS);
        const long start = editor->SendScintilla(QsciScintillaBase::SCI_GETANCHOR);
        text.insert(end, '|');
        if (start != end)
            text.insert(start < end ? start : start + 1, '<');
        QCOMPARE(text, after);
    }

    // Every reader of the text's changes sees the edits, undo and redo, near
    // the start and far into a text whose changes the component does not
    // report itself: the typed closer is stepped over (the typing help
    // follows the positions), the line number margin widens at the
    // 10,000th line, the match marks count the typed word.
    void changesReachEveryReader_data()
    {
        QTest::addColumn<bool>("atEnd");
        QTest::newRow("near the start") << false;
        QTest::newRow("far into the text") << true;
    }
    void changesReachEveryReader()
    {
        QFETCH(bool, atEnd);
        QByteArray text = QByteArray("xxxxxxx\n").repeated(9998) + "xxxxxxx";
        QVERIFY(text.size() > ChangeRelay::NearBytes);
        SedGUI tool;
        QsciScintilla *editor = tool.editor();
        editor->SendScintilla(QsciScintillaBase::SCI_SETTEXT, 0ul, text.constData());
        editor->SendScintilla(QsciScintillaBase::SCI_EMPTYUNDOBUFFER);
        QCoreApplication::sendPostedEvents(); // the signals of the text put in
        MatchMarker marker(editor, nullptr);
        SearchQuery query;
        query.pattern = QStringLiteral("eed");
        marker.setQuery(query);
        const int narrow = editor->marginWidth(0);
        // The component itself reports no change far in: it would count up to it.
        int reportedFarIn = 0;
        connect(editor, &QsciScintillaBase::SCN_MODIFIED, this,
                [&reportedFarIn](int position, int type) {
                    reportedFarIn += position >= ChangeRelay::NearBytes &&
                                     (type & (QsciScintillaBase::SC_MOD_INSERTTEXT |
                                              QsciScintillaBase::SC_MOD_DELETETEXT));
                });
        const long at = atEnd ? long(text.size()) : 0;
        editor->SendScintilla(QsciScintillaBase::SCI_GOTOPOS, static_cast<unsigned long>(at));
        for (const char *key : {"n", "(", "e", "e", "d", ")", "Return"})
            QTest::keyClick(editor, QKeySequence(QString::fromLatin1(key))[0].key());
        const QByteArray typed = text.insert(at, "n(eed)\n");
        for (int round = 0; round < 3; ++round) {
            const bool undone = round == 1;
            QCOMPARE(editor->text().toLatin1() == typed, !undone);
            QTRY_COMPARE(marker.count(), undone ? 0 : 1);
            QTRY_COMPARE(editor->marginWidth(0) > narrow, !undone);
            while (undone ? editor->isRedoAvailable() : editor->isUndoAvailable())
                undone ? editor->redo() : editor->undo();
        }
        QCOMPARE(reportedFarIn, 0);
    }
};

QTEST_MAIN(TstIndentation)
#include "tst_indentation.moc"
