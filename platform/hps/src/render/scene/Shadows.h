#pragma once
#include "linear.h"
#include <cstdint>

namespace HPS::render
{

/// Shadows that bodies throw on each other, by depth maps seen from the lights.
struct Shadows {
    bool maps = false;
    unsigned samples = 4;       ///< looked up in the map for a pixel
    unsigned resolution = 1024; ///< of a map, in each direction
    bool viewDependent = true;  ///< a map covers what the window shows, not the whole scene
    bool jitter = true; ///< turns the pattern of the samples from pixel to pixel: grain in place of bands

    bool operator==(Shadows const&) const = default;
};

/// normal · p + offset is 0 on it. The normal has length 1, or the plane is none.
struct MirrorPlane {
    Vec3 normal{0, 1, 0};
    double offset = 0;

    double height(Vec3 const& p) const { return dot(normal, p) + offset; }
    bool operator==(MirrorPlane const&) const = default;
};

/// The shadow that things throw on a plane, whatever the scene's lights.
struct PlaneShadow {
    MirrorPlane plane;
    Vec3 toLight{0, 1, 0};
    float colour[4] = {0, 0, 0, 1};
    unsigned resolution = 256;
    unsigned blurring = 1;
    bool ignoreTransparency = false; ///< things that are seen through throw a full shadow

    bool operator==(PlaneShadow const&) const = default;
};

/// What a plane mirrors.
struct PlaneReflection {
    MirrorPlane plane;
    float opacity = 0.5f;
    unsigned blurring = 1;
    bool fading = false;
    float fadeNear = 0, fadeFar = 0;         ///< heights above the plane at which fading starts and ends
    std::uint32_t kinds = ~std::uint32_t(0); ///< a bit for each `Primitive` that is mirrored

    bool operator==(PlaneReflection const&) const = default;
};

} // namespace HPS::render
