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

    // Paths below are names as the program holds them (FileNameEscape::fromNative).
    // Whether anything is at path, a dangling link too.
    static bool exists(const QString &path);
    // Whether path leads to a regular file.
    static bool isFile(const QString &path);
    // Qt's file dialogs and file URLs decode a name whose bytes are not UTF-8
    // with U+FFFD in place of those bytes, a name no file has. This is path
    // with its last part replaced by the name of the one file in its folder
    // that decodes so; path itself when it exists, holds no U+FFFD, or no
    // file matches. Empty, with *why set, when several files match.
    static QString undoLossyDecoding(const QString &path, QString *why);
};

} // namespace koru::sedgui
