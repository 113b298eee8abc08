#include "kit_operations.h"

namespace HPS
{

HPS_DEFINE_KIT(CylinderAttribute)

CylinderAttributeKit CylinderAttributeKit::GetDefault()
{
    CylinderAttributeKit kit;
    kit.SetTessellation(30).SetOrientation(Cylinder::Orientation::Default);
    return kit;
}

} // namespace HPS
