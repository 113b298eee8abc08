#pragma once

namespace zelview
{

/// What the process tells its caller; the numbers are part of the command line's contract.
enum class ExitCode {
    Good = 0,
    WrongArguments = 1,
    UnreadableFile = 2,
    DamagedFile = 3,
    NothingToShow = 4,
    CannotWrite = 5,
    NoGraphics = 6,
    Stopped = 7,
};

} // namespace zelview
