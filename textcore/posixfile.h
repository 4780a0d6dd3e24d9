#pragma once

#include <QString>

#include <sys/types.h>

namespace koru::sedgui {

// Small POSIX helpers shared by the file reader and the safe saver: they
// need file types, errno texts and loops that survive signals, which QFile
// hides.
class PosixFile
{
public:
    // "a directory", "a FIFO (named pipe)", "a device", "a socket"; empty for
    // a regular file.
    static QString irregularKind(mode_t mode);
    // The system's text for an errno value ("No space left on device").
    static QString errorText(int error);
    // Writes all of it, retrying after signals and short writes; false with
    // errno set on failure.
    static bool writeAll(int fd, const char *data, qsizetype size);
    // Closes, retrying nothing (a retried close may close another file).
    static bool close(int fd);
};

} // namespace koru::sedgui
