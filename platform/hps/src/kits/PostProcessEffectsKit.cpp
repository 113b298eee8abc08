#include "kit_operations.h"
#include <hps/WindowKey.h>

namespace HPS
{

HPS_DEFINE_WINDOW_KIT(PostProcessEffects)

PostProcessEffectsKit PostProcessEffectsKit::GetDefault()
{
    PostProcessEffectsKit kit;
    kit.SetAmbientOcclusion(false).SetBloom(false).SetDepthOfField(false).SetSilhouetteEdges(false);
    kit.SetEyeDomeLighting(false).SetWorldScale(1);
    return kit;
}

} // namespace HPS
