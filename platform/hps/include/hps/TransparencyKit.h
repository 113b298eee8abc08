#pragma once
#include <hps/Kit.h>
#include <hps/enumerations.h>

namespace HPS
{

// How what is not opaque is drawn.
struct TransparencyData {
    std::optional<Transparency::Method> method;
    std::optional<Transparency::Algorithm> algorithm;
    std::optional<unsigned> depthPeelingLayers;
    std::optional<std::tuple<float, Transparency::AreaUnits>> depthPeelingMinimumArea;
    std::optional<bool> depthWriting;
    std::optional<Transparency::Preference> depthPeelingPreference;

    bool operator==(TransparencyData const&) const = default;
    static constexpr auto aspects()
    {
        return std::tuple{Aspect{1, "Method", &TransparencyData::method},
                          Aspect{2, "Algorithm", &TransparencyData::algorithm},
                          Aspect{3, "DepthPeelingLayers", &TransparencyData::depthPeelingLayers},
                          Aspect{4, "DepthPeelingMinimumArea", &TransparencyData::depthPeelingMinimumArea},
                          Aspect{5, "DepthWriting", &TransparencyData::depthWriting},
                          Aspect{6, "DepthPeelingPreference", &TransparencyData::depthPeelingPreference}};
    }
};
static_assert(CompleteKit<TransparencyData>);

template <class Self> class TransparencyOperations : public Operations<Self>
{
public:
    using Data = TransparencyData;

    HPS_ASPECT(Method, Transparency::Method, method)
    HPS_ASPECT(Algorithm, Transparency::Algorithm, algorithm)
    HPS_ASPECT(DepthPeelingLayers, unsigned, depthPeelingLayers)
    Self& SetDepthPeelingMinimumArea(float area,
                                     Transparency::AreaUnits units = Transparency::AreaUnits::Percent)
    {
        return detail::set<&Data::depthPeelingMinimumArea>(this->self(), std::tuple{area, units});
    }
    Self& UnsetDepthPeelingMinimumArea()
    {
        return detail::unset<&Data::depthPeelingMinimumArea>(this->self());
    }
    bool ShowDepthPeelingMinimumArea(float& area, Transparency::AreaUnits& units) const
    {
        return detail::show<&Data::depthPeelingMinimumArea>(this->self(), area, units);
    }
    HPS_ASPECT(DepthWriting, bool, depthWriting)
    HPS_ASPECT(DepthPeelingPreference, Transparency::Preference, depthPeelingPreference)
};

class TransparencyKit : public Kit<TransparencyKit, TransparencyOperations>
{
public:
    static TransparencyKit GetDefault();
};

class TransparencyControl : public Control<TransparencyControl, TransparencyOperations>
{
public:
    using Control::Control;
};

} // namespace HPS
