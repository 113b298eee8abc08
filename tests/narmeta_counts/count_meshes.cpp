#include "file_counts.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <set>
#include <sstream>

// One face for a material in a group; a polygon of n corners is n - 2 triangles.
Counts countObj(std::string const& text, std::filesystem::path const& folder)
{
    Counts counts;
    std::istringstream lines(text);
    std::string material, library;
    std::set<std::string> used;
    for (std::string line; std::getline(lines, line);) {
        std::istringstream words(line);
        std::string word;
        words >> word;
        if (word == "mtllib") words >> library;
        if (word == "usemtl") words >> material;
        if (word != "f") continue;
        used.insert(material);
        int corners = 0;
        while (words >> word) ++corners;
        counts["triangles"] += corners - 2;
    }
    counts["faces"] = static_cast<int>(used.size());
    auto const definitions = bytesOfFile(folder / library);
    std::istringstream materials(definitions);
    std::set<std::string> textured;
    for (std::string word; materials >> word;) {
        if (word == "newmtl") materials >> material;
        if (word.starts_with("map_")) textured.insert(material);
    }
    counts["textured materials"] = static_cast<int>(textured.size());
    return counts;
}

// A head of 80 bytes, a number, and 50 bytes a triangle.
Counts countStl(std::string const& bytes)
{
    std::uint32_t triangles = 0;
    std::memcpy(&triangles, bytes.data() + 80, sizeof triangles);
    if (bytes.size() != 84 + 50 * std::size_t{triangles}) return {};
    return {{"triangles", static_cast<int>(triangles)}, {"references", 1}, {"instances", 1}};
}

// Behind the word TShapes each shape begins with a line of two letters.
Counts countBrep(std::string const& text)
{
    Counts counts{{"faces", 0}, {"edges", 0}, {"references", 1}, {"instances", 1}};
    std::istringstream lines(text.substr(std::min(text.find("TShapes"), text.size())));
    for (std::string line; std::getline(lines, line);) {
        if (line == "Fa") ++counts["faces"];
        if (line == "Ed") ++counts["edges"];
        if (line == "Ve") ++counts["vertices"];
    }
    return counts;
}
