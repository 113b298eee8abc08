#pragma once

#include "material_details.h"

#include <optional>
#include <vector>

namespace NarMetaInfra
{
/// The files of materials that a text of OBJ names, each once.
std::vector<std::filesystem::path> objMaterialFiles(std::filesystem::path const& file);

/// A whole text of OBJ with an end of line at its end, for a MemoryFile; nothing if it has one, or can't be
/// read. The kernel's reader goes on beyond a last line without one.
std::optional<std::string> endedObj(std::filesystem::path const& file);

/// Adds what a file of materials says beyond plain colours: images, how they lie, and shares of metal and
/// roughness. What can't be read is left out.
void readObjMaterials(std::filesystem::path const& file, MaterialDetailMap& materials);
} // namespace NarMetaInfra
