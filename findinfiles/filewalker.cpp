#include "filewalker.h"

#include "gitignorefilter.h"
#include "searchoptions.h"

#include <QDir>
#include <QFile>

#include <algorithm>
#include <cstring>
#include <dirent.h>
#include <fcntl.h>
#include <fnmatch.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

QList<QByteArray> encodeGlobs(const QStringList &globs)
{
    QList<QByteArray> encoded;
    encoded.reserve(globs.size());
    for (const QString &glob : globs)
        encoded.append(QFile::encodeName(glob));
    return encoded;
}

bool matchesAny(const QList<QByteArray> &globs, const char *name)
{
    return std::any_of(globs.begin(), globs.end(), [name](const QByteArray &glob) {
        return fnmatch(glob.constData(), name, 0) == 0;
    });
}

} // namespace

FileWalker::FileWalker(const SearchOptions &options)
    : m_root(QFile::encodeName(QDir::cleanPath(QDir(options.folder).absolutePath())))
    , m_includeGlobs(encodeGlobs(options.includeGlobs))
    , m_excludeGlobs(encodeGlobs(options.excludeGlobs))
    , m_includeHidden(options.includeHidden)
{
    if (options.respectGitIgnore) {
        m_gitIgnore = std::make_unique<GitIgnoreFilter>(m_root);
        if (!m_gitIgnore->isActive())
            m_gitIgnore.reset();
    }
}

FileWalker::~FileWalker() = default;

bool FileWalker::isIncludedFile(const char *name) const
{
    return m_includeGlobs.isEmpty() || matchesAny(m_includeGlobs, name);
}

bool FileWalker::isExcluded(const char *name) const
{
    if (!m_includeHidden && name[0] == '.')
        return true;
    return matchesAny(m_excludeGlobs, name);
}

bool FileWalker::enterFolder(const QByteArray &path, QList<QByteArray> &files,
                             QList<QByteArray> &folders)
{
    const int fd = open(path.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (fd < 0) {
        ++m_unreadableFolders;
        return false;
    }
    struct stat folderStat;
    if (fstat(fd, &folderStat) != 0 ||
        !m_visitedFolders.insert({folderStat.st_dev, folderStat.st_ino}).second) {
        close(fd);
        return false;
    }
    DIR *dir = fdopendir(fd);
    if (!dir) {
        close(fd);
        ++m_unreadableFolders;
        return false;
    }

    const QByteArray prefix = path.endsWith('/') ? path : path + '/';
    const qsizetype rootLength = m_root.endsWith('/') ? m_root.size() : m_root.size() + 1;
    while (const dirent *entry = readdir(dir)) {
        const char *name = entry->d_name;
        if (std::strcmp(name, ".") == 0 || std::strcmp(name, "..") == 0 || isExcluded(name))
            continue;
        unsigned char type = entry->d_type;
        if (type == DT_LNK || type == DT_UNKNOWN) {
            struct stat target;
            if (fstatat(dirfd(dir), name, &target, 0) != 0)
                continue; // a dangling link
            type = S_ISDIR(target.st_mode) ? DT_DIR : S_ISREG(target.st_mode) ? DT_REG : DT_UNKNOWN;
        }
        if (type != DT_DIR && (type != DT_REG || !isIncludedFile(name)))
            continue;
        const QByteArray entryPath = prefix + name;
        if (m_gitIgnore && m_gitIgnore->isIgnored(entryPath.mid(rootLength), type == DT_DIR))
            continue;
        (type == DT_DIR ? folders : files).append(entryPath);
    }
    closedir(dir);
    std::sort(files.begin(), files.end());
    std::sort(folders.begin(), folders.end());
    return true;
}

bool FileWalker::walk(const std::function<bool(const QByteArray &path)> &onFile,
                      const std::atomic<bool> *cancel)
{
    struct stat rootStat;
    if (stat(m_root.constData(), &rootStat) != 0) {
        ++m_unreadableFolders;
        return true;
    }
    if (S_ISREG(rootStat.st_mode))
        return onFile(m_root);

    // Depth first with an explicit stack: deep trees cannot overflow the call stack.
    QList<QByteArray> pending{m_root};
    QList<QByteArray> files;
    QList<QByteArray> folders;
    while (!pending.isEmpty()) {
        if (cancel && cancel->load(std::memory_order_relaxed))
            return false;
        const QByteArray folder = pending.takeLast();
        files.clear();
        folders.clear();
        if (!enterFolder(folder, files, folders))
            continue;
        for (const QByteArray &file : std::as_const(files)) {
            if ((cancel && cancel->load(std::memory_order_relaxed)) || !onFile(file))
                return false;
        }
        for (auto it = folders.crbegin(); it != folders.crend(); ++it)
            pending.append(*it);
    }
    return true;
}
