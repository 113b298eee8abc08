#pragma once
#include <string>

namespace MoraCore
{

/// An assertion: names the function and the value that its caller got wrong, and ends the program. A build
/// without assertions (NDEBUG) goes on.
void callerFault(std::string const& function, std::string const& value);

} // namespace MoraCore
