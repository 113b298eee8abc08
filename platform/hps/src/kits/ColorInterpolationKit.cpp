#include "kit_operations.h"

namespace HPS
{

HPS_DEFINE_KIT(ColorInterpolation)

ColorInterpolationKit ColorInterpolationKit::GetDefault()
{
    ColorInterpolationKit kit;
    kit.SetFaceColor(true).SetEdgeColor(true).SetVertexColor(true);
    kit.SetFaceIndex(false).SetEdgeIndex(false).SetVertexIndex(false);
    return kit;
}

} // namespace HPS
