#pragma once

#include <QByteArray>
#include <QString>

#include <functional>

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

    // Where the original's copy goes during an in-place write: keep() stores
    // it (given the target, its original bytes and the new bytes) and returns
    // the copy's path, or empty to fall back to a copy beside the file or in
    // the temporary folder; drop() removes it once the file is whole again.
    struct OriginalKeeper
    {
        std::function<QString(const QString &, const QByteArray &, const QByteArray &)> keep;
        std::function<void(const QString &)> drop;
        // Before a temporary file is made beside the target: records its
        // path, so that a start after a crash removes it, and returns the
        // record (empty: none); dropTemporary() removes the record once the
        // temporary is renamed or removed.
        std::function<QString(const QString &)> noteTemporary;
        std::function<void(const QString &)> dropTemporary;
    };
    // Set once, before the first save.
    static void setOriginalKeeper(const OriginalKeeper &keeper);
};

} // namespace koru::sedgui
