#include "opendocuments.h"
#include "replacepreviewmodel.h"
#include "replacerunner.h"
#include "sedgui.h"
#include "writefile.h"

#include <QMainWindow>
#include <QTabWidget>
#include <QTemporaryDir>

#include <Qsci/qsciscintilla.h>

using namespace Qt::StringLiterals;

// Replace in files through the real editor tool: files on disk keep their
// bytes but for the replacements, open documents change in their buffers.
class TestReplaceInFiles : public QObject
{
    Q_OBJECT

private slots:
    // Clicks on the preview's check boxes ("f1": file 1's, "f0c2": file 0's
    // third change's) and the checks the replace then gets, and each file's box.
    void previewGivesExactlyTheCheckedChanges_data()
    {
        QTest::addColumn<QStringList>("clicks");
        QTest::addColumn<QString>("checks");
        QTest::addColumn<QString>("fileBoxes"); // Checked, Unchecked, Partly
        QTest::newRow("as planned") << QStringList() << u"111|11"_s << u"CC"_s;
        QTest::newRow("a change") << QStringList{u"f0c1"_s} << u"101|11"_s << u"PC"_s;
        QTest::newRow("a file") << QStringList{u"f1"_s} << u"111|00"_s << u"CU"_s;
        QTest::newRow("a partly checked file, checked")
            << QStringList{u"f0c1"_s, u"f0"_s} << u"111|11"_s << u"CC"_s;
        QTest::newRow("every change of a file")
            << QStringList{u"f1c0"_s, u"f1c1"_s} << u"111|00"_s << u"CU"_s;
        QTest::newRow("an unchecked file, one change back")
            << QStringList{u"f0"_s, u"f0c2"_s} << u"001|11"_s << u"PC"_s;
    }
    void previewGivesExactlyTheCheckedChanges()
    {
        QFETCH(QStringList, clicks);
        QFETCH(QString, checks);
        QFETCH(QString, fileBoxes);
        QList<ReplaceFile> plan(2);
        plan[0].changes.resize(3);
        plan[1].changes.resize(2);
        ReplacePreviewModel model(plan);
        for (const QString &click : clicks) {
            const int file = click.mid(1, 1).toInt();
            const int change = click.size() > 2 ? click.mid(3).toInt() : -1;
            const QModelIndex box = model.index(model.fileRow(file) + 1 + change, 0);
            // What a click on the box does.
            const bool checked =
                box.data(Qt::CheckStateRole).value<Qt::CheckState>() == Qt::Checked;
            QVERIFY(model.setData(box, checked ? Qt::Unchecked : Qt::Checked, Qt::CheckStateRole));
        }
        QString got;
        QString boxes;
        for (const ReplaceFile &file : model.plan()) {
            for (const ReplaceChange &change : file.changes)
                got += change.checked ? u'1' : u'0';
            got += u'|';
            const auto state = model.index(model.fileRow(boxes.size()), 0)
                                   .data(Qt::CheckStateRole)
                                   .value<Qt::CheckState>();
            boxes += state == Qt::Checked ? u'C' : state == Qt::Unchecked ? u'U' : u'P';
        }
        got.chop(1);
        QCOMPARE(got, checks);
        QCOMPARE(boxes, fileBoxes);
    }
    void replaceKeepsTheRestOfEachFile_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("text"); // a leading '~' makes it a regular expression
        QTest::addColumn<QString>("replacement");
        // open, changed (on disk, after the preview), changed in the editor (far
        // in the open document, after the preview), undone (the unsaved edit,
        // after the preview), unchecked
        QTest::addColumn<QString>("setup");
        QTest::addColumn<QByteArray>("expected"); // on disk afterwards
        QTest::addColumn<int>("replacements");
        // Enough accented text for the detector to settle on the legacy encoding.
        const QByteArray cp1252 = "Caf\xe9 cr\xe8me br\xfbl\xe9"
                                  "e \xe0 la fran\xe7"
                                  "aise, "
                                  "na\xefve fa\xe7"
                                  "ade d\xe9j\xe0 \xe9t\xe9";
        QTest::newRow("plain") << QByteArray("a foo b foo\n") << u"foo"_s << u"bar"_s << QString()
                               << QByteArray("a bar b bar\n") << 2;
        QTest::newRow("regex with groups")
            << QByteArray("x=1\nyy=22\n") << u"~(\\w+)=(\\d+)"_s << u"\\2=\\1 $$"_s << QString()
            << QByteArray("1=x $\n22=yy $\n") << 2;
        QTest::newRow("windows-1252, crlf") << cp1252 + " foo\r\nfoo\r\n"
                                            << u"foo"_s << u"f\u00e9e"_s << QString()
                                            << cp1252 + " f\xe9"
                                                        "e\r\nf\xe9"
                                                        "e\r\n"
                                            << 2;
        QTest::newRow("open, modified")
            << QByteArray("foo\n") << u"foo"_s << u"bar"_s << u"open"_s << QByteArray("foo\n") << 2;
        QTest::newRow("changed after the preview")
            << QByteArray("foo\n") << u"foo"_s << u"bar"_s << u"changed"_s
            << QByteArray("foo, changed\n") << 0;
        // The edits the editor reports in different ways: each must stop the replace.
        const QByteArray large = "foo\n" + QByteArray(70000, 'a') + '\n';
        QTest::newRow("open, changed far in, after the preview")
            << large << u"foo"_s << u"bar"_s << u"changed in the editor"_s << large << 0;
        QTest::newRow("open, undone after the preview")
            << QByteArray("foo\n") << u"foo"_s << u"bar"_s << u"undone"_s << QByteArray("foo\n")
            << 0;
        QTest::newRow("unchecked") << QByteArray("foo\n") << u"foo"_s << u"bar"_s << u"unchecked"_s
                                   << QByteArray("foo\n") << 0;
    }
    void replaceKeepsTheRestOfEachFile()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, text);
        QFETCH(QString, replacement);
        QFETCH(QString, setup);
        QFETCH(QByteArray, expected);
        QFETCH(int, replacements);
        QTemporaryDir dir;
        const QString path = dir.filePath(u"f.txt"_s);
        writeFile(path, bytes);
        writeFile(dir.filePath(u"other.txt"_s), "no match\n");

        QMainWindow window;
        auto *tabs = new QTabWidget(&window);
        window.setCentralWidget(tabs);
        auto *tool = new koru::sedgui::SedGUI;
        tabs->addTab(tool, u"tool"_s);
        QString error;
        const bool open = setup == u"open" || setup == u"undone";
        if (open || setup == u"changed in the editor")
            QVERIFY(tool->openFile(path, &error));
        if (open) {
            tool->editor()->insertAt(u"foo "_s, 0, 0); // an unsaved edit
        }

        SearchOptions options;
        options.folder = dir.path();
        options.regularExpression = text.startsWith(u'~');
        options.text = options.regularExpression ? text.mid(1) : text;
        ReplaceRunner runner;
        QList<ReplaceFile> plan;
        bool planned = false;
        connect(&runner, &ReplaceRunner::planned, this,
                [&](const QList<ReplaceFile> &found, const QString &why, bool) {
                    plan = found;
                    error = why;
                    planned = true;
                });
        runner.plan(options, replacement, OpenDocuments::collect(&window));
        // The files are read by a worker: the plan cannot arrive within the call.
        QVERIFY(!planned);
        QTRY_VERIFY(planned);
        QVERIFY2(error.isEmpty(), qPrintable(error));
        QCOMPARE(plan.size(), 1);
        if (setup == u"changed")
            writeFile(path, expected);
        if (setup == u"unchecked")
            plan.first().changes.first().checked = false;
        if (setup == u"changed in the editor") {
            tool->editor()->append(u"x"_s);
            // Seen at once, before the editor's deferred report of the change.
            QVERIFY(OpenDocuments::serial(tool) != plan.first().serial);
        }
        if (setup == u"undone")
            tool->undo();
        const bool changed = setup.startsWith(u"changed") || setup == u"undone";
        ReplaceSummary summary;
        bool applied = false;
        connect(&runner, &ReplaceRunner::applied, this, [&](const ReplaceSummary &done, bool) {
            summary = done;
            applied = true;
        });
        runner.apply(plan);
        QTRY_VERIFY(applied);
        QCOMPARE(summary.replacements, replacements);
        QCOMPARE(summary.changedSincePreview.size(), changed ? 1 : 0);
        QVERIFY(summary.failed.isEmpty());

        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(file.readAll(), expected);
        if (setup == u"open") {
            QCOMPARE(tool->editor()->text(), u"bar bar\n"_s);
            QVERIFY(tool->isModified());
            tool->undo();
            QCOMPARE(tool->editor()->text(), u"foo foo\n"_s);
        }
    }
};

QTEST_MAIN(TestReplaceInFiles)
#include "tst_replaceinfiles.moc"
