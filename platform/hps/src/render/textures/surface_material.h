#pragma once
#include "MaterialTable.h"
#include "net_attributes.h"

namespace HPS::render
{

/// A material of the palette by an index whose fraction mixes neighbouring ones: colours and numbers are
/// mixed, the rest is that of the nearest. Nothing for an index outside of the palette.
std::optional<MaterialData> paletteMaterial(MaterialKitArray const* palette, float index);

/// What `material` says in a place: a palette's material with the channels that were set on top of it.
MaterialData channelsOf(std::optional<ComplexMaterial> const& material, MaterialKitArray const* palette);

/// The material of a surface with these channels, in a place whose portfolios name its textures. Needs the
/// device's context to be current.
SurfaceMaterial surfaceMaterial(MaterialData const& channels, scene::NetState const& place);

/// The materials of a palette as far as a colour goes.
std::vector<MaterialRow> paletteRows(MaterialKitArray const& palette);

} // namespace HPS::render
