#include "../sedgui/promptrecorder.h"
#include "hubappinterface.h"
#include "sedgui.h"
#include "templatetree.h"

#include <QDir>
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
    void newDocumentEachTime();
    void openAtLineThenFindItAgain();
    void unopenableFileIsRefused_data();
    void unopenableFileIsRefused();
    void startUpCommandLineQueuesTheOtherFiles();

private:
    SedGUI *create(const QStringList &args, QString *error = nullptr)
    {
        return qobject_cast<SedGUI *>(m_app->createTool(&m_window, 0, args, error, 0));
    }

    QPluginLoader m_loader{QStringLiteral(SEDAPP_PLUGIN_PATH)}; // the real plug-in
    hubAppInterface *m_app = nullptr;
    QTemporaryDir m_dir;
    FakeMainWindow m_window;
};

void TestSedApp::initTestCase()
{
    m_app = qobject_cast<hubAppInterface *>(m_loader.instance());
    QVERIFY2(m_app, qPrintable(m_loader.errorString()));
    QVERIFY(m_dir.isValid());
}

void TestSedApp::cleanup()
{
    qDeleteAll(TemplateTree::Instance()->documents());
    m_window.requests.clear();
}

void TestSedApp::newDocumentEachTime()
{
    SedGUI *tool = create({});
    QVERIFY(tool);
    QVERIFY(tool->getFileName().isEmpty());
    QVERIFY(tool->getTabText().startsWith(QStringLiteral("Untitled ")));
    QVERIFY(create({}) != tool);
}

void TestSedApp::openAtLineThenFindItAgain()
{
    const QString path = m_dir.filePath(QStringLiteral("lines.txt"));
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write(QByteArray("x\n").repeated(100)) == 200);
    file.close();
    const auto cursorLine = [](SedGUI *tool) {
        int line = 0, index = 0;
        tool->editor()->getCursorPosition(&line, &index);
        return line + 1;
    };

    SedGUI *tool = create({path, QStringLiteral("-line"), QStringLiteral("40")});
    QVERIFY(tool);
    QCOMPARE(tool->getFileName(), path);
    QCOMPARE(cursorLine(tool), 40);
    // The file, however spelt, is the tool already open; a line moves its cursor.
    QCOMPARE(create({path}), tool);
    QCOMPARE(cursorLine(tool), 40);
    QCOMPARE(create({m_dir.path() + QStringLiteral("/./lines.txt:2")}), tool);
    QCOMPARE(cursorLine(tool), 2);
    QCOMPARE(TemplateTree::Instance()->documents().size(), 1);
}

// The row's tag is what the message must name.
void TestSedApp::unopenableFileIsRefused_data()
{
    QTest::addColumn<QString>("name"); // in the temporary folder, or an absolute path
    QTest::newRow("directory") << ".";
    QTest::newRow("fifo") << "fifo";
    QTest::newRow("device") << "/dev/zero";
}

void TestSedApp::unopenableFileIsRefused()
{
    QFETCH(QString, name);
    const QString path = QDir::cleanPath(QDir(m_dir.path()).filePath(name));
    if (name == QLatin1String("fifo"))
        QVERIFY(::mkfifo(QFile::encodeName(path).constData(), 0600) == 0);
    const QString reason = QString::fromLatin1(QTest::currentDataTag());

    PromptRecorder prompts;
    QString error;
    QVERIFY(!create({path}, &error));
    QCOMPARE(prompts.asked.size(), 1);
    const QString text = prompts.asked.first().text;
    QVERIFY2(text.contains(path) && text.contains(reason, Qt::CaseInsensitive), qPrintable(text));
    QCOMPARE(error, text);
    QVERIFY(TemplateTree::Instance()->documents().isEmpty());
}

void TestSedApp::startUpCommandLineQueuesTheOtherFiles()
{
    const QString dir = m_dir.path() + u'/';
    SedGUI *tool = create({dir + "first.txt", "+5", dir + "second.txt", dir + "third.txt:9"});
    QVERIFY(tool);
    QCOMPARE(tool->getFileName(), dir + "first.txt");
    // Queued: the shell adds the first tool before the others arrive.
    QVERIFY(m_window.requests.isEmpty());
    QTRY_COMPARE(m_window.requests.size(), 2);
    QCOMPARE(m_window.requests,
             (QList<std::pair<QString, int>>{{dir + "second.txt", 5}, {dir + "third.txt", 9}}));
}

QTEST_MAIN(TestSedApp)
#include "tst_sedapp.moc"
