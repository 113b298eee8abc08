#include "ReadProcess.h"

#include "model_block.h"
#include "number_text.h"
#include "reader_service.h"
#include "text_encoding.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstring>
#include <utility>

#include <dlfcn.h>
#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

extern char** environ;

namespace NarMetaInfra
{
namespace
{
using Clock = std::chrono::steady_clock;

// How long the caller waits at most until it hears of a cancel.
constexpr int PatienceMilliseconds = 30;

/// A file descriptor that this object owns.
class Descriptor
{
public:
    explicit Descriptor(int number = -1) : Number(number) {}
    ~Descriptor() { close(); }
    Descriptor(Descriptor&& other) noexcept : Number(std::exchange(other.Number, -1)) {}
    Descriptor& operator=(Descriptor&& other) noexcept
    {
        std::swap(Number, other.Number);
        return *this;
    }
    int number() const { return Number; }
    void close()
    {
        if (Number >= 0) ::close(std::exchange(Number, -1));
    }

private:
    int Number;
};

std::filesystem::path readerProgram()
{
    std::vector<std::filesystem::path> folders;
    Dl_info library{};
    if (dladdr(reinterpret_cast<void const*>(&readInProcess), &library) && library.dli_fname)
        folders.push_back(std::filesystem::path(library.dli_fname).parent_path());
    std::error_code error;
    if (auto const program = std::filesystem::read_symlink("/proc/self/exe", error); !error)
        folders.push_back(program.parent_path());
    for (auto const& folder : folders)
        for (auto const* const place : {"zelread", "../bin/zelread"})
            if (access((folder / place).c_str(), X_OK) == 0) return folder / place;
    return {};
}

/// A running reader; ended and collected with this object.
class Reader
{
public:
    explicit Reader(pid_t process) : Process(process) {}
    ~Reader()
    {
        if (Process > 0) end();
    }
    Reader(Reader const&) = delete;
    Reader& operator=(Reader const&) = delete;

    void end()
    {
        kill(Process, SIGKILL);
        wait();
    }
    int wait()
    {
        int status = 0;
        while (waitpid(Process, &status, 0) < 0 && errno == EINTR) {
        }
        Process = -1;
        return status;
    }

private:
    pid_t Process;
};

pid_t spawnReader(std::filesystem::path const& program, ReadRequest const& request, ReadLimits const& limits,
                  int result, int progress)
{
    auto const& options = request.options;
    std::vector<std::string> words = {program.string(),
                                      request.path.string(),
                                      std::to_string(options.graphical),
                                      std::to_string(options.persistentNames),
                                      std::to_string(options.occurrenceData),
                                      std::to_string(options.exactShapes),
                                      JoinNumbers(std::array{options.distanceShare}),
                                      JoinNumbers(std::array{options.angle}),
                                      std::to_string(request.processors),
                                      std::to_string(limits.bytes),
                                      std::to_string(getpid())};
    std::vector<char*> arguments;
    for (auto& word : words) arguments.push_back(word.data());
    arguments.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, result, ReaderResult);
    posix_spawn_file_actions_adddup2(&actions, progress, ReaderProgress);
    pid_t process = -1;
    auto const failed = posix_spawn(&process, program.c_str(), &actions, nullptr, arguments.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    return failed ? -1 : process;
}

ReadResult stopped(wchar_t const* cause)
{
    return ReadResult::Failure(IoOutcome::Cancelled, cause);
}

ReadResult endingOf(int status)
{
    if (WIFSIGNALED(status)) {
        auto const signal = WTERMSIG(status);
        if (signal == SIGKILL)
            return stopped(L"reading was ended by the system, probably for want of memory");
        return ReadResult::Failure(IoOutcome::Damaged,
                                   L"reading it crashed (" + wideFromBytes(strsignal(signal)) + L")");
    }
    return stopped(WEXITSTATUS(status) == ReaderOutOfMemory ? L"reading needs more memory than it may take"
                                                            : L"the reading process ended without a result");
}

ReadResult collect(int result, ReadRequest const& request, ZELProductStructure& model,
                   std::function<void(ReadResult const&, std::string_view)> const& keep)
{
    struct stat state {
    };
    if (fstat(result, &state) != 0 || state.st_size <= 0)
        return stopped(L"the reading process left no result");
    auto const size = static_cast<std::size_t>(state.st_size);
    auto* const memory = mmap(nullptr, size, PROT_READ, MAP_PRIVATE, result, 0);
    if (memory == MAP_FAILED) return stopped(L"the result of the reading process can't be reached");
    std::string_view const packed(static_cast<char const*>(memory), size);
    auto read = unpackModel(packed, request, model);
    if (read.outcome == IoOutcome::Done) keep(read, packed);
    munmap(memory, size);
    return read;
}
} // namespace

ReadResult readInProcess(ReadRequest const& request, ReadLimits const& limits, ZELProductStructure& model,
                         std::function<void(ReadResult const&, std::string_view packed)> const& keep)
{
    auto const program = readerProgram();
    if (program.empty())
        return ReadResult::Failure(IoOutcome::CannotRead, L"the program \"zelread\" is missing");
    Descriptor const result(memfd_create("model", MFD_CLOEXEC));
    int ends[2] = {-1, -1};
    if (result.number() < 0 || pipe2(ends, O_CLOEXEC) != 0)
        return ReadResult::Failure(IoOutcome::CannotRead, L"no memory to share with a reading process");
    Descriptor const progress(ends[0]);
    Descriptor progressOfChild(ends[1]);
    auto const process = spawnReader(program, request, limits, result.number(), progressOfChild.number());
    if (process < 0)
        return ReadResult::Failure(IoOutcome::CannotRead, L"the reading process can't be started");
    Reader reader(process);
    progressOfChild.close(); // so that the end of the process ends the pipe

    auto const start = Clock::now();
    double done = 0.0;
    for (;;) {
        if (request.Report(done)) return stopped(L"reading was stopped");
        if (limits.seconds > 0 && Clock::now() - start > std::chrono::duration<double>(limits.seconds))
            return stopped(L"reading takes longer than it may");
        pollfd waiting{progress.number(), POLLIN, 0};
        if (poll(&waiting, 1, PatienceMilliseconds) <= 0) continue;
        double heard[64];
        auto const count = read(progress.number(), heard, sizeof heard);
        if (count == 0) break;
        if (count >= static_cast<ssize_t>(sizeof(double)))
            done = std::clamp(heard[static_cast<std::size_t>(count) / sizeof(double) - 1], done, 1.0);
    }
    auto const status = reader.wait();
    if (!WIFEXITED(status) || WEXITSTATUS(status) != 0) return endingOf(status);
    auto const handOver = Clock::now();
    auto read = collect(result.number(), request, model, keep);
    read.timings.push_back({L"Hand-over", Clock::now() - handOver, false});
    return read;
}
} // namespace NarMetaInfra
