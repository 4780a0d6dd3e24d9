#pragma once

#include <QByteArray>

namespace koru::sedgui {

// The process that keeps a set of recovery journals. A pid alone is recycled
// by the system, so the process's start time and the boot it runs in belong
// to it: a journal whose pid now names another process is not mistaken for a
// live one.
struct JournalOwner
{
    qint64 pid = 0;
    // The process's start time in clock ticks after boot (/proc/<pid>/stat).
    quint64 startTicks = 0;
    // The kernel's boot id, without dashes.
    QByteArray bootId;

    // A name-safe key, "<boot id>-<pid>-<start ticks>"; parse() reads it back.
    QByteArray key() const;
    static bool parse(const QByteArray &key, JournalOwner *owner);
    // This process.
    static JournalOwner current();
    // Whether this exact process is running now (same boot, same pid, same
    // start time). Used only where no owner lock file tells.
    bool isRunning() const;

    friend bool operator==(const JournalOwner &, const JournalOwner &) = default;
};

} // namespace koru::sedgui
