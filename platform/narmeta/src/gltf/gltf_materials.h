#pragma once

#include <narmeta/visu/Texture.h>

#include <map>
#include <optional>
#include <string>

class QJsonObject;

namespace NarMetaInfra
{
/// How one texture of a glTF material lies on the surface.
struct GltfTextureUse {
    std::array<NarMetaVisu::Texture::TextureWrapMode, 2> wrap{NarMetaVisu::Texture::TextureWrapMode::Repeat,
                                                              NarMetaVisu::Texture::TextureWrapMode::Repeat};
    std::array<NarMetaVisu::Texture::TextureFilter, 2> filter{
        NarMetaVisu::Texture::TextureFilter::Linear, NarMetaVisu::Texture::TextureFilter::LinearMipmapLinear};
    /// Offset, rotation (radians) and scale of the coordinates, u to the right and v down, applied in the
    /// order scale, rotation, offset.
    std::array<double, 2> offset{0, 0};
    double rotation = 0;
    std::array<double, 2> scale{1, 1};

    bool movesCoordinates() const;
    /// Where a coordinate with v up comes to lie.
    std::array<float, 2> moved(float u, float v) const;
};

/// What the kernel does not tell about a material of a glTF file.
struct GltfMaterial {
    std::optional<GltfTextureUse> baseColour;
    std::optional<GltfTextureUse> normal;
    std::optional<GltfTextureUse> emissive;
    std::optional<GltfTextureUse> occlusion;
    std::optional<GltfTextureUse> roughness;
};

/// By name; materials without one are left out, and of two with one name the first holds.
std::map<std::string, GltfMaterial> readGltfMaterials(QJsonObject const& document);
} // namespace NarMetaInfra
