#pragma once

#include <QByteArray>

class GitLibrary;
struct git_repository;

// Tells which entries under a search folder git ignores: the rules of every
// .gitignore from the work tree's top down, .git/info/exclude and the user's
// excludes file, negations included. A folder outside any work tree has no
// rules, and nothing in it is ignored. One filter per search: the repository
// is opened once, when the filter is made. libgit2 takes the first rule file
// that matches from the top down, so a negation in a deeper .gitignore does
// not bring back what a shallower one ignores (git would).
class GitIgnoreFilter
{
public:
    // root: the search folder (local 8-bit bytes, absolute).
    explicit GitIgnoreFilter(const QByteArray &root);
    ~GitIgnoreFilter();
    GitIgnoreFilter(const GitIgnoreFilter &) = delete;
    GitIgnoreFilter &operator=(const GitIgnoreFilter &) = delete;

    // True when the search folder lies in a work tree.
    bool isActive() const { return m_repository != nullptr; }

    // relative: a path below the search folder. An ignored folder's contents
    // are ignored too, so the caller does not enter it.
    bool isIgnored(const QByteArray &relative, bool isFolder) const;

private:
    const GitLibrary *m_git;
    git_repository *m_repository = nullptr;
    // Where the search folder lies in the work tree ("" or "a/b/").
    QByteArray m_prefix;
};
