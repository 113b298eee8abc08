#include "kit_operations.h"

namespace HPS
{

HPS_DEFINE_KIT(NURBSSurfaceAttribute)

NURBSSurfaceAttributeKit NURBSSurfaceAttributeKit::GetDefault()
{
    NURBSSurfaceAttributeKit kit;
    kit.SetBudget(5000).SetMaximumDeviation(0).SetMaximumAngle(15).SetMaximumWidth(0);
    kit.SetTrimBudget(500).SetMaximumTrimDeviation(0);
    return kit;
}

} // namespace HPS
