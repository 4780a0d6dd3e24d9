#include "editorcommands.h"
#include "gotodialog.h"

#include <QTest>

#include <Qsci/qscilexercpp.h>
#include <Qsci/qscilexerhtml.h>
#include <Qsci/qscilexerpython.h>
#include <Qsci/qscilexersql.h>
#include <Qsci/qsciscintilla.h>

using namespace koru::sedgui;

struct CommentCase
{
    QString language, text;
    int from, to; // -1: no selection, caret at 0
    QString result;
};
Q_DECLARE_METATYPE(CommentCase)

class TstEditorCommands : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void goToLineClamps_data();
    void goToLineClamps();
    void goToLineShowsAFoldedLine();
    void parseGoToText_data();
    void parseGoToText();
    void toggleCommentIsOneUndoStep_data();
    void toggleCommentIsOneUndoStep();
    void duplicateLines_data();
    void duplicateLines();
    void trimTrailingWhitespace();
};

namespace {

void select(QsciScintilla &editor, int from, int to)
{
    editor.SendScintilla(QsciScintillaBase::SCI_SETSEL, static_cast<unsigned long>(from),
                         static_cast<long>(to));
}

void commentRow(const char *name, const CommentCase &c)
{
    QTest::newRow(name) << c;
}

} // namespace

void TstEditorCommands::goToLineClamps_data()
{
    QTest::addColumn<int>("line");
    QTest::addColumn<int>("column");
    QTest::addColumn<int>("expectedLine");
    QTest::addColumn<int>("expectedIndex");

    QTest::newRow("first line") << 1 << 1 << 1 << 0;
    QTest::newRow("middle with column") << 250 << 6 << 250 << 5;
    QTest::newRow("zero goes to the first line") << 0 << 1 << 1 << 0;
    QTest::newRow("past the end goes to the last line") << 999999 << 1 << 500 << 0;
    QTest::newRow("column zero") << 1 << 0 << 1 << 0;
    QTest::newRow("column past the line end") << 3 << 400 << 3 << 11;
}

void TstEditorCommands::goToLineClamps()
{
    QFETCH(int, line);
    QFETCH(int, column);
    QFETCH(int, expectedLine);
    QFETCH(int, expectedIndex);

    QsciScintilla editor;
    editor.resize(400, 300);
    QStringList lines;
    for (int i = 1; i <= 500; ++i) {
        lines << QStringLiteral("line %1 text").arg(i);
    }
    editor.setText(lines.join(QLatin1Char('\n')));
    editor.show();
    QVERIFY(QTest::qWaitForWindowExposed(&editor));

    QCOMPARE(EditorCommands::goToLine(&editor, line, column), expectedLine);
    int caretLine = -1;
    int caretIndex = -1;
    editor.getCursorPosition(&caretLine, &caretIndex);
    QCOMPARE(caretLine + 1, expectedLine);
    QCOMPARE(caretIndex, expectedIndex);
    const long first = editor.SendScintilla(QsciScintillaBase::SCI_GETFIRSTVISIBLELINE);
    const long onScreen = editor.SendScintilla(QsciScintillaBase::SCI_LINESONSCREEN);
    QVERIFY(first <= caretLine && caretLine < first + onScreen); // the line is in view
}

void TstEditorCommands::goToLineShowsAFoldedLine()
{
    QsciScintilla editor;
    QsciLexerCPP lexer;
    editor.setLexer(&lexer);
    editor.setFolding(QsciScintilla::BoxedTreeFoldStyle);
    editor.setText(QStringLiteral("int f()\n{\n    a();\n    b();\n}\n"));
    editor.SendScintilla(QsciScintillaBase::SCI_COLOURISE, 0UL, -1L);
    editor.SendScintilla(QsciScintillaBase::SCI_FOLDALL,
                         static_cast<unsigned long>(QsciScintillaBase::SC_FOLDACTION_CONTRACT));
    QVERIFY(!editor.SendScintilla(QsciScintillaBase::SCI_GETLINEVISIBLE, 3UL));

    EditorCommands::goToLine(&editor, 4);
    QVERIFY(editor.SendScintilla(QsciScintillaBase::SCI_GETLINEVISIBLE, 3UL));
    editor.setLexer(nullptr);
}

void TstEditorCommands::parseGoToText_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<qint64>("line"); // 0: invalid
    QTest::addColumn<qint64>("column");

    QTest::newRow("line") << "42" << qint64(42) << qint64(1);
    QTest::newRow("line:column") << "42:7" << qint64(42) << qint64(7);
    QTest::newRow("line,column with spaces") << " 42 , 7 " << qint64(42) << qint64(7);
    for (const char *invalid : {"", "ten", "-3", "5:"}) {
        QTest::newRow(*invalid ? invalid : "empty") << invalid << qint64(0) << qint64(0);
    }
}

void TstEditorCommands::parseGoToText()
{
    QFETCH(QString, text);
    QFETCH(qint64, line);
    QFETCH(qint64, column);

    qint64 parsedLine = 0;
    qint64 parsedColumn = 0;
    QCOMPARE(GoToDialog::parse(text, &parsedLine, &parsedColumn), line > 0);
    if (line > 0) {
        QCOMPARE(parsedLine, line);
        QCOMPARE(parsedColumn, column);
    }
}

void TstEditorCommands::toggleCommentIsOneUndoStep_data()
{
    QTest::addColumn<CommentCase>("c");

    commentRow("c++ one line", {"C++", "int a;\nint b;", -1, -1, "// int a;\nint b;"});
    commentRow("c++ uncomment", {"C++", "// int a;\nint b;", -1, -1, "int a;\nint b;"});
    commentRow("c++ keeps indentation",
               {"C++", "    a();\n        b();\n", 0, 22, "    // a();\n    //     b();\n"});
    commentRow("c++ mixed lines comment all", {"C++", "// a\nb\n", 0, 6, "// // a\n// b\n"});
    commentRow("c++ blank lines stay", {"C++", "a\n\nb", 0, 4, "// a\n\n// b"});
    commentRow("selection ending at a line start leaves that line",
               {"C++", "a\nb\n", 0, 2, "// a\nb\n"});
    commentRow("python", {"Python", "x = 1", -1, -1, "# x = 1"});
    commentRow("python uncomment without space", {"Python", "#x = 1", -1, -1, "x = 1"});
    commentRow("sql", {"SQL", "select 1", -1, -1, "-- select 1"});
    commentRow("html block", {"HTML", "<p>a</p>\n<p>b</p>", 0, 17, "<!-- <p>a</p>\n<p>b</p> -->"});
    commentRow("html unblock", {"HTML", "<!-- <p>a</p> -->", -1, -1, "<p>a</p>"});
    commentRow("plain text does nothing", {"", "text", -1, -1, "text"});
}

void TstEditorCommands::toggleCommentIsOneUndoStep()
{
    QFETCH(CommentCase, c);
    QsciScintilla editor;
    QsciLexerCPP cpp;
    QsciLexerPython python;
    QsciLexerSQL sql;
    QsciLexerHTML html;
    for (QsciLexer *lexer : std::initializer_list<QsciLexer *>{&cpp, &python, &sql, &html}) {
        if (QString::fromLatin1(lexer->language()) == c.language) {
            editor.setLexer(lexer);
        }
    }
    editor.setText(c.text);
    editor.SendScintilla(QsciScintillaBase::SCI_EMPTYUNDOBUFFER);
    if (c.from >= 0) {
        select(editor, c.from, c.to);
    }
    QCOMPARE(EditorCommands::toggleComment(&editor), !c.language.isEmpty());
    QCOMPARE(editor.text(), c.result);
    editor.undo();
    QCOMPARE(editor.text(), c.text);
    QVERIFY(!editor.isUndoAvailable());
    editor.setLexer(nullptr);
}

void TstEditorCommands::duplicateLines_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("selectFrom");
    QTest::addColumn<int>("selectTo");
    QTest::addColumn<QString>("result");

    QTest::newRow("caret line") << "a\nb" << 0 << 0 << "a\na\nb";
    QTest::newRow("last line without end") << "a\nb" << 2 << 2 << "a\nb\nb";
    QTest::newRow("selected lines") << "a\nb\nc" << 0 << 3 << "a\nb\na\nb\nc";
}

void TstEditorCommands::duplicateLines()
{
    QFETCH(QString, text);
    QFETCH(int, selectFrom);
    QFETCH(int, selectTo);
    QFETCH(QString, result);

    QsciScintilla editor;
    editor.setText(text);
    select(editor, selectFrom, selectTo);
    EditorCommands::duplicateLines(&editor);
    QCOMPARE(editor.text(), result);
}

void TstEditorCommands::trimTrailingWhitespace()
{
    QsciScintilla editor;
    editor.setText(QStringLiteral("a \t\r\n  b\r\nc  "));
    QCOMPARE(EditorCommands::trimTrailingWhitespace(&editor), qint64(2));
    QCOMPARE(editor.text(), QStringLiteral("a\r\n  b\r\nc"));
    QCOMPARE(EditorCommands::trimTrailingWhitespace(&editor), qint64(0));
    QVERIFY(editor.isModified());
}

QTEST_MAIN(TstEditorCommands)
#include "tst_editorcommands.moc"
