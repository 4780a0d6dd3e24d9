#include "safesaver.h"

#include "filenameescape.h"
#include "filereader.h"
#include "posixfile.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>
#include <QScopeGuard>

#include <cerrno>
#include <climits>
#include <cstring>
#include <fcntl.h>
#include <memory>
#include <mutex>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace koru::sedgui {

namespace {

QString tr(const char *text)
{
    return QCoreApplication::translate("koru::sedgui::SafeSaver", text);
}

QString cannotSave(const QString &path, const QString &reason)
{
    return tr("Cannot save %1: %2").arg(path, reason);
}

// Saves run on more than one thread (the editor's, a replace in files'
// worker) while the keeper may be set: each save takes the keeper of the
// moment once, under a lock, and uses that one to its end. The keeper's
// functions must be safe to call from several threads at once.
std::mutex keeperMutex;
std::shared_ptr<const SafeSaver::OriginalKeeper> installedKeeper =
    std::make_shared<const SafeSaver::OriginalKeeper>();
thread_local const SafeSaver::OriginalKeeper *keeperInUse = nullptr;

const SafeSaver::OriginalKeeper &originalKeeper()
{
    return *keeperInUse;
}

// A new, exclusively created file next to `target` (or in `dir`), named
// after it and hidden. Returns the descriptor and sets *name, or -1 with
// errno set. With record, the name is recorded by the keeper before the file
// exists, and *record names that record.
int createSibling(const QByteArray &dir, const QByteArray &target, mode_t mode, QByteArray *name,
                  QString *record = nullptr)
{
    QByteArray base = target.mid(target.lastIndexOf('/') + 1).left(200);
    const SafeSaver::OriginalKeeper &keeper = originalKeeper();
    for (int attempt = 0; attempt < 100; ++attempt) {
        *name = dir + "/." + base + '.' +
                QByteArray::number(QRandomGenerator::global()->generate(), 36) + ".tmp";
        if (record && keeper.noteTemporary)
            *record = keeper.noteTemporary(FileNameEscape::fromNative(*name));
        // O_EXCL | O_NOFOLLOW: never write through a link someone planted.
        const int fd =
            ::open(name->constData(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, mode);
        if (fd >= 0)
            return fd;
        const int code = errno;
        if (record && !record->isEmpty() && keeper.dropTemporary)
            keeper.dropTemporary(*record);
        errno = code;
        if (code != EEXIST)
            return -1;
    }
    return -1;
}

void syncDirectory(const QByteArray &dir)
{
    // Makes the rename itself durable; file systems that cannot sync a
    // directory still have the data, so the result does not matter.
    const int fd = ::open(dir.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (fd >= 0) {
        ::fsync(fd);
        PosixFile::close(fd);
    }
}

// The file a path finally names: symlinks are written through, so the link
// stays a link and its target gets the new text.
bool resolveLinks(const QString &path, QByteArray *target)
{
    QByteArray current = FileNameEscape::toNative(QFileInfo(path).absoluteFilePath());
    QByteArray link(PATH_MAX, Qt::Uninitialized);
    for (int depth = 0; depth < 40; ++depth) {
        const ssize_t size = ::readlink(current.constData(), link.data(), size_t(link.size()));
        if (size < 0) {
            *target = current;
            return true;
        }
        const QByteArrayView to(link.constData(), size);
        current =
            to.startsWith('/') ? to.toByteArray() : current.left(current.lastIndexOf('/') + 1) + to;
    }
    errno = ELOOP;
    return false;
}

// Copies the extended attributes of the file at `from` (ACLs, labels, user
// tags) to fd. False when one of them cannot be copied.
bool copyExtendedAttributes(const QByteArray &from, int fd)
{
    QByteArray names(4096, Qt::Uninitialized);
    ssize_t size;
    while ((size = ::listxattr(from.constData(), names.data(), size_t(names.size()))) < 0 &&
           errno == ERANGE)
        names.resize(names.size() * 4);
    if (size < 0)
        return errno == ENOTSUP;
    QByteArray value;
    for (qsizetype at = 0; at < size;) {
        const char *name = names.constData() + at;
        at += qsizetype(std::strlen(name)) + 1;
        const ssize_t length = ::getxattr(from.constData(), name, nullptr, 0);
        if (length < 0)
            return false;
        value.resize(length);
        if (::getxattr(from.constData(), name, value.data(), size_t(length)) != length ||
            ::fsetxattr(fd, name, value.constData(), size_t(length), 0) != 0)
            return false;
    }
    return true;
}

// Writes to a new file beside the target and renames it over the target:
// at every moment the target is either all old or all new.
bool saveByRename(const QByteArray &target, const QByteArray &dir, const struct stat *old,
                  const QByteArray &bytes, int *savedErrno, bool *cannotKeepAttributes)
{
    QByteArray tempName;
    QString record;
    // A new file gets 0666 less the umask, like any file the user creates.
    const int fd = createSibling(dir, target, old ? 0600 : 0666, &tempName, &record);
    if (fd < 0) {
        *savedErrno = errno;
        return false;
    }
    bool ok = true;
    if (old) {
        struct stat mine;
        const bool ownerKept = ::fstat(fd, &mine) == 0 &&
                               ((mine.st_uid == old->st_uid && mine.st_gid == old->st_gid) ||
                                ::fchown(fd, old->st_uid, old->st_gid) == 0);
        // Renaming would give the file away to us or drop its ACL: write in
        // place instead.
        if (!ownerKept || !copyExtendedAttributes(target, fd)) {
            *cannotKeepAttributes = true;
            ok = false;
        }
        // After chown, which clears set-id bits, and after the ACL, whose
        // mask the group bits then set.
        if (ok && ::fchmod(fd, old->st_mode & 07777) != 0)
            ok = false;
    }
    // QSaveFile would ignore a failing fsync; a failing fsync means the data
    // may not be on disk, so the old file must stay.
    ok = ok && PosixFile::writeAll(fd, bytes.constData(), bytes.size()) && ::fsync(fd) == 0;
    if (!ok)
        *savedErrno = errno;
    if (!PosixFile::close(fd) && ok) {
        *savedErrno = errno;
        ok = false;
    }
    if (ok && ::rename(tempName.constData(), target.constData()) != 0) {
        *savedErrno = errno;
        ok = false;
    }
    if (!ok)
        ::unlink(tempName.constData());
    else
        syncDirectory(dir);
    // Renamed or removed: nothing is left to clean up.
    if (!record.isEmpty() && originalKeeper().dropTemporary)
        originalKeeper().dropTemporary(record);
    return ok;
}

// Writes `bytes` over the file from its start and cuts it to their size.
bool overwrite(int fd, const QByteArray &bytes)
{
    return ::lseek(fd, 0, SEEK_SET) == 0 &&
           PosixFile::writeAll(fd, bytes.constData(), bytes.size()) &&
           ::ftruncate(fd, off_t(bytes.size())) == 0 && ::fsync(fd) == 0;
}

void dropBackup(const QByteArray &backup)
{
    if (backup.isEmpty())
        return;
    if (originalKeeper().drop)
        originalKeeper().drop(FileNameEscape::fromNative(backup));
    else
        ::unlink(backup.constData());
}

// A copy of the original on disk while it is overwritten, so that not even
// a crash in the middle loses it. Empty when no folder would take it.
QByteArray writeBackup(const QByteArray &target, const QByteArray &dir, const QByteArray &original,
                       const QByteArray &bytes)
{
    if (originalKeeper().keep) {
        const QString kept =
            originalKeeper().keep(FileNameEscape::fromNative(target), original, bytes);
        if (!kept.isEmpty())
            return FileNameEscape::toNative(kept);
    }
    for (const QByteArray &folder : {dir, QFile::encodeName(QDir::tempPath())}) {
        QByteArray name;
        const int fd = createSibling(folder, target, 0600, &name);
        if (fd < 0)
            continue;
        const bool ok =
            PosixFile::writeAll(fd, original.constData(), original.size()) && ::fsync(fd) == 0;
        if (PosixFile::close(fd) && ok)
            return name;
        ::unlink(name.constData());
    }
    return {};
}

// Writes into the existing file, keeping its inode and with it every hard
// link, its owner and whatever else is attached to it. The original is read
// first and written back if the new text cannot be written whole.
bool saveInPlace(const QString &path, const QByteArray &target, const QByteArray &dir,
                 const QByteArray &bytes, QString *error)
{
    QByteArray original;
    QString readError;
    if (!FileReader::read(FileNameEscape::fromNative(target), &original, &readError)) {
        *error = cannotSave(
            path, tr("the original could not be read to keep a copy (%1)").arg(readError));
        return false;
    }
    const QByteArray backup = writeBackup(target, dir, original, bytes);
    const int fd = ::open(target.constData(), O_WRONLY | O_CLOEXEC | O_NOCTTY);
    if (fd < 0) {
        *error = cannotSave(path, PosixFile::errorText(errno));
        dropBackup(backup);
        return false;
    }
    if (overwrite(fd, bytes)) {
        const bool closed = PosixFile::close(fd);
        const int closeErrno = errno;
        dropBackup(backup);
        if (!closed) {
            *error = cannotSave(path, PosixFile::errorText(closeErrno));
            return false;
        }
        return true;
    }
    const int writeErrno = errno;
    const bool restored = overwrite(fd, original);
    PosixFile::close(fd);
    if (restored) {
        dropBackup(backup);
        *error = cannotSave(path, PosixFile::errorText(writeErrno));
    } else if (!backup.isEmpty()) {
        *error = cannotSave(
            path, tr("%1; the file could not be restored, its previous content "
                     "is in %2")
                      .arg(PosixFile::errorText(writeErrno), FileNameEscape::fromNative(backup)));
    } else {
        *error = cannotSave(
            path, tr("%1; the file could not be restored").arg(PosixFile::errorText(writeErrno)));
    }
    return false;
}

} // namespace

void SafeSaver::setOriginalKeeper(const OriginalKeeper &keeper)
{
    auto installed = std::make_shared<const OriginalKeeper>(keeper);
    const std::lock_guard lock(keeperMutex);
    installedKeeper.swap(installed);
}

bool SafeSaver::save(const QString &path, const QByteArray &bytes, QString *error)
{
    std::shared_ptr<const OriginalKeeper> keeper;
    {
        const std::lock_guard lock(keeperMutex);
        keeper = installedKeeper;
    }
    keeperInUse = keeper.get();
    const auto done = qScopeGuard([] { keeperInUse = nullptr; });
    QByteArray target;
    if (!resolveLinks(path, &target)) {
        *error = cannotSave(path, PosixFile::errorText(errno));
        return false;
    }
    const QByteArray dir = target.left(qMax<qsizetype>(target.lastIndexOf('/'), 1));

    struct stat st;
    const bool exists = ::stat(target.constData(), &st) == 0;
    if (!exists && errno != ENOENT) {
        *error = cannotSave(path, PosixFile::errorText(errno));
        return false;
    }
    if (exists) {
        if (const QString kind = PosixFile::irregularKind(st.st_mode); !kind.isEmpty()) {
            *error = cannotSave(path, tr("it is %1").arg(kind));
            return false;
        }
        // A read-only file stays read-only, even where the folder would
        // allow replacing it.
        if (::faccessat(AT_FDCWD, target.constData(), W_OK, AT_EACCESS) != 0) {
            *error = cannotSave(path, PosixFile::errorText(errno));
            return false;
        }
    }

    const bool dirWritable = ::faccessat(AT_FDCWD, dir.constData(), W_OK | X_OK, AT_EACCESS) == 0;
    const bool renameKeepsAll = !exists || (st.st_nlink == 1 && dirWritable);
    if (renameKeepsAll) {
        int savedErrno = 0;
        bool cannotKeepAttributes = false;
        if (saveByRename(target, dir, exists ? &st : nullptr, bytes, &savedErrno,
                         &cannotKeepAttributes))
            return true;
        if (!cannotKeepAttributes) {
            *error = cannotSave(path, PosixFile::errorText(savedErrno));
            return false;
        }
    }
    return saveInPlace(path, target, dir, bytes, error);
}

} // namespace koru::sedgui
