#pragma once
#include <hps/GeometryKit.h>
#include <hps/Point.h>

namespace HPS
{

struct EllipticalArcData {
    Point center;
    Point major{1, 0, 0};
    Point minor{0, 1, 0};
    float start = 0; // shares of a full turn from the major axis towards the minor
    float end = 1;

    bool operator==(EllipticalArcData const&) const = default;
    static constexpr auto fields()
    {
        return std::tuple{&EllipticalArcData::center, &EllipticalArcData::major, &EllipticalArcData::minor,
                          &EllipticalArcData::start, &EllipticalArcData::end};
    }
};

template <class Self> class EllipticalArcOperations : public GeometryOperations<Self>
{
public:
    using Data = EllipticalArcData;

    HPS_FIELD(Center, Point, center)
    HPS_FIELD(Major, Point, major)
    HPS_FIELD(Minor, Point, minor)
    HPS_FIELD(Start, float, start)
    HPS_FIELD(End, float, end)
};

// A part of an ellipse.
class EllipticalArcKit : public GeometryKitOf<EllipticalArcKit, EllipticalArcData>,
                         public EllipticalArcOperations<EllipticalArcKit>
{
public:
};

} // namespace HPS
