#include "../sedgui/promptrecorder.h"
#include "filenameescape.h"
#include "filereader.h"
#include "hubappinterface.h"
#include "sedgui.h"
#include "templatetree.h"
#include "toolargs.h"

#include <QDir>
#include <QFile>
#include <QPluginLoader>
#include <QTemporaryDir>
#include <QTest>

#include <Qsci/qsciscintilla.h>

#include <fcntl.h>
#include <unistd.h>

using namespace koru::sedgui;

// Records the open-at-line requests the factory queues for the files after the first.
class FakeMainWindow : public QWidget
{
    Q_OBJECT

public:
    QList<std::pair<QString, int>> requests;

public Q_SLOTS:
    void onOpenFile(const QString &path, int line) { requests.append({path, line}); }
};

class TestSedApp : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanup() { qDeleteAll(TemplateTree::Instance()->documents()); }
    void parseArgs_data();
    void parseArgs();
    void openAtLineFindAgainOrRefuse();
    void startUpCommandLineQueuesTheOtherFiles();
    void nameNotUtf8OpensAndSavesThatFile_data();
    void nameNotUtf8OpensAndSavesThatFile();

private:
    SedGUI *create(const QStringList &args, QString *error = nullptr)
    {
        return qobject_cast<SedGUI *>(m_app->createTool(&m_window, 0, args, error, 0));
    }
    // "file:line" of a tool's cursor.
    static QString at(SedGUI *tool)
    {
        int line = 0, index = 0;
        if (tool)
            tool->editor()->getCursorPosition(&line, &index);
        return tool ? tool->getFileName() + u':' + QString::number(line + 1) : QString();
    }

    QPluginLoader m_loader{QStringLiteral(SEDAPP_PLUGIN_PATH)}; // the real plug-in
    hubAppInterface *m_app = qobject_cast<hubAppInterface *>(m_loader.instance());
    QTemporaryDir m_dir; // holds "lines.txt" and a file named "odd:12"
    FakeMainWindow m_window;
};

void TestSedApp::initTestCase()
{
    QVERIFY2(m_app, qPrintable(m_loader.errorString()));
    const QString both = QStringLiteral("both") + QChar(0x2029);
    for (const QString &name :
         {QStringLiteral("lines.txt"), QStringLiteral("odd:12"), QStringLiteral("lit\\u{0041}"),
          both, QStringLiteral("both\\u{2029}")}) {
        QFile file(m_dir.filePath(name));
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(QByteArray("x\n").repeated(100)));
    }
    // Names that are not UTF-8, which Qt's dialogs and URLs read with U+FFFD.
    for (const char *name : {"/one\xff.c", "/two\xfe.c", "/two\xfd.c"})
        QVERIFY(::close(::open(QByteArray(QFile::encodeName(m_dir.path()) + name).constData(),
                               O_CREAT | O_WRONLY, 0644)) == 0);
}

// "arguments => files as path@line, W the working folder; "ignoring" and the skipped"
void TestSedApp::parseArgs_data()
{
    QTest::addColumn<QString>("row");
    const QString utf8 = QString::fromUtf8("/src/caf\xc3\xa9.c");
    QTest::newRow("+N, -line N") << "+7 /a /b -line 42 => /a@7 /b@42";
    QTest::newRow("-line 0 or none") << "/a -line 0 -line => /a@0 ignoring -line -line";
    QTest::newRow("path:N, :N:column:, url") << "/x:12 /y:3:9: file:///a%20b => /x@12 /y@3 /a b@0";
    QTest::newRow("odd:12, --") << "odd:12 -- b/../-x +3 => W/odd:12@0 W/-x@0 W/+3@0";
    QTest::newRow("unknown options, empty one") << "--verbose  /a -x => /a@0 ignoring --verbose -x";
    // The shell hands a UTF-8 name over byte by byte; a Latin-1 one stays.
    QTest::newRow("UTF-8 bytes, Latin-1")
        << QString::fromLatin1(utf8.toUtf8()) + u' ' + utf8 + " => " + utf8 + "@0 " + utf8 + "@0";
    // Names written with escapes, as the result pane and the command line write them.
    QTest::newRow("escaped separator, name spelt out, not valid UTF-8, ambiguous")
        << QStringLiteral("/a\\u{2029}b lit\\u{0041} /bad\\x{FF}.c both\\u{2029} => /a") +
               QChar(0x2029) +
               QStringLiteral("b@0 W/lit\\u{005C}u{0041}@0 /bad\\x{FF}.c@0 refusing 1");
    QTest::newRow("read with U+FFFD: the one file, or refused when several")
        << QString::fromUtf8("one\xef\xbf\xbd.c two\xef\xbf\xbd.c => W/one\\x{FF}.c@0 refusing 1");
}

void TestSedApp::parseArgs()
{
    QFETCH(QString, row);
    const ToolArgs parsed = ToolArgs::parse(row.section(" => ", 0, 0).split(u' '), m_dir.path());
    QStringList found;
    for (const ToolArgs::File &file : parsed.files)
        found << QStringLiteral("%1@%2").arg(file.path).arg(file.line);
    if (!parsed.ignored.isEmpty())
        found << QStringLiteral("ignoring") << parsed.ignored;
    if (!parsed.refused.isEmpty())
        found << QStringLiteral("refusing") << QString::number(parsed.refused.size());
    QCOMPARE(found.join(u' '), row.section(" => ", 1).replace(u'W', m_dir.path()));
}

void TestSedApp::openAtLineFindAgainOrRefuse()
{
    const QString path = m_dir.filePath(QStringLiteral("lines.txt"));
    QCOMPARE(at(create({path, QStringLiteral("-line"), QStringLiteral("40")})), path + ":40");
    // The file, however spelt, is the tool already open; a line moves its cursor.
    QCOMPARE(at(create({path})), path + ":40");
    QCOMPARE(at(create({m_dir.path() + QStringLiteral("/./lines.txt:2")})), path + ":2");
    QCOMPARE(TemplateTree::Instance()->documents().size(), 1);

    // Which files are refused is the reader's business; the factory tells the
    // user once, hands the same text back, and keeps no document.
    PromptRecorder prompts;
    QString error;
    QVERIFY(!create({m_dir.path()}, &error));
    QCOMPARE(prompts.asked.size(), 1);
    QCOMPARE(prompts.asked.first().text, error);
    QVERIFY2(error.contains(m_dir.path()) && error.contains("directory"), qPrintable(error));
    QCOMPARE(TemplateTree::Instance()->documents().size(), 1);
}

void TestSedApp::startUpCommandLineQueuesTheOtherFiles()
{
    const QString dir = m_dir.path() + u'/';
    const auto tool = create({dir + "first.txt", "+5", dir + "second.txt", dir + "third.txt:9"});
    QCOMPARE(at(tool), dir + "first.txt:1");
    // Queued: the shell adds the first tool before the others arrive.
    QVERIFY(m_window.requests.isEmpty());
    QTRY_COMPARE(m_window.requests,
                 (QList<std::pair<QString, int>>{{dir + "second.txt", 5}, {dir + "third.txt", 9}}));
    SedGUI *fresh = create({}); // no file: a new document each time
    QVERIFY(fresh && fresh->getFileName().isEmpty() && create({}) != fresh);
}

// As main() and the result pane hand the name over (escaped), and as the
// session and recent files keep it: that file opens and saving writes it.
void TestSedApp::nameNotUtf8OpensAndSavesThatFile_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<bool>("asHeld");
    QTest::newRow("escaped") << QByteArray("bad\xff.txt") << false;
    QTest::newRow("as held") << QByteArray("bad\xff.txt") << true;
    QTest::newRow("an escape spelt out") << QByteArray("\\x{41}\xc3(.c") << false;
    QTest::newRow("spelt out, as held") << QByteArray("\\x{41}\xc3(.c") << true;
}

void TestSedApp::nameNotUtf8OpensAndSavesThatFile()
{
    QFETCH(QByteArray, name);
    QFETCH(bool, asHeld);
    const QByteArray path = QFile::encodeName(m_dir.path()) + '/' + name;
    const int fd = ::open(path.constData(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
    QVERIFY(fd >= 0);
    QCOMPARE(::write(fd, "one\ntwo\n", 8), 8);
    ::close(fd);
    const qsizetype entries = QDir(m_dir.path()).count();

    const QString held = FileNameEscape::fromNative(path);
    PromptRecorder prompts;
    SedGUI *tool = create({asHeld ? held : FileNameEscape::fromBytes(path), "-line", "2"});
    QVERIFY(tool);
    QCOMPARE(at(tool), held + ":2");
    QCOMPARE(tool->editor()->text(), QStringLiteral("one\ntwo\n"));
    tool->editor()->insert(QStringLiteral("new "));
    QVERIFY(tool->save());
    QVERIFY(prompts.asked.isEmpty());
    QByteArray saved;
    QString error;
    QVERIFY2(FileReader::read(held, &saved, &error), qPrintable(error));
    QCOMPARE(saved, QByteArray("one\nnew two\n"));
    QCOMPARE(QDir(m_dir.path()).count(), entries);
    ::unlink(path.constData());
}

QTEST_MAIN(TestSedApp)
#include "tst_sedapp.moc"
