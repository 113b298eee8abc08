#pragma once
#include <hps/GeometryKit.h>
#include <hps/Point.h>

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

template <class Self> class NURBSCurveOperations : public GeometryOperations<Self>
{
public:
    using Data = NURBSCurveData;

    HPS_FIELD(Degree, std::size_t, degree)
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
    // One per point and positive, or none for a curve that is not rational.
    Self& SetWeights(std::vector<float> const& weights)
    {
        return detail::setField<&Data::weights>(this->self(), weights);
    }
    Self& UnsetWeights() { return SetWeights({}); }
    bool ShowWeights(std::vector<float>& weights) const
    {
        return detail::showField<&Data::weights>(this->self(), weights) && !weights.empty();
    }
    // As many as points, degree and one together; none falls below the one before it.
    Self& SetKnots(std::vector<float> const& knots)
    {
        return detail::setField<&Data::knots>(this->self(), knots);
    }
    Self& UnsetKnots() { return SetKnots({}); }
    bool ShowKnots(std::vector<float>& knots) const
    {
        return detail::showField<&Data::knots>(this->self(), knots) && !knots.empty();
    }
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
