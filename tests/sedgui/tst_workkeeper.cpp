#include "journalchildtext.h"
#include "journalstore.h"
#include "sedgui.h"
#include "tool/documentjournal.h"
#include "tool/journalwriter.h"

#include <QProcess>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTest>

#include <Qsci/qsciscintilla.h>

#include <csignal>

using namespace koru::sedgui;
using JournalChildText::BurstPieces;
using JournalChildText::Documents;

namespace {

QByteArray readAll(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<missing>");
}

// What the child said: per document the pieces typed, and those its journal
// held after the last rest.
struct Report
{
    QList<int> typed = QList<int>(Documents, 0);
    QList<int> journaled = QList<int>(Documents, 0);
    int lines = 0;
    QByteArray stale;
    QByteArray pending;

    void read(QProcess &child)
    {
        pending += child.readAllStandardOutput();
        for (qsizetype end; (end = pending.indexOf('\n')) >= 0; pending.remove(0, end + 1)) {
            const QList<QByteArray> words = pending.left(end).split(' ');
            const int document = words.value(1).toInt();
            if (words[0] == "stale")
                stale += pending.left(end) + ' ';
            else
                (words[0] == "t" ? typed : journaled)[document] = words.value(2).toInt();
            ++lines;
        }
    }
};

// The texts of the document of path (untitled if empty) as the child types
// into it, from none to `pieces` pieces.
QList<QByteArray> textsOf(const QString &path, int pieces)
{
    SedGUI typist;
    if (!path.isEmpty() && !typist.openFile(path, nullptr))
        return {};
    const auto *journal = typist.findChild<DocumentJournal *>();
    QList<QByteArray> texts{journal->snapshot()};
    for (int n = 0; n < pieces; ++n) {
        JournalChildText::typePiece(typist.editor(), n);
        texts.append(journal->snapshot());
    }
    return texts;
}

} // namespace

// A real second editor process types into three documents (untitled, a
// legacy encoding, CRLF) and is ended by a signal at a moment drawn at random
// (seed printed; TST_WORKKEEPER_SEED repeats a run). Its journals must each
// hold a text the document went through, no older than what the child found
// journaled after resting for the journal's delay; restored, the text comes
// back exactly, and the files on disk are as they were.
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
    QTest::addColumn<int>("rounds");
    // In the second burst of typing, or in the rest after it before the
    // journals are due: the first rest's journals are on disk.
    QTest::newRow("SIGKILL while typing") << int(SIGKILL) << 5;
    // In the first burst: the editor writes every journal on the way out.
    QTest::newRow("SIGTERM while typing") << int(SIGTERM) << 2;
    QTest::newRow("SIGHUP while typing") << int(SIGHUP) << 1;
}

void TstWorkKeeper::workSurvivesTheEnd()
{
    QFETCH(int, signal);
    QFETCH(int, rounds);
    const quint32 seed = qEnvironmentVariableIsSet("TST_WORKKEEPER_SEED")
                             ? quint32(qEnvironmentVariableIntValue("TST_WORKKEEPER_SEED"))
                             : QRandomGenerator::system()->generate();
    qInfo("seed %u", seed);
    QRandomGenerator random(seed);
    QTemporaryDir dir;
    const QStringList paths{QString(), dir.filePath(QStringLiteral("legacy.txt")),
                            dir.filePath(QStringLiteral("crlf.txt"))};
    const QList<QByteArray> bytes{{},
                                  "caf\xe9 cr\xe8me br\xfbl\xe9"
                                  "e\n",
                                  "first\r\nsecond\r\n"};
    for (int i = 1; i < Documents; ++i) {
        QFile out(paths[i]);
        QVERIFY(out.open(QIODevice::WriteOnly) && out.write(bytes[i]) == bytes[i].size());
    }

    for (int round = 0; round < rounds; ++round) {
        const QString state = dir.filePath(QStringLiteral("state%1").arg(round));
        QProcess child;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("XDG_STATE_HOME"), state);
        child.setProcessEnvironment(environment);
        child.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        child.start(QCoreApplication::applicationDirPath() + QLatin1String("/journalchild"),
                    paths.mid(1));
        // Counted in the child's lines: a burst writes BurstPieces, a rest Documents.
        int killAfter = Documents + int(random.bounded(BurstPieces - Documents + 1));
        if (signal == SIGKILL)
            killAfter =
                BurstPieces + Documents +
                (random.bounded(3) == 0 ? BurstPieces : 1 + int(random.bounded(BurstPieces - 1)));
        Report report;
        while (report.lines < killAfter) {
            QVERIFY2(child.waitForReadyRead(30000), "the child stopped typing");
            report.read(child);
        }
        ::kill(child.processId(), signal);
        QVERIFY(child.waitForFinished(30000));
        report.read(child);
        QVERIFY2(report.stale.isEmpty(), report.stale.constData());
        QCOMPARE(child.exitStatus(),
                 signal == SIGKILL ? QProcess::CrashExit : QProcess::NormalExit);

        JournalStore store(state + QLatin1String("/sourceeditor"));
        const QList<JournalStore::Found> found = store.list();
        QCOMPARE(found.size(), Documents);
        for (const JournalStore::Found &journal : found) {
            QCOMPARE(int(journal.state), int(JournalStore::State::Dead));
            const int document = int(paths.indexOf(journal.entry.path));
            QVERIFY(document >= 0);
            const QString &path = journal.entry.path;
            const int pieces = int(textsOf(path, report.typed[document]).indexOf(journal.text));
            // -1: not a text the document went through.
            QCOMPARE_GE(pieces, report.journaled[document]);
            if (signal != SIGKILL)
                QCOMPARE(pieces, report.typed[document]);

            SedGUI restored;
            if (!path.isEmpty())
                QVERIFY(restored.openFile(path, nullptr));
            const TextFormat format = restored.textFormat();
            QVERIFY(journal.entry.format == format);
            DocumentJournal::restore(&restored, journal.entry, journal.text);
            QCOMPARE(restored.findChild<DocumentJournal *>()->snapshot(), journal.text);
            QVERIFY(restored.isModified());
            QVERIFY(restored.textFormat() == format);
            // Only its encoding changed: the journal, which records it, is written again.
            TextFormat changed = format;
            changed.encoding = format.encoding == "UTF-8" ? "UTF-16LE" : "UTF-8";
            restored.setTextFormat(changed);
            DocumentJournal::writeAll();
            JournalEntry entry;
            QCOMPARE(JournalChildText::journalText(
                         JournalWriter::instance()->store()->folder(),
                         restored.findChild<DocumentJournal *>()->documentId(), &entry),
                     journal.text);
            QCOMPARE(entry.format.encoding, changed.encoding);
            store.discard(journal);
        }
        for (int i = 1; i < Documents; ++i)
            QCOMPARE(readAll(paths[i]), bytes[i]);
        QVERIFY(QDir(state + QLatin1String("/sourceeditor"))
                    .entryList({QStringLiteral("*.journal")}, QDir::Files)
                    .isEmpty());
    }
}

QTEST_MAIN(TstWorkKeeper)
#include "tst_workkeeper.moc"
