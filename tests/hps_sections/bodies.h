// Bodies of known measure, as triangles.
#pragma once
#include "caps.h"
#include <cmath>

namespace HPS::render
{

struct Body {
    std::vector<CutMesh::Position> points;
    std::vector<std::uint32_t> triangles;

    Body& add(Body const& other)
    {
        auto const base = std::uint32_t(points.size());
        points.insert(points.end(), other.points.begin(), other.points.end());
        for (std::uint32_t i : other.triangles) triangles.push_back(base + i);
        return *this;
    }
    Body insideOut() const
    {
        Body turned = *this;
        for (std::size_t i = 0; i < turned.triangles.size(); i += 3)
            std::swap(turned.triangles[i], turned.triangles[i + 1]);
        return turned;
    }
    CutMesh mesh(double tolerance = 0) const { return CutMesh(points, triangles, tolerance); }
};

/// Corners are not shared between the faces, as modellers give them.
inline Body box(Vec3 const& low, Vec3 const& high)
{
    Body body;
    auto corner = [&](int i) {
        body.points.push_back({float((i & 1) != 0 ? high.x : low.x), float((i & 2) != 0 ? high.y : low.y),
                               float((i & 4) != 0 ? high.z : low.z)});
    };
    constexpr int faces[6][4] = {{0, 2, 3, 1}, {4, 5, 7, 6}, {0, 1, 5, 4},
                                 {2, 6, 7, 3}, {0, 4, 6, 2}, {1, 3, 7, 5}};
    for (auto const& face : faces) {
        auto const base = std::uint32_t(body.points.size());
        for (int i : face) corner(i);
        for (std::uint32_t i : {0u, 1u, 2u, 0u, 2u, 3u}) body.triangles.push_back(base + i);
    }
    return body;
}
inline Body cube(double half)
{
    return box({-half, -half, -half}, {half, half, half});
}

/// A prism over a regular polygon around z, open at both ends unless `shut`.
inline Body prism(int sides, double radius, double height, bool shut)
{
    Body body;
    auto const count = std::uint32_t(sides);
    for (double z : {0.0, height})
        for (std::uint32_t i = 0; i < count; ++i) {
            double const angle = 2 * 3.14159265358979 * i / sides;
            body.points.push_back(
                {float(radius * std::cos(angle)), float(radius * std::sin(angle)), float(z)});
        }
    for (std::uint32_t i = 0; i < count; ++i) {
        std::uint32_t const j = (i + 1) % count;
        for (std::uint32_t corner : {i, j, count + j, i, count + j, count + i})
            body.triangles.push_back(corner);
    }
    for (std::uint32_t i = 2; shut && i < count; ++i)
        for (std::uint32_t corner : {0u, i, i - 1, count, count + i - 1, count + i})
            body.triangles.push_back(corner);
    return body;
}
inline double polygonArea(int sides, double radius)
{
    return 0.5 * sides * radius * radius * std::sin(2 * 3.14159265358979 / sides);
}

/// A ball of rings and sectors.
inline Body ball(Vec3 const& centre, double radius, int steps)
{
    Body body;
    auto at = [&](int ring, int sector) {
        double const a = 3.14159265358979 * ring / steps, b = 2 * 3.14159265358979 * sector / steps;
        // The last sector and both poles stand exactly where the first ones do.
        double const s = ring == 0 || ring == steps ? 0 : std::sin(a);
        double const c = sector == steps ? 1 : std::cos(b), d = sector == steps ? 0 : std::sin(b);
        body.points.push_back({float(centre.x + radius * s * c), float(centre.y + radius * s * d),
                               float(centre.z + radius * std::cos(a))});
        return std::uint32_t(body.points.size() - 1);
    };
    for (int i = 0; i < steps; ++i)
        for (int j = 0; j < steps; ++j) {
            std::uint32_t const a = at(i, j), b = at(i + 1, j), c = at(i + 1, j + 1), d = at(i, j + 1);
            for (std::uint32_t corner : {a, b, c, a, c, d}) body.triangles.push_back(corner);
        }
    return body;
}

inline double capArea(CutMesh const& mesh, std::vector<CutSection> const& sections)
{
    CapFiller filler;
    double area = 0;
    for (Cap const& cap : makeCaps(mesh, sections, filler).faces) area += areaOf(cap.triangles);
    return area;
}

/// Planes that take away what lies beyond `offset` in a direction.
inline CutPlane beyond(Vec3 const& direction, double offset)
{
    Vec3 const n = normalised(direction, {0, 0, 1});
    return {n, -offset};
}

} // namespace HPS::render
