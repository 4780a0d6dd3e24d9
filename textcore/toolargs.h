#pragma once

#include <QList>
#include <QString>
#include <QStringList>

namespace koru::sedgui {

// The argument list the tool factory is given, read into files and lines.
//   ()                         no file: a new untitled document
//   (path)                     one file
//   (path, "-line", N)         a file at line N
//   +N path, path:N            a file at line N (the usual command-line forms)
//   path path ...              several files
//   --                         everything after it is a path, even "-x" or "+3"
// Relative paths are made absolute against the working folder; "file://"
// URLs become paths. Unknown options are skipped and listed in ignored. A
// name written with FileNameEscape's escapes names the file with those
// characters or bytes; paths come out as the program holds names
// (FileNameEscape::fromNative). A name that could mean two files is refused,
// with a sentence saying why.
class ToolArgs
{
public:
    struct File
    {
        QString path;
        // 1-based; 0 when no line was given.
        int line = 0;
        friend bool operator==(const File &, const File &) = default;
    };

    static ToolArgs parse(const QStringList &args, const QString &workingDir);

    QList<File> files;
    QStringList ignored;
    QStringList refused;
};

} // namespace koru::sedgui
