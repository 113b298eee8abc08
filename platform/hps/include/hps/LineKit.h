#pragma once
#include <hps/PointListOperations.h>

namespace HPS
{

// A chain of points. The shape of lines, and with the last point joined to the first, of polygons.
struct PointChain {
    std::vector<Point> points;

    bool operator==(PointChain const&) const = default;
    static constexpr auto fields() { return std::tuple{&PointChain::points}; }
};

template <class Self> using PointChainOperations = PointListOperations<Self, PointChain>;

// A polyline; at least one point.
class LineKit : public GeometryKitOf<LineKit, PointChain>, public PointChainOperations<LineKit>
{
};

} // namespace HPS
