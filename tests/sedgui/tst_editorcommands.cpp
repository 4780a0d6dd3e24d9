#include "commentsyntax.h"
#include "editorcommands.h"
#include "gotodialog.h"

#include <QTest>

#include <Qsci/qscilexercpp.h>
#include <Qsci/qscilexerhtml.h>
#include <Qsci/qscilexerpython.h>
#include <Qsci/qscilexersql.h>
#include <Qsci/qsciscintilla.h>

using namespace koru::sedgui;

class TstEditorCommands : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void goToLineClamps_data();
    void goToLineClamps();
    void goToLineShowsAFoldedLine();
    void parseGoToText_data();
    void parseGoToText();
    void toggleComment_data();
    void toggleComment();
    void toggleCommentIsOneUndoStep();
    void lexerLanguagesHaveCommentSyntax();
    void duplicateLines_data();
    void duplicateLines();
    void trimTrailingWhitespace();
};

namespace {

QString numberedLines(int count)
{
    QStringList lines;
    for (int i = 1; i <= count; ++i) {
        lines << QStringLiteral("line %1 text").arg(i);
    }
    return lines.join(QLatin1Char('\n'));
}

} // namespace

void TstEditorCommands::goToLineClamps_data()
{
    QTest::addColumn<qint64>("line");
    QTest::addColumn<qint64>("column");
    QTest::addColumn<int>("expectedLine");
    QTest::addColumn<int>("expectedIndex");

    QTest::newRow("first line") << qint64(1) << qint64(1) << 1 << 0;
    QTest::newRow("middle with column") << qint64(250) << qint64(6) << 250 << 5;
    QTest::newRow("zero goes to the first line") << qint64(0) << qint64(1) << 1 << 0;
    QTest::newRow("past the end goes to the last line") << qint64(999999) << qint64(1) << 500 << 0;
    QTest::newRow("huge number") << qint64(1) << qint64(0) << 1 << 0;
    QTest::newRow("column past the line end") << qint64(3) << qint64(400) << 3 << 11;
}

void TstEditorCommands::goToLineClamps()
{
    QFETCH(qint64, line);
    QFETCH(qint64, column);
    QFETCH(int, expectedLine);
    QFETCH(int, expectedIndex);

    QsciScintilla editor;
    editor.resize(400, 300);
    editor.setText(numberedLines(500));
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
    QVERIFY2(
        first <= caretLine && caretLine < first + onScreen,
        qPrintable(
            QStringLiteral("line %1 not in view %2+%3").arg(caretLine).arg(first).arg(onScreen)));
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
    QTest::addColumn<bool>("valid");
    QTest::addColumn<qint64>("line");
    QTest::addColumn<qint64>("column");

    QTest::newRow("line") << "42" << true << qint64(42) << qint64(1);
    QTest::newRow("line:column") << "42:7" << true << qint64(42) << qint64(7);
    QTest::newRow("line,column with spaces") << " 42 , 7 " << true << qint64(42) << qint64(7);
    QTest::newRow("empty") << "" << false << qint64(0) << qint64(0);
    QTest::newRow("words") << "ten" << false << qint64(0) << qint64(0);
    QTest::newRow("negative") << "-3" << false << qint64(0) << qint64(0);
    QTest::newRow("trailing colon") << "5:" << false << qint64(0) << qint64(0);
}

void TstEditorCommands::parseGoToText()
{
    QFETCH(QString, text);
    QFETCH(bool, valid);
    QFETCH(qint64, line);
    QFETCH(qint64, column);

    qint64 parsedLine = 0;
    qint64 parsedColumn = 0;
    QCOMPARE(GoToDialog::parse(text, &parsedLine, &parsedColumn), valid);
    if (valid) {
        QCOMPARE(parsedLine, line);
        QCOMPARE(parsedColumn, column);
    }
}

void TstEditorCommands::toggleComment_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("selectFrom"); // -1: no selection, caret at 0
    QTest::addColumn<int>("selectTo");
    QTest::addColumn<QString>("result");

    QTest::newRow("c++ one line") << "C++"
                                  << "int a;\nint b;" << -1 << -1 << "// int a;\nint b;";
    QTest::newRow("c++ uncomment") << "C++"
                                   << "// int a;\nint b;" << -1 << -1 << "int a;\nint b;";
    QTest::newRow("c++ keeps indentation") << "C++"
                                           << "    a();\n        b();\n"
                                           << 0 << 22 << "    // a();\n    //     b();\n";
    QTest::newRow("c++ mixed lines comment all") << "C++"
                                                 << "// a\nb\n"
                                                 << 0 << 6 << "// // a\n// b\n";
    QTest::newRow("c++ blank lines stay") << "C++"
                                          << "a\n\nb" << 0 << 4 << "// a\n\n// b";
    QTest::newRow("selection ending at a line start leaves that line") << "C++"
                                                                       << "a\nb\n"
                                                                       << 0 << 2 << "// a\nb\n";
    QTest::newRow("python") << "Python"
                            << "x = 1" << -1 << -1 << "# x = 1";
    QTest::newRow("python uncomment without space") << "Python"
                                                    << "#x = 1" << -1 << -1 << "x = 1";
    QTest::newRow("sql") << "SQL"
                         << "select 1" << -1 << -1 << "-- select 1";
    QTest::newRow("html block") << "HTML"
                                << "<p>a</p>\n<p>b</p>" << 0 << 17 << "<!-- <p>a</p>\n<p>b</p> -->";
    QTest::newRow("html unblock") << "HTML"
                                  << "<!-- <p>a</p> -->" << -1 << -1 << "<p>a</p>";
    QTest::newRow("plain text does nothing") << ""
                                             << "text" << -1 << -1 << "text";
}

void TstEditorCommands::toggleComment()
{
    QFETCH(QString, language);
    QFETCH(QString, text);
    QFETCH(int, selectFrom);
    QFETCH(int, selectTo);
    QFETCH(QString, result);

    QsciScintilla editor;
    QsciLexerCPP cpp;
    QsciLexerPython python;
    QsciLexerSQL sql;
    QsciLexerHTML html;
    for (QsciLexer *lexer : std::initializer_list<QsciLexer *>{&cpp, &python, &sql, &html}) {
        if (QString::fromLatin1(lexer->language()) == language) {
            editor.setLexer(lexer);
        }
    }
    editor.setText(text);
    if (selectFrom >= 0) {
        editor.SendScintilla(QsciScintillaBase::SCI_SETSEL, static_cast<unsigned long>(selectFrom),
                             static_cast<long>(selectTo));
    }
    QCOMPARE(EditorCommands::toggleComment(&editor), !language.isEmpty());
    QCOMPARE(editor.text(), result);
    editor.setLexer(nullptr);
}

void TstEditorCommands::toggleCommentIsOneUndoStep()
{
    QsciScintilla editor;
    QsciLexerCPP cpp;
    editor.setLexer(&cpp);
    const QString text = QStringLiteral("a\nb\nc\n");
    editor.setText(text);
    editor.SendScintilla(QsciScintillaBase::SCI_EMPTYUNDOBUFFER);
    editor.selectAll();
    EditorCommands::toggleComment(&editor);
    QCOMPARE(editor.text(), QStringLiteral("// a\n// b\n// c\n"));
    editor.undo();
    QCOMPARE(editor.text(), text);
    QVERIFY(!editor.isUndoAvailable());
    editor.setLexer(nullptr);
}

void TstEditorCommands::lexerLanguagesHaveCommentSyntax()
{
    // The table is keyed by the names the lexers report; a renamed lexer would
    // silently lose comment toggling.
    QsciLexerCPP cpp;
    QsciLexerPython python;
    QsciLexerSQL sql;
    QsciLexerHTML html;
    for (QsciLexer *lexer : std::initializer_list<QsciLexer *>{&cpp, &python, &sql, &html}) {
        QVERIFY2(!CommentSyntax::forLanguage(lexer->language()).isEmpty(), lexer->language());
    }
    QVERIFY(CommentSyntax::forLanguage("NoSuchLanguage").isEmpty());
    QVERIFY(CommentSyntax::forLanguage(nullptr).isEmpty());
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
    editor.SendScintilla(QsciScintillaBase::SCI_SETSEL, static_cast<unsigned long>(selectFrom),
                         static_cast<long>(selectTo));
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
