#pragma once

#include "Console.h"
#include "ExitCode.h"
#include "Options.h"
#include "OutputFile.h"

// What the program looks up in this library at run time: neither it nor the plug-in below is linked, so that
// a missing one ends in words.
extern "C" {
/// Reads the one file, does everything asked of it, and says causes and warnings on the console.
/// @param output where the picture goes; null: to standard output, if a picture is asked for
zelview::ExitCode zelviewRunHeadless(zelview::Options const& options, zelview::OutputFile const* output,
                                     zelview::Console const& console);
}

namespace zelview
{
using RunHeadless = decltype(&zelviewRunHeadless);
inline constexpr char const* RunHeadlessName = "zelviewRunHeadless";
} // namespace zelview
