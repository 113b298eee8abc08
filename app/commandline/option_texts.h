#pragma once

#include <string>
#include <string_view>

namespace zelview
{

/// What `--help` prints.
std::string helpText();

/// The manual page, in the language of man(7).
std::string manPage(std::string_view version);

/// Completion of the command line, for bash.
std::string bashCompletion();

} // namespace zelview
