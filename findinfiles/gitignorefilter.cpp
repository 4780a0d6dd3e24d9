#include "gitignorefilter.h"

#include <climits>
#include <cstdlib>
#include <git2.h>

GitIgnoreFilter::GitIgnoreFilter(const QByteArray &root)
{
    git_libgit2_init();
    // The work tree's path is the real one: compare the search folder's real path.
    char real[PATH_MAX];
    if (!realpath(root.constData(), real) ||
        git_repository_open_ext(&m_repository, real, 0, nullptr) != 0) {
        m_repository = nullptr;
        return;
    }
    const char *workdir = git_repository_workdir(m_repository);
    QByteArray folder(real);
    folder += '/';
    if (!workdir || !folder.startsWith(workdir)) {
        // A bare repository has no ignore rules that apply to files.
        git_repository_free(m_repository);
        m_repository = nullptr;
        return;
    }
    m_prefix = folder.mid(qsizetype(qstrlen(workdir)));
}

GitIgnoreFilter::~GitIgnoreFilter()
{
    git_repository_free(m_repository);
    git_libgit2_shutdown();
}

bool GitIgnoreFilter::isIgnored(const QByteArray &relative, bool isFolder) const
{
    if (!m_repository)
        return false;
    // A trailing slash tells the rules it is a folder ("logs/" matches only folders).
    QByteArray path = m_prefix;
    path += relative;
    if (isFolder)
        path += '/';
    int ignored = 0;
    return git_ignore_path_is_ignored(&ignored, m_repository, path.constData()) == 0 && ignored;
}
