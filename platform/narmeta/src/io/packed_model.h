#pragma once

#include "mesh_library_faces.h"

#include <map>
#include <string>
#include <string_view>

namespace NarMetaInfra
{
/// What the mesh library does not tell of a 3MF file.
struct PackedModelWords {
    double millimetres = 1.0;                  ///< in the file's unit of length
    std::map<std::string, std::wstring> names; ///< of objects, by their number
    /// Of each triangle of an object, by its number, where they differ.
    std::map<std::string, std::vector<TriangleColour>> colours;
};

/// Contents of the first entry of a ZIP archive whose name ends in @p ending, stored or deflated; empty if
/// there is none, if it is damaged, or larger than @p limit bytes.
std::string zipEntry(std::string_view archive, std::string_view ending, std::size_t limit);

/// Defaults for what can't be read.
PackedModelWords packedModelWords(std::string_view archive);
} // namespace NarMetaInfra
