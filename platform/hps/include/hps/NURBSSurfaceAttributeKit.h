#pragma once
#include <hps/Kit.h>

namespace HPS
{

// How finely curved surfaces are broken into facets. Zero stands for no limit.
struct NURBSSurfaceAttributeData {
    std::optional<unsigned int> budget;
    std::optional<float> maximumDeviation;
    std::optional<float> maximumAngle;
    std::optional<float> maximumWidth;
    std::optional<unsigned int> trimBudget;
    std::optional<float> maximumTrimDeviation;

    bool operator==(NURBSSurfaceAttributeData const&) const = default;
    static constexpr auto aspects()
    {
        return std::tuple{
            Aspect{1, "Budget", &NURBSSurfaceAttributeData::budget},
            Aspect{2, "MaximumDeviation", &NURBSSurfaceAttributeData::maximumDeviation},
            Aspect{3, "MaximumAngle", &NURBSSurfaceAttributeData::maximumAngle},
            Aspect{4, "MaximumWidth", &NURBSSurfaceAttributeData::maximumWidth},
            Aspect{5, "TrimBudget", &NURBSSurfaceAttributeData::trimBudget},
            Aspect{6, "MaximumTrimDeviation", &NURBSSurfaceAttributeData::maximumTrimDeviation}};
    }
};
static_assert(CompleteKit<NURBSSurfaceAttributeData>);

template <class Self> class NURBSSurfaceAttributeOperations : public Operations<Self>
{
public:
    using Data = NURBSSurfaceAttributeData;

    // Greatest number of facets.
    HPS_ASPECT(Budget, unsigned int, budget)
    // Distance from the surface, in its units.
    HPS_ASPECT(MaximumDeviation, float, maximumDeviation)
    // Between neighbouring facets, in degrees.
    HPS_ASPECT(MaximumAngle, float, maximumAngle)
    // Of a facet, in the units of the surface.
    HPS_ASPECT(MaximumWidth, float, maximumWidth)
    // Greatest number of points of a trim.
    HPS_ASPECT(TrimBudget, unsigned int, trimBudget)
    // Of a trim, in the parameters of the surface.
    HPS_ASPECT(MaximumTrimDeviation, float, maximumTrimDeviation)
};

class NURBSSurfaceAttributeKit : public Kit<NURBSSurfaceAttributeKit, NURBSSurfaceAttributeOperations>
{
public:
    static NURBSSurfaceAttributeKit GetDefault();
};

class NURBSSurfaceAttributeControl
    : public Control<NURBSSurfaceAttributeControl, NURBSSurfaceAttributeOperations>
{
public:
    using Control::Control;
};

} // namespace HPS
