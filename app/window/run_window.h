#pragma once

#include "Console.h"
#include "ExitCode.h"
#include "Options.h"

namespace zelview
{

/// Opens the window with the files asked for and stays until the user closes it.
ExitCode runWindow(Options const& options, Console const& console);

} // namespace zelview
