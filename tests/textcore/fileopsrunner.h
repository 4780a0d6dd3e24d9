#pragma once

#include "filereader.h"
#include "safesaver.h"

#include <QDir>
#include <QFile>

#include <csignal>
#include <grp.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

// Runs a save or a read in a forked child, as "nobody" or under a file size
// limit, leaving the test process itself unchanged.
class FileOpsRunner
{
public:
    static constexpr uid_t Nobody = 65534;
    enum Op { Save, Read };
    struct Result
    {
        bool ok = false;
        QByteArray out; // the bytes read, or the error message
    };

    static bool writeFile(const QString &path, const QByteArray &bytes)
    {
        QFile file(path);
        return file.open(QIODevice::WriteOnly | QIODevice::Truncate) &&
               file.write(bytes) == bytes.size();
    }

    static QByteArray readFile(const QString &path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<unreadable>");
    }

    // Empty when "nobody" can reach the temporary folder; otherwise why not.
    // As root, the private folder tests/isolated.sh made for this run is
    // opened up; nothing above it is changed.
    static QString unprivilegedBlocked()
    {
        const QString temp = QDir::tempPath();
        struct stat st;
        if (::geteuid() == 0 && QDir(temp).dirName().startsWith(QLatin1String("se-test.")) &&
            ::stat(QFile::encodeName(temp).constData(), &st) == 0 && st.st_uid == 0)
            ::chmod(QFile::encodeName(temp).constData(), (st.st_mode & 07777) | S_IXOTH);
        for (QDir dir(temp); ::geteuid() == 0; dir.cdUp()) {
            if (::stat(QFile::encodeName(dir.absolutePath()).constData(), &st) != 0 ||
                !(st.st_mode & S_IXOTH))
                return dir.path() + QStringLiteral(" is not reachable by an unprivileged user");
            if (dir.isRoot())
                break;
        }
        return {};
    }

    static Result run(Op op, const QString &path, const QByteArray &input = {},
                      bool unprivileged = false, rlim_t sizeLimit = RLIM_INFINITY)
    {
        int fds[2];
        if (::pipe(fds) != 0)
            return {};
        const pid_t pid = ::fork();
        if (pid == 0) {
            ::close(fds[0]);
            // Or a write past the limit kills the child instead of failing with EFBIG.
            std::signal(SIGXFSZ, SIG_IGN);
            const struct rlimit limit = {sizeLimit, sizeLimit};
            bool ok = sizeLimit == RLIM_INFINITY || ::setrlimit(RLIMIT_FSIZE, &limit) == 0;
            if (ok && unprivileged && ::geteuid() == 0)
                ok = ::setgroups(0, nullptr) == 0 && ::setgid(Nobody) == 0 && ::setuid(Nobody) == 0;
            QByteArray out;
            QString error = QStringLiteral("cannot drop privileges");
            if (ok)
                ok = op == Save ? koru::sedgui::SafeSaver::save(path, input, &error)
                                : koru::sedgui::FileReader::read(path, &out, &error);
            if (!ok)
                out = error.toUtf8();
            for (qsizetype done = 0, n = 0; done < out.size(); done += n)
                if ((n = ::write(fds[1], out.constData() + done, size_t(out.size() - done))) <= 0)
                    break;
            ::_exit(ok ? 0 : 1);
        }
        ::close(fds[1]);
        Result result;
        char buffer[4096];
        for (ssize_t n; pid > 0 && (n = ::read(fds[0], buffer, sizeof buffer)) > 0;)
            result.out.append(buffer, n);
        ::close(fds[0]);
        int status = 0;
        result.ok = pid > 0 && ::waitpid(pid, &status, 0) == pid && WIFEXITED(status) &&
                    WEXITSTATUS(status) == 0;
        return result;
    }
};
