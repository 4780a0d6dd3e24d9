#include "fileopsrunner.h"
#include "safesaver.h"

#include <QTemporaryDir>
#include <QTest>

#include <sys/xattr.h>

using namespace koru::sedgui;

namespace {

const QByteArray OldText = "the old text, which must survive\n";
const QByteArray NewText = "the new text\nwith two lines\n";

QByteArray native(const QString &path)
{
    return QFile::encodeName(path);
}

struct stat statOf(const QString &path)
{
    struct stat st = {};
    ::lstat(native(path).constData(), &st);
    return st;
}

// Hidden files included: a leftover temporary or backup file shows up here.
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
    void savesAndKeepsTheFileAsItWas_data();
    void savesAndKeepsTheFileAsItWas();
    void refusedSaveKeepsOldBytes_data();
    void refusedSaveKeepsOldBytes();
    void unprivilegedUser_data();
    void unprivilegedUser();
};

void TstSafeSaver::savesAndKeepsTheFileAsItWas_data()
{
    QTest::addColumn<QString>("kind");
    // The attribute sits on the symlink's target, which is replaced by a rename.
    for (const char *kind : {"new file", "relative symlink and xattr", "hard link"})
        QTest::newRow(kind) << QString::fromLatin1(kind);
}

void TstSafeSaver::savesAndKeepsTheFileAsItWas()
{
    QFETCH(QString, kind);
    QTemporaryDir dir;
    QVERIFY(QDir(dir.path()).mkdir(QStringLiteral("real")));
    const QString realDir = dir.filePath(QStringLiteral("real"));
    const QString target = realDir + QStringLiteral("/file.txt");
    const QString other = dir.filePath(QStringLiteral("other.txt"));
    const bool symlink = kind.startsWith(u'r'), hardLink = kind.startsWith(u'h');
    QString path = target;
    const mode_t mask = ::umask(0);
    ::umask(mask);
    mode_t mode = 0666 & ~mask;
    if (symlink || hardLink) {
        QVERIFY(FileOpsRunner::writeFile(target, OldText));
        QCOMPARE(::chmod(native(target).constData(), mode = 0750), 0);
    }
    const ino_t inode = statOf(target).st_ino;
    bool xattr = false;
    if (symlink) {
        // Resolved against the link's folder, not the current one.
        path = dir.filePath(QStringLiteral("link.txt"));
        QCOMPARE(::symlink("real/file.txt", native(path).constData()), 0);
        xattr = ::setxattr(native(target).constData(), "user.sedgui.test", "reviewed", 8, 0) == 0;
    } else if (hardLink) {
        QCOMPARE(::link(native(target).constData(), native(other).constData()), 0);
    }

    QString error;
    QVERIFY2(SafeSaver::save(path, NewText, &error), qPrintable(error));
    QCOMPARE(FileOpsRunner::readFile(target), NewText);
    QCOMPARE(statOf(target).st_mode & 07777, mode);
    QCOMPARE(entries(realDir), QStringList{QStringLiteral("file.txt")});
    if (hardLink) {
        QCOMPARE(FileOpsRunner::readFile(other), NewText);
        QCOMPARE(statOf(target).st_ino, inode);
    } else if (symlink) {
        QVERIFY(S_ISLNK(statOf(path).st_mode));
        QByteArray value(64, '\0');
        const ssize_t length =
            ::getxattr(native(target).constData(), "user.sedgui.test", value.data(), 64);
        if (!xattr)
            QSKIP("the temporary folder's file system keeps no user attributes");
        QCOMPARE(value.left(qMax<ssize_t>(length, 0)), QByteArray("reviewed"));
    }
}

void TstSafeSaver::refusedSaveKeepsOldBytes_data()
{
    QTest::addColumn<int>("links"); // 0: the path is the folder itself
    QTest::addColumn<QString>("reason");
    QTest::newRow("directory") << 0 << "it is a directory";
    // The size limit lets the old text be written back, not the new one.
    QTest::newRow("size limit, replaced by rename") << 1 << "File too large";
    QTest::newRow("size limit, written in place") << 2 << "File too large";
}

void TstSafeSaver::refusedSaveKeepsOldBytes()
{
    QFETCH(int, links);
    QFETCH(QString, reason);
    QTemporaryDir dir;
    const QString path = links ? dir.filePath(QStringLiteral("big.txt")) : dir.path();
    const QString alias = dir.filePath(QStringLiteral("alias.txt"));
    if (links)
        QVERIFY(FileOpsRunner::writeFile(path, OldText));
    if (links == 2)
        QCOMPARE(::link(native(path).constData(), native(alias).constData()), 0);

    const auto result =
        FileOpsRunner::run(FileOpsRunner::Save, path, QByteArray(64 * 1024, 'n'), false, 4096);
    QVERIFY(!result.ok);
    QCOMPARE(QString::fromUtf8(result.out), QStringLiteral("Cannot save %1: %2").arg(path, reason));
    QCOMPARE(FileOpsRunner::readFile(path), links ? OldText : QByteArray("<unreadable>"));
    QCOMPARE(entries(dir.path()).size(), links);
}

// As root, the folder and the file belong to root and "nobody" saves; both
// rows need the file written in place, keeping its owner and mode.
void TstSafeSaver::unprivilegedUser_data()
{
    QTest::addColumn<mode_t>("dirMode");
    QTest::newRow("folder not writable, file writable") << mode_t(0755);
    QTest::newRow("someone else's file in a shared folder") << mode_t(0777);
}

void TstSafeSaver::unprivilegedUser()
{
    QFETCH(mode_t, dirMode);
    if (::geteuid() != 0)
        QSKIP("needs root to make files owned by another user");
    if (const QString why = FileOpsRunner::unprivilegedBlocked(); !why.isEmpty())
        QSKIP(qPrintable(why));

    QTemporaryDir base;
    QCOMPARE(::chmod(native(base.path()).constData(), 0755), 0);
    const QString dirPath = base.filePath(QStringLiteral("folder"));
    QVERIFY(QDir().mkdir(dirPath));
    const QString path = dirPath + QStringLiteral("/file.txt");
    QVERIFY(FileOpsRunner::writeFile(path, OldText));
    QCOMPARE(::chmod(native(dirPath).constData(), dirMode), 0);
    QCOMPARE(::chmod(native(path).constData(), 0666), 0);
    const struct stat before = statOf(path);

    QVERIFY(FileOpsRunner::run(FileOpsRunner::Save, path, NewText, true).ok);
    const struct stat after = statOf(path);
    QCOMPARE(FileOpsRunner::readFile(path), NewText);
    QCOMPARE(after.st_uid, before.st_uid);
    QCOMPARE(after.st_mode, before.st_mode);
    QCOMPARE(after.st_ino, before.st_ino);
    QCOMPARE(entries(dirPath), QStringList{QStringLiteral("file.txt")});
}

QTEST_GUILESS_MAIN(TstSafeSaver)
#include "tst_safesaver.moc"
