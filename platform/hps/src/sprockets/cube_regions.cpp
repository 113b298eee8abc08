#include "cube_regions.h"
#include <algorithm>

namespace HPS
{
namespace
{

using render::Vec3;

Vec3 directionOf(CubeRegion const& r)
{
    return {double(r.right), double(r.up), double(r.front)};
}

int axesOf(CubeRegion const& r)
{
    return std::abs(r.right) + std::abs(r.up) + std::abs(r.front);
}

/// Distance of a region from the middle, times the length of its direction.
double reachOf(CubeRegion const& region)
{
    return cubeHalf + (axesOf(region) - 1) * cubeSideHalf;
}

std::vector<CubeRegion> makeRegions()
{
    std::vector<CubeRegion> regions{{0, 0, -1}, {0, 1, 0}, {-1, 0, 0}, {0, 0, 1}, {0, -1, 0}, {1, 0, 0}};
    for (int axes : {2, 3})
        for (int i = 0; i < 27; ++i)
            if (CubeRegion const r{i % 3 - 1, i / 3 % 3 - 1, i / 9 - 1}; axesOf(r) == axes)
                regions.push_back(r);
    return regions;
}

} // namespace

std::vector<CubeRegion> const& cubeRegions()
{
    static std::vector<CubeRegion> const regions = makeRegions();
    return regions;
}

std::vector<Vec3> cubeOutline(CubeRegion const& region)
{
    // Every corner of the shape lies on one side of the cube: one coordinate full, the other two short.
    Vec3 const outwards = directionOf(region);
    std::vector<Vec3> corners;
    for (int axis = 0; axis < 3; ++axis)
        for (int i = 0; i < 8; ++i) {
            double p[3];
            for (int k = 0; k < 3; ++k)
                p[k] = ((i >> k & 1) != 0 ? 1 : -1) * (k == axis ? cubeHalf : cubeSideHalf);
            Vec3 const corner{p[0], p[1], p[2]};
            if (std::abs(dot(corner, outwards) - reachOf(region)) < 1e-9) corners.push_back(corner);
        }
    Vec3 middle;
    for (Vec3 const& corner : corners) middle = middle + corner * (1.0 / double(corners.size()));
    Vec3 const across = normalised(corners[0] - middle, {1, 0, 0});
    Vec3 const along = cross(normalised(outwards, {0, 0, 1}), across);
    auto angle = [&](Vec3 const& c) { return std::atan2(dot(c - middle, along), dot(c - middle, across)); };
    std::sort(corners.begin(), corners.end(),
              [&](Vec3 const& a, Vec3 const& b) { return angle(a) < angle(b); });
    return corners;
}

// The shape is where all regions' planes agree: the line is inside between the last one that it enters and
// the first one that it leaves.
std::optional<CubeRegion> cubeHit(Vec3 const& origin, Vec3 const& direction)
{
    double enters = -std::numeric_limits<double>::infinity(), leaves = -enters;
    std::optional<CubeRegion> hit;
    for (CubeRegion const& region : cubeRegions()) {
        Vec3 const outwards = directionOf(region);
        double const speed = dot(outwards, direction), gap = reachOf(region) - dot(outwards, origin);
        if (speed == 0) {
            if (gap < 0) return std::nullopt;
        } else if (speed > 0) {
            leaves = std::min(leaves, gap / speed);
        } else if (gap / speed > enters) {
            enters = gap / speed;
            hit = region;
        }
    }
    return enters <= leaves ? hit : std::nullopt;
}

} // namespace HPS
