#include "journalstore.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

using namespace koru::sedgui;

namespace {

// An owner that is not this process: its journals look like another
// editor's, alive while its store exists and dead once it is gone.
JournalOwner otherEditor(qint64 pid)
{
    JournalOwner owner = JournalOwner::current();
    owner.pid = pid;
    owner.startTicks = 12345;
    return owner;
}

QByteArray readAll(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<missing>");
}

void writeAll(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    file.write(bytes);
}

QStringList journalFiles(const QString &folder)
{
    return QDir(folder).entryList({QStringLiteral("*.journal")}, QDir::Files | QDir::System);
}

} // namespace

class TstJournalStore : public QObject
{
    Q_OBJECT

private slots:
    void deadEditorsJournalComesBackExactly_data();
    void deadEditorsJournalComesBackExactly();
    void damagedJournalIsMovedAside_data();
    void damagedJournalIsMovedAside();
    void liveEditorsJournalIsNeverOffered();
    void saveCutShortIsUndone_data();
    void saveCutShortIsUndone();
    void plantedLinkIsNotFollowed_data();
    void plantedLinkIsNotFollowed();
};

void TstJournalStore::deadEditorsJournalComesBackExactly_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArray>("encoding");
    QTest::addColumn<bool>("bom");
    QTest::addColumn<int>("lineEnding");

    QTest::newRow("untitled, empty")
        << QString() << QByteArray() << QByteArray("UTF-8") << false << int(LineEnding::LF);
    QTest::newRow("NUL and invalid UTF-8")
        << QStringLiteral("/tmp/a b.c") << QByteArray("x\0y\xff\xfe\xc3(\n", 10)
        << QByteArray("UTF-8") << false << int(LineEnding::LF);
    QTest::newRow("CRLF with BOM")
        << QStringLiteral("/srv/crlf.txt") << QByteArray("one\r\ntwo\r\n\r\n")
        << QByteArray("UTF-8") << true << int(LineEnding::CRLF);
    QTest::newRow("legacy encoding, CR")
        << QStringLiteral("/home/u/caf\u00e9.txt") << QByteArray("caf\xc3\xa9\rna\xc3\xafve")
        << QByteArray("WINDOWS-1252") << false << int(LineEnding::CR);
    // A newline in a file name must not end the header line.
    QTest::newRow("newline and percent in the name")
        << QStringLiteral("/tmp/odd\nname%41") << QByteArray("\n\n") << QByteArray("UTF-16LE")
        << true << int(LineEnding::LF);
}

void TstJournalStore::deadEditorsJournalComesBackExactly()
{
    QFETCH(QString, path);
    QFETCH(QByteArray, text);
    QFETCH(QByteArray, encoding);
    QFETCH(bool, bom);
    QFETCH(int, lineEnding);

    QTemporaryDir dir;
    const QString folder = dir.filePath(QStringLiteral("state/sourceeditor"));
    JournalEntry entry;
    entry.path = path;
    entry.untitledNumber = path.isEmpty() ? 7 : 0;
    entry.identity = {true, 1234567890123LL, 1700000000123456789LL, 987654321ULL, 66306ULL};
    entry.format = {encoding, bom, LineEnding(lineEnding)};
    const JournalOwner dead = otherEditor(999999);
    {
        JournalStore crashed(folder, dead);
        QVERIFY2(crashed.isReady(), qPrintable(crashed.error()));
        entry.documentId = crashed.newDocumentId();
        QString error;
        QVERIFY2(crashed.write(entry, text, &error), qPrintable(error));
    }
    QCOMPARE(QFileInfo(folder).permissions() & 0x0077, QFileDevice::Permissions());
    QCOMPARE(QFile(folder + QLatin1Char('/') + journalFiles(folder).value(0)).permissions() &
                 QFileDevice::Permissions(0x0077),
             QFileDevice::Permissions());

    JournalStore next(folder);
    const QList<JournalStore::Found> found = next.list();
    QCOMPARE(found.size(), 1);
    const JournalStore::Found &journal = found.first();
    QCOMPARE(int(journal.state), int(JournalStore::State::Dead));
    QCOMPARE(journal.text, text);
    QCOMPARE(journal.entry.documentId, entry.documentId);
    QCOMPARE(journal.entry.owner, dead);
    QCOMPARE(journal.entry.path, path);
    QCOMPARE(journal.entry.untitledNumber, entry.untitledNumber);
    QVERIFY(journal.entry.identity == entry.identity);
    QVERIFY(journal.entry.format == entry.format);
    QVERIFY(journal.entry.writtenMs > 0);

    next.discard(journal);
    QVERIFY(journalFiles(folder).isEmpty());
    QVERIFY(!QFile::exists(folder + QLatin1Char('/') + QString::fromLatin1(dead.key()) +
                           QLatin1String(".lock")));
}

void TstJournalStore::damagedJournalIsMovedAside_data()
{
    QTest::addColumn<QByteArray>("change");
    for (const char *change : {"cut 1 byte", "cut to the header", "empty", "flip a text bit",
                               "flip a header bit", "version 2", "bytes after the end"})
        QTest::newRow(change) << QByteArray(change);
}

void TstJournalStore::damagedJournalIsMovedAside()
{
    QFETCH(QByteArray, change);
    QTemporaryDir dir;
    const QString folder = dir.filePath(QStringLiteral("journals"));
    JournalEntry entry;
    entry.path = QStringLiteral("/tmp/x.c");
    {
        JournalStore crashed(folder, otherEditor(999998));
        entry.documentId = crashed.newDocumentId();
        QVERIFY(crashed.write(entry, "int main() { return 0; }\n"));
    }
    const QString name = journalFiles(folder).value(0);
    const QString path = folder + QLatin1Char('/') + name;
    QByteArray bytes = readAll(path);
    if (change == "cut 1 byte")
        bytes.chop(1);
    else if (change == "cut to the header")
        bytes.truncate(bytes.indexOf("\n\n") + 1);
    else if (change == "empty")
        bytes.clear();
    else if (change == "flip a text bit")
        bytes[bytes.indexOf("main")] ^= 0x20;
    else if (change == "flip a header bit")
        bytes[bytes.indexOf("owner") + 1] ^= 0x01;
    else if (change == "version 2")
        bytes.replace("SEJOURNAL 1", "SEJOURNAL 2");
    else
        bytes.append('!');
    writeAll(path, bytes);

    JournalStore next(folder);
    const QList<JournalStore::Found> found = next.list();
    QCOMPARE(found.size(), 1);
    QCOMPARE(int(found.first().state), int(JournalStore::State::Corrupt));
    QVERIFY(!found.first().problem.isEmpty());
    QVERIFY(found.first().text.isEmpty());
    QVERIFY(journalFiles(folder).isEmpty());
    QCOMPARE(readAll(folder + QLatin1String("/corrupt/") + name), bytes);
    QVERIFY(next.list().isEmpty());
}

void TstJournalStore::liveEditorsJournalIsNeverOffered()
{
    QTemporaryDir dir;
    const QString folder = dir.filePath(QStringLiteral("journals"));
    auto running = std::make_unique<JournalStore>(folder, otherEditor(999997));
    JournalEntry entry;
    entry.path = QStringLiteral("/tmp/open elsewhere.txt");
    entry.documentId = running->newDocumentId();
    QVERIFY(running->write(entry, "unsaved"));
    const QByteArray before = readAll(folder + QLatin1Char('/') + journalFiles(folder).value(0));

    // Alive: its lock is held, whatever the process table says of its pid.
    JournalStore first(folder);
    QList<JournalStore::Found> found = first.list();
    QCOMPARE(found.size(), 1);
    QCOMPARE(int(found.first().state), int(JournalStore::State::Alive));
    QCOMPARE(found.first().entry.path, entry.path);
    QVERIFY(found.first().text.isEmpty());
    QCOMPARE(readAll(folder + QLatin1Char('/') + journalFiles(folder).value(0)), before);

    running.reset();
    found = first.list();
    QCOMPARE(int(found.value(0).state), int(JournalStore::State::Dead));

    // While one editor decides about a dead editor's work, another does not offer it.
    JournalStore second(folder, otherEditor(999996));
    QCOMPARE(int(second.list().value(0).state), int(JournalStore::State::Alive));
    first.releaseClaims();
    QCOMPARE(int(second.list().value(0).state), int(JournalStore::State::Dead));
}

void TstJournalStore::saveCutShortIsUndone_data()
{
    QTest::addColumn<QByteArray>("left");
    QTest::addColumn<bool>("putBack");
    // A save by rename killed before its rename leaves a temporary beside the file.
    QTest::addColumn<bool>("temporary");
    const QByteArray old = "the old text of the file, line one\nline two\n";
    const QByteArray whole = "THE NEW TEXT, LONGER THAN THE OLD ONE WAS\nLINE TWO\nLINE THREE\n";
    QTest::newRow("killed before writing") << old << false << false;
    QTest::newRow("killed after writing") << whole << false << false;
    QTest::newRow("killed halfway") << whole.left(20) + old.mid(20) << true << false;
    QTest::newRow("killed before cutting to size") << whole.left(old.size() - 1) << true << false;
    QTest::newRow("killed after cutting to zero") << QByteArray() << true << false;
    QTest::newRow("atomic path, killed before the rename") << old << false << true;
}

// A save killed in the middle of an in-place write (the seam: what the file
// holds when the editor died) leaves old or new text, never a mix, and no
// copy once the file is whole.
void TstJournalStore::saveCutShortIsUndone()
{
    QFETCH(QByteArray, left);
    QFETCH(bool, putBack);
    QFETCH(bool, temporary);
    const QByteArray old = "the old text of the file, line one\nline two\n";
    const QByteArray whole = "THE NEW TEXT, LONGER THAN THE OLD ONE WAS\nLINE TWO\nLINE THREE\n";
    QTemporaryDir dir;
    const QString folder = dir.filePath(QStringLiteral("journals"));
    const QString target = dir.filePath(QStringLiteral("file.txt"));
    const QString temporaryPath = dir.filePath(QStringLiteral(".file.txt.x1y2.tmp"));
    writeAll(target, old);
    // An old time, which the start puts back with the old text.
    QFile(target).setFileTime(QDateTime::currentDateTime().addDays(-3),
                              QFileDevice::FileModificationTime);
    const FileIdentity before = FileIdentity::of(target);
    QString copy;
    {
        JournalStore crashed(folder, otherEditor(999995));
        if (temporary) {
            QVERIFY(!crashed.noteTemporary(temporaryPath).isEmpty());
            writeAll(temporaryPath, whole.left(10));
        } else {
            copy = crashed.keepOriginal(target, old, whole);
            QCOMPARE(readAll(copy), old);
            writeAll(target, left);
        }
    }
    JournalStore next(folder);
    const QList<JournalStore::Found> found = next.list();
    QCOMPARE(readAll(target), putBack ? old : left);
    QVERIFY(!QFile::exists(temporaryPath));
    if (readAll(target) == old)
        QVERIFY(FileIdentity::of(target) == before);
    QCOMPARE(found.size(), putBack ? 1 : 0);
    if (putBack) {
        QCOMPARE(int(found.first().state), int(JournalStore::State::InterruptedSave));
        QCOMPARE(found.first().entry.path, target);
    }
    QCOMPARE(QDir(folder).entryList({QStringLiteral("*.save"), QStringLiteral("*.original"),
                                     QStringLiteral("*.temporary")},
                                    QDir::Files),
             QStringList());
}

void TstJournalStore::plantedLinkIsNotFollowed_data()
{
    QTest::addColumn<QString>("planted");
    QTest::newRow("at the journal's name") << QStringLiteral("journal");
    QTest::newRow("at the temporary name") << QStringLiteral("temporary");
    QTest::newRow("in place of the folder") << QStringLiteral("folder");
}

void TstJournalStore::plantedLinkIsNotFollowed()
{
    QFETCH(QString, planted);
    QTemporaryDir dir;
    const QString folder = dir.filePath(QStringLiteral("journals"));
    const QString victim = dir.filePath(QStringLiteral("victim"));
    writeAll(victim, "precious");
    if (planted == QLatin1String("folder")) {
        QVERIFY(QDir().mkpath(dir.filePath(QStringLiteral("elsewhere"))));
        QVERIFY(QFile::link(dir.filePath(QStringLiteral("elsewhere")), folder));
        JournalStore store(folder);
        QVERIFY(!store.isReady());
        QVERIFY(!store.error().isEmpty());
        QVERIFY(QDir(dir.filePath(QStringLiteral("elsewhere"))).isEmpty());
        return;
    }
    JournalStore store(folder);
    JournalEntry entry;
    entry.documentId = store.newDocumentId();
    const QString name = folder + QLatin1Char('/') + QString::fromLatin1(entry.documentId) +
                         (planted == QLatin1String("journal") ? QLatin1String(".journal")
                                                              : QLatin1String(".journal.tmp"));
    QVERIFY(QFile::link(victim, name));
    QVERIFY(store.write(entry, "journal text"));
    QCOMPARE(readAll(victim), QByteArray("precious"));
    const QString journal = folder + QLatin1Char('/') + journalFiles(folder).value(0);
    QVERIFY(!QFileInfo(journal).isSymLink());
    JournalEntry read;
    QByteArray text;
    QString problem;
    QVERIFY2(JournalStore::decode(readAll(journal), &read, &text, &problem), qPrintable(problem));
    QCOMPARE(text, QByteArray("journal text"));
}

QTEST_GUILESS_MAIN(TstJournalStore)
#include "tst_journalstore.moc"
