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
    bool throwsShadows = false;  ///< where the scene has shadow maps
};

/// A light from a place, within a cone.
struct SpotLight {
    Vec3 position{0, 0, 1};
    Vec3 target;
    float colour[3] = {1, 1, 1};
    float outerAngle = 0.8f;     ///< between the axis and where it is dark, in radians
    float innerAngle = 0.5f;     ///< between the axis and where it begins to fade
    float concentration = 0;     ///< power of the cosine by which it fades from the axis on
    bool cameraRelative = false; ///< places count from the eye, in x right, y up, z to the viewer
};

/// Of each kind.
inline constexpr std::size_t maximumLights = 16;

/// Without a light everything shows its plain colour.
struct Lights {
    std::vector<DistantLight> distant; ///< the first `maximumLights` count
    std::vector<SpotLight> spots;      ///< the same
};

} // namespace HPS::render
