#include "processsampler.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <dirent.h>
#include <string>

ProcessSampler::ProcessSampler(pid_t pid)
    : m_pid(pid)
{}

std::uint64_t ProcessSampler::cpuNs()
{
    const std::string taskDir = "/proc/" + std::to_string(m_pid) + "/task";
    if (DIR *dir = opendir(taskDir.c_str())) {
        while (const dirent *entry = readdir(dir)) {
            if (entry->d_name[0] == '.')
                continue;
            const std::string path = taskDir + "/" + entry->d_name + "/schedstat";
            FILE *file = std::fopen(path.c_str(), "r");
            if (!file)
                continue;
            unsigned long long ns = 0;
            if (std::fscanf(file, "%llu", &ns) == 1)
                m_threadNs[std::atol(entry->d_name)] = ns;
            std::fclose(file);
        }
        closedir(dir);
    }
    std::uint64_t total = 0;
    for (const auto &[tid, ns] : m_threadNs)
        total += ns;
    return total;
}

long ProcessSampler::rssKb() const
{
    return statusField("VmRSS:");
}

long ProcessSampler::peakRssKb() const
{
    return statusField("VmHWM:");
}

long ProcessSampler::statusField(const char *key) const
{
    const std::string path = "/proc/" + std::to_string(m_pid) + "/status";
    FILE *file = std::fopen(path.c_str(), "r");
    if (!file)
        return -1;
    long value = -1;
    char line[256];
    const std::size_t keyLength = std::strlen(key);
    while (std::fgets(line, sizeof line, file)) {
        if (std::strncmp(line, key, keyLength) == 0) {
            value = std::atol(line + keyLength);
            break;
        }
    }
    std::fclose(file);
    return value;
}
