#include "kit_operations.h"

namespace HPS
{

HPS_DEFINE_KIT(LightingAttribute)

LightingAttributeKit LightingAttributeKit::GetDefault()
{
    LightingAttributeKit kit;
    kit.SetInterpolationAlgorithm(Lighting::InterpolationAlgorithm::Phong);
    return kit;
}

} // namespace HPS
