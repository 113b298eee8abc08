#pragma once

#include <cstdint>
#include <vector>

namespace NarMetaInfra
{
/// Triangles with one normal per point. Points and normals: x, y, z in a row; triangles: three point numbers
/// each.
struct SmoothedMesh {
    std::vector<float> points;
    std::vector<float> normals;
    std::vector<std::uint32_t> triangles;
    /// For each point the number of the one that it comes from.
    std::vector<std::uint32_t> sources;
};

/// Normals for a mesh that comes without: the mean, weighted by area, of the triangles around a point that
/// bend less than `creaseAngle` (radians) against each other. A point on a sharper edge is doubled, once for
/// each side. Points that no triangle uses are left out. A triangle without area gets the normal of its
/// neighbours or z.
SmoothedMesh smoothMesh(std::vector<float> const& points, std::vector<std::uint32_t> const& triangles,
                        float creaseAngle = 0.6f);
} // namespace NarMetaInfra
