#pragma once
#include "PickLook.h"
#include "PickShape.h"
#include "Probe.h"
#include <deque>

namespace HPS::selection
{

/// A probe as it looks from within a segment.
class LocalProbe
{
public:
    explicit LocalProbe(Probe const& probe) : probe_(&probe) {}
    /// To other coordinates; `sections` cut what stands there, in the world.
    void enter(Mat4 const& toWorld, std::span<CutSection const> sections);

    Probe const& probe() const { return *probe_; }
    Mat4 const& toWorld() const { return toWorld_; }
    std::span<CutSection const> sections() const { return sections_; }
    CutPlane const& depth() const { return depth_; }
    /// As Probe::planes. Valid until the next `enter`.
    std::vector<CutPlane> const& planes(double reach) const;
    /// Nothing if there is none, or if these coordinates are flat in the world.
    std::optional<Ray> const& ray() const { return ray_; }
    /// From the front of a face, positive where the viewer stands.
    double facing(Vec3 const& normal, Vec3 const& place) const;

private:
    Probe const* probe_; ///< not owned
    Mat4 toWorld_ = render::identity;
    CutPlane depth_;
    std::optional<Ray> ray_;
    std::vector<CutSection> sections_;
    Vec3 viewer_; ///< the eye, or the direction to it
    mutable std::deque<std::pair<double, std::vector<CutPlane>>> byReach_; ///< the first `reaches_` hold here
    mutable std::size_t reaches_ = 0;
};

/// The planes that still matter for what is in a box, as bits.
using PlaneMask = std::uint64_t;
inline PlaneMask allOf(std::vector<CutPlane> const& planes)
{
    return planes.size() < 64 ? (PlaneMask(1) << planes.size()) - 1 : ~PlaneMask(0);
}
/// False for a box that lies outside for sure. Planes that all of the box is within leave the mask.
bool reaches(Box const& box, std::span<CutPlane const> planes, PlaneMask& mask);
/// The least value that a plane has in a box.
double leastOf(CutPlane const& plane, Box const& box);
bool meets(Ray const& ray, Box const& box);

} // namespace HPS::selection
