#pragma once
#include "cut_planes.h"

namespace HPS::selection
{

using render::CutPlane;
using render::CutSection;
using render::Mat4;
using render::Vec3;

/// A point, a piece of a straight line or a convex polygon, by its corners.
class Convex
{
public:
    static constexpr std::size_t most = 48; ///< corners

    Convex() = default;
    Convex(std::initializer_list<Vec3> corners) : count_(corners.size())
    {
        std::copy(corners.begin(), corners.end(), corners_.begin());
    }

    bool empty() const { return count_ == 0; }
    std::span<Vec3 const> corners() const { return {corners_.data(), count_}; }
    void add(Vec3 const& corner)
    {
        if (count_ < most) corners_[count_++] = corner;
    }

    /// Leaves what lies where the plane is zero or positive.
    void clip(CutPlane const& plane);

private:
    std::array<Vec3, most> corners_;
    std::size_t count_ = 0;
};

/// Calls use(piece) for each piece of `whole` that no section takes away.
template <class Use>
void forEachKept(Convex const& whole, std::span<CutSection const> sections, Use const& use)
{
    if (sections.empty()) return use(whole);
    if (sections.front().empty()) return forEachKept(whole, sections.subspan(1), use);
    Convex rest = whole; // lies before all planes so far
    for (CutPlane const& plane : sections.front()) {
        Convex behind = rest;
        behind.clip({plane.normal * -1, -plane.offset});
        if (!behind.empty()) forEachKept(behind, sections.subspan(1), use);
        rest.clip(plane);
        if (rest.empty()) return;
    }
}

} // namespace HPS::selection
