#include "EdgeFinder.h"
#include "geometry_records.h"
#include <algorithm>
#include <cmath>
#include <hps/Cuboid.h>
#include <numbers>
#include <tuple>
#include <unordered_map>

namespace HPS::render
{
namespace
{

struct Triple {
    double x = 0, y = 0, z = 0;
};

struct Side {
    std::uint32_t low, high; ///< welded points
    std::uint32_t from, to;  ///< as the face has them
    std::uint32_t face;
    bool quad;
};

/// For each point the first that lies where it does, give or take a millionth of the whole: the poles of
/// spheres and the seams of tubes come apart by rounding.
std::vector<std::uint32_t> weld(std::vector<Point> const& points)
{
    struct Hash {
        std::size_t operator()(std::array<std::uint32_t, 3> const& key) const
        {
            return (key[0] * std::size_t(73856093)) ^ (key[1] * std::size_t(19349663)) ^
                   (key[2] * std::size_t(83492791));
        }
    };
    std::unordered_map<std::array<std::uint32_t, 3>, std::uint32_t, Hash> known;
    known.reserve(points.size());
    std::vector<std::uint32_t> result;
    result.reserve(points.size());
    SimpleCuboid box;
    for (Point const& p : points) box.Merge(p);
    double const cell = std::max(box.Diagonal() * 1e-6, 1e-30);
    // A quarter of a cell aside, so that the box's own corner and middle lie within cells and not between
    // two.
    auto place = [cell](float f, float from) { return std::uint32_t((double(f) - from) / cell + 0.25); };
    for (Point const& p : points)
        result.push_back(
            known
                .try_emplace({place(p.x, box.min.x), place(p.y, box.min.y), place(p.z, box.min.z)},
                             std::uint32_t(result.size()))
                .first->second);
    return result;
}

/// Twice the area of a loop as a vector: Newell's sum.
Triple areaOf(std::vector<Point> const& points, std::span<int const> loop)
{
    Triple sum;
    for (std::size_t i = 0; i < loop.size(); ++i) {
        Point const& a = points[std::size_t(loop[i])];
        Point const& b = points[std::size_t(loop[(i + 1) % loop.size()])];
        sum.x += (double(a.y) - b.y) * (double(a.z) + b.z);
        sum.y += (double(a.z) - b.z) * (double(a.x) + b.x);
        sum.z += (double(a.x) - b.x) * (double(a.y) + b.y);
    }
    return sum;
}

Vector unit(Triple const& t)
{
    double const l = std::sqrt(t.x * t.x + t.y * t.y + t.z * t.z);
    return l > 0 ? Vector(float(t.x / l), float(t.y / l), float(t.z / l)) : Vector(0, 0, 0);
}

} // namespace

std::vector<FoundEdge> findEdges(ShellData const& shell, std::uint32_t wanted, double hardAngle,
                                 bool rowsAndColumns)
{
    std::vector<std::uint32_t> const welded = weld(shell.points);
    std::vector<Side> sides;
    sides.reserve(shell.facelist.size());
    std::vector<Vector> normals;
    std::uint32_t faces = 0;
    bool shown = true;
    scene::forEachLoop(shell.facelist, [&](scene::FaceLoop const& loop) {
        if (!loop.isHole) {
            auto const* const visible = shell.extras ? &shell.extras->faceVisibilities : nullptr;
            shown = visible == nullptr || !visible->IsSet(faces) || visible->values[faces] != 0;
            normals.push_back(unit(areaOf(shell.points, loop.indices)));
            ++faces;
        }
        if (!shown || faces == 0) return;
        bool const quad = rowsAndColumns && loop.indices.size() == 4;
        for (std::size_t i = 0; i < loop.indices.size(); ++i) {
            auto const from = std::uint32_t(loop.indices[i]);
            auto const to = std::uint32_t(loop.indices[(i + 1) % loop.indices.size()]);
            auto const [low, high] = std::minmax(welded[from], welded[to]);
            if (low != high) sides.push_back({low, high, from, to, faces - 1, quad});
        }
    });
    std::sort(sides.begin(), sides.end(), [](Side const& a, Side const& b) {
        return std::tie(a.low, a.high, a.face) < std::tie(b.low, b.high, b.face);
    });
    double const hardCosine = std::cos(std::clamp(hardAngle, 0.0, 180.0) * std::numbers::pi / 180);
    std::vector<FoundEdge> found;
    for (std::size_t first = 0; first < sides.size();) {
        std::size_t last = first;
        bool quad = sides[first].quad;
        while (last + 1 < sides.size() && sides[last + 1].low == sides[first].low &&
               sides[last + 1].high == sides[first].high) {
            ++last;
            quad = quad || sides[last].quad;
        }
        bool const shared = first != last;
        Vector const &a = normals[sides[first].face], &b = normals[sides[last].face];
        // Two faces that run along an edge the same way have opposite orientations.
        bool const opposed = shared && sides[first].from == sides[last].from;
        double cosine = double(a.x) * b.x + double(a.y) * b.y + double(a.z) * b.z;
        if (opposed) cosine = -cosine;
        std::uint32_t kinds = PlainEdge | SilhouetteEdge | NonCulledEdge;
        kinds |= shared ? AdjacentEdge : PerimeterEdge;
        if (!shared) kinds &= ~std::uint32_t(SilhouetteEdge);
        if (shared && cosine < hardCosine) kinds |= HardEdge;
        if (quad) kinds |= QuadEdge;
        kinds &= wanted;
        if (kinds != 0)
            found.push_back(
                {sides[first].from, sides[first].to, kinds, {a, opposed ? Vector(-b.x, -b.y, -b.z) : b}});
        first = last + 1;
    }
    return found;
}

} // namespace HPS::render
