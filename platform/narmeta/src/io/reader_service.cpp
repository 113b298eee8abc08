#include "reader_service.h"

#include "ReaderRegistry.h"
#include "SourceFile.h"
#include "model_block.h"

#include <algorithm>
#include <charconv>
#include <csignal>
#include <cstring>
#include <new>

#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <unistd.h>

namespace NarMetaInfra
{
namespace
{
template <class Number = std::uint64_t> Number numberOf(char const* word)
{
    Number number = 0;
    std::from_chars(word, word + std::strlen(word), number);
    return number;
}

void reportProgress(double done, bool&)
{
    // A caller that is gone has ended this process already.
    [[maybe_unused]] auto const written = write(ReaderProgress, &done, sizeof done);
}

bool writeAll(int descriptor, std::string_view bytes)
{
    while (!bytes.empty()) {
        auto const written = write(descriptor, bytes.data(), bytes.size());
        if (written <= 0) return false;
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}
std::uint64_t limitOfBytes = 0; // of address space; 0: none

/// The process has come near its limit, so that whatever fails fails for want of memory. Safe in a signal
/// handler.
bool isAtLimit()
{
    if (limitOfBytes == 0) return false;
    char text[4096];
    int const status = open("/proc/self/status", O_RDONLY | O_CLOEXEC);
    auto const size = status < 0 ? 0 : read(status, text, sizeof text);
    if (status >= 0) close(status);
    constexpr std::string_view Title = "VmPeak:";
    std::string_view const lines(text, static_cast<std::size_t>(std::max<ssize_t>(size, 0)));
    auto const found = lines.find(Title);
    if (found == lines.npos) return false;
    auto const from = std::min(lines.find_first_not_of(" \t", found + Title.size()), lines.size());
    std::uint64_t kibibytes = 0;
    std::from_chars(lines.data() + from, lines.data() + lines.size(), kibibytes);
    // The one piece that did not fit any more may have been large.
    return kibibytes * 1024 >= limitOfBytes - limitOfBytes / 4;
}

void endAborted(int signal)
{
    if (isAtLimit()) _exit(ReaderOutOfMemory);
    std::signal(signal, SIG_DFL);
    raise(signal);
}
} // namespace

int serveRead(int count, char const* const* arguments)
{
    enum Position {
        Path = 1,
        Graphical,
        Names,
        Occurrences,
        Exact,
        Distance,
        Angle,
        Processors,
        Bytes,
        Parent,
        Count
    };
    if (count != Count) return 1;
    rlimit const noCore{0, 0};
    setrlimit(RLIMIT_CORE, &noCore);
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (static_cast<std::uint64_t>(getppid()) != numberOf(arguments[Parent])) return 1;
    if (auto const bytes = numberOf(arguments[Bytes])) {
        rlimit const limit{bytes, bytes};
        setrlimit(RLIMIT_AS, &limit);
        limitOfBytes = bytes;
        std::signal(SIGABRT, endAborted); // where libraries end for want of memory
    }
    try {
        ReadRequest request;
        request.path = arguments[Path];
        auto& options = request.options;
        options.graphical = numberOf(arguments[Graphical]) != 0;
        options.persistentNames = numberOf(arguments[Names]) != 0;
        options.occurrenceData = numberOf(arguments[Occurrences]) != 0;
        options.exactShapes = numberOf(arguments[Exact]) != 0;
        options.distanceShare = numberOf<double>(arguments[Distance]);
        options.angle = numberOf<double>(arguments[Angle]);
        request.processors =
            static_cast<unsigned>(std::clamp<std::uint64_t>(numberOf(arguments[Processors]), 1, 256));
        request.progress = reportProgress;
        auto const source = SourceFile::Open(request.path.wstring().c_str());
        auto const* const reader = ReaderRegistry::BuiltIn().Find(source.head, source.extension);
        if (!reader) return 1;
        ZELProductStructure model;
        auto const result = reader->Read(request, model);
        if (result.outcome != IoOutcome::Done && isAtLimit()) return ReaderOutOfMemory;
        auto const packed = packModel(result, model);
        return std::ranges::all_of(packed.pieces(), [](auto piece) { return writeAll(ReaderResult, piece); })
                   ? 0
                   : 1;
    } catch (std::bad_alloc const&) {
        return ReaderOutOfMemory;
    } catch (std::exception const&) {
        return isAtLimit() ? ReaderOutOfMemory : 1;
    }
}
} // namespace NarMetaInfra
