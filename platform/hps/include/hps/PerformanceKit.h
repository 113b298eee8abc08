#pragma once
#include <hps/Kit.h>
#include <hps/enumerations.h>

namespace HPS
{

// What is kept ready between pictures.
struct PerformanceData {
    std::optional<Performance::DisplayLists> displayLists;
    std::optional<bool> textHardwareAcceleration;
    std::optional<Performance::StaticModel> staticModel;
    std::optional<Performance::StaticConditions> staticConditions;

    bool operator==(PerformanceData const&) const = default;
    static constexpr auto aspects()
    {
        return std::tuple{Aspect{1, "DisplayLists", &PerformanceData::displayLists},
                          Aspect{2, "TextHardwareAcceleration", &PerformanceData::textHardwareAcceleration},
                          Aspect{3, "StaticModel", &PerformanceData::staticModel},
                          Aspect{4, "StaticConditions", &PerformanceData::staticConditions}};
    }
};
static_assert(CompleteKit<PerformanceData>);

template <class Self> class PerformanceOperations : public Operations<Self>
{
public:
    using Data = PerformanceData;

    HPS_ASPECT(DisplayLists, Performance::DisplayLists, displayLists)
    HPS_ASPECT(TextHardwareAcceleration, bool, textHardwareAcceleration)
    // A promise that the scene below changes rarely.
    HPS_ASPECT(StaticModel, Performance::StaticModel, staticModel)
    // Single: conditions below such a scene change as one.
    HPS_ASPECT(StaticConditions, Performance::StaticConditions, staticConditions)
};

class PerformanceKit : public Kit<PerformanceKit, PerformanceOperations>
{
public:
    static PerformanceKit GetDefault();
};

class PerformanceControl : public Control<PerformanceControl, PerformanceOperations>
{
public:
    using Control::Control;
};

} // namespace HPS
