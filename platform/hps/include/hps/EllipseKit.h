#pragma once
#include <hps/GeometryKit.h>
#include <hps/Point.h>

namespace HPS
{

struct EllipseData {
    Point center;
    Point major{1, 0, 0};
    Point minor{0, 1, 0};

    bool operator==(EllipseData const&) const = default;
    static constexpr auto fields()
    {
        return std::tuple{&EllipseData::center, &EllipseData::major, &EllipseData::minor};
    }
};

template <class Self> class EllipseOperations : public GeometryOperations<Self>
{
public:
    using Data = EllipseData;

    HPS_FIELD(Center, Point, center)
    HPS_FIELD(Major, Point, major)
    HPS_FIELD(Minor, Point, minor)
};

// An ellipse, filled where faces are visible. The axes end at the points; they should stand at right angles.
class EllipseKit : public GeometryKitOf<EllipseKit, EllipseData>, public EllipseOperations<EllipseKit>
{
public:
};

} // namespace HPS
