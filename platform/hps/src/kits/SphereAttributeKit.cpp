#include "kit_operations.h"

namespace HPS
{

HPS_DEFINE_KIT(SphereAttribute)

SphereAttributeKit SphereAttributeKit::GetDefault()
{
    SphereAttributeKit kit;
    kit.SetTessellation(30);
    return kit;
}

} // namespace HPS
