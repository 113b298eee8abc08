#pragma once
#include <hps/GeometryKit.h>
#include <hps/Point.h>

namespace HPS
{

struct CircleData {
    Point center;
    float radius = 1;
    HPS::Vector normal{0, 0, 1};

    bool operator==(CircleData const&) const = default;
    static constexpr auto fields()
    {
        return std::tuple{&CircleData::center, &CircleData::radius, &CircleData::normal};
    }
};

template <class Self> class CircleOperations : public GeometryOperations<Self>
{
public:
    using Data = CircleData;

    HPS_FIELD(Center, Point, center)
    HPS_FIELD(Radius, float, radius)
    HPS_FIELD(Normal, HPS::Vector, normal)
};

// A circle, filled where faces are visible.
class CircleKit : public GeometryKitOf<CircleKit, CircleData>, public CircleOperations<CircleKit>
{
public:
};

} // namespace HPS
