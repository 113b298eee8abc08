#include "kit_operations.h"

namespace HPS
{

HPS_DEFINE_KIT(DrawingAttribute)

DrawingAttributeKit DrawingAttributeKit::GetDefault()
{
    DrawingAttributeKit kit;
    kit.SetPolygonHandedness(Drawing::Handedness::Right).SetWorldHandedness(Drawing::Handedness::Right);
    kit.SetDepthRange(0, 1).SetFaceDisplacement(false, 0).SetGeneralDisplacement(false, 0);
    kit.SetVertexDisplacement(false, 0).SetVertexDecimation(1).SetVertexRandomization(false);
    kit.SetOverrideInternalColor(VisibilityKit().SetEverything(false)).SetOverlay(Drawing::Overlay::None);
    kit.SetDeferral(0);
    return kit;
}

} // namespace HPS
