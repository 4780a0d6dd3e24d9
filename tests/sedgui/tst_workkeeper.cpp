#include "journalchildtext.h"
#include "journalstore.h"
#include "sedgui.h"
#include "tool/documentjournal.h"

#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <Qsci/qsciscintilla.h>

#include <csignal>

using namespace koru::sedgui;

namespace {

QByteArray readAll(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<missing>");
}

struct Document
{
    QString name;
    QByteArray bytes;
};

} // namespace

// A real second editor process with three documents (untitled, a legacy
// encoding, CRLF) ends by a signal; its journals must bring back exactly what
// was typed, and the files on disk must be as they were.
class TstWorkKeeper : public QObject
{
    Q_OBJECT

private slots:
    void workSurvivesTheEnd_data();
    void workSurvivesTheEnd();
};

void TstWorkKeeper::workSurvivesTheEnd_data()
{
    QTest::addColumn<int>("signal");
    QTest::newRow("SIGKILL once the journals are written") << int(SIGKILL);
    // Sent at once, before any journal is due: the editor writes them on the way out.
    QTest::newRow("SIGTERM") << int(SIGTERM);
    QTest::newRow("SIGHUP") << int(SIGHUP);
}

void TstWorkKeeper::workSurvivesTheEnd()
{
    QFETCH(int, signal);
    QTemporaryDir dir;
    const QList<Document> files = {
        {QStringLiteral("legacy.txt"), QByteArray("caf\xe9 cr\xe8me br\xfbl\xe9"
                                                  "e\n")},
        {QStringLiteral("crlf.txt"), QByteArray("first\r\nsecond\r\n")},
    };
    QStringList paths;
    for (const Document &file : files) {
        paths.append(dir.filePath(file.name));
        QFile out(paths.last());
        QVERIFY(out.open(QIODevice::WriteOnly));
        out.write(file.bytes);
    }
    const QString folder = dir.filePath(QStringLiteral("state/sourceeditor"));

    QProcess child;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("XDG_STATE_HOME"), dir.filePath(QStringLiteral("state")));
    child.setProcessEnvironment(environment);
    child.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    child.start(QCoreApplication::applicationDirPath() + QLatin1String("/journalchild"), paths);
    QVERIFY(child.waitForStarted());
    QByteArray output;
    QTRY_VERIFY_WITH_TIMEOUT((output += child.readAllStandardOutput()).contains("typed"), 30000);

    JournalStore store(folder);
    if (signal == SIGKILL)
        QTRY_COMPARE_WITH_TIMEOUT(store.list().size(), 3, 30000);
    ::kill(child.processId(), signal);
    QVERIFY(child.waitForFinished(30000));
    if (signal == SIGKILL) {
        QCOMPARE(child.exitStatus(), QProcess::CrashExit);
    } else {
        QCOMPARE(child.exitStatus(), QProcess::NormalExit);
        QCOMPARE(child.exitCode(), 0);
    }

    const QList<JournalStore::Found> found = store.list();
    QCOMPARE(found.size(), 3);
    int untitled = 0;
    for (const JournalStore::Found &journal : found) {
        QCOMPARE(int(journal.state), int(JournalStore::State::Dead));
        // The same typing into the same file here gives the text to expect.
        SedGUI expected;
        if (!journal.entry.path.isEmpty())
            QVERIFY(expected.openFile(journal.entry.path, nullptr));
        else
            ++untitled;
        JournalChildText::type(expected.editor());
        // The widget ends its bytes with a NUL.
        QCOMPARE(journal.text, expected.editor()->bytes(0, expected.editor()->length()).chopped(1));
        QVERIFY(journal.entry.format == expected.textFormat());

        SedGUI restored;
        if (!journal.entry.path.isEmpty())
            QVERIFY(restored.openFile(journal.entry.path, nullptr));
        DocumentJournal::restore(&restored, journal.entry, journal.text);
        QCOMPARE(restored.findChild<DocumentJournal *>()->snapshot(), journal.text);
        QVERIFY(restored.isModified());
        QVERIFY(restored.textFormat() == journal.entry.format);
        store.discard(journal);
    }
    QCOMPARE(untitled, 1);
    for (int i = 0; i < files.size(); ++i)
        QCOMPARE(readAll(paths.at(i)), files.at(i).bytes);
    QVERIFY(QDir(folder).entryList({QStringLiteral("*.journal")}, QDir::Files).isEmpty());
}

QTEST_MAIN(TstWorkKeeper)
#include "tst_workkeeper.moc"
