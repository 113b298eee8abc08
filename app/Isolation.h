#pragma once

#include "ExitCode.h"

#include <functional>
#include <string>

namespace zelview
{

/// How a guarded child ended, when it did not end by itself with a result.
struct Ending {
    ExitCode code;
    std::string cause; ///< one line for the user; empty: the child has said it already
};

/// Runs `work` in a forked child, so that a crash or a hang inside it cannot take the caller along.
/// SIGINT and SIGTERM to the caller end the child, and so does the time limit.
/// To be called before the process has a second thread: a fork carries only the calling one along.
/// @param timeLimit seconds; 0 sets none
Ending runIsolated(std::function<ExitCode()> const& work, double timeLimit);

} // namespace zelview
