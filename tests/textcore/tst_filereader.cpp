#include "fileopsrunner.h"
#include "filereader.h"

#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTest>

using namespace koru::sedgui;

class TstFileReader : public QObject
{
    Q_OBJECT

private slots:
    void refusesWhatIsNotAReadableFile_data();
    void refusesWhatIsNotAReadableFile();
    void readsWholeFile();
};

void TstFileReader::refusesWhatIsNotAReadableFile_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("reason");
    for (const auto &[kind, reason] : {std::pair{"fifo", "it is a FIFO (named pipe)"},
                                       {"/dev/zero", "it is a device"},
                                       {"missing", "No such file or directory"},
                                       {"mode 0 as nobody", "Permission denied"}})
        QTest::newRow(kind) << QString::fromLatin1(kind) << QString::fromLatin1(reason);
}

void TstFileReader::refusesWhatIsNotAReadableFile()
{
    QFETCH(QString, kind);
    QFETCH(QString, reason);
    QTemporaryDir dir;
    const QString path = kind.startsWith(u'/') ? kind : dir.filePath(kind);
    const QByteArray native = QFile::encodeName(path);
    const bool unprivileged = kind == QLatin1String("mode 0 as nobody");
    // A FIFO opened blocking would wait for a writer forever and hang the test.
    if (kind == QLatin1String("fifo")) {
        QCOMPARE(::mkfifo(native.constData(), 0600), 0);
    } else if (unprivileged) {
        if (const QString why = FileOpsRunner::unprivilegedBlocked(); !why.isEmpty())
            QSKIP(qPrintable(why));
        QCOMPARE(::chmod(QFile::encodeName(dir.path()).constData(), 0755), 0);
        QVERIFY(FileOpsRunner::writeFile(path, "secret\n"));
        QCOMPARE(::chmod(native.constData(), 0), 0);
    }

    QByteArray out = "untouched";
    QString error;
    if (unprivileged) {
        const auto result = FileOpsRunner::run(FileOpsRunner::Read, path, {}, true);
        QVERIFY(!result.ok);
        error = QString::fromUtf8(result.out);
        out.clear();
    } else {
        QVERIFY(!FileReader::read(path, &out, &error));
    }
    QCOMPARE(error, QStringLiteral("Cannot open %1: %2").arg(path, reason));
    QVERIFY(out.isEmpty());
}

void TstFileReader::readsWholeFile()
{
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("data.bin"));
    QByteArray bytes(3 * 1024 * 1024 + 17, Qt::Uninitialized);
    QRandomGenerator generator(42);
    for (char &c : bytes)
        c = char(generator.bounded(256));
    QVERIFY(FileOpsRunner::writeFile(path, bytes));
    QByteArray out;
    QString error;
    QVERIFY2(FileReader::read(path, &out, &error), qPrintable(error));
    QVERIFY(out == bytes);
}

QTEST_GUILESS_MAIN(TstFileReader)
#include "tst_filereader.moc"
