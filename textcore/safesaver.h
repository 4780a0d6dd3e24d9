#pragma once

#include <QByteArray>
#include <QString>

namespace koru::sedgui {

// Writes a file so that afterwards either the whole new content is there or
// the old file is untouched.
class SafeSaver
{
public:
    // Writes to a temporary file in the same folder, fsyncs it and renames
    // it over the target, keeping the mode bits, the owner and the extended
    // attributes (ACLs). A symlink is written through to its target (the
    // link stays a link). Where renaming would lose what it cannot keep (a
    // hard-linked file, a file owned by someone else, an attribute it cannot
    // set, a folder the user cannot write) the original is copied aside and
    // the file is written in place, restoring the copy if the write fails.
    // Never leaves a temporary file behind. On failure returns false and sets
    // *error, e.g. "Cannot save /x/y.c: No space left on device".
    static bool save(const QString &path, const QByteArray &bytes, QString *error);
};

} // namespace koru::sedgui
