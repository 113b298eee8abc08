#include "mesh_text_check.h"

#include <algorithm>
#include <fstream>

namespace NarMetaInfra
{
namespace
{
constexpr std::streamoff Length = 512;
constexpr std::string_view Blanks = " \t\r\n\f\v";

std::string bytesFrom(std::filesystem::path const& file, bool fromEnd)
{
    std::ifstream stream(file, std::ios::binary);
    stream.seekg(0, std::ios::end);
    auto const size = std::max<std::streamoff>(stream.tellg(), 0);
    std::string bytes(static_cast<std::size_t>(std::min(size, Length)), '\0');
    stream.seekg(fromEnd ? size - static_cast<std::streamoff>(bytes.size()) : 0);
    if (!stream.read(bytes.data(), static_cast<std::streamsize>(bytes.size()))) return {};
    return bytes;
}

std::string_view lastLine(std::string_view text)
{
    text = text.substr(0, text.find_last_not_of(Blanks) + 1);
    auto const line = text.substr(text.find_last_of("\r\n") + 1);
    auto const first = line.find_first_not_of(Blanks);
    return first == line.npos ? std::string_view() : line.substr(first);
}

std::size_t wordCount(std::string_view line)
{
    std::size_t count = 0;
    for (std::size_t at = 0; (at = line.find_first_not_of(Blanks, at)) != line.npos; ++count)
        at = std::min(line.find_first_of(Blanks, at), line.size());
    return count;
}
} // namespace

std::string headOf(std::filesystem::path const& file)
{
    return bytesFrom(file, false);
}

std::string tailOf(std::filesystem::path const& file)
{
    return bytesFrom(file, true);
}

bool isStlTailWhole(std::string_view head, std::string_view tail)
{
    auto const first = head.find_first_not_of(Blanks);
    bool const isText = first != head.npos && head.substr(first).starts_with("solid") &&
                        head.find("facet") != head.npos && head.find('\0') == head.npos;
    return !isText || lastLine(tail).starts_with("endsolid");
}

bool isObjTailWhole(std::string_view tail)
{
    auto const line = lastLine(tail);
    if (line.starts_with("v ") || line.starts_with("f ") || line.starts_with("vn "))
        return wordCount(line) >= 4;
    return line != "v" && line != "f" && line != "vn";
}
} // namespace NarMetaInfra
