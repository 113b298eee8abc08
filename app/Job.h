#pragma once

#include "Console.h"
#include "ExitCode.h"
#include "Options.h"
#include "OutputFile.h"

namespace zelview
{

/// Reads the file and does everything asked of it. Says causes and warnings on the console.
/// @param output where the picture goes; null: to standard output, if a picture is asked for
ExitCode runJob(Options const& options, OutputFile const* output, Console const& console);

} // namespace zelview
