#include "read_scene.h"
#include <hps/PostProcessEffectsKit.h>
#include <hps/VisualEffectsKit.h>

namespace HPS::render
{

// The window says how effects look and which are on; parts of the scene may be left out of each, and a view
// out of all.
Effects readEffects(SceneSources const& sources)
{
    Effects effects;
    if (sources.windowSegment == nullptr) return effects;
    auto const& set = scene::valuesOf<PostProcessEffectsData>(
        sources.windowSegment->kit(scene::KitKind::PostProcessEffects));
    auto const& visual = sources.view.get<VisualEffectsData>();
    if (!visual.postProcessEffectsEnabled.value_or(true)) return effects;

    namespace Kinds = HPS::PostProcessEffects;
    double const scale = set.worldScale.value_or(1.0f);
    if (set.ambientOcclusion) {
        auto& out = effects.occlusion;
        auto quality = Kinds::AmbientOcclusion::Quality::Nicest;
        std::tie(out.on, out.strength, quality, out.radius, out.sharpness) = *set.ambientOcclusion;
        out.nicest = quality == Kinds::AmbientOcclusion::Quality::Nicest;
        out.on = out.on && visual.ambientOcclusionEnabled.value_or(true);
    }
    if (set.bloom) {
        auto& out = effects.bloom;
        auto shape = Kinds::Bloom::Shape::Radial;
        std::tie(out.on, out.strength, out.blur, shape) = *set.bloom;
        out.shape =
            shape == Kinds::Bloom::Shape::Star ? Effects::Bloom::Shape::Star : Effects::Bloom::Shape::Radial;
        out.on = out.on && visual.bloomEnabled.value_or(true);
    }
    if (set.depthOfField) {
        auto& out = effects.depthOfField;
        std::tie(out.on, out.strength, out.nearDistance, out.farDistance) = *set.depthOfField;
        out.nearDistance *= scale;
        out.farDistance *= scale;
        out.on = out.on && visual.depthOfFieldEnabled.value_or(true);
    }
    if (set.silhouetteEdges) {
        auto& out = effects.silhouettes;
        std::tie(out.on, out.tolerance, out.heavyExterior) = *set.silhouetteEdges;
        out.on = out.on && visual.silhouetteEdgesEnabled.value_or(true);
    }
    if (set.eyeDomeLighting) {
        auto& out = effects.eyeDome;
        std::tie(out.on, out.exponent, out.tolerance, out.strength) = *set.eyeDomeLighting;
        out.on = out.on && visual.eyeDomeLightingEnabled.value_or(true);
        if (visual.eyeDomeLightingBackColor)
            if (auto const& [own, colour] = *visual.eyeDomeLightingBackColor; own) {
                out.shade[0] = colour.red;
                out.shade[1] = colour.green;
                out.shade[2] = colour.blue;
            }
    }
    effects.smoothing = visual.antiAliasing.value_or(false);
    return effects;
}

} // namespace HPS::render
