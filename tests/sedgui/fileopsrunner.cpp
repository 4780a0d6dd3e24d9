#include "fileopsrunner.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>

#include <sys/stat.h>
#include <unistd.h>

bool FileOpsRunner::canRunUnprivileged(QString *why)
{
    if (::geteuid() != 0)
        return true;
    if (QStandardPaths::findExecutable(QStringLiteral("setpriv")).isEmpty()) {
        *why = QStringLiteral("running as root and setpriv is missing: no unprivileged user");
        return false;
    }
    return true;
}

bool FileOpsRunner::openTempPathToOthers(QString *why)
{
    if (::geteuid() != 0)
        return true;
    // The private folder tests/isolated.sh made for this run may be opened
    // up; nothing above it is changed.
    const QString temp = QDir::tempPath();
    const QByteArray nativeTemp = QFile::encodeName(temp);
    struct stat st;
    if (QFileInfo(temp).fileName().startsWith(QLatin1String("se-test.")) &&
        ::stat(nativeTemp.constData(), &st) == 0 && st.st_uid == 0)
        ::chmod(nativeTemp.constData(), (st.st_mode & 07777) | S_IXOTH);
    QDir dir(temp);
    while (true) {
        const QByteArray native = QFile::encodeName(dir.absolutePath());
        if (::stat(native.constData(), &st) != 0 || !(st.st_mode & S_IXOTH)) {
            *why = QStringLiteral("%1 is not reachable by an unprivileged user").arg(dir.path());
            return false;
        }
        if (dir.isRoot() || !dir.cdUp())
            return true;
    }
}

FileOpsRunner::Result FileOpsRunner::run(const QStringList &args, const QByteArray &input,
                                         bool unprivileged)
{
    const QString helper =
        QCoreApplication::applicationDirPath() + QStringLiteral("/fileopshelper");
    QProcess process;
    if (unprivileged && ::geteuid() == 0) {
        process.setProgram(QStringLiteral("setpriv"));
        process.setArguments(QStringList{QStringLiteral("--reuid=65534"),
                                         QStringLiteral("--regid=65534"),
                                         QStringLiteral("--clear-groups"), helper} +
                             args);
    } else {
        process.setProgram(helper);
        process.setArguments(args);
    }
    process.start();
    Result result;
    if (!process.waitForStarted()) {
        result.error = process.errorString();
        return result;
    }
    process.write(input);
    process.closeWriteChannel();
    process.waitForFinished(-1);
    result.exitCode = process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
    result.out = process.readAllStandardOutput();
    result.error = QString::fromLocal8Bit(process.readAllStandardError()).trimmed();
    return result;
}
