#pragma once
#include "Camera.h"

namespace HPS::render
{

/// A camera worked out for a window: axes, depth range, the way to the screen and what it sees of the world.
///
/// View coordinates have x to the right, y up and z to the viewer, and count from the camera's target, which
/// keeps them small wherever in the world the camera looks.
struct Viewing {
    /// The depth range is fitted around `bounds`.
    Viewing(Camera const& camera, int width, int height, Box const& bounds);

    Vec3 right, up, back; ///< axes of the view in the world
    Vec3 target;
    double distance; ///< of the eye from the target
    bool perspective;
    double halfWidth, halfHeight; ///< of what the window shows at the target
    double nearest, farthest;     ///< distances from the eye
    double scale;                 ///< pixels that a unit of the world has at the target
    Mat4 projection;              ///< from view coordinates to clip coordinates

    Vec3 toView(Vec3 const& world) const;

    /// What a plane, normal · p + offset = 0 with a normal of length 1, shows of the scene as in a mirror.
    /// Its axes are left-handed.
    Viewing mirrored(Vec3 const& normal, double offset) const;

    enum class Sight { None, Part, Whole };
    /// None only for a box that certainly lies outside what the window shows, Whole only for one inside.
    /// `margin` in units of the world stands around it.
    Sight sight(Box const& world, double margin = 0) const;
    bool sees(Box const& world, double pixels = 0) const
    {
        return sight(world, pixels > 0 ? pixels / pixelsPerUnit(world) : 0) != Sight::None;
    }

    /// Pixels that a unit of the world has where `world` comes nearest to the eye.
    double pixelsPerUnit(Box const& world) const;
    double windowHeight() const { return 2 * halfHeight * scale; } ///< in pixels

private:
    struct Plane {
        Vec3 normal; ///< inwards
        double offset;
    };
    std::array<Plane, 4> sides_; ///< in the world; near and far hold all by construction
};

} // namespace HPS::render
