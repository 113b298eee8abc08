#pragma once

#include <string_view>

namespace NarMetaInfra
{
/// Formats that are told apart by what a file holds; its extension plays no part.
enum class ModelFormat { Unknown, Step, Iges, Brep, Gltf, Stl, Obj, Vrml };

/// `head` is the start of a file, a few kilobytes of it, or the whole file if it is shorter. `wholeFile` says
/// that it is.
ModelFormat recogniseFormat(std::string_view head, bool wholeFile);
} // namespace NarMetaInfra
