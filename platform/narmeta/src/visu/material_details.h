#pragma once

#include <narmeta/visu/Texture.h>

#include <array>
#include <filesystem>
#include <map>
#include <optional>
#include <string>

namespace NarMetaInfra
{
/// How one texture of a material lies on the surface.
struct TextureUse {
    std::array<NarMetaVisu::Texture::TextureWrapMode, 2> wrap{NarMetaVisu::Texture::TextureWrapMode::Repeat,
                                                              NarMetaVisu::Texture::TextureWrapMode::Repeat};
    std::array<NarMetaVisu::Texture::TextureFilter, 2> filter{
        NarMetaVisu::Texture::TextureFilter::Linear, NarMetaVisu::Texture::TextureFilter::LinearMipmapLinear};
    /// Offset, rotation (radians) and scale of the coordinates, u to the right and v down, applied in the
    /// order scale, rotation, offset.
    std::array<double, 2> offset{0, 0};
    double rotation = 0;
    std::array<double, 2> scale{1, 1};
    /// Where the modelling kernel does not tell it.
    std::filesystem::path image = {};

    bool movesCoordinates() const;
    /// Where a coordinate with v up comes to lie.
    std::array<float, 2> moved(float u, float v) const;
};

/// What the modelling kernel does not tell about a material of a file.
struct MaterialDetails {
    std::optional<TextureUse> baseColour, normal, emissive, occlusion;
    std::optional<TextureUse> roughness; ///< in the green channel
    std::optional<TextureUse> specular, bump, opacity;
    std::optional<float> metallicShare, roughnessShare; ///< from 0 to 1
};

/// By name.
using MaterialDetailMap = std::map<std::string, MaterialDetails>;
} // namespace NarMetaInfra
