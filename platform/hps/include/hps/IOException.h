#pragma once
#include <stdexcept>
#include <string>

namespace HPS
{

// A file could not be read or written; what() says why, in one line.
class IOException : public std::runtime_error
{
public:
    explicit IOException(std::string const& cause) : std::runtime_error(cause) {}
};

} // namespace HPS
