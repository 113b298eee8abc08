#pragma once

#include "Options.h"

#include <string>
#include <vector>

namespace zelview
{

/// Puts the settings in force that hold for this run: those of the file, then what the command line changes.
/// @param file empty: the user's own
/// @return warnings for the user
std::vector<std::wstring> loadSettings(Options const& options, std::wstring const& file);

/// What the command line changes, over the settings that are in force.
void applySettings(Options const& options);

} // namespace zelview
