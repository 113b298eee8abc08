#pragma once
#include "portfolio_record.h"
#include <algorithm>
#include <hps/MaterialMappingKit.h>

namespace HPS::render
{

/// A plain colour without alpha, or the material of the palette that stands for it.
inline RGBColor plainColour(std::optional<SimpleMaterial> const& material, scene::Palette const& palette,
                            RGBColor const& fallback)
{
    if (!material) return fallback;
    if (material->color) return *material->color;
    if (!material->index || palette == nullptr || !(*material->index >= 0)) return fallback;
    auto const index = std::size_t(*material->index + 0.5f);
    return index < palette->size() ? (*palette)[index].data().diffuseColor.value_or(fallback) : fallback;
}

inline void put(float (&out)[3], RGBColor const& colour)
{
    out[0] = colour.red;
    out[1] = colour.green;
    out[2] = colour.blue;
}

} // namespace HPS::render
