#pragma once
#include <hps/GeometryKit.h>
#include <hps/Point.h>
#include <hps/TrimKit.h>

namespace HPS
{

struct NURBSSurfaceData {
    std::size_t uDegree = 0;
    std::size_t vDegree = 0;
    std::size_t uCount = 0;
    std::size_t vCount = 0;
    std::vector<Point> points;
    std::vector<float> weights;
    std::vector<float> uKnots;
    std::vector<float> vKnots;
    std::vector<TrimKit> trims;

    bool operator==(NURBSSurfaceData const&) const = default;
    static constexpr auto fields()
    {
        return std::tuple{&NURBSSurfaceData::uDegree, &NURBSSurfaceData::vDegree, &NURBSSurfaceData::uCount,
                          &NURBSSurfaceData::vCount,  &NURBSSurfaceData::points,  &NURBSSurfaceData::weights,
                          &NURBSSurfaceData::uKnots,  &NURBSSurfaceData::vKnots,  &NURBSSurfaceData::trims};
    }
};

template <class Self> class NURBSSurfaceOperations : public GeometryOperations<Self>
{
public:
    using Data = NURBSSurfaceData;

    HPS_FIELD(UDegree, std::size_t, uDegree)
    HPS_FIELD(VDegree, std::size_t, vDegree)
    HPS_FIELD(UCount, std::size_t, uCount)
    HPS_FIELD(VCount, std::size_t, vCount)
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
    // One per point and positive, or none for a surface that is not rational.
    Self& SetWeights(std::vector<float> const& weights)
    {
        return detail::setField<&Data::weights>(this->self(), weights);
    }
    Self& UnsetWeights() { return SetWeights({}); }
    bool ShowWeights(std::vector<float>& weights) const
    {
        return detail::showField<&Data::weights>(this->self(), weights) && !weights.empty();
    }
    Self& SetUKnots(std::vector<float> const& uKnots)
    {
        return detail::setField<&Data::uKnots>(this->self(), uKnots);
    }
    Self& UnsetUKnots() { return SetUKnots({}); }
    bool ShowUKnots(std::vector<float>& uKnots) const
    {
        return detail::showField<&Data::uKnots>(this->self(), uKnots) && !uKnots.empty();
    }
    Self& SetVKnots(std::vector<float> const& vKnots)
    {
        return detail::setField<&Data::vKnots>(this->self(), vKnots);
    }
    Self& UnsetVKnots() { return SetVKnots({}); }
    bool ShowVKnots(std::vector<float>& vKnots) const
    {
        return detail::showField<&Data::vKnots>(this->self(), vKnots) && !vKnots.empty();
    }
    Self& SetTrims(std::vector<TrimKit> const& trims)
    {
        return detail::setField<&Data::trims>(this->self(), trims);
    }
    Self& UnsetTrims() { return SetTrims({}); }
    bool ShowTrims(std::vector<TrimKit>& trims) const
    {
        return detail::showField<&Data::trims>(this->self(), trims) && !trims.empty();
    }
};

// A rational surface. Points and weights stand row by row: all of the v direction for the first of u, and so
// on.
class NURBSSurfaceKit : public GeometryKitOf<NURBSSurfaceKit, NURBSSurfaceData>,
                        public NURBSSurfaceOperations<NURBSSurfaceKit>
{
public:
};

} // namespace HPS
