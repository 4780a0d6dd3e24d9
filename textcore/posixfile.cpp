#include "posixfile.h"

#include <QCoreApplication>

#include <cerrno>
#include <cstring>
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

} // namespace koru::sedgui
