#include "gitlibrary.h"

#include <QLibrary>

#include <type_traits>

const GitLibrary *GitLibrary::get()
{
    static const GitLibrary *const library = [] {
        static GitLibrary loaded;
        return loaded.load() ? &loaded : nullptr;
    }();
    return library;
}

bool GitLibrary::load()
{
    // The version the headers were built against (SE_GIT2_SOVERSION, from the
    // build); never unloaded, as libgit2 keeps global state between searches.
    static QLibrary library(QStringLiteral("git2"), QStringLiteral(SE_GIT2_SOVERSION));
    if (!library.load())
        return false;
    const auto resolve = [](auto &function, const char *name) {
        function =
            reinterpret_cast<std::remove_reference_t<decltype(function)>>(library.resolve(name));
        return function != nullptr;
    };
    return resolve(init, "git_libgit2_init") && resolve(shutdown, "git_libgit2_shutdown") &&
           resolve(openRepository, "git_repository_open_ext") &&
           resolve(workdir, "git_repository_workdir") &&
           resolve(freeRepository, "git_repository_free") &&
           resolve(isIgnored, "git_ignore_path_is_ignored");
}
