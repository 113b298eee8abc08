#pragma once

#include "ExitCode.h"

#include <optional>
#include <string>

namespace zelview
{

struct Refusal {
    ExitCode code;
    std::string cause;
};

/// Why a file cannot be a model, as far as can be told without reading it; nothing if it may be one.
std::optional<Refusal> checkInput(std::string const& path);

} // namespace zelview
