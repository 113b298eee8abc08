#pragma once
#include <hps/GeometryKit.h>
#include <hps/Point.h>

namespace HPS
{

// A chain of points. The shape of lines, and with the last point joined to the first, of polygons.
struct PointChain {
    std::vector<Point> points;

    bool operator==(PointChain const&) const = default;
    static constexpr auto fields() { return std::tuple{&PointChain::points}; }
};

template <class Self> class PointChainOperations : public GeometryOperations<Self>
{
public:
    using Data = PointChain;

    Self& SetPoints(std::vector<Point> const& points)
    {
        return detail::setField<&Data::points>(this->self(), points);
    }
    Self& SetPoints(std::size_t count, Point const points[])
    {
        return SetPoints(std::vector<Point>(points, points + count));
    }
    Self& UnsetPoints() { return SetPoints({}); }
    bool ShowPoints(std::vector<Point>& points) const
    {
        return detail::showField<&Data::points>(this->self(), points) && !points.empty();
    }
    std::size_t GetPointCount() const
    {
        std::size_t count = 0;
        this->self().read([&](auto const& data) { count = data.points.size(); });
        return count;
    }
};

// A polyline; at least one point.
class LineKit : public GeometryKitOf<LineKit, PointChain>, public PointChainOperations<LineKit>
{
};

} // namespace HPS
