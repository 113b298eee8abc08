#pragma once
#include <hps/Kit.h>
#include <hps/enumerations.h>

namespace HPS
{

// How a selection is made.
struct SelectionOptionsData {
    std::optional<float> proximity;
    std::optional<Selection::Level> level;
    std::optional<unsigned int> internalLimit;
    std::optional<unsigned int> relatedLimit;
    std::optional<Selection::Sorting> sorting;
    std::optional<Selection::Algorithm> algorithm;
    std::optional<Selection::Granularity> granularity;
    std::optional<bool> extentCullingRespected;
    std::optional<bool> deferralExtentCullingRespected;
    std::optional<bool> frustumCullingRespected;
    std::optional<bool> vectorCullingRespected;

    bool operator==(SelectionOptionsData const&) const = default;
    static constexpr auto aspects()
    {
        return std::tuple{
            Aspect{1, "Proximity", &SelectionOptionsData::proximity},
            Aspect{2, "Level", &SelectionOptionsData::level},
            Aspect{3, "InternalLimit", &SelectionOptionsData::internalLimit},
            Aspect{4, "RelatedLimit", &SelectionOptionsData::relatedLimit},
            Aspect{5, "Sorting", &SelectionOptionsData::sorting},
            Aspect{6, "Algorithm", &SelectionOptionsData::algorithm},
            Aspect{7, "Granularity", &SelectionOptionsData::granularity},
            Aspect{8, "ExtentCullingRespected", &SelectionOptionsData::extentCullingRespected},
            Aspect{9, "DeferralExtentCullingRespected",
                   &SelectionOptionsData::deferralExtentCullingRespected},
            Aspect{10, "FrustumCullingRespected", &SelectionOptionsData::frustumCullingRespected},
            Aspect{11, "VectorCullingRespected", &SelectionOptionsData::vectorCullingRespected}};
    }
};
static_assert(CompleteKit<SelectionOptionsData>);

template <class Self> class SelectionOptionsOperations : public Operations<Self>
{
public:
    using Data = SelectionOptionsData;

    // Greatest distance from the place picked of what has no area, in pixels.
    HPS_ASPECT(Proximity, float, proximity)
    // What one result stands for.
    HPS_ASPECT(Level, Selection::Level, level)
    // Greatest number of further faces, edges and vertices, of each kind, found within one geometry.
    HPS_ASPECT(InternalLimit, unsigned int, internalLimit)
    // Greatest number of further results.
    HPS_ASPECT(RelatedLimit, unsigned int, relatedLimit)
    // Proximity: the nearest to the place picked first. ZSorting: the nearest to the viewer first. Default: as
    // ZSorting, but what has no area comes before the faces it lies on.
    HPS_ASPECT(Sorting, Selection::Sorting, sorting)
    // Analytic finds what lies behind faces too, Visual only what can be seen past them.
    HPS_ASPECT(Algorithm, Selection::Algorithm, algorithm)
    // General finds parts of one kind within a geometry, vertices rather than edges and edges rather than
    // faces; Detailed finds parts of all kinds.
    HPS_ASPECT(Granularity, Selection::Granularity, granularity)
    HPS_ASPECT(ExtentCullingRespected, bool, extentCullingRespected)
    HPS_ASPECT(DeferralExtentCullingRespected, bool, deferralExtentCullingRespected)
    HPS_ASPECT(FrustumCullingRespected, bool, frustumCullingRespected)
    HPS_ASPECT(VectorCullingRespected, bool, vectorCullingRespected)
};

class SelectionOptionsKit : public Kit<SelectionOptionsKit, SelectionOptionsOperations>
{
public:
    static SelectionOptionsKit GetDefault();
};

class SelectionOptionsControl : public Control<SelectionOptionsControl, SelectionOptionsOperations>
{
public:
    using Control::Control;
};

} // namespace HPS
