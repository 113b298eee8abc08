#include "kit_operations.h"

namespace HPS
{

HPS_DEFINE_KIT(Transparency)

TransparencyKit TransparencyKit::GetDefault()
{
    TransparencyKit kit;
    kit.SetMethod(Transparency::Method::Blended).SetAlgorithm(Transparency::Algorithm::DepthPeeling);
    kit.SetDepthPeelingLayers(8).SetDepthPeelingMinimumArea(0, Transparency::AreaUnits::Pixels);
    kit.SetDepthWriting(true).SetDepthPeelingPreference(Transparency::Preference::Nicest);
    return kit;
}

} // namespace HPS
