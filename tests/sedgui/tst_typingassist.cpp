#include "baseusrsettings.h"
#include "sedgui.h"
#include "tool/typingassist.h"

#include <QTest>

#include <Qsci/qsciscintilla.h>

using namespace koru::sedgui;

namespace {

// Text with the caret as "|" and, for a selection, its anchor as "«".
void setState(QsciScintilla *editor, QString text)
{
    const qsizetype anchor = text.indexOf(QStringLiteral("«"));
    if (anchor >= 0)
        text.remove(anchor, 1);
    const qsizetype caret = text.indexOf(QLatin1Char('|'));
    text.remove(caret, 1);
    editor->setText(text);
    editor->SendScintilla(QsciScintillaBase::SCI_SETSEL, anchor >= 0 ? anchor : caret, caret);
}

QString state(QsciScintilla *editor)
{
    QString text = editor->text();
    const long caret = editor->SendScintilla(QsciScintillaBase::SCI_GETCURRENTPOS);
    const long anchor = editor->SendScintilla(QsciScintillaBase::SCI_GETANCHOR);
    text.insert(caret, QLatin1Char('|'));
    if (anchor != caret)
        text.insert(anchor < caret ? anchor : anchor + 1, QStringLiteral("«"));
    return text;
}

} // namespace

class TstTypingAssist : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { BaseUsrSettings("SRC_EDITOR").clear(); }

    // keys: one character is typed as text, anything longer is a key sequence.
    void typing_data()
    {
        QTest::addColumn<QString>("language");
        QTest::addColumn<QString>("before");
        QTest::addColumn<QStringList>("keys");
        QTest::addColumn<QString>("after");
        QTest::addColumn<bool>("autoClose");

        const auto row = [](const char *tag, const char *language, const char *before,
                            const QStringList &keys, const char *after, bool autoClose = true) {
            QTest::newRow(tag) << QString(language) << QString::fromUtf8(before) << keys
                               << QString::fromUtf8(after) << autoClose;
        };
        row("opener brings its closer", "", "f|", {"("}, "f(|)");
        row("typing over the closer", "", "f|", {"(", "[", "x", "]", ")", ";"}, "f([x]);|");
        row("a closer already there is not skipped", "", "f(|)", {")"}, "f()|)");
        row("no pair before a word", "", "|x", {"("}, "(|x");
        row("quotes pair and step over", "", "s = |", {"\"", "a", "\""}, "s = \"a\"|");
        row("apostrophe after a letter", "", "don|", {"'", "t"}, "don't|");
        row("selection wrapped, stays selected", "", "a «bc| d", {"["}, "a [«bc|] d");
        row("wrap with quotes across lines", "", "«x\ny|", {"'"}, "'«x\ny|'");
        row("backspace removes the pair", "", "f|", {"(", "Backspace"}, "f|");
        row("backspace on a plain bracket", "", "f()|", {"Backspace"}, "f(|");
        row("option off", "", "f|", {"(", "\"", "Backspace"}, "f(|", false);
        row("option off, selection replaced", "", "«ab|", {"("}, "(|", false);
        row("closing brace goes to its block", "", "{\n    if (x) {\n        y();\n        |",
            {"}"}, "{\n    if (x) {\n        y();\n    }|");
        row("closing brace, nested block closed before", "C", "int f()\n{\n\tif (x) {\n\t}\n\t\t|",
            {"}"}, "int f()\n{\n\tif (x) {\n\t}\n}|");
        row("brace in a comment does not count", "C",
            "void g()\n{\n    // {\n    int a;\n        |", {"}"},
            "void g()\n{\n    // {\n    int a;\n}|");
        row("brace after text stays", "", "    x|", {"}"}, "    x}|");
        row("brace without an opener stays", "", "  |", {"}"}, "  }|");
        row("Alt with a letter types nothing", "", "a|", {"Alt+J", "Alt+Shift+F"}, "a|");
    }
    void typing()
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
        setState(editor, before);
        for (const QString &key : keys) {
            if (key.size() == 1) {
                QTest::keyClick(editor, key.at(0).toLatin1());
            } else {
                const QKeyCombination combination = QKeySequence(key)[0];
                QTest::keyClick(editor, combination.key(), combination.keyboardModifiers());
            }
        }
        QCOMPARE(state(editor), after);
    }

    // One undo takes back a wrap or a brace moved to its block.
    void oneUndoPerTypedKey()
    {
        SedGUI tool;
        QsciScintilla *editor = tool.editor();
        setState(editor, "{\n    x;\n        |");
        QTest::keyClick(editor, '}');
        editor->undo();
        QCOMPARE(state(editor), "{\n    x;\n        |");
        setState(editor, "«ab|");
        QTest::keyClick(editor, '(');
        editor->undo();
        QCOMPARE(editor->text(), "ab");
    }
};

QTEST_MAIN(TstTypingAssist)
#include "tst_typingassist.moc"
