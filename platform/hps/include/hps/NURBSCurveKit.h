#pragma once
#include <hps/PointListOperations.h>

namespace HPS
{

struct NURBSCurveData {
    std::size_t degree = 0;
    std::vector<Point> points;
    std::vector<float> weights;
    std::vector<float> knots;
    float start = 0;
    float end = 1;

    bool operator==(NURBSCurveData const&) const = default;
    static constexpr auto fields()
    {
        return std::tuple{&NURBSCurveData::degree, &NURBSCurveData::points, &NURBSCurveData::weights,
                          &NURBSCurveData::knots,  &NURBSCurveData::start,  &NURBSCurveData::end};
    }
};

template <class Self> class NURBSCurveOperations : public PointListOperations<Self, NURBSCurveData>
{
public:
    using Data = NURBSCurveData;

    HPS_FIELD(Degree, std::size_t, degree)
    // One per point and positive, or none for a curve that is not rational.
    HPS_FIELD_LIST(Weights, float, weights)
    // As many as points, degree and one together; none falls below the one before it.
    HPS_FIELD_LIST(Knots, float, knots)
    // The part that is drawn, as shares of the range of the knots.
    Self& SetParameters(float start, float end)
    {
        this->self().edit([&](Data& data) { data.start = start, data.end = end; });
        return this->self();
    }
    Self& UnsetParameters() { return SetParameters(0, 1); }
    bool ShowParameters(float& start, float& end) const
    {
        return this->self().read([&](Data const& data) { start = data.start, end = data.end; });
    }
};

// A rational curve.
class NURBSCurveKit : public GeometryKitOf<NURBSCurveKit, NURBSCurveData>,
                      public NURBSCurveOperations<NURBSCurveKit>
{
public:
};

} // namespace HPS
