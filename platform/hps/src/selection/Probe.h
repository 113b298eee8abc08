#pragma once
#include "Convex.h"
#include "PickFrame.h"
#include <map>

namespace HPS::selection
{

/// A question to the scene: what lies in a part of what a frame shows, or on a ray.
class Probe
{
public:
    /// Faces right at a pixel, and what has no area around it.
    static Probe atPixel(PickFrame const& frame, Pixel const& pixel);
    static Probe ofArea(PickFrame const& frame, PixelArea const& area);
    /// With `seen`, no further than the frame shows.
    static Probe alongRay(PickFrame const& frame, Ray const& ray, bool seen);
    /// Positive in all planes.
    static Probe ofVolume(PickFrame const& frame, std::vector<CutPlane> planes, bool seen);

    /// The space that is asked about, for what reaches `reach` pixels around itself: where all planes are
    /// positive. The number of planes is the same for every reach.
    std::vector<CutPlane> const& planes(double reach) const;
    /// Faces are met by this alone.
    std::optional<Ray> const& ray() const { return ray_; }
    /// False for a place on the ray that lies outside what is asked about all the same.
    bool isSeen(Vec3 const& onRay) const;
    /// Linear in the world; smaller comes first.
    CutPlane const& depth() const { return depth_; }
    /// Of a piece from the place that is asked about, in pixels. Zero around it.
    double distanceOf(std::span<Vec3 const> corners) const;
    /// The corner, or of a line asked about by a point the place on it, where the piece is met first.
    Vec3 placeOn(std::span<Vec3 const> corners) const;
    bool isAlongRay() const { return alongRay_; }
    /// Pixels, if it is about a part of the window.
    std::optional<PixelArea> const& area() const { return area_; }
    /// From the middle of an area to its corners, in pixels.
    double halfSize() const
    {
        return area_ ? std::hypot(area_->right - area_->left, area_->bottom - area_->top) / 2 : 0;
    }
    PickFrame const& frame() const { return *frame_; }
    double worldPerPixel(double depth) const
    {
        return frame_->worldPerPixel(alongRay_ ? depthOfTarget_ : depth);
    }

private:
    explicit Probe(PickFrame const& frame) : frame_(&frame), depth_(frame.depth()) {}
    std::vector<CutPlane> makePlanes(double reach) const;
    std::optional<Pixel> seenFromHere(Vec3 const& world) const;

    PickFrame const* frame_; ///< not owned
    CutPlane depth_;
    std::optional<Ray> ray_;
    std::optional<PixelArea> area_;
    std::vector<CutPlane> fixed_; ///< that hold for every reach
    Pixel centre_;
    bool alongRay_ = false; ///< of the world, not through a pixel
    double depthOfTarget_ = 0;
    Vec3 across_, upwards_;                                   ///< square to that ray, as long as a pixel
    mutable std::map<double, std::vector<CutPlane>> byReach_; ///< few
};

} // namespace HPS::selection
