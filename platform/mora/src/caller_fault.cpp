#include "caller_fault.h"
#include <cstdio>
#include <cstdlib>

namespace MoraCore
{

#ifdef NDEBUG
void callerFault(std::string const&, std::string const&) {}
#else
void callerFault(std::string const& function, std::string const& value)
{
    std::fprintf(stderr, "Assertion failed: %s: %s\n", function.c_str(), value.c_str());
    std::abort();
}
#endif

} // namespace MoraCore
