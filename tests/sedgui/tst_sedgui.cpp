#include "../textcore/fileopsrunner.h"
#include "dialogs/infobar.h"
#include "promptrecorder.h"
#include "sedgui.h"
#include "textformat.h"

#include <QDir>
#include <QFileInfo>
#include <QPointer>
#include <QScrollBar>
#include <QSignalSpy>
#include <QStringEncoder>
#include <QTemporaryDir>
#include <QTest>

#include <Qsci/qsciscintilla.h>

using namespace koru::sedgui;

class TestSedGUI : public QObject
{
    Q_OBJECT

    QTemporaryDir m_dir;
    QString file(const char *name, const QByteArray &bytes)
    {
        const QString path = m_dir.filePath(QString::fromLatin1(name));
        return FileOpsRunner::writeFile(path, bytes) ? path : QString();
    }

private Q_SLOTS:
    void saveKeepsTheFileFormat_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QByteArray>("typed"); // after typing a second line; empty: saved unedited
        QTest::addColumn<bool>("untitled");    // typed in a new tool, saved through Save As
        const auto row = [](const char *tag, const QByteArray &bytes, const QByteArray &typed = {},
                            bool untitled = false) {
            QTest::newRow(tag) << bytes << typed << untitled;
        };
        const auto utf16 = [](QStringView text) -> QByteArray {
            return QStringEncoder(QStringConverter::Utf16LE, QStringEncoder::Flag::WriteBom)(text);
        };
        row("utf-8 with bom", "\xef\xbb\xbfhello\nworld\n");
        row("invalid bytes and nul", QByteArray("ok \xff\xfe bad \xc3( and\0nul\n", 21));
        row("mixed endings, no final newline", "a\r\nb\nc\rd");
        row("untitled", "print('hi')\n", {}, true);
        // The typed line takes the file's encoding, byte order mark and line ending.
        row("latin-1 lf", "first, caf\xe9\nx\n", "first, caf\xe9\ntyped \xe9t\xe9\nx\n");
        row("utf-16le crlf", utf16(u"caf\u00e9\r\nx\r\n"),
            utf16(u"caf\u00e9\r\ntyped \u00e9t\u00e9\r\nx\r\n"));
    }
    void saveKeepsTheFileFormat()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(QByteArray, typed);
        QFETCH(bool, untitled);
        PromptRecorder prompts;
        SedGUI tool;
        tool.show();
        QString path = m_dir.filePath(QStringLiteral("named.py"));
        if (untitled) {
            tool.editor()->setText(QString::fromUtf8(bytes));
            QVERIFY(!tool.save()); // Save As cancelled
            QVERIFY(tool.isModified());
            prompts.fileName = path;
        } else {
            QVERIFY(tool.openFile(path = file("format.txt", bytes), nullptr));
            QVERIFY(!tool.isModified());
        }
        if (!typed.isEmpty()) {
            tool.editor()->setCursorPosition(1, 0);
            QTest::keyClick(tool.editor(), Qt::Key_Return);
            tool.editor()->insertAt(QStringLiteral("typed \u00e9t\u00e9"), 1, 0);
        }
        QSignalSpy saved(&tool, &SedGUI::sigFileSaved);
        QVERIFY(tool.save());
        QCOMPARE(FileOpsRunner::readFile(path), typed.isEmpty() ? bytes : typed);
        QVERIFY(!tool.isModified() && prompts.asked.isEmpty());
        QCOMPARE(prompts.fileNameRequests, untitled ? 2 : 0);
        QCOMPARE(saved, QList<QVariantList>{{path}});
        QCOMPARE(tool.getTabText(), QFileInfo(path).fileName());
        QVERIFY(!untitled || tool.languageName() == QLatin1String("Python"));
    }
    // A missing file is made only by the save; a save that fails keeps the text and the tool.
    void closeAsksWhenModified_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<int>("answer"); // -1: unmodified, not asked
        QTest::addColumn<bool>("closes");
        QTest::addColumn<QByteArray>("onDisk");
        const auto row = [](const char *tag, const char *name, int answer, bool closes,
                            const char *onDisk) {
            QTest::newRow(tag) << QString(name) << answer << closes << QByteArray(onDisk);
        };
        row("unmodified closes without asking", "close.txt", -1, true, "old\n");
        row("save", "close.txt", UserPrompt::Save, true, "new\nold\n");
        row("discard", "close.txt", UserPrompt::Discard, true, "old\n");
        row("cancel", "close.txt", UserPrompt::Cancel, false, "old\n");
        row("missing file saved", "later.txt", UserPrompt::Save, true, "new\n");
        row("save fails", "not-a-folder/file.txt", UserPrompt::Save, false, "<unreadable>");
    }
    void closeAsksWhenModified()
    {
        QFETCH(QString, name);
        QFETCH(int, answer);
        QFETCH(bool, closes);
        QFETCH(QByteArray, onDisk);
        file("close.txt", "old\n");
        file("not-a-folder", "x"); // a file where a folder should be: fails for root too
        const QString path = m_dir.filePath(name);
        PromptRecorder prompts;
        QPointer<SedGUI> tool = new SedGUI;
        QVERIFY(tool->openFile(path, nullptr));
        QCOMPARE(QFile::exists(path), name == QLatin1String("close.txt"));
        if (answer >= 0) {
            prompts.answers = {UserPrompt::Button(answer)};
            tool->editor()->insertAt(QStringLiteral("new\n"), 0, 0);
        }
        QSignalSpy closed(tool.data(), &HubGUITool::sigToolClose);
        QSignalSpy saved(tool.data(), &SedGUI::sigFileSaved);
        tool->closeTool(false);
        QCOMPARE(closed.count(), closes ? 1 : 0);
        QCOMPARE(FileOpsRunner::readFile(path), onDisk);
        QCOMPARE(saved.count(), answer == UserPrompt::Save && closes ? 1 : 0);
        const bool blocked = name.startsWith(QLatin1String("not-a-folder"));
        QCOMPARE(prompts.asked.size(), answer < 0 ? 0 : blocked ? 2 : 1);
        QVERIFY(!blocked || prompts.asked.last().text.contains(path));
        if (closes) {
            QCOMPARE(closed.first().first().value<QWidget *>(), tool.data());
            QTRY_VERIFY(tool.isNull());
        } else {
            QVERIFY(tool->isModified());
            delete tool;
        }
    }
    // A file that looks binary opens read-only with a notice until the user chooses to edit.
    void binaryFileOpensReadOnlyUntilChosen_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<bool>("binary");
        const QByteArray text = QByteArray("int x;\n").repeated(1200); // 8.4 KB
        const auto utf16 = [](QStringView s) -> QByteArray {
            return QStringEncoder(QStringConverter::Utf16LE, QStringEncoder::Flag::WriteBom)(s);
        };
        QTest::newRow("executable header") << QByteArray("\x7f"
                                                         "ELF\x02\x01\x01\0\0\0",
                                                         10)
                                           << true;
        QTest::newRow("nul late in the first 8 KiB") << text.left(8000) + '\0' + "x" << true;
        QTest::newRow("nul past the first 8 KiB") << text + '\0' << false;
        QTest::newRow("control bytes, no nul") << QByteArray("ab\x01\x02\x03\x04"
                                                             "cdefgh\x05")
                                               << true;
        QTest::newRow("text with escapes and form feeds")
            << QByteArray("\x1b[1mbold\x1b[0m\f\npage\t2\r\n") << false;
        QTest::newRow("utf-16 text") << utf16(u"caf\u00e9\r\nx\r\n") << false;
    }
    void binaryFileOpensReadOnlyUntilChosen()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(bool, binary);
        SedGUI tool;
        QVERIFY(tool.openFile(file("data.bin", bytes), nullptr));
        QCOMPARE(tool.editor()->isReadOnly(), binary);
        QCOMPARE(tool.infoBar()->message().contains(QLatin1String("binary")), binary);
        emit tool.infoBar()->actionTriggered();
        QVERIFY(!tool.editor()->isReadOnly());
        QVERIFY(!tool.infoBar()->message().contains(QLatin1String("binary")));
        // The choice outlives a reload.
        QVERIFY(tool.reloadWithEncoding(tool.textFormat().encoding));
        QVERIFY(!tool.editor()->isReadOnly());
    }
    void hugeLineOpensPlainAndSavesExactly()
    {
        // 5.3 MB lines of multi-byte characters: display breaks must not split them.
        const QByteArray line = QByteArray("{x}(\xc3\xa9);\xe2\x82\xac ").repeated(440000);
        const QByteArray bytes = "short\r\n" + line + "\r\n" + line + "\r\nend";
        const QString path = file("huge.c", bytes);
        PromptRecorder prompts;
        SedGUI tool;
        QVERIFY(tool.openFile(path, nullptr));
        QVERIFY(tool.hasHugeLines() && tool.editor()->isReadOnly() && !tool.isModified());
        QVERIFY(!tool.editor()->lexer() && tool.editor()->wrapMode() == QsciScintilla::WrapNone);
        QVERIFY(!tool.infoBar()->message().isEmpty());
        for (int i = 0; i < tool.editor()->lines(); ++i)
            QVERIFY(tool.editor()->text(i).size() <= 1002); // broken for display
        QVERIFY(tool.saveTo(path));
        QVERIFY(FileOpsRunner::readFile(path) == bytes);
    }
    // Opened files start at the first column, and the horizontal scroll bar
    // spans the widest line shown, not a fixed width.
    void openedFileShowsTheFirstColumn_data()
    {
        QTest::addColumn<QByteArray>("line");
        QTest::addColumn<int>("count");
        QTest::addColumn<bool>("scrolls"); // wider than the view
        QTest::newRow("short file") << QByteArray("int main() { return 0; }\n") << 3 << false;
        QTest::newRow("2 M-line log")
            << QByteArray("2026-11-23 10:00:00.123 INFO worker started\n") << 2000000 << false;
        QTest::newRow("long line") << QByteArray(20000, 'x') + '\n' << 2 << true;
    }
    void openedFileShowsTheFirstColumn()
    {
        QFETCH(QByteArray, line);
        QFETCH(int, count);
        QFETCH(bool, scrolls);
        const QString path = file("start.log", line.repeated(count));
        SedGUI tool;
        QVERIFY(tool.openFile(path, nullptr));
        tool.resize(800, 600);
        tool.show();
        QVERIFY(QTest::qWaitForWindowExposed(&tool));
        QScrollBar *bar = tool.editor()->horizontalScrollBar();
        QTRY_COMPARE(bar->maximum() > 0, scrolls);
        QCOMPARE(tool.editor()->SendScintilla(QsciScintillaBase::SCI_GETXOFFSET), 0);
        QCOMPARE(tool.editor()->SendScintilla(QsciScintillaBase::SCI_GETFIRSTVISIBLELINE), 0);
    }
    // The disk refuses the save (here: the folder became a file): Save As is offered.
    void failedSaveOffersSaveAs_data()
    {
        QTest::addColumn<int>("answer");
        QTest::addColumn<QString>("newName"); // the Save As dialog's answer; empty: cancelled
        QTest::newRow("save as elsewhere") << int(UserPrompt::SaveAs) << "elsewhere.txt";
        QTest::newRow("save as, dialog cancelled") << int(UserPrompt::SaveAs) << QString();
        QTest::newRow("cancel") << int(UserPrompt::Cancel) << "elsewhere.txt";
    }
    void failedSaveOffersSaveAs()
    {
        QFETCH(int, answer);
        QFETCH(QString, newName);
        const bool saved = answer == UserPrompt::SaveAs && !newName.isEmpty();
        QTemporaryDir dir;
        QVERIFY(QDir(dir.path()).mkdir(QStringLiteral("folder")));
        const QString path = dir.filePath(QStringLiteral("folder/doc.txt"));
        QVERIFY(FileOpsRunner::writeFile(path, "text\n"));
        PromptRecorder prompts;
        prompts.answers = {UserPrompt::Button(answer)};
        prompts.fileName = newName.isEmpty() ? QString() : dir.filePath(newName);
        SedGUI tool;
        QVERIFY(tool.openFile(path, nullptr));
        tool.editor()->insertAt(QStringLiteral("mine "), 0, 0);
        QVERIFY(QDir(dir.filePath(QStringLiteral("folder"))).removeRecursively());
        QVERIFY(FileOpsRunner::writeFile(dir.filePath(QStringLiteral("folder")), "a file"));

        QCOMPARE(tool.save(), saved);
        QCOMPARE(prompts.asked.size(), 1);
        QVERIFY(prompts.asked.first().buttons.contains(UserPrompt::SaveAs));
        QCOMPARE(tool.getFileName(), saved ? dir.filePath(newName) : path);
        QCOMPARE(tool.isModified(), !saved);
        if (saved)
            QCOMPARE(FileOpsRunner::readFile(dir.filePath(newName)), QByteArray("mine text\n"));
    }
    void processArgsSelectsTheLine()
    {
        QByteArray bytes;
        for (int i = 1; i <= 200; ++i)
            bytes += "line " + QByteArray::number(i) + '\n';
        const QString path = file("lines.txt", bytes);
        SedGUI tool;
        QVERIFY(tool.openFile(path, nullptr));
        tool.processArgs(nullptr, {path, QStringLiteral("-line"), QStringLiteral("150")});
        tool.show();
        QVERIFY(QTest::qWaitForWindowExposed(&tool));
        QCOMPARE(tool.selectedText(), QStringLiteral("line 150"));
    }
    void reopenWithEncoding()
    {
        const QString path = file("reopen.txt", "caf\xe9\n");
        PromptRecorder prompts;
        SedGUI tool;
        QVERIFY(tool.openFile(path, nullptr));
        QVERIFY(!tool.reloadWithEncoding("UTF-8")); // not valid UTF-8: refused with a message
        QCOMPARE(prompts.asked.size(), 1);
        QCOMPARE(tool.editor()->text(), QStringLiteral("caf\u00e9\n"));
        QVERIFY(tool.reloadWithEncoding("WINDOWS-1252"));
        QCOMPARE(tool.editor()->text(), QStringLiteral("caf\u00e9\n"));
        // A modified document asks first; Escape keeps the edit, saved in the new encoding.
        tool.editor()->insertAt(QStringLiteral("edit "), 0, 0);
        QVERIFY(!tool.reloadWithEncoding("ISO-8859-15"));
        QCOMPARE(prompts.asked.size(), 2);
        QVERIFY(tool.save());
        QCOMPARE(FileOpsRunner::readFile(path), QByteArray("edit caf\xe9\n"));
    }
    // The content picks the language on opening and on saving under a new
    // name; once the user chose one, a reload or a new name keeps it.
    void languageFollowsContentUntilChosen()
    {
        PromptRecorder prompts;
        SedGUI tool;
        QVERIFY(tool.openFile(file("script", "#!/usr/bin/env python3\nprint(1)\n"), nullptr));
        QCOMPARE(tool.languageName(), QStringLiteral("Python"));
        tool.editor()->setText(QStringLiteral("x\n# vim: ft=ruby\n"));
        QVERIFY(tool.saveTo(m_dir.filePath(QStringLiteral("renamed.txt"))));
        QCOMPARE(tool.languageName(), QStringLiteral("Ruby"));
        tool.setLanguage(QStringLiteral("Go"));
        QVERIFY(tool.reloadWithEncoding("ISO-8859-1"));
        QVERIFY(tool.saveTo(m_dir.filePath(QStringLiteral("again.py"))));
        QCOMPARE(tool.languageName(), QStringLiteral("Go"));
        QVERIFY(prompts.asked.isEmpty());
    }
};

QTEST_MAIN(TestSedGUI)
#include "tst_sedgui.moc"
