#include "mesh_normals.h"

#include <array>
#include <cmath>
#include <numeric>

namespace NarMetaInfra
{
namespace
{
using Vector = std::array<float, 3>;

Vector pointAt(std::vector<float> const& points, std::uint32_t index)
{
    auto const offset = std::size_t{3} * index;
    return {points[offset], points[offset + 1], points[offset + 2]};
}

Vector minus(Vector const& a, Vector const& b)
{
    return {a[0] - b[0], a[1] - b[1], a[2] - b[2]};
}
float dot(Vector const& a, Vector const& b)
{
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

Vector cross(Vector const& a, Vector const& b)
{
    return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}

Vector unit(Vector const& v)
{
    auto const length = std::sqrt(dot(v, v));
    if (!(length > 0.0f) || !std::isfinite(length)) return {0.0f, 0.0f, 1.0f};
    return {v[0] / length, v[1] / length, v[2] / length};
}

// Corners of triangles around each point: those of point p are Corners[First[p]] to Corners[First[p + 1] -
// 1].
struct CornerTable {
    CornerTable(std::size_t pointCount, std::vector<std::uint32_t> const& triangles)
        : First(pointCount + 1, 0), Corners(triangles.size())
    {
        for (auto const point : triangles) ++First[point + 1];
        std::partial_sum(First.begin(), First.end(), First.begin());
        auto next = First;
        for (std::uint32_t corner = 0; corner < triangles.size(); ++corner)
            Corners[next[triangles[corner]]++] = corner;
    }

    std::vector<std::uint32_t> First;
    std::vector<std::uint32_t> Corners;
};

// One side of a crease at a point: the first triangle's direction decides who belongs to it.
struct Side {
    Vector direction;
    Vector sum;
    std::uint32_t point;
};
} // namespace

SmoothedMesh smoothMesh(std::vector<float> const& points, std::vector<std::uint32_t> const& triangles,
                        float creaseAngle)
{
    auto const pointCount = points.size() / 3;
    auto const limit = std::cos(creaseAngle);
    std::vector<Vector> areas(triangles.size() / 3);
    for (std::size_t t = 0; t < areas.size(); ++t) {
        auto const origin = pointAt(points, triangles[3 * t]);
        areas[t] = cross(minus(pointAt(points, triangles[3 * t + 1]), origin),
                         minus(pointAt(points, triangles[3 * t + 2]), origin));
    }

    CornerTable const table(pointCount, triangles);
    SmoothedMesh mesh;
    mesh.triangles.resize(triangles.size());
    mesh.points.reserve(points.size());
    mesh.normals.reserve(points.size());
    std::vector<Side> sides;
    for (std::uint32_t p = 0; p < pointCount; ++p) {
        sides.clear();
        for (auto i = table.First[p]; i < table.First[p + 1]; ++i) {
            auto const corner = table.Corners[i];
            auto const& area = areas[corner / 3];
            auto const direction = unit(area);
            bool const isFlat = !(dot(area, area) > 0.0f);
            Side* side = nullptr;
            for (auto& candidate : sides)
                if (isFlat || dot(candidate.direction, direction) >= limit) side = &candidate;
            if (!side) {
                auto const number = static_cast<std::uint32_t>(mesh.points.size() / 3);
                side = &sides.emplace_back(Side{direction, {0.0f, 0.0f, 0.0f}, number});
                auto const point = pointAt(points, p);
                mesh.points.insert(mesh.points.end(), point.begin(), point.end());
                mesh.sources.push_back(p);
            }
            for (std::size_t k = 0; k < 3; ++k) side->sum[k] += area[k];
            mesh.triangles[corner] = side->point;
        }
        for (auto const& side : sides) {
            auto const normal = unit(side.sum);
            mesh.normals.insert(mesh.normals.end(), normal.begin(), normal.end());
        }
    }
    return mesh;
}
} // namespace NarMetaInfra
