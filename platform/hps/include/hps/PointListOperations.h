#pragma once
#include <hps/GeometryKit.h>
#include <hps/Point.h>

namespace HPS
{

// The points of a kind of geometry that has a list of them.
template <class Self, class DataType> class PointListOperations : public GeometryOperations<Self>
{
public:
    using Data = DataType;

    HPS_FIELD_LIST(Points, Point, points)
    std::size_t GetPointCount() const
    {
        std::size_t count = 0;
        this->self().read([&](Data const& data) { count = data.points.size(); });
        return count;
    }
};

} // namespace HPS
