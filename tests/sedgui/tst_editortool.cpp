#include "baseusrsettings.h"
#include "dialogs/findbar.h"
#include "editing/editoractions.h"
#include "editing/editorcommands.h"
#include "languages.h"
#include "lexers/languagelexers.h"
#include "options/editorsettings.h"
#include "options/optionpages.h"
#include "optwidget.h"
#include "promptrecorder.h"
#include "sedgui.h"
#include "textformat.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QFile>
#include <QHBoxLayout>
#include <QMenu>
#include <QMimeData>
#include <QSpinBox>
#include <QTemporaryDir>
#include <QTest>
#include <QUrl>

#include <Qsci/qscilexer.h>
#include <Qsci/qsciscintilla.h>

#include <array>
#include <memory>

using namespace koru::sedgui;

// Stands in for the main window: records open requests.
class FakeWindow : public QWidget
{
    Q_OBJECT
public:
    QStringList opened;
public Q_SLOTS:
    void onOpenFile(const QString &path, int) { opened << path; }
};

namespace {

QAction *findAction(SedGUI *tool, int menu, const char *name)
{
    for (QAction *action : *tool->getMenuActions(menu)) {
        if (action->objectName() == QLatin1String(name))
            return action;
    }
    return nullptr;
}

QAction *menuEntry(QMenu *menu, const QVariant &data, const QString &name = {})
{
    Q_EMIT menu->aboutToShow();
    // Also in sub-menus (the encodings are grouped by region).
    for (QAction *action : menu->findChildren<QAction *>()) {
        if ((!name.isEmpty() && action->objectName() == name) ||
            (data.isValid() && action->data() == data))
            return action;
    }
    return nullptr;
}

QByteArray readFile(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<unreadable>");
}

// Writes the bytes to a file in dir and opens it in the tool.
QString openWith(SedGUI &tool, const QTemporaryDir &dir, const QByteArray &bytes)
{
    QFile file(dir.filePath(QStringLiteral("file.txt")));
    const bool written = file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
    file.close();
    return written && tool.openFile(file.fileName(), nullptr) ? file.fileName() : QString();
}

long send(QsciScintilla &editor, unsigned int message, unsigned long wParam = 0, long lParam = 0)
{
    return editor.SendScintilla(message, wParam, lParam);
}

// Runs a command by name; a language name means Toggle Comment in that language.
qint64 run(QsciScintilla &editor, const QString &command)
{
    if (command == QLatin1String("duplicate")) {
        EditorCommands::duplicateLines(&editor);
        return -1;
    }
    if (command == QLatin1String("trim"))
        return EditorCommands::trimTrailingWhitespace(&editor);
    return EditorCommands::toggleComment(&editor, Languages::commentSyntax(command));
}

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

class TstEditorTool : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { BaseUsrSettings("SRC_EDITOR").clear(); }

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
            control(page, "restoreSession")->setChecked(false);
            page->applyPage();
        }
        {
            Page page = shownPage("Editor");
            control<QSpinBox>(page, "tabWidth")->setValue(7);
            control<QSpinBox>(page, "fontSize")->setValue(19);
            control(page, "wordWrap")->setChecked(true);
            auto *scheme = control<QComboBox>(page, "colourScheme");
            scheme->setCurrentIndex(scheme->findData(QStringLiteral("high-contrast-dark")));
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
        QVERIFY(!values.restoreSession);

        // A new tool (the next start) reads only what is in the store.
        SedGUI next;
        for (SedGUI *tool : {&first, &second, &next}) {
            QsciScintilla *editor = tool->editor();
            QCOMPARE(editor->tabWidth(), 7);
            QCOMPARE(editor->font().pointSize(), 19);
            QCOMPARE(editor->wrapMode(), QsciScintilla::WrapWord);
            QCOMPARE(editor->SendScintilla(QsciScintillaBase::SCI_STYLEGETBACK,
                                           QsciScintillaBase::STYLE_DEFAULT),
                     0L); // black
            QCOMPARE(editor->marginWidth(0), 0);
            QVERIFY(editor->indentationsUseTabs());
            QVERIFY(!editor->SendScintilla(QsciScintillaBase::SCI_GETCARETLINEVISIBLE));
        }
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

    void shortcutReachesTheFocusedToolOnly()
    {
        QWidget window;
        auto *layout = new QHBoxLayout(&window);
        auto *first = new SedGUI;
        auto *second = new SedGUI;
        layout->addWidget(first);
        layout->addWidget(second);
        first->editor()->setText(QStringLiteral("one"));
        second->editor()->setText(QStringLiteral("two"));
        window.show();
        // Made active directly, not by a window manager that may be slow or absent.
        QApplication::setActiveWindow(&window);
        first->editor()->setFocus();
        QCOMPARE(QApplication::focusWidget(), first->editor());
        QTest::keyClick(first->editor(), Qt::Key_D, Qt::ControlModifier | Qt::ShiftModifier);
        QTest::keyClick(first->editor(), Qt::Key_U, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(first->editor()->text(), QStringLiteral("ONE\none"));
        QCOMPARE(second->editor()->text(), QStringLiteral("two"));
    }

    // Save with Encoding writes at once; what the encoding cannot hold is
    // refused naming the character and line, and nothing changes.
    void saveWritesTheChosenFormat_data()
    {
        QTest::addColumn<QByteArray>("original");
        QTest::addColumn<QString>("lineEnding");  // action name, or none
        QTest::addColumn<QByteArray>("current");  // the encoding entry checked on opening
        QTest::addColumn<QByteArray>("encoding"); // the entry chosen
        QTest::addColumn<QByteArray>("saved");    // on disk afterwards
        QTest::newRow("mixed to CR")
            << QByteArray("a\r\nb\nc") << "lineEndingCR" << QByteArray("UTF-8")
            << QByteArray("UTF-8") << QByteArray("a\rb\rc");
        QTest::newRow("CRLF to LF and UTF-16LE")
            << QByteArray("a\r\n") << "lineEndingLF" << QByteArray("UTF-8")
            << QByteArray("UTF-16LE") << QByteArray::fromHex("fffe61000a00");
        QTest::newRow("UTF-8 to Windows-1252 and CRLF")
            << QByteArray("\xe2\x82\xac 1\n") << "lineEndingCRLF" << QByteArray("UTF-8")
            << QByteArray("WINDOWS-1252") << QByteArray("\x80 1\r\n");
        QTest::newRow("to UTF-8 with BOM")
            << QByteArray("x\n") << QString() << QByteArray("UTF-8") << QByteArray("UTF-8+BOM")
            << QByteArray("\xef\xbb\xbfx\n");
        QTest::newRow("BOM shown, saved without")
            << QByteArray("\xef\xbb\xbfx\n") << QString() << QByteArray("UTF-8+BOM")
            << QByteArray("UTF-8") << QByteArray("x\n");
        QTest::newRow("refused: euro on line 2 in Latin-1")
            << QByteArray("a\n\xe2\x82\xac\n") << QString() << QByteArray("UTF-8")
            << QByteArray("ISO-8859-1") << QByteArray("a\n\xe2\x82\xac\n");
    }
    void saveWritesTheChosenFormat()
    {
        QFETCH(QByteArray, original);
        QFETCH(QString, lineEnding);
        QFETCH(QByteArray, current);
        QFETCH(QByteArray, encoding);
        QFETCH(QByteArray, saved);
        const bool refused = saved == original && lineEnding.isEmpty();
        QTemporaryDir dir;
        SedGUI tool;
        const QString path = openWith(tool, dir, original);
        QVERIFY(!path.isEmpty());
        PromptRecorder prompts;
        if (!lineEnding.isEmpty()) {
            QMenu *endings = findAction(&tool, SedGUI::ViewMenu, "lineEndings")->menu();
            QAction *ending = menuEntry(endings, {}, lineEnding);
            QVERIFY(ending);
            ending->trigger();
        }
        QMenu *encodings = findAction(&tool, SedGUI::ViewMenu, "encoding")->menu();
        Q_EMIT encodings->aboutToShow();
        auto *saveWith = encodings->findChild<QMenu *>(QStringLiteral("saveWithEncodingMenu"));
        QVERIFY(saveWith);
        // The one entry checked is the document's encoding.
        const auto checked = [&saveWith] {
            QVariantList data;
            for (QAction *action : saveWith->findChildren<QAction *>())
                if (action->isChecked())
                    data.append(action->data());
            return data;
        };
        QCOMPARE(checked(), QVariantList{current});
        QAction *choice = menuEntry(saveWith, encoding);
        QVERIFY(choice);
        choice->trigger();
        QCOMPARE(readFile(path), saved);
        QCOMPARE(tool.isModified(), false);
        QCOMPARE(prompts.asked.size(), refused ? 1 : 0);
        if (refused) {
            QVERIFY(prompts.asked.first().text.contains(QStringLiteral("\u20ac")));
            QVERIFY(prompts.asked.first().text.contains(QLatin1String("line 2")));
        }
        Q_EMIT encodings->aboutToShow();
        saveWith = encodings->findChild<QMenu *>(QStringLiteral("saveWithEncodingMenu"));
        QCOMPARE(checked(), QVariantList{refused ? current : encoding});
    }

    // A text the encoding cannot hold, forced onto the document: the save
    // asks, Cancel writes nothing, Save as UTF-8 writes UTF-8.
    void unencodableCharacterMakesTheSaveAsk()
    {
        QTemporaryDir dir;
        SedGUI tool;
        const QByteArray original("price: \xe2\x82\xac 5\n");
        const QString path = openWith(tool, dir, original);
        QVERIFY(!path.isEmpty());
        PromptRecorder prompts;
        TextFormat latin1 = tool.textFormat();
        latin1.encoding = "ISO-8859-1";
        tool.setTextFormat(latin1);
        QVERIFY(!tool.save());
        QCOMPARE(prompts.asked.size(), 1);
        QCOMPARE(readFile(path), original);
        prompts.answers = {UserPrompt::SaveAsUtf8};
        tool.editor()->append(QStringLiteral("more\n"));
        QVERIFY(tool.save());
        QCOMPARE(readFile(path), original + "more\n");
    }

    void dropOpensFilesOrInsertsText_data()
    {
        QTest::addColumn<bool>("files"); // else text
        QTest::addColumn<QStringList>("opened");
        QTest::addColumn<QString>("text");
        QTest::newRow("local files open, remote ignored")
            << true << QStringList{"/tmp/a.txt", "/tmp/b c.txt", "/tmp/bad\\x{FF}.txt"} << "keep";
        QTest::newRow("text is inserted") << false << QStringList() << "droppedkeep";
    }
    void dropOpensFilesOrInsertsText()
    {
        FakeWindow window;
        auto *tool = new SedGUI(&window);
        tool->editor()->setText(QStringLiteral("keep"));
        tool->editor()->setCursorPosition(0, 0);
        QFETCH(bool, files);
        QMimeData data;
        if (files)
            data.setUrls({QUrl::fromLocalFile(QStringLiteral("/tmp/a.txt")),
                          QUrl::fromLocalFile(QStringLiteral("/tmp/b c.txt")),
                          QUrl::fromEncoded("file:///tmp/bad%FF.txt"), // not UTF-8
                          QUrl(QStringLiteral("https://example.org/remote.txt"))});
        else
            data.setText(QStringLiteral("dropped"));
        QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(tool->editor()->viewport(), &enter);
        QVERIFY(enter.isAccepted());
        QDropEvent drop(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(tool->editor()->viewport(), &drop);
        QCoreApplication::processEvents();
        QTEST(window.opened, "opened");
        QTEST(tool->editor()->text(), "text");
    }

    // The bar's replacement reaches the document (its undo step and regex rows are the
    // searcher's own tests); Find Next in another tool reuses the bar's last search.
    void findBarReplacesAndFindNextReusesTheSearch()
    {
        SedGUI tool;
        tool.editor()->setText(QStringLiteral("alpha beta\nalpha gamma\n"));
        tool.replace();
        auto *bar = tool.findChild<FindBar *>();
        QVERIFY(bar && !bar->isHidden());
        SearchQuery query;
        query.pattern = QStringLiteral("alpha");
        bar->setQuery(query);
        bar->setReplacement(QStringLiteral("omega"));
        QCOMPARE(bar->replaceAll(), qint64(2));
        QCOMPARE(tool.editor()->text(), QStringLiteral("omega beta\nomega gamma\n"));
        query.pattern = QStringLiteral("gamma");
        bar->setQuery(query);
        QVERIFY(bar->findNext().found());
        SedGUI other;
        other.editor()->setText(QStringLiteral("hay gamma hay gamma"));
        for (long end : {9, 19}) {
            other.findNext();
            QCOMPARE(other.editor()->selectedText(), QStringLiteral("gamma"));
            QCOMPARE(other.editor()->SendScintilla(QsciScintillaBase::SCI_GETCURRENTPOS), end);
        }
    }

    void goToLineClampsAndUnfolds()
    {
        // Lines 2 to 500 are folded away under the first: the caret line must be unfolded.
        QsciScintilla editor;
        editor.setLexer(LanguageLexers::create(QStringLiteral("C++"), &editor));
        editor.setFolding(QsciScintilla::BoxedTreeFoldStyle);
        editor.setText("{\n" + QStringLiteral("line 0 text\n").repeated(498) + "}");
        editor.resize(400, 300);
        editor.show();
        QVERIFY(QTest::qWaitForWindowExposed(&editor));
        send(editor, QsciScintillaBase::SCI_COLOURISE, 0, -1);
        send(editor, QsciScintillaBase::SCI_FOLDALL, QsciScintillaBase::SC_FOLDACTION_CONTRACT);
        QVERIFY(!send(editor, QsciScintillaBase::SCI_GETLINEVISIBLE, 2));
        // A folded line with a column, then a line and a column both past the end.
        for (const auto &[line, column, expectedLine, expectedIndex] :
             {std::array{250, 6, 250, 5}, std::array{999999, 400, 500, 1}}) {
            QCOMPARE(EditorCommands::goToLine(&editor, line, column), expectedLine);
            int caretLine = -1;
            int caretIndex = -1;
            editor.getCursorPosition(&caretLine, &caretIndex);
            QCOMPARE(caretLine + 1, expectedLine);
            QCOMPARE(caretIndex, expectedIndex);
            QVERIFY(send(editor, QsciScintillaBase::SCI_GETLINEVISIBLE, caretLine));
            const long first = send(editor, QsciScintillaBase::SCI_GETFIRSTVISIBLELINE);
            const long onScreen = send(editor, QsciScintillaBase::SCI_LINESONSCREEN);
            QVERIFY(first <= caretLine && caretLine < first + onScreen); // scrolled into view
        }
    }

    void commandIsOneUndoStep_data()
    {
        QTest::addColumn<QString>("command");
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("from"); // the selection
        QTest::addColumn<int>("to");
        QTest::addColumn<qint64>("returned");
        QTest::addColumn<QString>("result");
        const auto row = [](const char *tag, const char *command, const char *text, int from,
                            int to, qint64 returned, const char *result) {
            QTest::newRow(tag) << QString(command) << QString(text) << from << to << returned
                               << QString(result);
        };
        row("c++ comment", "C++", "int a;\nint b;", 0, 0, 1, "// int a;\nint b;");
        row("c++ uncomment", "C++", "// int a;\nint b;", 0, 0, 1, "int a;\nint b;");
        row("c++ keeps indentation", "C++", "    a();\n        b();\n", 0, 22, 1,
            "    // a();\n    //     b();\n");
        row("c++ mixed lines comment all", "C++", "// a\nb\n", 0, 6, 1, "// // a\n// b\n");
        row("c++ blank lines stay", "C++", "a\n\nb", 0, 4, 1, "// a\n\n// b");
        row("selection ending at a line start", "C++", "a\nb\n", 0, 2, 1, "// a\nb\n");
        row("python uncomment without space", "Python", "#x = 1", 0, 0, 1, "x = 1");
        row("html block", "HTML", "<p>a</p>\n<p>b</p>", 0, 17, 1, "<!-- <p>a</p>\n<p>b</p> -->");
        row("html unblock", "HTML", "<!-- <p>a</p> -->", 0, 0, 1, "<p>a</p>");
        row("plain text has no comments", "", "text", 0, 0, 0, "text");
        row("duplicate last line", "duplicate", "a\nb", 2, 2, -1, "a\nb\nb");
        row("duplicate selected lines", "duplicate", "a\nb\nc", 0, 3, -1, "a\nb\na\nb\nc");
        row("trim", "trim", "a \t\r\n  b\r\nc  ", 0, 0, 2, "a\r\n  b\r\nc");
        row("trim trimmed text", "trim", "a\r\n  b", 0, 0, 0, "a\r\n  b");
    }
    void commandIsOneUndoStep()
    {
        QFETCH(QString, command);
        QFETCH(QString, text);
        QFETCH(int, from);
        QFETCH(int, to);
        QFETCH(qint64, returned);
        QFETCH(QString, result);
        QsciScintilla editor;
        editor.setText(text);
        send(editor, QsciScintillaBase::SCI_EMPTYUNDOBUFFER);
        send(editor, QsciScintillaBase::SCI_SETSEL, from, to);
        QCOMPARE(run(editor, command), returned);
        QCOMPARE(editor.text(), result);
        editor.undo();
        QCOMPARE(editor.text(), text);
        QVERIFY(!editor.isUndoAvailable());
    }

    // Keys as the user presses them, with the state after each ("|" caret, "^" anchor).
    void keysMoveFindAndRedo_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("find"); // the last search, for Find Previous
        QTest::addColumn<QStringList>("keys");
        QTest::addColumn<QStringList>("expected");
        const auto row = [](const char *tag, const char *text, const char *find, const char *keys,
                            const char *expected) {
            QTest::newRow(tag) << QString(text) << QString(find) << QString(keys).split(u' ')
                               << QString(expected).split(u' ');
        };
        row("before ( to before ) and back", "|(a[b]{c})", "", "Ctrl+M Ctrl+M",
            "(a[b]{c}|) |(a[b]{c})");
        row("nested [ forwards", "(a|[b{c}])", "", "Ctrl+M", "(a[b{c}|])");
        row("after } to after {", "x{a(b)}|y", "", "Ctrl+M Ctrl+M", "x{|a(b)}y x{a(b)}|y");
        row("the brace after the caret first", "(a)|(b)", "", "Ctrl+M", "(a)(b|)");
        row("select forwards", "|(a[b])", "", "Ctrl+Shift+M", "^(a[b])|");
        row("select backwards", "{a(b)}|", "", "Ctrl+Shift+M", "|{a(b)}^");
        row("select from inside nested", "({|[a]})", "", "Ctrl+Shift+M", "({^[a]|})");
        row("no brace near", "a(b)_c|d", "", "Ctrl+M Ctrl+Shift+M", "a(b)_c|d a(b)_c|d");
        row("unmatched brace", "|(ab", "", "Ctrl+M", "|(ab");
        row("find previous steps back and wraps", "foo_x_foo_y_foo|", "foo",
            "Shift+F3 Shift+F3 Shift+F3 Shift+F3",
            "foo_x_foo_y_^foo| foo_x_^foo|_y_foo ^foo|_x_foo_y_foo foo_x_foo_y_^foo|");
        row("Ctrl+Shift+Z redoes", "ab|", "", "X Ctrl+Z Ctrl+Shift+Z Ctrl+Shift+Z",
            "abx| ab| abx| abx|");
    }
    void keysMoveFindAndRedo()
    {
        QFETCH(QString, text);
        QFETCH(QString, find);
        QFETCH(QStringList, keys);
        QFETCH(QStringList, expected);
        SedGUI tool;
        QsciScintilla &editor = *tool.editor();
        editor.setText(QString(text).remove(u'|').replace(u'_', u' '));
        send(editor, QsciScintillaBase::SCI_EMPTYUNDOBUFFER);
        send(editor, QsciScintillaBase::SCI_GOTOPOS, text.indexOf(u'|'));
        SearchQuery query;
        query.pattern = find;
        FindBar::setLastQuery(query);
        tool.show();
        // Made active directly, not by a window manager that may be slow or absent.
        QApplication::setActiveWindow(&tool);
        editor.setFocus();
        QCOMPARE(QApplication::focusWidget(), &editor);
        for (qsizetype i = 0; i < keys.size(); ++i) {
            const QKeyCombination key = QKeySequence(keys[i])[0];
            QTest::keyClick(&editor, key.key(), key.keyboardModifiers());
            QString state = editor.text().replace(u' ', u'_');
            const long caret = send(editor, QsciScintillaBase::SCI_GETCURRENTPOS);
            const long anchor = send(editor, QsciScintillaBase::SCI_GETANCHOR);
            if (anchor != caret)
                state.insert(std::max(caret, anchor), caret > anchor ? u'|' : u'^');
            QCOMPARE(state.insert(std::min(caret, anchor), caret > anchor ? u'^' : u'|'),
                     expected[i]);
        }
    }

    // Each language has a lexer (its patterns and the Open filter: tst_languages).
    void everyLanguageHasALexer()
    {
        QObject owner;
        QVERIFY(Languages::names().size() >= 35);
        for (const QString &name : Languages::names()) {
            const QsciLexer *lexer = LanguageLexers::create(name, &owner);
            QVERIFY2(lexer && lexer->parent() == &owner, qPrintable(name));
        }
        QVERIFY(!LanguageLexers::create(QString(), &owner));
        QVERIFY(!LanguageLexers::create(QStringLiteral("Klingon"), &owner));
    }
};

QTEST_MAIN(TstEditorTool)
#include "tst_editortool.moc"
