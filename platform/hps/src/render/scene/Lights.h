#pragma once
#include "linear.h"
#include <cstddef>
#include <vector>

namespace HPS::render
{

/// A light from infinitely far.
struct DistantLight {
    Vec3 direction{0, 0, -1}; ///< the way that the light travels; need not have length 1
    float colour[3] = {1, 1, 1};
    bool cameraRelative = false; ///< direction in x right, y up, z to the viewer
};
inline constexpr std::size_t maximumLights = 4;

/// Without a light everything shows its plain colour.
struct Lights {
    std::vector<DistantLight> distant; ///< the first `maximumLights` count
};

} // namespace HPS::render
