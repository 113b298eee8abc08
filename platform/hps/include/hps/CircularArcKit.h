#pragma once
#include <hps/GeometryKit.h>
#include <hps/Point.h>

namespace HPS
{

// Three points that an arc goes through.
struct ArcPointsData {
    Point start;
    Point middle;
    Point end;

    bool operator==(ArcPointsData const&) const = default;
    static constexpr auto fields()
    {
        return std::tuple{&ArcPointsData::start, &ArcPointsData::middle, &ArcPointsData::end};
    }
};

template <class Self> class ArcPointsOperations : public GeometryOperations<Self>
{
public:
    using Data = ArcPointsData;

    HPS_FIELD(Start, Point, start)
    HPS_FIELD(Middle, Point, middle)
    HPS_FIELD(End, Point, end)
};

// An arc of a circle from the start through the middle to the end; a straight line if they lie on one.
class CircularArcKit : public GeometryKitOf<CircularArcKit, ArcPointsData>,
                       public ArcPointsOperations<CircularArcKit>
{
};

} // namespace HPS
