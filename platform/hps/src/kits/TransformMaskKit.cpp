#include "kit_operations.h"

namespace HPS
{

HPS_DEFINE_KIT(TransformMask)

TransformMaskKit TransformMaskKit::GetDefault()
{
    TransformMaskKit kit;
    kit.SetCameraRotation(false).SetCameraScale(false).SetCameraTranslation(false);
    kit.SetCameraPerspectiveScale(false).SetCameraProjection(false).SetCameraOffset(false);
    kit.SetCameraNearLimit(false).SetModellingMatrixRotation(false).SetModellingMatrixScale(false);
    kit.SetModellingMatrixTranslation(false).SetModellingMatrixOffset(false);
    return kit;
}

} // namespace HPS
