#include "kit_operations.h"

namespace HPS
{

HPS_DEFINE_KIT(Culling)

CullingKit CullingKit::GetDefault()
{
    CullingKit kit;
    kit.SetDeferralExtent(false, 0).SetExtent(false, 0).SetBackFace(false).SetVector(false, Vector::ZAxis());
    kit.SetVectorTolerance(0).SetFrustum(true).SetVolume(false, SimpleCuboid({-1, -1, -1}, {1, 1, 1}));
    kit.SetDistance(false, 0);
    return kit;
}

} // namespace HPS
