#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

// Runs the file operations helper next to the test executable, as the
// current user or as "nobody".
class FileOpsRunner
{
public:
    struct Result
    {
        int exitCode = -1;
        QByteArray out;
        QString error;
    };

    static constexpr unsigned NobodyId = 65534;

    // True when tests can run the helper as an unprivileged user: as root
    // through setpriv; as an ordinary user, directly.
    static bool canRunUnprivileged(QString *why);
    // Makes the test's private temporary folder reachable by "nobody" when
    // the test runs as root; false with the reason when it stays unreachable.
    static bool openTempPathToOthers(QString *why);
    static Result run(const QStringList &args, const QByteArray &input, bool unprivileged);
};
