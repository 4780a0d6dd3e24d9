#include "posixfile.h"

#include "filenameescape.h"
#include "textfilecodec.h"

#include <QCoreApplication>
#include <QDir>

#include <cerrno>
#include <cstring>
#include <dirent.h>
#include <sys/stat.h>
#include <unistd.h>

namespace koru::sedgui {

QString PosixFile::irregularKind(mode_t mode)
{
    const auto tr = [](const char *text) {
        return QCoreApplication::translate("koru::sedgui::PosixFile", text);
    };
    if (S_ISREG(mode))
        return {};
    if (S_ISDIR(mode))
        return tr("a directory");
    if (S_ISFIFO(mode))
        return tr("a FIFO (named pipe)");
    if (S_ISCHR(mode) || S_ISBLK(mode))
        return tr("a device");
    if (S_ISSOCK(mode))
        return tr("a socket");
    return tr("not a regular file");
}

QString PosixFile::errorText(int error)
{
    char buffer[256];
    // The GNU strerror_r returns its text, which need not be in buffer.
    return QString::fromLocal8Bit(strerror_r(error, buffer, sizeof buffer));
}

bool PosixFile::writeAll(int fd, const char *data, qsizetype size)
{
    while (size > 0) {
        // Some file systems refuse single writes above 2 GB.
        const size_t chunk = size_t(qMin<qsizetype>(size, qsizetype(1) << 30));
        const ssize_t n = ::write(fd, data, chunk);
        if (n < 0) {
            if (errno == EINTR)
                continue;
            return false;
        }
        if (n == 0) {
            errno = ENOSPC;
            return false;
        }
        data += n;
        size -= n;
    }
    return true;
}

bool PosixFile::close(int fd)
{
    return ::close(fd) == 0 || errno == EINTR;
}

bool PosixFile::exists(const QString &path)
{
    struct stat st;
    return ::lstat(FileNameEscape::toNative(path).constData(), &st) == 0;
}

bool PosixFile::isFile(const QString &path)
{
    struct stat st;
    return ::stat(FileNameEscape::toNative(path).constData(), &st) == 0 && S_ISREG(st.st_mode);
}

QString PosixFile::undoLossyDecoding(const QString &path, QString *why)
{
    const qsizetype slash = path.lastIndexOf(u'/');
    const QString leaf = path.mid(slash + 1);
    if (!leaf.contains(QChar::ReplacementCharacter) || exists(path))
        return path;
    const QString folder = slash > 0 ? path.left(slash) : QStringLiteral("/");
    DIR *dir = ::opendir(FileNameEscape::toNative(folder).constData());
    if (!dir)
        return path;
    QStringList matches;
    while (const dirent *entry = ::readdir(dir)) {
        const QByteArrayView name(entry->d_name);
        if (!TextFileCodec::isValidUtf8(name.data(), name.size()) &&
            QString::fromUtf8(name) == leaf)
            matches.append(FileNameEscape::fromNative(name));
    }
    ::closedir(dir);
    if (matches.size() == 1)
        return path.left(slash + 1) + matches.first();
    if (matches.size() > 1) {
        matches.sort();
        *why = QCoreApplication::translate("koru::sedgui::PosixFile",
                                           "\"%1\" is not opened: its name was read with the "
                                           "replacement character in place of bytes "
                                           "that are not UTF-8, and several files match it (%2).")
                   .arg(QDir::toNativeSeparators(path), matches.join(QLatin1String(", ")));
        return QString();
    }
    return path;
}

} // namespace koru::sedgui
