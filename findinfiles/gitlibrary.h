#pragma once

#include <git2.h>

// libgit2, opened the first time a search needs git's ignore rules rather
// than linked: the library and the dozen it depends on (TLS, SSH, Kerberos)
// would otherwise be mapped and relocated at every start of the editor.
// The functions are null when the library cannot be opened; a search then
// has no ignore rules.
class GitLibrary
{
public:
    // The opened library, or null when it is not installed. Opened once, on
    // first call, and kept until the program ends.
    static const GitLibrary *get();

    decltype(&git_libgit2_init) init = nullptr;
    decltype(&git_libgit2_shutdown) shutdown = nullptr;
    decltype(&git_repository_open_ext) openRepository = nullptr;
    decltype(&git_repository_workdir) workdir = nullptr;
    decltype(&git_repository_free) freeRepository = nullptr;
    decltype(&git_ignore_path_is_ignored) isIgnored = nullptr;

private:
    GitLibrary() = default;
    bool load();
};
