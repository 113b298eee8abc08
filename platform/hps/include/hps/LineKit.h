#pragma once
#include <hps/GeometryKit.h>
#include <hps/Point.h>

namespace HPS
{

// A chain of points. The shape of lines, and with the last point joined to the first, of polygons.
struct PointChain {
    std::vector<Point> points;
    bool operator==(PointChain const&) const = default;
};

template <class Self> class PointChainKit : public GeometryKit<Self>
{
public:
    Self& SetPoints(std::vector<Point> points)
    {
        data_.points = std::move(points);
        return static_cast<Self&>(*this);
    }
    Self& SetPoints(std::size_t count, Point const points[])
    {
        return SetPoints(std::vector<Point>(points, points + count));
    }
    Self& UnsetPoints() { return SetPoints({}); }
    bool ShowPoints(std::vector<Point>& points) const
    {
        if (data_.points.empty()) return false;
        points = data_.points;
        return true;
    }
    std::size_t GetPointCount() const { return data_.points.size(); }

    bool Empty() const { return data_.points.empty(); }
    void Reset() { static_cast<Self&>(*this) = {}; }
    PointChain const& data() const { return data_; }
    PointChain& data() { return data_; }

protected:
    friend bool operator==(PointChainKit const&, PointChainKit const&) = default;

private:
    PointChain data_;
};

// A polyline; at least one point.
class LineKit : public PointChainKit<LineKit>
{
public:
    friend bool operator==(LineKit const&, LineKit const&) = default;
};

} // namespace HPS
