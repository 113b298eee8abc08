#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace NarMetaInfra
{
/// The first and the last bytes of a file, some hundred; fewer if it has no more or can't be read.
std::string headOf(std::filesystem::path const& file);
std::string tailOf(std::filesystem::path const& file);

/// False if a text of triangles breaks off before its own end. A binary file has no end mark.
bool isStlTailWhole(std::string_view head, std::string_view tail);

/// False if the last line breaks off: a point with fewer than three numbers, a face with fewer than three
/// corners. A file cut between two lines looks like a whole one.
bool isObjTailWhole(std::string_view tail);
} // namespace NarMetaInfra
