#include "journalowner.h"

#include <QFile>

#include <unistd.h>

namespace koru::sedgui {

namespace {

QByteArray readSmallFile(const QByteArray &path)
{
    QFile file(QString::fromLatin1(path));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return file.read(4096);
}

QByteArray currentBootId()
{
    return readSmallFile("/proc/sys/kernel/random/boot_id").trimmed().replace('-', QByteArray());
}

// Field 22 of /proc/<pid>/stat; 0 when the process does not exist.
quint64 startTicksOf(qint64 pid)
{
    const QByteArray stat = readSmallFile("/proc/" + QByteArray::number(pid) + "/stat");
    // The command name in field 2 is in parentheses and may hold spaces.
    const qsizetype close = stat.lastIndexOf(')');
    if (close < 0)
        return 0;
    const QList<QByteArray> fields = stat.mid(close + 2).split(' ');
    // fields[0] is field 3 (the state), so field 22 is fields[19].
    return fields.size() > 19 ? fields.at(19).toULongLong() : 0;
}

bool isHex(const QByteArray &text)
{
    return std::all_of(text.cbegin(), text.cend(),
                       [](char c) { return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f'); });
}

} // namespace

QByteArray JournalOwner::key() const
{
    return bootId + '-' + QByteArray::number(pid) + '-' + QByteArray::number(startTicks);
}

bool JournalOwner::parse(const QByteArray &key, JournalOwner *owner)
{
    const QList<QByteArray> parts = key.split('-');
    if (parts.size() != 3 || parts.at(0).isEmpty() || !isHex(parts.at(0)))
        return false;
    bool pidOk = false;
    bool ticksOk = false;
    owner->bootId = parts.at(0);
    owner->pid = parts.at(1).toLongLong(&pidOk);
    owner->startTicks = parts.at(2).toULongLong(&ticksOk);
    return pidOk && ticksOk && owner->pid > 0;
}

JournalOwner JournalOwner::current()
{
    JournalOwner owner;
    owner.pid = qint64(::getpid());
    owner.startTicks = startTicksOf(owner.pid);
    owner.bootId = currentBootId();
    if (owner.bootId.isEmpty())
        owner.bootId = "0";
    return owner;
}

bool JournalOwner::isRunning() const
{
    const JournalOwner now = current();
    return now.bootId == bootId && startTicksOf(pid) == startTicks && startTicks != 0;
}

} // namespace koru::sedgui
