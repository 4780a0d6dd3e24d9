#include "baseusrsettings.h"
#include "dialogs/statusstrip.h"
#include "sedgui.h"
#include "tool/editoractions.h"

#include <QFile>
#include <QMenu>
#include <QTemporaryDir>
#include <QTest>
#include <QToolButton>

#include <Qsci/qsciscintilla.h>

using namespace koru::sedgui;

namespace {

const char *const s_entries[] = {"position",    "encoding", "lineEnding",
                                 "indentation", "syntax",   "overwrite"};

QString shown(const SedGUI &tool)
{
    const auto *strip = tool.findChild<StatusStrip *>();
    QStringList texts;
    for (const char *name : s_entries)
        texts << strip->entry(QLatin1String(name))->text();
    return texts.join(QLatin1String(" | "));
}

QAction *menuEntry(QMenu *menu, const char *name)
{
    Q_EMIT menu->aboutToShow();
    return menu->findChild<QAction *>(QLatin1String(name));
}

} // namespace

class TstStatusStrip : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { BaseUsrSettings("SRC_EDITOR").clear(); }

    // The selection runs from (fromLine, fromIndex) to the caret at
    // (line, index); indexes are in bytes.
    void showsTheDocument_data()
    {
        QTest::addColumn<QString>("fileName");
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QList<int>>("selection"); // fromLine, fromIndex, line, index
        QTest::addColumn<QString>("expected");

        QTest::newRow("tabs count as columns")
            << "x.c" << QByteArray("int f()\n{\n\treturn 0;\n}\n") << QList<int>{2, 1, 2, 1}
            << "Ln 3, Col 5 | UTF-8 | LF | Tabs: 4 | C | INS";
        QTest::newRow("characters, not bytes; BOM and CRLF")
            << "x.py"
            << QByteArray("\xef\xbb\xbf"
                          "def f():\r\n    return '\xc3\xa9'\r\n")
            << QList<int>{0, 4, 1, 14}
            << "Ln 2, Col 15 (20 chars, 2 lines) | UTF-8 with BOM | "
               "CRLF | Spaces: 4 | Python | INS";
        QTest::newRow("whole lines: the next line's start does not count")
            << "notes" << QByteArray("one\ntwo\nthree\n") << QList<int>{0, 0, 2, 0}
            << "Ln 3, Col 1 (8 chars, 2 lines) | UTF-8 | LF | Spaces: 4 | Plain Text | INS";
        QTest::newRow("within one line")
            << "Makefile" << QByteArray("all:\n\tcc -o x x.c\n") << QList<int>{1, 1, 1, 3}
            << "Ln 2, Col 7 (2 chars) | UTF-8 | LF | Tabs: 4 | Makefile | INS";
    }
    void showsTheDocument()
    {
        QFETCH(QString, fileName);
        QFETCH(QByteArray, bytes);
        QFETCH(QList<int>, selection);
        QFETCH(QString, expected);
        QTemporaryDir dir;
        QFile file(dir.filePath(fileName));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        file.close();
        SedGUI tool;
        QVERIFY(tool.openFile(file.fileName(), nullptr));
        tool.editor()->setSelection(selection[0], selection[1], selection[2], selection[3]);
        QCOMPARE(shown(tool), expected);
    }

    // The entries offer the View menu's own menus; their choices and the
    // overwrite toggle show at once, and an indentation chosen for the
    // document outlives a change of the settings.
    void choicesShowAtOnce()
    {
        SedGUI tool;
        tool.editor()->setText(QStringLiteral("a\n\tb\n\tc\n"));
        auto *strip = tool.findChild<StatusStrip *>();
        auto *actions = tool.findChild<EditorActions *>();
        QCOMPARE(strip->entry("lineEnding")->menu(), actions->lineEndingMenu());
        QCOMPARE(strip->entry("indentation")->menu(), actions->indentationMenu());

        menuEntry(actions->indentationMenu(), "indentTabs")->trigger();
        menuEntry(actions->indentationMenu(), "indentWidth8")->trigger();
        QVERIFY(tool.editor()->indentationsUseTabs());
        QCOMPARE(tool.editor()->tabWidth(), 8);
        menuEntry(actions->indentationMenu(), "indentSpaces")->trigger();
        menuEntry(actions->indentationMenu(), "indentWidth2")->trigger();
        tool.applySettings();
        QVERIFY(!tool.editor()->indentationsUseTabs());
        QCOMPARE(tool.editor()->indentationWidth(), 2);
        QCOMPARE(tool.editor()->tabWidth(), 8);

        menuEntry(actions->lineEndingMenu(), "lineEndingCRLF")->trigger();
        strip->entry("overwrite")->click();
        QVERIFY(tool.editor()->overwriteMode());
        QCOMPARE(shown(tool), "Ln 1, Col 1 | UTF-8 | CRLF | Spaces: 2 | Plain Text | OVR");
        QTest::keyClick(tool.editor(), Qt::Key_Insert);
        QTRY_COMPARE(strip->entry("overwrite")->text(), "INS");
    }
};

QTEST_MAIN(TstStatusStrip)
#include "tst_statusstrip.moc"
