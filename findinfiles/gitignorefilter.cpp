#include "gitignorefilter.h"

#include "gitlibrary.h"

#include <climits>
#include <cstdlib>

GitIgnoreFilter::GitIgnoreFilter(const QByteArray &root)
    : m_git(GitLibrary::get())
{
    if (!m_git)
        return;
    m_git->init();
    // The work tree's path is the real one: compare the search folder's real path.
    char real[PATH_MAX];
    if (!realpath(root.constData(), real) ||
        m_git->openRepository(&m_repository, real, 0, nullptr) != 0) {
        m_repository = nullptr;
        return;
    }
    const char *workdir = m_git->workdir(m_repository);
    QByteArray folder(real);
    folder += '/';
    if (!workdir || !folder.startsWith(workdir)) {
        // A bare repository has no ignore rules that apply to files.
        m_git->freeRepository(m_repository);
        m_repository = nullptr;
        return;
    }
    m_prefix = folder.mid(qsizetype(qstrlen(workdir)));
}

GitIgnoreFilter::~GitIgnoreFilter()
{
    if (!m_git)
        return;
    m_git->freeRepository(m_repository);
    m_git->shutdown();
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
    return m_git->isIgnored(&ignored, m_repository, path.constData()) == 0 && ignored;
}
