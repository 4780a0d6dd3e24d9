#include "filereader.h"

#include "displayname.h"
#include "filenameescape.h"
#include "posixfile.h"

#include <QCoreApplication>

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace koru::sedgui {

namespace {

QString cannotOpen(const QString &path, const QString &reason)
{
    return QCoreApplication::translate("koru::sedgui::FileReader", "Cannot open %1: %2")
        .arg(DisplayName::visible(path), reason);
}

QString isKind(const QString &kind)
{
    return QCoreApplication::translate("koru::sedgui::FileReader", "it is %1").arg(kind);
}

} // namespace

bool FileReader::read(const QString &path, QByteArray *out, QString *error)
{
    out->clear();
    const QByteArray native = FileNameEscape::toNative(path);
    // Look before opening: opening a FIFO waits for a writer, and opening
    // some devices has effects of its own.
    struct stat st;
    if (::stat(native.constData(), &st) != 0) {
        *error = cannotOpen(path, PosixFile::errorText(errno));
        return false;
    }
    if (const QString kind = PosixFile::irregularKind(st.st_mode); !kind.isEmpty()) {
        *error = cannotOpen(path, isKind(kind));
        return false;
    }
    // O_NONBLOCK: if a FIFO was put there since the stat, the open does not
    // block, and the fstat below refuses it.
    const int fd = ::open(native.constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY);
    if (fd < 0) {
        *error = cannotOpen(path, PosixFile::errorText(errno));
        return false;
    }
    if (::fstat(fd, &st) != 0 || !S_ISREG(st.st_mode)) {
        const QString kind = PosixFile::irregularKind(st.st_mode);
        *error = cannotOpen(path, kind.isEmpty() ? PosixFile::errorText(errno) : isKind(kind));
        PosixFile::close(fd);
        return false;
    }
    ::fcntl(fd, F_SETFL, ::fcntl(fd, F_GETFL) & ~O_NONBLOCK);

    // The size is a hint: files in /proc say 0, and a file may grow while
    // it is read. One byte more than the size finds the end in one read.
    QByteArray data(qMax<qsizetype>(qsizetype(st.st_size) + 1, 4096), Qt::Uninitialized);
    qsizetype used = 0;
    while (true) {
        if (used == data.size())
            data.resize(data.size() * 2);
        const ssize_t n = ::read(fd, data.data() + used, size_t(data.size() - used));
        if (n < 0) {
            if (errno == EINTR)
                continue;
            *error = cannotOpen(path, PosixFile::errorText(errno));
            PosixFile::close(fd);
            return false;
        }
        if (n == 0)
            break;
        used += n;
    }
    PosixFile::close(fd);
    data.truncate(used);
    // Give back the spare capacity only when it is worth a copy.
    if (data.capacity() - used > 64 * 1024)
        data.squeeze();
    *out = std::move(data);
    return true;
}

} // namespace koru::sedgui
