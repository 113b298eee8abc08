#include "kit_operations.h"

namespace HPS
{

HPS_DEFINE_KIT(Camera)

CameraKit CameraKit::GetDefault()
{
    CameraKit kit;
    kit.SetPosition({0, 0, -5}).SetTarget({0, 0, 0}).SetUpVector({0, 1, 0});
    kit.SetProjection(Camera::Projection::Perspective).SetField(2, 2).SetNearLimit(0);
    return kit;
}

} // namespace HPS
