#include "read_scene.h"
#include <hps/TransparencyKit.h>

namespace HPS::render
{
namespace
{

Transparency::Order orderOf(HPS::Transparency::Algorithm algorithm)
{
    using Algorithm = HPS::Transparency::Algorithm;
    switch (algorithm) {
    case Algorithm::None:
        return Transparency::Order::Scene;
    case Algorithm::Painters:
        return Transparency::Order::Objects;
    case Algorithm::ZSortNicest:
        return Transparency::Order::SplitTriangles;
    case Algorithm::ZSortFastest:
        return Transparency::Order::Triangles;
    case Algorithm::DepthPeeling:
        return Transparency::Order::Peeled;
    case Algorithm::WeightedBlended:
        return Transparency::Order::Weighted;
    }
    return Transparency::Order::Objects;
}

} // namespace

Transparency readTransparency(SceneSources const& sources)
{
    static TransparencyData const fallback = TransparencyKit::GetDefault().data();
    auto const& set = sources.view.get<TransparencyData>();
    auto value = [&](auto slot) { return set.*slot ? *(set.*slot) : *(fallback.*slot); };
    Transparency transparency;
    transparency.order = orderOf(value(&TransparencyData::algorithm));
    transparency.layers = value(&TransparencyData::depthPeelingLayers);
    auto const [area, units] = value(&TransparencyData::depthPeelingMinimumArea);
    transparency.minimumArea = area;
    transparency.areaInPercent = units == HPS::Transparency::AreaUnits::Percent;
    transparency.everySample =
        value(&TransparencyData::depthPeelingPreference) == HPS::Transparency::Preference::Nicest;
    return transparency;
}

} // namespace HPS::render
