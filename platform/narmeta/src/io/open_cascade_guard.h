#pragma once

// Only for sources of this folder that see Open CASCADE.

#include <array>
#include <csignal>
#include <exception>
#include <iosfwd>
#include <new>
#include <optional>
#include <string>
#include <type_traits>
#include <utility>

#include <Standard_ErrorHandler.hxx>
#include <Standard_Failure.hxx>

namespace NarMetaInfra
{
/// While it lives, faults of the kernel (bad memory access, division by zero) become exceptions that
/// guarded() catches, and the kernel prints nothing. The handlers of the process that stood before come back
/// in the end.
class KernelSession
{
public:
    KernelSession();
    ~KernelSession();
    KernelSession(KernelSession const&) = delete;
    KernelSession& operator=(KernelSession const&) = delete;

private:
    void restore(std::size_t first, std::size_t last);

    // The first of them are breaks from outside, which the kernel takes over as well but which stay the
    // host's affair.
    static constexpr std::array Signals = {SIGHUP, SIGINT, SIGQUIT, SIGILL, SIGFPE, SIGBUS, SIGSEGV, SIGSYS};
    static constexpr std::size_t BreakCount = 3;
    std::array<struct sigaction, Signals.size()> Previous;
    std::streambuf* Output;
};

/// One line about a failure of the kernel.
std::string failureText(Standard_Failure const& failure);

/// Runs `work`; if the kernel fails in it, the cause comes back. After a fault the destructors of the frames
/// between the fault and this call have not run: what they held is lost memory, which is the price of going
/// on.
template <typename Work> std::optional<std::string> guarded(Work&& work)
{
    try {
        OCC_CATCH_SIGNALS
        std::forward<Work>(work)();
        return std::nullopt;
    } catch (Standard_Failure const& failure) {
        return failureText(failure);
    } catch (std::bad_alloc const&) {
        return "not enough memory";
    } catch (std::exception const& failure) {
        return failure.what();
    }
}
} // namespace NarMetaInfra
