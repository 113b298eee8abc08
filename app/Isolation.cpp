#include "Isolation.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cmath>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <optional>

#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace zelview
{
namespace
{

using Clock = std::chrono::steady_clock;
using Seconds = std::chrono::duration<double>;

constexpr Seconds Grace{2}; // between the polite end of a child and the certain one

Clock::time_point after(Seconds wait)
{
    constexpr Seconds Century{3.2e9}; // the clock's count cannot hold every double
    return Clock::now() + std::chrono::duration_cast<Clock::duration>(std::min(wait, Century));
}

sigset_t awaitedSignals()
{
    sigset_t signals;
    sigemptyset(&signals);
    for (int const signal : {SIGCHLD, SIGINT, SIGTERM, SIGHUP}) sigaddset(&signals, signal);
    return signals;
}

/// The awaited signal that came first, or nothing at the deadline.
std::optional<int> awaitSignal(sigset_t const& signals, std::optional<Clock::time_point> deadline)
{
    for (;;) {
        int signal = -1;
        if (deadline) {
            double const left = std::max(0.0, Seconds(*deadline - Clock::now()).count());
            // A wait of a day at most keeps huge limits inside time_t; the loop goes on.
            double const wait = std::min(left, 86400.0);
            timespec const time{static_cast<time_t>(wait),
                                static_cast<long>((wait - std::floor(wait)) * 1e9)};
            signal = sigtimedwait(&signals, nullptr, &time);
        } else {
            signal = sigwaitinfo(&signals, nullptr);
        }
        if (signal > 0) return signal;
        if (deadline && Clock::now() >= *deadline) return std::nullopt;
    }
}

[[noreturn]] void runChild(std::function<ExitCode()> const& work, pid_t parent, sigset_t const& formerMask)
{
    rlimit const noCore{0, 0};
    setrlimit(RLIMIT_CORE, &noCore);
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (getppid() != parent) std::_Exit(static_cast<int>(ExitCode::Stopped));
    sigprocmask(SIG_SETMASK, &formerMask, nullptr);
    ExitCode const code = work();
    // No exit handlers: they are the parent's to run, and libraries that run threads end badly in them.
    std::fflush(nullptr);
    std::_Exit(static_cast<int>(code));
}

Ending endingOf(int status)
{
    if (WIFEXITED(status)) {
        int const code = WEXITSTATUS(status);
        // Wrong arguments are found before the fork: this code, like one unknown to us, is a library's own
        // exit.
        bool const ours =
            code != static_cast<int>(ExitCode::WrongArguments) && code <= static_cast<int>(ExitCode::Stopped);
        if (ours) return {static_cast<ExitCode>(code), ""};
        return {ExitCode::DamagedFile, "reading it ended the process with status " + std::to_string(code)};
    }
    int const signal = WTERMSIG(status);
    std::string const name = strsignal(signal);
    switch (signal) {
    case SIGSEGV:
    case SIGBUS:
    case SIGABRT:
    case SIGFPE:
    case SIGILL:
    case SIGTRAP:
        return {ExitCode::DamagedFile, "the work on it crashed (" + name + ")"};
    case SIGKILL:
        return {ExitCode::Stopped, "ended by the system, probably for want of memory"};
    default:
        return {ExitCode::Stopped, "ended by a signal (" + name + ")"};
    }
}

std::optional<int> reap(pid_t child, int flags)
{
    int status = 0;
    pid_t got = -1;
    do {
        got = waitpid(child, &status, flags);
    } while (got < 0 && errno == EINTR);
    return got == child ? std::optional<int>(status) : std::nullopt;
}

void end(pid_t child)
{
    kill(child, SIGTERM);
    Clock::time_point const deadline = after(Grace);
    sigset_t const signals = awaitedSignals();
    while (awaitSignal(signals, deadline)) {
        if (reap(child, WNOHANG)) return;
    }
    kill(child, SIGKILL);
    reap(child, 0);
}

std::string secondsText(double seconds)
{
    char text[32];
    std::snprintf(text, sizeof text, "%g", seconds);
    return text;
}

} // namespace

Ending runIsolated(std::function<ExitCode()> const& work, double timeLimit)
{
    sigset_t const signals = awaitedSignals();
    sigset_t formerMask;
    sigprocmask(SIG_BLOCK, &signals, &formerMask);
    pid_t const parent = getpid();
    pid_t const child = fork();
    if (child < 0) {
        std::string const cause = std::strerror(errno);
        sigprocmask(SIG_SETMASK, &formerMask, nullptr);
        return {ExitCode::Stopped, "cannot start a process for it: " + cause};
    }
    if (child == 0) runChild(work, parent, formerMask);

    std::optional<Clock::time_point> deadline;
    if (timeLimit > 0) deadline = after(Seconds(timeLimit));
    Ending ending;
    for (;;) {
        std::optional<int> const signal = awaitSignal(signals, deadline);
        if (!signal) {
            end(child);
            ending = {ExitCode::Stopped, "not done within " + secondsText(timeLimit) + " s, given up"};
            break;
        }
        if (*signal != SIGCHLD) {
            end(child);
            ending = {ExitCode::Stopped, "cancelled"};
            break;
        }
        if (std::optional<int> const status = reap(child, WNOHANG)) {
            ending = endingOf(*status);
            break;
        }
    }
    sigprocmask(SIG_SETMASK, &formerMask, nullptr);
    return ending;
}

} // namespace zelview
