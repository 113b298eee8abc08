#include "font_directories.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>

namespace ZelVizBase
{

namespace
{

constexpr char separator = std::filesystem::path::preferred_separator;

/// An empty entry is one too: it stands for the root.
std::vector<std::string> entriesOf(std::string const& list)
{
    std::vector<std::string> entries(1);
    for (char const c : list) {
        if (c == ';')
            entries.emplace_back();
        else
            entries.back() += c;
    }
    return entries;
}

std::string below(std::string const& folder, char const* name)
{
    return folder + separator + name;
}

} // namespace

HPS::UTF8Array fontDirectories()
{
    HPS::UTF8Array directories;
    auto const add = [&](std::string const& directory) {
        std::error_code ignored;
        if (std::filesystem::exists(directory, ignored)) directories.emplace_back(directory.c_str());
    };
    if (char const* const system = std::getenv("windir"); system != nullptr && *system != '\0')
        for (std::string const& root : entriesOf(system)) add(below(root, "fonts"));
    if (char const* const installed = std::getenv("LUMInstallPath"); installed != nullptr)
        for (std::string const& root : entriesOf(installed))
            for (char const* kind : {"OpenType", "PostScript", "TrueType"})
                add(below(below(below(root, "resources"), "fonts"), kind));
    std::ranges::reverse(directories);
    return directories;
}

} // namespace ZelVizBase
