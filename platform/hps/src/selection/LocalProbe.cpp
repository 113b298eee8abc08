#include "LocalProbe.h"

namespace HPS::selection
{

void LocalProbe::enter(Mat4 const& toWorld, std::span<CutSection const> sections)
{
    toWorld_ = toWorld;
    depth_ = pulledBack(probe_->depth(), toWorld);
    sections_ = render::pulledBack(sections, toWorld);
    reaches_ = 0;
    ray_.reset();
    std::optional<Mat4> const back = inverseOf(toWorld);
    PickFrame const& frame = probe_->frame();
    viewer_ = {};
    if (!back) return;
    viewer_ =
        frame.perspective() ? transformPoint(frame.eye(), *back) : transformDirection(frame.back(), *back);
    if (auto const& ray = probe_->ray())
        ray_ =
            Ray{transformPoint(ray->origin, *back), transformDirection(ray->direction, *back), ray->bothWays};
}

std::vector<CutPlane> const& LocalProbe::planes(double reach) const
{
    for (std::size_t i = 0; i < reaches_; ++i)
        if (byReach_[i].first == reach) return byReach_[i].second;
    if (reaches_ == byReach_.size()) byReach_.emplace_back();
    auto& [known, planes] = byReach_[reaches_++];
    known = reach;
    planes.clear();
    for (CutPlane const& plane : probe_->planes(reach)) planes.push_back(pulledBack(plane, toWorld_));
    return planes;
}

double LocalProbe::facing(Vec3 const& normal, Vec3 const& place) const
{
    return dot(normal, probe_->frame().perspective() ? viewer_ - place : viewer_);
}

bool reaches(Box const& box, std::span<CutPlane const> planes, PlaneMask& mask)
{
    PlaneMask left = mask;
    for (std::size_t i = 0; left != 0; ++i, left >>= 1) {
        if ((left & 1) == 0) continue;
        Vec3 const& n = planes[i].normal;
        double const x0 = n.x * box.low[0], x1 = n.x * box.high[0], y0 = n.y * box.low[1],
                     y1 = n.y * box.high[1], z0 = n.z * box.low[2], z1 = n.z * box.high[2];
        if (std::max(x0, x1) + std::max(y0, y1) + std::max(z0, z1) + planes[i].offset < 0) return false;
        if (std::min(x0, x1) + std::min(y0, y1) + std::min(z0, z1) + planes[i].offset >= 0)
            mask &= ~(PlaneMask(1) << i);
    }
    return true;
}

double leastOf(CutPlane const& plane, Box const& box)
{
    Vec3 const& n = plane.normal;
    return std::min(n.x * box.low[0], n.x * box.high[0]) + std::min(n.y * box.low[1], n.y * box.high[1]) +
           std::min(n.z * box.low[2], n.z * box.high[2]) + plane.offset;
}

bool meets(Ray const& ray, Box const& box)
{
    constexpr double endless = std::numeric_limits<double>::infinity();
    double from = ray.bothWays ? -endless : 0, to = endless;
    double const origin[] = {ray.origin.x, ray.origin.y, ray.origin.z};
    double const direction[] = {ray.direction.x, ray.direction.y, ray.direction.z};
    for (std::size_t i = 0; i < 3; ++i) {
        // Looser than rounding: flat boxes are common.
        double const slack = 1e-7 * (std::abs(origin[i]) + std::abs(box.low[i]) + std::abs(box.high[i]));
        double const low = box.low[i] - slack - origin[i], high = box.high[i] + slack - origin[i];
        if (direction[i] == 0) {
            if (low > 0 || high < 0) return false;
            continue;
        }
        double const a = low / direction[i], b = high / direction[i];
        from = std::max(from, std::min(a, b));
        to = std::min(to, std::max(a, b));
    }
    return from <= to;
}

} // namespace HPS::selection
