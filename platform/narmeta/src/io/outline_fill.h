#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <vector>

namespace NarMetaInfra
{
using Point2 = std::array<double, 2>;
using Point3 = std::array<double, 3>;

/// Triangles in a plane: three point numbers each, counter-clockwise.
struct PlaneMesh {
    std::vector<Point2> points;
    std::vector<std::array<std::uint32_t, 3>> triangles;
};

/// Fills closed outlines, holes by the odd rule. Outlines may cross and touch; a crossing becomes a new
/// point. Empty if nothing can be filled.
PlaneMesh fillOutlines(std::vector<std::vector<Point2>> const& outlines);

/// Splits triangles until every edge lies within `distance` of the surface that `toSpace` maps the plane to,
/// or the limit of a few hundred thousand triangles is reached.
void refine(PlaneMesh& mesh, std::function<Point3(Point2 const&)> const& toSpace, double distance);
} // namespace NarMetaInfra
