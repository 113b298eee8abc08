#pragma once

#include "material_details.h"

#include <vector>

namespace NarMetaInfra
{
/// The files of materials that a text of OBJ names, each once.
std::vector<std::filesystem::path> objMaterialFiles(std::filesystem::path const& file);

/// Adds what a file of materials says beyond plain colours: images, how they lie, and shares of metal and
/// roughness. What can't be read is left out.
void readObjMaterials(std::filesystem::path const& file, MaterialDetailMap& materials);
} // namespace NarMetaInfra
