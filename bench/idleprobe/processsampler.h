#pragma once

#include <cstdint>
#include <map>
#include <sys/types.h>

// Reads one process's CPU time and resident memory from /proc. CPU time is
// the sum of every thread's run time in nanoseconds (task/*/schedstat), kept
// per thread so that a thread that ends does not take its time with it.
class ProcessSampler
{
public:
    explicit ProcessSampler(pid_t pid);

    // Re-reads every thread; returns the process's CPU time so far, in ns.
    std::uint64_t cpuNs();
    // VmRSS and VmHWM in KiB, or -1 when the process is gone.
    long rssKb() const;
    long peakRssKb() const;

private:
    long statusField(const char *key) const;

    pid_t m_pid;
    std::map<long, std::uint64_t> m_threadNs;
};
