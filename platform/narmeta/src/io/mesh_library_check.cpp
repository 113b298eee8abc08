#include "mesh_library_check.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <string>
#include <vector>

namespace NarMetaInfra
{
namespace
{
std::vector<std::string_view> wordsOf(std::string_view line)
{
    std::vector<std::string_view> words;
    for (;;) {
        auto const first = line.find_first_not_of(" \t\r");
        if (first == line.npos) return words;
        line.remove_prefix(first);
        auto const end = std::min(line.find_first_of(" \t\r"), line.size());
        words.push_back(line.substr(0, end));
        line.remove_prefix(end);
    }
}

std::size_t sizeOfType(std::string_view type)
{
    static constexpr std::array<std::pair<std::string_view, std::size_t>, 16> Types = {{{"char", 1},
                                                                                        {"uchar", 1},
                                                                                        {"int8", 1},
                                                                                        {"uint8", 1},
                                                                                        {"short", 2},
                                                                                        {"ushort", 2},
                                                                                        {"int16", 2},
                                                                                        {"uint16", 2},
                                                                                        {"int", 4},
                                                                                        {"uint", 4},
                                                                                        {"int32", 4},
                                                                                        {"uint32", 4},
                                                                                        {"float", 4},
                                                                                        {"float32", 4},
                                                                                        {"double", 8},
                                                                                        {"float64", 8}}};
    for (auto const& [name, size] : Types)
        if (name == type) return size;
    return 0;
}

struct Element {
    std::uint64_t count = 0;
    std::size_t leastSize = 0; // bytes of one, with empty lists
};

// Each number of a text takes a digit and a blank.
constexpr std::size_t LeastText = 2;
} // namespace

bool isPlyComplete(std::string_view bytes)
{
    std::vector<Element> elements;
    bool isText = false, hasFormat = false;
    std::size_t lineCount = 0;
    constexpr std::size_t MostLines = 10'000;
    while (!bytes.empty() && ++lineCount < MostLines) {
        auto const end = std::min(bytes.find('\n'), bytes.size());
        auto const words = wordsOf(bytes.substr(0, end));
        bytes.remove_prefix(std::min(end + 1, bytes.size()));
        if (words.empty()) continue;
        if (words[0] == "end_header") {
            std::uint64_t least = 0;
            for (auto const& [count, size] : elements) {
                if (count > 0 && (size == 0 || count > bytes.size() / size)) return false;
                least += count * size;
            }
            // The last number of a text may end with the file.
            return hasFormat && least <= bytes.size() + (isText ? 1 : 0);
        }
        if (words[0] == "format" && words.size() == 3) {
            isText = words[1] == "ascii";
            hasFormat = true;
        } else if (words[0] == "element") {
            if (words.size() != 3) return false;
            Element element;
            auto const& count = words[2];
            auto const read = std::from_chars(count.data(), count.data() + count.size(), element.count);
            if (read.ec != std::errc() || read.ptr != count.data() + count.size()) return false;
            elements.push_back(element);
        } else if (words[0] == "property") {
            if (elements.empty() || words.size() < 3) return false;
            bool const isList = words[1] == "list";
            auto const size = sizeOfType(isList ? words[2] : words[1]);
            if (size == 0) return false;
            elements.back().leastSize += isText ? LeastText : size;
        }
    }
    return false;
}
} // namespace NarMetaInfra
