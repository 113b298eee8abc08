#pragma once
#include <hps/Kit.h>

namespace HPS
{

// How finely curves are broken into lines. Zero stands for no limit.
struct CurveAttributeData {
    std::optional<unsigned int> budget;
    std::optional<std::tuple<bool, unsigned int>> continuedBudget;
    std::optional<bool> viewDependent;
    std::optional<float> maximumDeviation;
    std::optional<float> maximumAngle;
    std::optional<float> maximumLength;

    bool operator==(CurveAttributeData const&) const = default;
    static constexpr auto aspects()
    {
        return std::tuple{Aspect{1, "Budget", &CurveAttributeData::budget},
                          Aspect{2, "ContinuedBudget", &CurveAttributeData::continuedBudget},
                          Aspect{3, "ViewDependent", &CurveAttributeData::viewDependent},
                          Aspect{4, "MaximumDeviation", &CurveAttributeData::maximumDeviation},
                          Aspect{5, "MaximumAngle", &CurveAttributeData::maximumAngle},
                          Aspect{6, "MaximumLength", &CurveAttributeData::maximumLength}};
    }
};
static_assert(CompleteKit<CurveAttributeData>);

template <class Self> class CurveAttributeOperations : public Operations<Self>
{
public:
    using Data = CurveAttributeData;

    // Greatest number of points.
    HPS_ASPECT(Budget, unsigned int, budget)
    // Points for the parts of a curve beyond the view.
    HPS_ASPECT_PARTS(ContinuedBudget, continuedBudget, (bool state = true, unsigned int budget = 0),
                     (bool& state, unsigned int& budget), state, budget)
    // Finer where the curve is large on the screen.
    HPS_ASPECT(ViewDependent, bool, viewDependent)
    // Distance from the curve, in the units of the curve.
    HPS_ASPECT(MaximumDeviation, float, maximumDeviation)
    // Between neighbouring lines, in degrees.
    HPS_ASPECT(MaximumAngle, float, maximumAngle)
    // Of a line, in the units of the curve.
    HPS_ASPECT(MaximumLength, float, maximumLength)
};

class CurveAttributeKit : public Kit<CurveAttributeKit, CurveAttributeOperations>
{
public:
    static CurveAttributeKit GetDefault();
};

class CurveAttributeControl : public Control<CurveAttributeControl, CurveAttributeOperations>
{
public:
    using Control::Control;
};

} // namespace HPS
