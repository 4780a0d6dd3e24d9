#include "journalstore.h"

#include "filenameescape.h"
#include "filereader.h"
#include "posixfile.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <cerrno>
#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace koru::sedgui {

namespace {

constexpr int FormatVersion = 1;
const QByteArray Magic = "SEJOURNAL ";
const QByteArray JournalSuffix = ".journal";
const QByteArray TempSuffix = ".journal.tmp";
const QByteArray LockSuffix = ".lock";
const QByteArray CorruptFolder = "corrupt";
const QByteArray SaveSuffix = ".save";
const QByteArray OriginalSuffix = ".original";
const QByteArray TemporarySuffix = ".temporary";
constexpr qsizetype DigestSize = 16;
// Enough for any header: paths are at most a few KB even percent-encoded.
constexpr qsizetype HeaderLimit = 64 * 1024;

QByteArray lineEndingName(LineEnding ending)
{
    switch (ending) {
    case LineEnding::CRLF:
        return "CRLF";
    case LineEnding::CR:
        return "CR";
    case LineEnding::LF:
        break;
    }
    return "LF";
}

bool parseLineEnding(const QByteArray &name, LineEnding *ending)
{
    for (LineEnding candidate : {LineEnding::LF, LineEnding::CRLF, LineEnding::CR}) {
        if (lineEndingName(candidate) == name) {
            *ending = candidate;
            return true;
        }
    }
    return false;
}

QByteArray encodeHeader(const JournalEntry &entry, qsizetype textSize)
{
    const FileIdentity &disk = entry.identity;
    QByteArray header = Magic + QByteArray::number(FormatVersion) + '\n';
    header += "id " + entry.documentId + '\n';
    header += "owner " + entry.owner.key() + '\n';
    header += "path " + FileNameEscape::toNative(entry.path).toPercentEncoding() + '\n';
    header += "untitled " + QByteArray::number(entry.untitledNumber) + '\n';
    header += "disk " + QByteArray::number(disk.exists ? 1 : 0) + ' ' +
              QByteArray::number(disk.size) + ' ' + QByteArray::number(disk.mtimeNs) + ' ' +
              QByteArray::number(disk.inode) + ' ' + QByteArray::number(disk.device) + '\n';
    header += "encoding " + entry.format.encoding.toPercentEncoding() + '\n';
    header += "bom " + QByteArray::number(entry.format.bom ? 1 : 0) + '\n';
    header += "eol " + lineEndingName(entry.format.lineEnding) + '\n';
    header += "written " + QByteArray::number(entry.writtenMs) + '\n';
    if (entry.keptOnQuit)
        header += "kept 1\n";
    header += "length " + QByteArray::number(textSize) + "\n\n";
    return header;
}

// Reads the header; *textStart is where the text begins and *textSize its
// length as the header states it.
bool decodeHeader(const QByteArray &bytes, JournalEntry *entry, qsizetype *textStart,
                  qsizetype *textSize, QString *problem)
{
    const qsizetype firstEnd = bytes.indexOf('\n');
    if (!bytes.startsWith(Magic) || firstEnd < 0) {
        *problem = JournalStore::tr("it is not a recovery journal or is cut short");
        return false;
    }
    const QByteArray version = bytes.mid(Magic.size(), firstEnd - Magic.size());
    if (version != QByteArray::number(FormatVersion)) {
        *problem = JournalStore::tr("it was written in another format (version %1)")
                       .arg(QString::fromLatin1(version.left(20)));
        return false;
    }
    const qsizetype end = bytes.indexOf("\n\n", firstEnd);
    if (end < 0) {
        *problem = JournalStore::tr("its header is cut short");
        return false;
    }
    bool haveLength = false;
    bool ok = true;
    const QList<QByteArray> lines = bytes.mid(firstEnd + 1, end - firstEnd - 1).split('\n');
    for (const QByteArray &line : lines) {
        const qsizetype space = line.indexOf(' ');
        const QByteArray key = line.left(space);
        const QByteArray value = space < 0 ? QByteArray() : line.mid(space + 1);
        bool fieldOk = true;
        if (key == "id") {
            entry->documentId = value;
        } else if (key == "owner") {
            fieldOk = JournalOwner::parse(value, &entry->owner);
        } else if (key == "path") {
            entry->path = FileNameEscape::fromNative(QByteArray::fromPercentEncoding(value));
        } else if (key == "untitled") {
            entry->untitledNumber = value.toInt(&fieldOk);
        } else if (key == "disk") {
            const QList<QByteArray> parts = value.split(' ');
            fieldOk = parts.size() == 5;
            if (fieldOk) {
                bool a = false, b = false, c = false, d = false, e = false;
                entry->identity.exists = parts.at(0).toInt(&a) != 0;
                entry->identity.size = parts.at(1).toLongLong(&b);
                entry->identity.mtimeNs = parts.at(2).toLongLong(&c);
                entry->identity.inode = parts.at(3).toULongLong(&d);
                entry->identity.device = parts.at(4).toULongLong(&e);
                fieldOk = a && b && c && d && e;
            }
        } else if (key == "encoding") {
            entry->format.encoding = QByteArray::fromPercentEncoding(value);
            fieldOk = !entry->format.encoding.isEmpty();
        } else if (key == "bom") {
            entry->format.bom = value == "1";
        } else if (key == "eol") {
            fieldOk = parseLineEnding(value, &entry->format.lineEnding);
        } else if (key == "written") {
            entry->writtenMs = value.toLongLong(&fieldOk);
        } else if (key == "kept") {
            entry->keptOnQuit = value == "1";
        } else if (key == "length") {
            *textSize = value.toLongLong(&fieldOk);
            haveLength = fieldOk && *textSize >= 0;
        }
        ok = ok && fieldOk;
    }
    if (!ok || !haveLength || entry->documentId.isEmpty()) {
        *problem = JournalStore::tr("its header is damaged");
        return false;
    }
    *textStart = end + 2;
    return true;
}

int openDirectory(int at, const char *name)
{
    return ::openat(at, name, O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
}

bool ensureFolder(const QString &folder, int *fd, QString *error)
{
    const QByteArray path = QFile::encodeName(folder);
    QDir().mkpath(QFileInfo(folder).absolutePath());
    if (::mkdir(path.constData(), 0700) != 0 && errno != EEXIST) {
        *error = JournalStore::tr("Cannot create the recovery folder %1: %2")
                     .arg(folder, PosixFile::errorText(errno));
        return false;
    }
    // O_NOFOLLOW: a link planted in place of the folder is refused.
    *fd = openDirectory(AT_FDCWD, path.constData());
    struct stat st;
    if (*fd < 0 || ::fstat(*fd, &st) != 0) {
        *error = JournalStore::tr("Cannot use the recovery folder %1: %2")
                     .arg(folder, PosixFile::errorText(errno == ELOOP ? ENOTDIR : errno));
        if (*fd >= 0)
            PosixFile::close(*fd);
        *fd = -1;
        return false;
    }
    if (st.st_uid != ::geteuid()) {
        *error = JournalStore::tr("Cannot use the recovery folder %1: it belongs to another user")
                     .arg(folder);
        PosixFile::close(*fd);
        *fd = -1;
        return false;
    }
    if ((st.st_mode & 077) != 0)
        ::fchmod(*fd, 0700);
    return true;
}

QList<QByteArray> namesIn(int dirFd)
{
    QList<QByteArray> names;
    const int fd = ::dup(dirFd);
    if (fd < 0)
        return names;
    DIR *dir = ::fdopendir(fd);
    if (!dir) {
        PosixFile::close(fd);
        return names;
    }
    ::rewinddir(dir);
    while (const dirent *item = ::readdir(dir)) {
        const QByteArray name(item->d_name);
        if (name != "." && name != "..")
            names.append(name);
    }
    ::closedir(dir);
    return names;
}

// A new file in dirFd holding bytes, synced; false when it could not be written whole.
bool writeNewFile(int dirFd, const QByteArray &name, const QByteArray &bytes)
{
    const int fd = ::openat(dirFd, name.constData(),
                            O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0600);
    if (fd < 0)
        return false;
    const bool ok = PosixFile::writeAll(fd, bytes.constData(), bytes.size()) && ::fsync(fd) == 0;
    if (PosixFile::close(fd) && ok)
        return true;
    ::unlinkat(dirFd, name.constData(), 0);
    return false;
}

QByteArray md5Hex(QByteArrayView bytes)
{
    return QCryptographicHash::hash(bytes, QCryptographicHash::Md5).toHex();
}

QByteArray ownerKeyOf(const QByteArray &name)
{
    const qsizetype underscore = name.lastIndexOf('_');
    return underscore < 0 ? QByteArray() : name.left(underscore);
}

} // namespace

JournalStore::JournalStore(const QString &folder, const JournalOwner &owner)
    : m_folder(folder.isEmpty() ? defaultFolder() : folder)
    , m_owner(owner)
    , m_ownerKey(owner.key())
{
    if (!ensureFolder(m_folder, &m_dirFd, &m_error))
        return;
    m_lockFd = ::openat(m_dirFd, QByteArray(m_ownerKey + LockSuffix).constData(),
                        O_RDWR | O_CREAT | O_NOFOLLOW | O_CLOEXEC, 0600);
    if (m_lockFd < 0 || ::flock(m_lockFd, LOCK_EX | LOCK_NB) != 0) {
        m_error =
            tr("Cannot lock the recovery folder %1: %2").arg(m_folder, PosixFile::errorText(errno));
        if (m_lockFd >= 0)
            PosixFile::close(m_lockFd);
        m_lockFd = -1;
        PosixFile::close(m_dirFd);
        m_dirFd = -1;
    }
}

JournalStore::~JournalStore()
{
    releaseClaims();
    if (m_dirFd < 0)
        return;
    const QList<QByteArray> names = namesIn(m_dirFd);
    const bool ownJournals = std::any_of(names.cbegin(), names.cend(), [this](const QByteArray &n) {
        return n.endsWith(JournalSuffix) && ownerKeyOf(n) == m_ownerKey;
    });
    if (!ownJournals)
        ::unlinkat(m_dirFd, QByteArray(m_ownerKey + LockSuffix).constData(), 0);
    PosixFile::close(m_lockFd);
    PosixFile::close(m_dirFd);
}

QString JournalStore::defaultFolder()
{
    QString base = qEnvironmentVariable("XDG_STATE_HOME");
    // A relative XDG_STATE_HOME is invalid and must be ignored.
    if (base.isEmpty() || !QDir::isAbsolutePath(base))
        base = QDir::homePath() + QLatin1String("/.local/state");
    return base + QLatin1String("/sourceeditor");
}

QByteArray JournalStore::newDocumentId()
{
    return m_ownerKey + '_' + QByteArray::number(m_nextDocument.fetchAndAddRelaxed(1));
}

QByteArray JournalStore::encode(const JournalEntry &entry, const QByteArray &text)
{
    QByteArray bytes = encodeHeader(entry, text.size()) + text;
    return bytes + QCryptographicHash::hash(bytes, QCryptographicHash::Md5);
}

bool JournalStore::decode(const QByteArray &bytes, JournalEntry *entry, QByteArray *text,
                          QString *problem)
{
    qsizetype textStart = 0;
    qsizetype textSize = 0;
    if (!decodeHeader(bytes, entry, &textStart, &textSize, problem))
        return false;
    if (bytes.size() != textStart + textSize + DigestSize) {
        *problem = bytes.size() < textStart + textSize + DigestSize
                       ? tr("it is cut short")
                       : tr("it has bytes after its end");
        return false;
    }
    const QByteArrayView body(bytes.constData(), bytes.size() - DigestSize);
    if (QCryptographicHash::hash(body, QCryptographicHash::Md5) != bytes.right(DigestSize)) {
        *problem = tr("its checksum does not match (the file is damaged)");
        return false;
    }
    *text = bytes.mid(textStart, textSize);
    return true;
}

bool JournalStore::write(const JournalEntry &entry, const QByteArray &text, QString *error)
{
    const auto fail = [&](int code) {
        if (error)
            *error = tr("Cannot write the recovery journal in %1: %2")
                         .arg(m_folder, PosixFile::errorText(code));
        return false;
    };
    if (m_dirFd < 0)
        return fail(ENOENT);
    if (!entry.documentId.startsWith(QByteArray(m_ownerKey + '_')) ||
        entry.documentId.contains('/'))
        return fail(EINVAL);
    JournalEntry stamped = entry;
    stamped.owner = m_owner;
    stamped.writtenMs = QDateTime::currentMSecsSinceEpoch();
    const QByteArray name = entry.documentId + JournalSuffix;
    const QByteArray temp = entry.documentId + TempSuffix;

    // Only this store writes its documents' names; what is there is a
    // leftover or something planted, and goes (unlinkat removes a link, not
    // what it points to).
    ::unlinkat(m_dirFd, temp.constData(), 0);
    const int fd = ::openat(m_dirFd, temp.constData(),
                            O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0600);
    if (fd < 0)
        return fail(errno);
    const QByteArray header = encodeHeader(stamped, text.size());
    QCryptographicHash digest(QCryptographicHash::Md5);
    digest.addData(header);
    digest.addData(text);
    const QByteArray sum = digest.result();
    bool ok = PosixFile::writeAll(fd, header.constData(), header.size()) &&
              PosixFile::writeAll(fd, text.constData(), text.size()) &&
              PosixFile::writeAll(fd, sum.constData(), sum.size()) && ::fsync(fd) == 0;
    int code = errno;
    if (!PosixFile::close(fd) && ok) {
        ok = false;
        code = errno;
    }
    // rename replaces whatever has the name, a link included, without following it.
    if (ok && ::renameat(m_dirFd, temp.constData(), m_dirFd, name.constData()) != 0) {
        ok = false;
        code = errno;
    }
    if (!ok) {
        ::unlinkat(m_dirFd, temp.constData(), 0);
        return fail(code);
    }
    ::fsync(m_dirFd);
    return true;
}

void JournalStore::remove(const QByteArray &documentId)
{
    if (m_dirFd < 0 || !documentId.startsWith(QByteArray(m_ownerKey + '_')) ||
        documentId.contains('/'))
        return;
    ::unlinkat(m_dirFd, QByteArray(documentId + JournalSuffix).constData(), 0);
    ::unlinkat(m_dirFd, QByteArray(documentId + TempSuffix).constData(), 0);
}

QString JournalStore::keepOriginal(const QString &target, const QByteArray &original,
                                   const QByteArray &replacement)
{
    if (m_dirFd < 0)
        return {};
    const QByteArray base =
        m_ownerKey + "_save" + QByteArray::number(m_nextDocument.fetchAndAddRelaxed(1));
    const QByteArray record = Magic.trimmed() + "-SAVE " + QByteArray::number(FormatVersion) +
                              "\npath " + FileNameEscape::toNative(target).toPercentEncoding() +
                              "\nold " + md5Hex(original) + "\nnew " + md5Hex(replacement) + '\n' +
                              "mtime " + QByteArray::number(FileIdentity::of(target).mtimeNs) +
                              '\n';
    // The copy first: a record always has its copy.
    if (!writeNewFile(m_dirFd, base + OriginalSuffix, original))
        return {};
    if (!writeNewFile(m_dirFd, base + SaveSuffix, record)) {
        ::unlinkat(m_dirFd, QByteArray(base + OriginalSuffix).constData(), 0);
        return {};
    }
    ::fsync(m_dirFd);
    return m_folder + QLatin1Char('/') + QFile::decodeName(base + OriginalSuffix);
}

QString JournalStore::noteTemporary(const QString &temporaryPath)
{
    if (m_dirFd < 0)
        return {};
    const QByteArray name =
        m_ownerKey + "_temp" + QByteArray::number(m_nextDocument.fetchAndAddRelaxed(1));
    const QByteArray record = Magic.trimmed() + "-TEMP " + QByteArray::number(FormatVersion) +
                              "\npath " +
                              FileNameEscape::toNative(temporaryPath).toPercentEncoding() + '\n';
    if (!writeNewFile(m_dirFd, name + TemporarySuffix, record))
        return {};
    return m_folder + QLatin1Char('/') + QFile::decodeName(name + TemporarySuffix);
}

void JournalStore::dropTemporary(const QString &recordPath)
{
    if (recordPath.startsWith(m_folder + QLatin1Char('/')) &&
        recordPath.endsWith(QFile::decodeName(TemporarySuffix)))
        ::unlink(QFile::encodeName(recordPath).constData());
}

void JournalStore::removeTemporary(const QByteArray &recordName)
{
    QString problem;
    const QByteArray record = readJournal(recordName, HeaderLimit, &problem);
    for (const QByteArray &line : record.split('\n')) {
        if (!line.startsWith("path "))
            continue;
        const QByteArray path = QByteArray::fromPercentEncoding(line.mid(5));
        const QByteArray base = path.mid(path.lastIndexOf('/') + 1);
        // Only what the saver makes: a hidden ".name.XXXX.tmp", a plain file.
        // A rename is atomic, so the target beside it is whole either way.
        struct stat st;
        if (base.startsWith('.') && base.endsWith(".tmp") && ::lstat(path.constData(), &st) == 0 &&
            S_ISREG(st.st_mode))
            ::unlink(path.constData());
    }
    ::unlinkat(m_dirFd, recordName.constData(), 0);
}

void JournalStore::dropOriginal(const QString &copyPath)
{
    const QByteArray path = QFile::encodeName(copyPath);
    ::unlink(path.constData());
    const QString prefix = m_folder + QLatin1Char('/');
    if (copyPath.startsWith(prefix) && path.endsWith(OriginalSuffix)) {
        const QByteArray record = path.chopped(OriginalSuffix.size()) + SaveSuffix;
        ::unlink(record.constData());
    }
}

bool JournalStore::settleSave(const QByteArray &recordName, Found *found)
{
    const QByteArray base = recordName.chopped(SaveSuffix.size());
    QString problem;
    const QByteArray record = readJournal(recordName, HeaderLimit, &problem);
    QByteArray oldSum;
    QByteArray newSum;
    qint64 oldMtimeNs = 0;
    for (const QByteArray &line : record.split('\n')) {
        if (line.startsWith("mtime "))
            oldMtimeNs = line.mid(6).toLongLong();
        else if (line.startsWith("path "))
            found->entry.path =
                FileNameEscape::fromNative(QByteArray::fromPercentEncoding(line.mid(5)));
        else if (line.startsWith("old "))
            oldSum = line.mid(4);
        else if (line.startsWith("new "))
            newSum = line.mid(4);
    }
    const auto drop = [&] {
        ::unlinkat(m_dirFd, QByteArray(base + OriginalSuffix).constData(), 0);
        ::unlinkat(m_dirFd, recordName.constData(), 0);
    };
    if (found->entry.path.isEmpty() || oldSum.isEmpty() || newSum.isEmpty()) {
        drop();
        return false;
    }
    QByteArray now;
    QString unreadable;
    FileReader::read(found->entry.path, &now, &unreadable);
    const QByteArray nowSum = md5Hex(now);
    const QByteArray targetPath = FileNameEscape::toNative(found->entry.path);
    // The old text is the file as the editor knew it: with its time back, a
    // journal made before the save does not find it changed on disk.
    const auto restoreTime = [&] {
        if (oldMtimeNs <= 0)
            return;
        const struct timespec times[2] = {
            {0, UTIME_OMIT}, {time_t(oldMtimeNs / 1000000000), long(oldMtimeNs % 1000000000)}};
        ::utimensat(AT_FDCWD, targetPath.constData(), times, 0);
    };
    if (nowSum == oldSum || nowSum == newSum) {
        if (nowSum == oldSum)
            restoreTime();
        drop();
        return false;
    }
    // A mix of old and new: the original goes back, in place as it was written.
    const QString copy = m_folder + QLatin1Char('/') + QFile::decodeName(base + OriginalSuffix);
    const QByteArray original = readJournal(base + OriginalSuffix, -1, &problem);
    bool restored = false;
    if (problem.isEmpty() && md5Hex(original) == oldSum) {
        const int fd = ::open(targetPath.constData(), O_WRONLY | O_CLOEXEC | O_NOCTTY);
        restored = fd >= 0 && PosixFile::writeAll(fd, original.constData(), original.size()) &&
                   ::ftruncate(fd, off_t(original.size())) == 0 && ::fsync(fd) == 0;
        if (fd >= 0)
            restored = PosixFile::close(fd) && restored;
    }
    found->state = State::InterruptedSave;
    if (restored) {
        restoreTime();
        drop();
        found->problem = tr("a save was interrupted halfway; the file was put back as it was "
                            "before that save");
    } else {
        found->problem =
            tr("a save was interrupted halfway and the file could not be put back; its "
               "previous content is in %1")
                .arg(copy);
    }
    return true;
}

int JournalStore::lockOwner(const QByteArray &ownerKey, bool *held)
{
    *held = false;
    const QByteArray lockName = ownerKey + LockSuffix;
    int fd = ::openat(m_dirFd, lockName.constData(), O_RDWR | O_NOFOLLOW | O_CLOEXEC);
    if (fd < 0 && errno == ENOENT) {
        // No lock file: only the process table can tell.
        JournalOwner owner;
        if (JournalOwner::parse(ownerKey, &owner) && owner.isRunning()) {
            *held = true;
            return -1;
        }
        fd = ::openat(m_dirFd, lockName.constData(), O_RDWR | O_CREAT | O_NOFOLLOW | O_CLOEXEC,
                      0600);
    }
    if (fd < 0) {
        // Something that is not a plain lock file: leave it all alone.
        *held = true;
        return -1;
    }
    if (::flock(fd, LOCK_EX | LOCK_NB) != 0) {
        PosixFile::close(fd);
        *held = true;
        return -1;
    }
    return fd;
}

bool JournalStore::isOwnerAlive(const QByteArray &ownerKey)
{
    if (ownerKey == m_ownerKey)
        return true;
    if (m_claims.contains(ownerKey))
        return false;
    bool held = false;
    const int fd = lockOwner(ownerKey, &held);
    if (held)
        return true;
    m_claims.insert(ownerKey, fd);
    return false;
}

QByteArray JournalStore::readJournal(const QByteArray &name, qsizetype limit,
                                     QString *problem) const
{
    const int fd = ::openat(m_dirFd, name.constData(), O_RDONLY | O_NOFOLLOW | O_CLOEXEC);
    struct stat st;
    if (fd < 0 || ::fstat(fd, &st) != 0 || !S_ISREG(st.st_mode)) {
        *problem = tr("it cannot be read: %1")
                       .arg(fd < 0 ? PosixFile::errorText(errno) : tr("not a regular file"));
        if (fd >= 0)
            PosixFile::close(fd);
        return {};
    }
    QByteArray bytes;
    QFile file;
    if (file.open(fd, QIODevice::ReadOnly, QFileDevice::AutoCloseHandle))
        bytes = limit < 0 ? file.readAll() : file.read(limit);
    return bytes;
}

void JournalStore::moveAside(const QByteArray &name)
{
    ::mkdirat(m_dirFd, CorruptFolder.constData(), 0700);
    const int aside = openDirectory(m_dirFd, CorruptFolder.constData());
    if (aside < 0 || ::renameat(m_dirFd, name.constData(), aside, name.constData()) != 0)
        ::unlinkat(m_dirFd, name.constData(), 0);
    if (aside >= 0)
        PosixFile::close(aside);
}

QList<JournalStore::Found> JournalStore::list()
{
    QList<Found> found;
    if (m_dirFd < 0)
        return found;
    const QList<QByteArray> names = namesIn(m_dirFd);
    for (const QByteArray &name : names) {
        if (name.endsWith(SaveSuffix)) {
            const QByteArray owner = ownerKeyOf(name);
            Found item;
            item.fileName = QFile::decodeName(name);
            if (!owner.isEmpty() && !isOwnerAlive(owner) && settleSave(name, &item))
                found.append(item);
            continue;
        }
        if (name.endsWith(TemporarySuffix)) {
            const QByteArray owner = ownerKeyOf(name);
            if (!owner.isEmpty() && !isOwnerAlive(owner))
                removeTemporary(name);
            continue;
        }
        if (name.endsWith(TempSuffix)) {
            // An interrupted write; the journal before it is still whole.
            const QByteArray owner = ownerKeyOf(name);
            if (!owner.isEmpty() && !isOwnerAlive(owner))
                ::unlinkat(m_dirFd, name.constData(), 0);
            continue;
        }
        if (!name.endsWith(JournalSuffix))
            continue;
        Found item;
        item.fileName = QFile::decodeName(name);
        const QByteArray ownerKey = ownerKeyOf(name);
        JournalOwner::parse(ownerKey, &item.entry.owner);
        if (!ownerKey.isEmpty() && isOwnerAlive(ownerKey)) {
            // Another editor's (or this one's): its header only, for telling
            // which files it has unsaved changes to.
            item.state = State::Alive;
            const QByteArray head = readJournal(name, HeaderLimit, &item.problem);
            qsizetype start = 0;
            qsizetype size = 0;
            JournalEntry entry;
            if (decodeHeader(head, &entry, &start, &size, &item.problem))
                item.entry = entry;
            found.append(item);
            continue;
        }
        QByteArray bytes = readJournal(name, -1, &item.problem);
        JournalEntry entry;
        if (item.problem.isEmpty() && decode(bytes, &entry, &item.text, &item.problem) &&
            entry.owner.key() == ownerKey && entry.documentId + JournalSuffix == name) {
            item.state = State::Dead;
            item.entry = entry;
        } else {
            if (item.problem.isEmpty())
                item.problem = tr("its header does not match its name");
            item.state = State::Corrupt;
            item.text.clear();
            moveAside(name);
        }
        found.append(item);
    }
    // Lock files of owners that are gone and left nothing.
    for (const QByteArray &name : names) {
        if (name.endsWith(LockSuffix)) {
            const QByteArray ownerKey = name.chopped(LockSuffix.size());
            if (ownerKey != m_ownerKey && !isOwnerAlive(ownerKey))
                dropOwnerIfEmpty(ownerKey);
        }
    }
    std::stable_sort(found.begin(), found.end(), [](const Found &a, const Found &b) {
        return a.entry.writtenMs < b.entry.writtenMs;
    });
    return found;
}

QList<JournalEntry> JournalStore::othersEditing(const QString &path)
{
    QList<JournalEntry> found;
    if (m_dirFd < 0 || path.isEmpty())
        return found;
    QHash<QByteArray, bool> alive;
    for (const QByteArray &name : namesIn(m_dirFd)) {
        const QByteArray ownerKey = ownerKeyOf(name);
        if (!name.endsWith(JournalSuffix) || ownerKey.isEmpty() || ownerKey == m_ownerKey ||
            m_claims.contains(ownerKey))
            continue;
        if (!alive.contains(ownerKey)) {
            bool held = false;
            const int fd = lockOwner(ownerKey, &held);
            if (fd >= 0)
                PosixFile::close(fd);
            alive.insert(ownerKey, held);
        }
        if (!alive.value(ownerKey))
            continue;
        QString problem;
        const QByteArray head = readJournal(name, HeaderLimit, &problem);
        JournalEntry entry;
        qsizetype start = 0;
        qsizetype size = 0;
        if (problem.isEmpty() && decodeHeader(head, &entry, &start, &size, &problem) &&
            entry.path == path)
            found.append(entry);
    }
    return found;
}

void JournalStore::discard(const Found &found)
{
    if (m_dirFd < 0 || found.state != State::Dead)
        return;
    const QByteArray name = QFile::encodeName(found.fileName);
    const QByteArray ownerKey = ownerKeyOf(name);
    if (!m_claims.contains(ownerKey))
        return;
    ::unlinkat(m_dirFd, name.constData(), 0);
    dropOwnerIfEmpty(ownerKey);
}

void JournalStore::dropOwnerIfEmpty(const QByteArray &ownerKey)
{
    const QList<QByteArray> names = namesIn(m_dirFd);
    for (const QByteArray &name : names) {
        if ((name.endsWith(JournalSuffix) || name.endsWith(SaveSuffix) ||
             name.endsWith(TemporarySuffix)) &&
            ownerKeyOf(name) == ownerKey)
            return;
    }
    ::unlinkat(m_dirFd, QByteArray(ownerKey + LockSuffix).constData(), 0);
    if (const auto claim = m_claims.find(ownerKey); claim != m_claims.end()) {
        PosixFile::close(claim.value());
        m_claims.erase(claim);
    }
}

void JournalStore::releaseClaims()
{
    for (const int fd : std::as_const(m_claims))
        PosixFile::close(fd);
    m_claims.clear();
}

} // namespace koru::sedgui
