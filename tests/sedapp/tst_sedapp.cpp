#include "../sedgui/promptrecorder.h"
#include "hubappinterface.h"
#include "sedgui.h"
#include "templatetree.h"

#include <QFile>
#include <QPluginLoader>
#include <QTemporaryDir>
#include <QTest>

#include <Qsci/qsciscintilla.h>

#include <sys/stat.h>

using koru::sedgui::SedGUI;
using koru::sedgui::TemplateTree;

// Stands in for the main window: records the open-at-line requests the
// factory queues for the files after the first.
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
    void cleanup();
    void newDocument();
    void openAtLine();
    void alreadyOpenPathReturnsItsTool();
    void unopenableFileIsRefused_data();
    void unopenableFileIsRefused();
    void startUpCommandLineQueuesTheOtherFiles();

private:
    QWidget *create(const QStringList &args);
    QString write(const QString &name, const QByteArray &bytes);

    QPluginLoader m_loader;
    hubAppInterface *m_app = nullptr;
    QTemporaryDir m_dir;
    FakeMainWindow m_window;
};

void TestSedApp::initTestCase()
{
    // The real plug-in, from the build tree, as the shell loads it.
    m_loader.setFileName(QStringLiteral(SEDAPP_PLUGIN_PATH));
    QVERIFY2(m_loader.load(), qPrintable(m_loader.errorString()));
    m_app = qobject_cast<hubAppInterface *>(m_loader.instance());
    QVERIFY(m_app);
    QVERIFY(m_dir.isValid());
}

void TestSedApp::cleanup()
{
    qDeleteAll(TemplateTree::Instance()->documents());
    m_window.requests.clear();
}

QWidget *TestSedApp::create(const QStringList &args)
{
    QString error;
    return m_app->createTool(&m_window, 0, args, &error, 0);
}

QString TestSedApp::write(const QString &name, const QByteArray &bytes)
{
    const QString path = m_dir.filePath(name);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("cannot write %s", qPrintable(path));
    return path;
}

void TestSedApp::newDocument()
{
    QWidget *tool = create({});
    auto *editor = qobject_cast<SedGUI *>(tool);
    QVERIFY(editor);
    QVERIFY(editor->getFileName().isEmpty());
    QVERIFY(editor->getTabText().startsWith(QStringLiteral("Untitled ")));
    QVERIFY(create({}) != tool);
}

void TestSedApp::openAtLine()
{
    const QString path = write("lines.py", QByteArray("x = 1\n").repeated(100));

    auto *tool =
        qobject_cast<SedGUI *>(create({path, QStringLiteral("-line"), QStringLiteral("40")}));
    QVERIFY(tool);
    QCOMPARE(tool->getFileName(), path);
    QCOMPARE(tool->languageName(), QStringLiteral("Python"));
    int line = 0;
    int index = 0;
    tool->editor()->getCursorPosition(&line, &index);
    QCOMPARE(line, 39);
}

void TestSedApp::alreadyOpenPathReturnsItsTool()
{
    const QString path = write("same.txt", "one\ntwo\n");
    QWidget *first = create({path});
    QVERIFY(first);
    QCOMPARE(create({path}), first);
    // Another spelling of the same file, and open-at-line, find it too.
    QCOMPARE(create({m_dir.path() + QStringLiteral("/./same.txt")}), first);
    QCOMPARE(create({path, QStringLiteral("-line"), QStringLiteral("2")}), first);
    QCOMPARE(TemplateTree::Instance()->documents().size(), 1);
}

void TestSedApp::unopenableFileIsRefused_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("reason");

    QTest::newRow("directory") << QString() << "directory";
    QTest::newRow("fifo") << QStringLiteral("fifo") << "FIFO";
    QTest::newRow("device") << QStringLiteral("/dev/zero") << "device";
}

void TestSedApp::unopenableFileIsRefused()
{
    QFETCH(QString, path);
    QFETCH(QString, reason);
    if (path.isEmpty()) {
        path = m_dir.path();
    } else if (path == QLatin1String("fifo")) {
        path = m_dir.filePath(QStringLiteral("fifo"));
        QVERIFY(::mkfifo(QFile::encodeName(path).constData(), 0600) == 0);
    }

    PromptRecorder prompts;
    QString error;
    QVERIFY(!m_app->createTool(&m_window, 0, {path}, &error, 0));
    QCOMPARE(prompts.asked.size(), 1);
    const QString text = prompts.asked.first().text;
    QVERIFY2(text.contains(path), qPrintable(text));
    QVERIFY2(text.contains(reason, Qt::CaseInsensitive), qPrintable(text));
    QCOMPARE(error, text);
    QVERIFY(TemplateTree::Instance()->documents().isEmpty());
}

void TestSedApp::startUpCommandLineQueuesTheOtherFiles()
{
    const QString first = m_dir.filePath(QStringLiteral("first.txt"));
    const QString second = m_dir.filePath(QStringLiteral("second.txt"));
    const QString third = m_dir.filePath(QStringLiteral("third.txt"));
    auto *tool = qobject_cast<SedGUI *>(
        create({first, QStringLiteral("+5"), second, third + QStringLiteral(":9")}));
    QVERIFY(tool);
    QCOMPARE(tool->getFileName(), first);
    // Queued: the shell adds the first tool before the others arrive.
    QVERIFY(m_window.requests.isEmpty());
    QTRY_COMPARE(m_window.requests.size(), 2);
    QCOMPARE(m_window.requests.at(0), std::make_pair(second, 5));
    QCOMPARE(m_window.requests.at(1), std::make_pair(third, 9));
}

QTEST_MAIN(TestSedApp)
#include "tst_sedapp.moc"
