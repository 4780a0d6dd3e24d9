#include "fileidentity.h"

#include "filenameescape.h"

#include <sys/stat.h>

namespace koru::sedgui {

FileIdentity FileIdentity::of(const QString &path)
{
    FileIdentity identity;
    struct stat st;
    if (::stat(FileNameEscape::toNative(path).constData(), &st) != 0)
        return identity;
    identity.exists = true;
    identity.size = qint64(st.st_size);
    identity.mtimeNs = qint64(st.st_mtim.tv_sec) * 1000000000LL + qint64(st.st_mtim.tv_nsec);
    identity.inode = quint64(st.st_ino);
    identity.device = quint64(st.st_dev);
    return identity;
}

} // namespace koru::sedgui
