// idleprobe: starts a program, samples its CPU time and resident memory every
// few milliseconds, and reports how long it took to go idle (its CPU time
// stopped rising) and how much memory it held then. Optionally it then types
// keys into the program's window and reports how long the program took to go
// idle again, which tells whether the window still responds.
//
//   idleprobe [--interval-ms N] [--idle-ms N] [--eps-us N] [--timeout-ms N]
//             [--keys "KEYS"] [--key-timeout-ms N] [--shot FILE] [--log FILE]
//             [--trace FILE] [--end-term] -- PROGRAM [ARGS...]
//
// --trace appends every sample (ms since launch, CPU ms) to FILE, to see where
// a program spends its start. --end-term ends the program with SIGTERM and
// waits for it to exit (up to 10 s), so that it ends as it does when the
// desktop session ends; otherwise it is killed.
//
// Prints one line of key=value pairs. Exit status: 0 measured, 1 the program
// exited or never went idle, 2 the probe itself could not run.
#include "processsampler.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <fcntl.h>
#include <optional>
#include <signal.h>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace {

struct Options
{
    double intervalMs = 10;
    double idleMs = 300;
    double epsUs = 1000;
    double timeoutMs = 60000;
    double keyTimeoutMs = 10000;
    std::string keys;
    std::string shot;
    std::string log = "/dev/null";
    std::string trace;
    bool endTerm = false;
    std::vector<char *> command;
};

struct Sample
{
    double ms;
    std::uint64_t cpuNs;
};

struct Idle
{
    double atMs;         // when the CPU time first reached its idle level
    std::uint64_t cpuNs; // CPU time at that level
};

double nowMs()
{
    timespec ts{};
    clock_gettime(CLOCK_MONOTONIC, &ts);
    return double(ts.tv_sec) * 1e3 + double(ts.tv_nsec) / 1e6;
}

void sleepUntilMs(double ms)
{
    timespec ts{};
    ts.tv_sec = time_t(ms / 1e3);
    ts.tv_nsec = long((ms - double(ts.tv_sec) * 1e3) * 1e6);
    while (clock_nanosleep(CLOCK_MONOTONIC, TIMER_ABSTIME, &ts, nullptr) == EINTR) {
    }
}

bool exited(pid_t pid)
{
    int status = 0;
    return waitpid(pid, &status, WNOHANG) == pid;
}

// Samples until the CPU time has risen by no more than eps over the idle
// window, then returns the first moment the CPU time was within eps of where
// it ended: the work was done then, and the window only confirmed it.
std::optional<Idle> waitIdle(ProcessSampler &sampler, pid_t pid, const Options &options,
                             double fromMs, double timeoutMs, FILE *trace)
{
    const auto eps = std::uint64_t(options.epsUs * 1e3);
    std::vector<Sample> samples;
    double next = nowMs();
    while (true) {
        const double t = nowMs();
        if (t - fromMs > timeoutMs || exited(pid))
            return std::nullopt;
        samples.push_back({t, sampler.cpuNs()});
        if (trace)
            std::fprintf(trace, "%.1f %.2f\n", t - fromMs, double(samples.back().cpuNs) / 1e6);
        const Sample &last = samples.back();
        if (last.ms - samples.front().ms >= options.idleMs) {
            std::size_t windowStart = samples.size() - 1;
            while (windowStart > 0 && last.ms - samples[windowStart].ms < options.idleMs)
                --windowStart;
            if (last.cpuNs - samples[windowStart].cpuNs <= eps) {
                std::size_t first = windowStart;
                while (first > 0 && last.cpuNs - samples[first - 1].cpuNs <= eps)
                    --first;
                return Idle{samples[first].ms, samples[first].cpuNs};
            }
        }
        next += options.intervalMs;
        sleepUntilMs(next);
    }
}

std::string run(const std::string &command)
{
    std::string out;
    if (FILE *pipe = popen(command.c_str(), "r")) {
        char buffer[256];
        while (std::fgets(buffer, sizeof buffer, pipe))
            out += buffer;
        pclose(pipe);
    }
    return out;
}

std::string firstWindowOf(pid_t pid)
{
    const std::string out =
        run("xdotool search --onlyvisible --pid " + std::to_string(pid) + " 2>/dev/null");
    return out.substr(0, out.find('\n'));
}

bool parse(int argc, char *argv[], Options &options)
{
    for (int i = 1; i < argc; ++i) {
        const std::string arg = argv[i];
        if (arg == "--") {
            options.command.assign(argv + i + 1, argv + argc);
            break;
        }
        if (arg == "--end-term") {
            options.endTerm = true;
            continue;
        }
        if (i + 1 >= argc)
            return false;
        const char *value = argv[++i];
        if (arg == "--interval-ms")
            options.intervalMs = std::atof(value);
        else if (arg == "--idle-ms")
            options.idleMs = std::atof(value);
        else if (arg == "--eps-us")
            options.epsUs = std::atof(value);
        else if (arg == "--timeout-ms")
            options.timeoutMs = std::atof(value);
        else if (arg == "--key-timeout-ms")
            options.keyTimeoutMs = std::atof(value);
        else if (arg == "--keys")
            options.keys = value;
        else if (arg == "--shot")
            options.shot = value;
        else if (arg == "--log")
            options.log = value;
        else if (arg == "--trace")
            options.trace = value;
        else
            return false;
    }
    if (options.command.empty())
        return false;
    options.command.push_back(nullptr);
    return true;
}

void stop(pid_t pid, bool term = false)
{
    if (term) {
        kill(pid, SIGTERM);
        const double until = nowMs() + 10000;
        while (nowMs() < until) {
            if (exited(pid))
                return;
            sleepUntilMs(nowMs() + 10);
        }
    }
    kill(pid, SIGKILL);
    int status = 0;
    waitpid(pid, &status, 0);
}

} // namespace

int main(int argc, char *argv[])
{
    Options options;
    if (!parse(argc, argv, options)) {
        std::fprintf(stderr, "usage: idleprobe [--interval-ms N] [--idle-ms N] [--eps-us N] "
                             "[--timeout-ms N] [--keys KEYS] [--key-timeout-ms N] [--shot FILE] "
                             "[--log FILE] [--trace FILE] [--end-term] -- PROGRAM [ARGS...]\n");
        return 2;
    }
    const int logFd = open(options.log.c_str(), O_WRONLY | O_CREAT | O_APPEND, 0644);
    if (logFd < 0) {
        std::perror(options.log.c_str());
        return 2;
    }

    FILE *trace = options.trace.empty() ? nullptr : std::fopen(options.trace.c_str(), "a");

    const double launchMs = nowMs();
    const pid_t pid = fork();
    if (pid < 0) {
        std::perror("fork");
        return 2;
    }
    if (pid == 0) {
        dup2(logFd, STDOUT_FILENO);
        dup2(logFd, STDERR_FILENO);
        execvp(options.command[0], options.command.data());
        std::perror(options.command[0]);
        _exit(127);
    }
    close(logFd);

    ProcessSampler sampler(pid);
    const std::optional<Idle> idle =
        waitIdle(sampler, pid, options, launchMs, options.timeoutMs, trace);
    if (!idle) {
        const bool gone = exited(pid);
        std::printf("status=%s\n", gone ? "exited" : "timeout");
        if (!gone)
            stop(pid);
        return 1;
    }
    const long rss = sampler.rssKb();
    const long peak = sampler.peakRssKb();
    std::printf("status=ok idle_ms=%.1f cpu_ms=%.1f rss_kb=%ld hwm_kb=%ld", idle->atMs - launchMs,
                double(idle->cpuNs) / 1e6, rss, peak);

    if (!options.shot.empty())
        run("import -window root '" + options.shot + "' 2>/dev/null");

    if (!options.keys.empty()) {
        const std::string window = firstWindowOf(pid);
        if (window.empty()) {
            std::printf(" key=nowindow");
        } else {
            run("xdotool windowfocus " + window + " 2>/dev/null");
            const std::optional<Idle> focused =
                waitIdle(sampler, pid, options, nowMs(), options.keyTimeoutMs, trace);
            const double keyMs = nowMs();
            run("xdotool key --delay 0 " + options.keys + " 2>/dev/null");
            const std::optional<Idle> answered =
                waitIdle(sampler, pid, options, keyMs, options.keyTimeoutMs, trace);
            if (!focused)
                std::printf(" key=busy");
            else if (!answered)
                std::printf(" key=busy key_cpu_ms=%.1f",
                            double(sampler.cpuNs() - focused->cpuNs) / 1e6);
            else
                std::printf(" key=ok key_ms=%.1f key_cpu_ms=%.1f", answered->atMs - keyMs,
                            double(answered->cpuNs - focused->cpuNs) / 1e6);
        }
    }
    std::printf("\n");
    std::fflush(stdout);
    stop(pid, options.endTerm);
    return 0;
}
