#pragma once
#include <hps/PointListOperations.h>
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

template <class Self> class NURBSSurfaceOperations : public PointListOperations<Self, NURBSSurfaceData>
{
public:
    using Data = NURBSSurfaceData;

    HPS_FIELD(UDegree, std::size_t, uDegree)
    HPS_FIELD(VDegree, std::size_t, vDegree)
    HPS_FIELD(UCount, std::size_t, uCount)
    HPS_FIELD(VCount, std::size_t, vCount)
    // One per point and positive, or none for a surface that is not rational.
    HPS_FIELD_LIST(Weights, float, weights)
    HPS_FIELD_LIST(UKnots, float, uKnots)
    HPS_FIELD_LIST(VKnots, float, vKnots)
    HPS_FIELD_LIST(Trims, TrimKit, trims)
};

// A rational surface. Points and weights stand row by row: all of the v direction for the first of u, and so
// on.
class NURBSSurfaceKit : public GeometryKitOf<NURBSSurfaceKit, NURBSSurfaceData>,
                        public NURBSSurfaceOperations<NURBSSurfaceKit>
{
public:
};

} // namespace HPS
