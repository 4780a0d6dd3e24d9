#pragma once

#include <QByteArray>
#include <QList>

#include <atomic>
#include <functional>
#include <memory>
#include <set>
#include <sys/types.h>
#include <utility>

class GitIgnoreFilter;
struct SearchOptions;

// Walks a folder tree and hands every regular file to search to a callback, in
// a stable order (the entries of each folder sorted by name, files first).
// Symbolic links are followed, but no folder is entered twice, so a link back up
// the tree is not a loop. Folders that cannot be opened are counted, not fatal.
// In a git work tree, what git ignores is skipped when the options ask for it:
// an ignored folder is not entered.
class FileWalker
{
public:
    explicit FileWalker(const SearchOptions &options);
    ~FileWalker();

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
    std::unique_ptr<GitIgnoreFilter> m_gitIgnore; // null outside a work tree
    std::set<std::pair<dev_t, ino_t>> m_visitedFolders;
    qint64 m_unreadableFolders = 0;
};
