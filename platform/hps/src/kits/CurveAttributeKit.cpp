#include "kit_operations.h"

namespace HPS
{

HPS_DEFINE_KIT(CurveAttribute)

CurveAttributeKit CurveAttributeKit::GetDefault()
{
    CurveAttributeKit kit;
    kit.SetBudget(500).SetContinuedBudget(false).SetViewDependent(false);
    kit.SetMaximumDeviation(0).SetMaximumAngle(5).SetMaximumLength(0);
    return kit;
}

} // namespace HPS
