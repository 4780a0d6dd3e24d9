#include "baseusrsettings.h"
#include "options/editorsettings.h"
#include "sedgui.h"
#include "textformat.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

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
    return QStringLiteral("%1 tab=%2 indent=%3")
        .arg(editor->indentationsUseTabs() ? "tabs" : "spaces")
        .arg(editor->tabWidth())
        .arg(editor->indentationWidth() ? editor->indentationWidth() : editor->tabWidth());
}

bool writeFile(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

QByteArray readFile(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<unreadable>");
}

} // namespace

class TstIndentation : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { BaseUsrSettings("SRC_EDITOR").clear(); }

    // The settings are tabs-or-spaces plus width first, then the opposite
    // with tab width 5 and indent width 3: a document keeps what its
    // .editorconfig, language or lines say and takes the rest from the settings.
    // "typed" is the line made by Enter then Tab at the end of the first line.
    void sourcesInOrder_data()
    {
        QTest::addColumn<QByteArray>("editorconfig");
        QTest::addColumn<QString>("fileName");
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<bool>("settingsTabs");
        QTest::addColumn<int>("settingsWidth");
        QTest::addColumn<QString>("before");
        QTest::addColumn<QString>("after");
        QTest::addColumn<QString>("typed");

        QTest::newRow("Makefile: tabs whatever the settings and lines")
            << QByteArray() << "Makefile" << QByteArray("all:\n    cc -o x x.c\n") << false << 4
            << "tabs tab=4 indent=4"
            << "tabs tab=5 indent=5"
            << "\t";
        QTest::newRow("tab-indented C over settings with spaces")
            << QByteArray() << "x.c" << QByteArray("int f()\n{\n\treturn 0;\n}\n") << false << 4
            << "tabs tab=4 indent=4"
            << "tabs tab=5 indent=5"
            << "\t";
        QTest::newRow("4-space Python over settings with tabs")
            << QByteArray() << "x.py" << QByteArray("def f():\n    return 1\n") << true << 8
            << "spaces tab=8 indent=4"
            << "spaces tab=5 indent=4"
            << "    ";
        QTest::newRow("nothing in the file: the settings")
            << QByteArray() << "x.txt" << QByteArray("a\nb\n") << false << 2
            << "spaces tab=2 indent=2"
            << "tabs tab=5 indent=3"
            << "   ";
        QTest::newRow(".editorconfig over the language")
            << QByteArray("[Makefile]\nindent_style = space\nindent_size = 2\n") << "Makefile"
            << QByteArray("all:\n\tcc\n") << true << 8 << "spaces tab=2 indent=2"
            << "spaces tab=2 indent=2"
            << "  ";
        QTest::newRow(".editorconfig's tab width, the lines' indentation")
            << QByteArray("[*.js]\ntab_width = 3\n") << "x.js"
            << QByteArray("if (a) {\n  b();\n}\n") << true << 8 << "spaces tab=3 indent=2"
            << "spaces tab=3 indent=2"
            << "  ";
    }
    void sourcesInOrder()
    {
        QFETCH(QByteArray, editorconfig);
        QFETCH(QString, fileName);
        QFETCH(QByteArray, content);
        QFETCH(bool, settingsTabs);
        QFETCH(int, settingsWidth);
        QFETCH(QString, before);
        QFETCH(QString, after);
        QFETCH(QString, typed);

        QTemporaryDir dir;
        QVERIFY(writeFile(dir.filePath(".editorconfig"), "root = true\n" + editorconfig));
        QVERIFY(writeFile(dir.filePath(fileName), content));
        storeSettings(settingsTabs, settingsWidth, settingsWidth);
        SedGUI tool;
        QVERIFY(tool.openFile(dir.filePath(fileName), nullptr));
        QsciScintilla *editor = tool.editor();
        QCOMPARE(describe(editor), before);

        storeSettings(!settingsTabs, 5, 3);
        tool.applySettings();
        QCOMPARE(describe(editor), after);

        editor->setCursorPosition(0, editor->text(0).trimmed().size());
        QTest::keyClick(editor, Qt::Key_Return);
        QTest::keyClick(editor, Qt::Key_Tab);
        QCOMPARE(editor->text(1), typed + QLatin1Char('\n'));
    }

    // A file made by this document is written as its .editorconfig says;
    // one that exists keeps its own format. Saving honours the trimming and
    // final newline properties.
    void newFilesTakeTheEditorConfigFormat_data()
    {
        QTest::addColumn<int>("kind"); // 0 untitled, 1 path not existing yet, 2 existing file
        QTest::addColumn<QByteArray>("saved");
        const QByteArray written = "a\r\n\xe9\r\n";
        QTest::newRow("untitled, saved to a new path") << 0 << written;
        QTest::newRow("opened at a path that does not exist") << 1 << written;
        QTest::newRow("existing file keeps its format") << 2 << QByteArray("a\n\xc3\xa9\n");
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
        if (kind == 2)
            QVERIFY(writeFile(path, "x\n"));
        SedGUI tool;
        if (kind > 0)
            QVERIFY(tool.openFile(path, nullptr));
        tool.editor()->selectAll();
        QTest::keyClicks(tool.editor(), QStringLiteral("a  "));
        QTest::keyClick(tool.editor(), Qt::Key_Return);
        tool.editor()->insert(QStringLiteral("\u00e9"));
        QVERIFY(tool.saveTo(path));
        QCOMPARE(readFile(path), saved);
    }
};

QTEST_MAIN(TstIndentation)
#include "tst_indentation.moc"
