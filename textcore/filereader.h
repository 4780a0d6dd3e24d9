#pragma once

#include <QByteArray>
#include <QString>

namespace koru::sedgui {

// Reads a whole file for opening it in the editor.
class FileReader
{
public:
    // Refuses what is not a regular file before reading a byte (a directory,
    // a FIFO, a device, a socket) and says which. Reads until end of file,
    // not size() bytes (files in /proc report size 0). On failure returns
    // false, leaves *out empty and sets *error, e.g.
    // "Cannot open /x/y: it is a directory" or "Cannot open /x/y: Permission denied".
    static bool read(const QString &path, QByteArray *out, QString *error);
};

} // namespace koru::sedgui
