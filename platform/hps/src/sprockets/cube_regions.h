// The regions of the navigation cube as a shape: a cube with its edges and corners cut off.
#pragma once
#include "linear.h"
#include <hps/NavigationCubeControl.h>
#include <optional>
#include <vector>

namespace HPS
{

/// Half a side of the cube, and half of what is left of the side between the edges.
inline constexpr double cubeHalf = 1, cubeSideHalf = 0.72;

/// All 26: sides first, in the order of the palette, then edges and corners.
std::vector<CubeRegion> const& cubeRegions();

/// The corners of a region, counter-clockwise seen from outside; x to the right, y up, z to the front.
std::vector<render::Vec3> cubeOutline(CubeRegion const& region);

/// The region that a straight line from `origin` along `direction` enters the cube through.
std::optional<CubeRegion> cubeHit(render::Vec3 const& origin, render::Vec3 const& direction);

} // namespace HPS
