#include "kit_operations.h"

namespace HPS
{

HPS_DEFINE_KIT(EdgeAttribute)

EdgeAttributeKit EdgeAttributeKit::GetDefault()
{
    EdgeAttributeKit kit;
    kit.SetPattern(UTF8()).SetWeight(1).SetHardAngle(30);
    return kit;
}

} // namespace HPS
