#pragma once
#include "Viewing.h"
#include "affine.h"
#include "cut_planes.h"
#include <array>
#include <optional>

namespace HPS::selection
{

/// Pixels from the upper left corner of the window; the middle of the first pixel is at (0.5, 0.5).
struct Pixel {
    double x = 0, y = 0;
};

/// A part of the window; `right` and `bottom` are its ends.
struct PixelArea {
    double left = 0, top = 0, right = 0, bottom = 0;

    bool empty() const { return !(left < right && top < bottom); }
    Pixel middle() const { return {(left + right) / 2, (top + bottom) / 2}; }
    PixelArea widened(double by) const { return {left - by, top - by, right + by, bottom + by}; }
    PixelArea within(PixelArea const& other) const
    {
        return {std::max(left, other.left), std::max(top, other.top), std::min(right, other.right),
                std::min(bottom, other.bottom)};
    }
};

struct Ray {
    Vec3 origin;
    Vec3 direction;
    bool bothWays = false; ///< goes on behind its origin
};

/// How a camera shows the world in a part of a window.
class PickFrame
{
public:
    PickFrame(render::Camera const& camera, PixelArea const& area);

    PixelArea const& area() const { return area_; }
    /// Distance from the eye along the sight: a linear function, smaller where nearer.
    render::CutPlane const& depth() const { return depth_; }
    /// The space that is seen within a part of the window: positive in all of the planes.
    std::vector<render::CutPlane> planes(PixelArea const& seen) const;
    /// Through the eye, or along the sight where there is no perspective.
    Ray rayThrough(Pixel const& pixel) const;
    /// Nothing for what stands at the eye or behind it.
    std::optional<Pixel> pixelOf(Vec3 const& world) const;
    double worldPerPixel(double depth) const;

    bool perspective() const { return viewing_.perspective; }
    Vec3 eye() const { return viewing_.target + viewing_.back * viewing_.distance; }
    Vec3 const& right() const { return viewing_.right; }
    Vec3 const& up() const { return viewing_.up; }
    Vec3 const& back() const { return viewing_.back; }
    double height() const { return area_.bottom - area_.top; }
    double depthAtTarget() const { return viewing_.distance; }

private:
    /// At the target, in units of the world from the middle of the window.
    double acrossOf(double x) const;
    double upwardsOf(double y) const;

    PixelArea area_;
    render::Viewing viewing_;
    render::CutPlane depth_;
};

} // namespace HPS::selection
