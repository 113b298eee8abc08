#pragma once
#include <hps/Kit.h>
#include <hps/enumerations.h>

namespace HPS
{

// How light is spread over a face.
struct LightingAttributeData {
    std::optional<Lighting::InterpolationAlgorithm> interpolationAlgorithm;

    bool operator==(LightingAttributeData const&) const = default;
    static constexpr auto aspects()
    {
        return std::tuple{
            Aspect{1, "InterpolationAlgorithm", &LightingAttributeData::interpolationAlgorithm}};
    }
};
static_assert(CompleteKit<LightingAttributeData>);

template <class Self> class LightingAttributeOperations : public Operations<Self>
{
public:
    using Data = LightingAttributeData;

    HPS_ASPECT(InterpolationAlgorithm, Lighting::InterpolationAlgorithm, interpolationAlgorithm)
};

class LightingAttributeKit : public Kit<LightingAttributeKit, LightingAttributeOperations>
{
public:
    static LightingAttributeKit GetDefault();
};

class LightingAttributeControl : public Control<LightingAttributeControl, LightingAttributeOperations>
{
public:
    using Control::Control;
};

} // namespace HPS
