#include "text.h"

#include "hps_api.h"

#include <cstdlib>

namespace ZelVizBase
{

std::string narrow(std::wstring const& text)
{
    std::string bytes(text.size() * MB_CUR_MAX, '\0');
    size_t const length = std::wcstombs(bytes.data(), text.c_str(), bytes.size());
    if (length == static_cast<size_t>(-1)) return HPS::UTF8(text).GetBytes();
    bytes.resize(length);
    return bytes;
}

} // namespace ZelVizBase
