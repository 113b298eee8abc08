#pragma once
#include <hps/GeometryKit.h>
#include <hps/Point.h>

namespace HPS
{

struct MarkerData {
    HPS::Point point;

    bool operator==(MarkerData const&) const = default;
    static constexpr auto fields() { return std::tuple{&MarkerData::point}; }
};

template <class Self> class MarkerOperations : public GeometryOperations<Self>
{
public:
    using Data = MarkerData;

    HPS_FIELD(Point, HPS::Point, point)
};

// A point shown as a glyph.
class MarkerKit : public GeometryKitOf<MarkerKit, MarkerData>, public MarkerOperations<MarkerKit>
{
public:
    MarkerKit() = default;
    explicit MarkerKit(HPS::Point const& point) { SetPoint(point); }
};

} // namespace HPS
