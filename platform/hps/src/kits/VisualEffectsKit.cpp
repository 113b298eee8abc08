#include "kit_operations.h"

namespace HPS
{

HPS_DEFINE_KIT(VisualEffects)

VisualEffectsKit VisualEffectsKit::GetDefault()
{
    VisualEffectsKit kit;
    // The effects themselves are off until a window switches them on; all of its scene then takes part.
    kit.SetPostProcessEffectsEnabled(true).SetAmbientOcclusionEnabled(true).SetSilhouetteEdgesEnabled(true);
    kit.SetDepthOfFieldEnabled(true).SetBloomEnabled(true).SetEyeDomeLightingEnabled(true);
    kit.SetEyeDomeLightingBackColor(false).SetAntiAliasing(true).SetTextAntiAliasing(true);
    kit.SetShadowMaps(false).SetSimpleShadow(false).SetSimpleShadowPlane(Plane(0, 1, 0, 0));
    kit.SetSimpleShadowLightDirection(Vector(0, 1, 0)).SetSimpleShadowColor(RGBAColor::Black());
    kit.SetSimpleReflection(false).SetSimpleReflectionPlane(Plane(0, 1, 0, 0));
    kit.SetSimpleReflectionVisibility(VisibilityKit().SetEverything(true));
    return kit;
}

} // namespace HPS
