#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

class QJsonObject;

namespace NarMetaInfra
{
/// A node of a glTF scene with a mesh in it or below it.
struct GltfNode {
    /// 16 elements for row vectors, translation in 12 to 14; millimetres, z up. Unlike the kernel's own
    /// placements it can hold different scales along the axes.
    std::array<double, 16> matrix;
    bool hasMesh = false;
    std::vector<GltfNode> children;
};

/// Why the nodes of a scene must not be followed, in words for the user; empty if they may be.
std::string refusalOfGltf(QJsonObject const& document);

/// The root nodes of a file's default scene. Nothing if the structure can't be followed.
std::optional<std::vector<GltfNode>> readGltfNodes(QJsonObject const& document);
} // namespace NarMetaInfra
