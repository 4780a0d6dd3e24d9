#include "editorcommands.h"
#include "gotodialog.h"
#include "languages.h"

#include <QTest>

#include <Qsci/qscilexer.h>
#include <Qsci/qsciscintilla.h>

#include <array>

using namespace koru::sedgui;

namespace {

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
    editor.setLexer(Languages::createLexer(command, &editor));
    return EditorCommands::toggleComment(&editor);
}

} // namespace

class TstEditorCommands : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void goToLineClampsAndUnfolds()
    {
        // Lines 2 to 500 are folded away under the first: the caret line must be unfolded.
        QsciScintilla editor;
        editor.setLexer(Languages::createLexer(QStringLiteral("C++"), &editor));
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

    void parseGoToText_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("parsed"); // line:column, empty when refused
        const auto row = [](const char *text, const char *parsed) {
            QTest::newRow(text) << QString(text) << QString(parsed);
        };
        row("42", "42:1");
        row("42:7", "42:7");
        row(" 42 , 7 ", "42:7");
        for (const char *invalid : {"ten", "-3", "5:"})
            row(invalid, "");
    }
    void parseGoToText()
    {
        QFETCH(QString, text);
        qint64 line = 0;
        qint64 column = 0;
        const bool ok = GoToDialog::parse(text, &line, &column);
        QTEST(ok ? QStringLiteral("%1:%2").arg(line).arg(column) : QString(), "parsed");
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

    void detect_data()
    {
        QTest::addColumn<QString>("fileName");
        QTest::addColumn<QByteArray>("firstLine");
        QTest::addColumn<QString>("language");
        const auto row = [](const char *tag, const char *name, const char *line, const char *lang) {
            QTest::newRow(tag) << QString(name) << QByteArray(line) << QString(lang);
        };
        row("upper-case C is c++", "old.C", "", "C++");
        row("suffix ignores case, folder dropped", "/x/SCRIPT.PY", "", "Python");
        row("name wins over first line", "a.rb", "#!/bin/sh", "Ruby");
        row("shebang path", "run", "#!/bin/bash", "Bash");
        row("shebang env -S, versioned", "tool", "#! /usr/bin/env -S python3.11 -u", "Python");
        row("shebang unknown", "tool", "#!/usr/bin/awk -f", "");
        row("xml declaration", "data", "<?xml version=\"1.0\"?>", "XML");
        row("html doctype", "page", "<!DOCTYPE html>", "HTML");
        row("plain text", "notes.txt", "hello", "");
    }
    void detect()
    {
        QFETCH(QString, fileName);
        QFETCH(QByteArray, firstLine);
        QFETCH(QString, language);
        QCOMPARE(Languages::detect(fileName, firstLine), language);
    }

    // Each language has a lexer and its patterns in the Open filter, each detecting it again.
    void everyLanguageHasALexerAndIsOffered()
    {
        QObject owner;
        const QStringList filter = Languages::fileFilter().split(QStringLiteral(";;"));
        QCOMPARE(filter.first(), QStringLiteral("All Files (*)"));
        QVERIFY(Languages::names().size() >= 35);
        for (const QString &name : Languages::names()) {
            const QsciLexer *lexer = Languages::createLexer(name, &owner);
            QVERIFY2(lexer && lexer->parent() == &owner, qPrintable(name));
            const QStringList patterns = Languages::patterns(name);
            const QString entry = name + " (" + patterns.join(QLatin1Char(' ')) + ')';
            QVERIFY2(patterns.isEmpty() || filter.contains(entry), qPrintable(entry));
            for (const QString &pattern : patterns)
                QVERIFY2(Languages::detect(QString(pattern).replace('*', 'x'), {}) == name,
                         qPrintable(name + QLatin1Char(' ') + pattern));
        }
        QVERIFY(!Languages::createLexer(QString(), &owner));
        QVERIFY(!Languages::createLexer(QStringLiteral("Klingon"), &owner));
    }
};

QTEST_MAIN(TstEditorCommands)
#include "tst_editorcommands.moc"
