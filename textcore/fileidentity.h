#pragma once

#include <QString>

namespace koru::sedgui {

// What a file on disk was at one moment: compared before saving and when the
// file system watcher reports a change, to tell whether it is still the file
// that was loaded.
struct FileIdentity
{
    bool exists = false;
    qint64 size = -1;
    qint64 mtimeNs = 0;
    quint64 inode = 0;
    quint64 device = 0;

    // Follows symlinks: the identity of the file that would be read or written.
    static FileIdentity of(const QString &path);

    friend bool operator==(const FileIdentity &, const FileIdentity &) = default;
};

} // namespace koru::sedgui
