#include "fileopsrunner.h"
#include "safesaver.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

using namespace koru::sedgui;

namespace {

const QByteArray OldText = "the old text, which must survive\n";
const QByteArray NewText = "the new text\nwith two lines\n";

void writeFile(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    QCOMPARE(file.write(bytes), bytes.size());
}

QByteArray readFile(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<unreadable>");
}

struct stat statOf(const QString &path)
{
    struct stat st = {};
    ::lstat(QFile::encodeName(path).constData(), &st);
    return st;
}

// Everything in the folder, hidden files included: a leftover temporary or
// backup file shows up here.
QStringList entries(const QString &dir)
{
    return QDir(dir).entryList(
        QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDir::Name);
}

} // namespace

class TstSafeSaver : public QObject
{
    Q_OBJECT

private slots:
    void replacesContentAndKeepsMode();
    void keepsExtendedAttributes();
    void createsNewFile();
    void writesThroughSymlink();
    void keepsHardLink();
    void refusesDirectory();
    void fileSizeLimitKeepsOldBytes_data();
    void fileSizeLimitKeepsOldBytes();
    void unprivilegedUser_data();
    void unprivilegedUser();
};

void TstSafeSaver::replacesContentAndKeepsMode()
{
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("script.sh"));
    writeFile(path, OldText);
    QCOMPARE(::chmod(QFile::encodeName(path).constData(), 0750), 0);

    QString error;
    QVERIFY2(SafeSaver::save(path, NewText, &error), qPrintable(error));
    QCOMPARE(readFile(path), NewText);
    QCOMPARE(statOf(path).st_mode & 07777, mode_t(0750));
    QCOMPARE(entries(dir.path()), QStringList{QStringLiteral("script.sh")});
}

void TstSafeSaver::keepsExtendedAttributes()
{
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("tagged.txt"));
    writeFile(path, OldText);
    const QByteArray native = QFile::encodeName(path);
    const QByteArray tag = "reviewed";
    if (::setxattr(native.constData(), "user.sedgui.test", tag.constData(), size_t(tag.size()), 0))
        QSKIP("the temporary folder's file system keeps no user attributes");

    QString error;
    QVERIFY2(SafeSaver::save(path, NewText, &error), qPrintable(error));
    QCOMPARE(readFile(path), NewText);
    QByteArray value(64, '\0');
    const ssize_t length = ::getxattr(native.constData(), "user.sedgui.test", value.data(), 64);
    QCOMPARE(value.left(qMax<ssize_t>(length, 0)), tag);
    QCOMPARE(entries(dir.path()), QStringList{QStringLiteral("tagged.txt")});
}

void TstSafeSaver::createsNewFile()
{
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("new.txt"));
    QString error;
    QVERIFY2(SafeSaver::save(path, NewText, &error), qPrintable(error));
    QCOMPARE(readFile(path), NewText);
    const mode_t mask = ::umask(0);
    ::umask(mask);
    QCOMPARE(statOf(path).st_mode & 0777, mode_t(0666 & ~mask));
    QCOMPARE(entries(dir.path()), QStringList{QStringLiteral("new.txt")});
}

void TstSafeSaver::writesThroughSymlink()
{
    QTemporaryDir dir;
    QVERIFY(QDir(dir.path()).mkdir(QStringLiteral("real")));
    const QString target = dir.filePath(QStringLiteral("real/file.txt"));
    const QString link = dir.filePath(QStringLiteral("link.txt"));
    writeFile(target, OldText);
    // A relative link, resolved against the link's folder, not the current one.
    QCOMPARE(::symlink("real/file.txt", QFile::encodeName(link).constData()), 0);

    QString error;
    QVERIFY2(SafeSaver::save(link, NewText, &error), qPrintable(error));
    QVERIFY(S_ISLNK(statOf(link).st_mode));
    QCOMPARE(readFile(target), NewText);
    QCOMPARE(entries(dir.filePath(QStringLiteral("real"))),
             QStringList{QStringLiteral("file.txt")});
}

void TstSafeSaver::keepsHardLink()
{
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("a.txt"));
    const QString other = dir.filePath(QStringLiteral("b.txt"));
    writeFile(path, OldText);
    QCOMPARE(::link(QFile::encodeName(path).constData(), QFile::encodeName(other).constData()), 0);
    const ino_t inode = statOf(path).st_ino;

    QString error;
    QVERIFY2(SafeSaver::save(path, NewText, &error), qPrintable(error));
    QCOMPARE(readFile(other), NewText);
    QCOMPARE(statOf(path).st_ino, inode);
    QCOMPARE(entries(dir.path()), (QStringList{QStringLiteral("a.txt"), QStringLiteral("b.txt")}));
}

void TstSafeSaver::refusesDirectory()
{
    QTemporaryDir dir;
    QString error;
    QVERIFY(!SafeSaver::save(dir.path(), NewText, &error));
    QCOMPARE(error, QStringLiteral("Cannot save %1: it is a directory").arg(dir.path()));
    QVERIFY(entries(dir.path()).isEmpty());
}

void TstSafeSaver::fileSizeLimitKeepsOldBytes_data()
{
    QTest::addColumn<bool>("hardLinked");
    QTest::newRow("replaced by rename") << false;
    QTest::newRow("written in place") << true;
}

void TstSafeSaver::fileSizeLimitKeepsOldBytes()
{
    QFETCH(bool, hardLinked);

    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("big.txt"));
    writeFile(path, OldText);
    QStringList expectedEntries{QStringLiteral("big.txt")};
    if (hardLinked) {
        const QString other = dir.filePath(QStringLiteral("alias.txt"));
        QCOMPARE(::link(QFile::encodeName(path).constData(), QFile::encodeName(other).constData()),
                 0);
        expectedEntries.prepend(QStringLiteral("alias.txt"));
    }

    // The limit lets the old text be written back, not the new one.
    const QByteArray bigText(64 * 1024, 'n');
    const auto result = FileOpsRunner::run(
        {QStringLiteral("--fsize-limit"), QString::number(4096), QStringLiteral("save"), path},
        bigText, false);
    QCOMPARE(result.exitCode, 1);
    QCOMPARE(result.error, QStringLiteral("Cannot save %1: File too large").arg(path));
    QCOMPARE(readFile(path), OldText);
    QCOMPARE(entries(dir.path()), expectedEntries);
}

void TstSafeSaver::unprivilegedUser_data()
{
    QTest::addColumn<bool>("dirOwnedByUser");
    QTest::addColumn<mode_t>("dirMode");
    QTest::addColumn<bool>("fileOwnedByUser");
    QTest::addColumn<mode_t>("fileMode");
    QTest::addColumn<bool>("saved");

    // Owned by the user, or by someone else (root) when the test runs as root.
    QTest::newRow("read-only file in the user's folder")
        << true << mode_t(0755) << true << mode_t(0444) << false;
    QTest::newRow("folder not writable, file read-only")
        << false << mode_t(0755) << false << mode_t(0644) << false;
    QTest::newRow("folder not writable, file writable")
        << false << mode_t(0755) << false << mode_t(0666) << true;
    QTest::newRow("someone else's file in a shared folder")
        << false << mode_t(0777) << false << mode_t(0666) << true;
    QTest::newRow("the user's own file") << true << mode_t(0755) << true << mode_t(0644) << true;
}

void TstSafeSaver::unprivilegedUser()
{
    QFETCH(bool, dirOwnedByUser);
    QFETCH(mode_t, dirMode);
    QFETCH(bool, fileOwnedByUser);
    QFETCH(mode_t, fileMode);
    QFETCH(bool, saved);

    // As root the files are handed to "nobody", who then saves; as an
    // ordinary user the test's own user is the unprivileged one.
    const bool root = ::geteuid() == 0;
    QString why;
    if (!root && !(dirOwnedByUser && fileOwnedByUser))
        QSKIP("needs root to make files owned by another user");
    if (!FileOpsRunner::canRunUnprivileged(&why) || !FileOpsRunner::openTempPathToOthers(&why))
        QSKIP(qPrintable(why));

    QTemporaryDir base;
    QCOMPARE(::chmod(QFile::encodeName(base.path()).constData(), 0755), 0);
    const QString dirPath = base.filePath(QStringLiteral("folder"));
    QVERIFY(QDir().mkdir(dirPath));
    const QString path = dirPath + QStringLiteral("/file.txt");
    writeFile(path, OldText);
    const QByteArray nativeDir = QFile::encodeName(dirPath);
    const QByteArray nativePath = QFile::encodeName(path);
    const uid_t nobody = FileOpsRunner::NobodyId;
    if (root) {
        QCOMPARE(::chown(nativeDir.constData(), dirOwnedByUser ? nobody : 0,
                         dirOwnedByUser ? nobody : 0),
                 0);
        QCOMPARE(::chown(nativePath.constData(), fileOwnedByUser ? nobody : 0,
                         fileOwnedByUser ? nobody : 0),
                 0);
    }
    QCOMPARE(::chmod(nativeDir.constData(), dirMode), 0);
    QCOMPARE(::chmod(nativePath.constData(), fileMode), 0);
    const struct stat before = statOf(path);

    const auto result = FileOpsRunner::run({QStringLiteral("save"), path}, NewText, true);
    QCOMPARE(result.exitCode, saved ? 0 : 1);
    const struct stat after = statOf(path);
    if (saved) {
        QCOMPARE(readFile(path), NewText);
        // Whatever way it was written, the file keeps its owner and mode.
        QCOMPARE(after.st_uid, before.st_uid);
        QCOMPARE(after.st_mode, before.st_mode);
        if (!fileOwnedByUser)
            QCOMPARE(after.st_ino, before.st_ino);
    } else {
        QCOMPARE(result.error, QStringLiteral("Cannot save %1: Permission denied").arg(path));
        QCOMPARE(readFile(path), OldText);
        QCOMPARE(after.st_ino, before.st_ino);
    }
    QCOMPARE(entries(dirPath), QStringList{QStringLiteral("file.txt")});
}

QTEST_GUILESS_MAIN(TstSafeSaver)
#include "tst_safesaver.moc"
