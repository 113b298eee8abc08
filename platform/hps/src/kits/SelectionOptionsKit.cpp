#include "kit_operations.h"
#include <hps/WindowKey.h>

namespace HPS
{

HPS_DEFINE_WINDOW_KIT(SelectionOptions)

SelectionOptionsKit SelectionOptionsKit::GetDefault()
{
    SelectionOptionsKit kit;
    using namespace Selection;
    kit.SetProximity(3).SetLevel(Level::Segment).SetInternalLimit(0).SetRelatedLimit(0);
    kit.SetSorting(Sorting::Default).SetAlgorithm(Algorithm::Analytic).SetGranularity(Granularity::General);
    kit.SetExtentCullingRespected(true).SetDeferralExtentCullingRespected(false);
    kit.SetFrustumCullingRespected(true).SetVectorCullingRespected(true);
    return kit;
}

} // namespace HPS
