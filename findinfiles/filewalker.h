#pragma once

#include <QByteArray>
#include <QList>

#include <atomic>
#include <functional>
#include <set>
#include <sys/types.h>
#include <utility>

struct SearchOptions;

// Walks a folder tree and hands every regular file to search to a callback, in
// a stable order (the entries of each folder sorted by name, files first).
// Symbolic links are followed, but no folder is entered twice, so a link back up
// the tree is not a loop. Folders that cannot be opened are counted, not fatal.
class FileWalker
{
public:
    explicit FileWalker(const SearchOptions &options);

    // Calls onFile with each file's path (local 8-bit bytes) until it returns
    // false or cancel is set. Returns false when stopped early.
    bool walk(const std::function<bool(const QByteArray &path)> &onFile,
              const std::atomic<bool> *cancel = nullptr);

    qint64 unreadableFolders() const { return m_unreadableFolders; }

private:
    bool isIncludedFile(const char *name) const;
    bool isExcluded(const char *name) const;
    bool enterFolder(const QByteArray &path, QList<QByteArray> &files, QList<QByteArray> &folders);

    QByteArray m_root;
    QList<QByteArray> m_includeGlobs;
    QList<QByteArray> m_excludeGlobs;
    bool m_includeHidden = false;
    std::set<std::pair<dev_t, ino_t>> m_visitedFolders;
    qint64 m_unreadableFolders = 0;
};
