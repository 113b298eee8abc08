#pragma once
#include "linear.h"
#include "net_attributes.h"
#include <vector>

namespace HPS::render
{

/// What can be seen below a segment, as far as its extent matters: exact in every direction, and cheap, for
/// points are looked at only where boxes leave a doubt. Holds no longer than the scene stays as it is.
class VisibleExtent
{
public:
    /// What is invisible on its path or excluded from bounding does not count. Needs no graphics device.
    explicit VisibleExtent(scene::SegmentRecord const& top);

    bool empty() const { return items_.empty(); }

    /// The largest p · direction of all points p, in the coordinates above `top`. Not for an empty extent.
    double support(Vec3 const& direction) const;

private:
    struct Item {
        scene::SegmentRecord const* segment; ///< null for a given volume, which is no more than its box
        std::uint32_t kinds;
        Mat4 matrix;
        Box local;
    };
    std::vector<Item> items_;
};

} // namespace HPS::render
