#include "interactive_preset.h"
#include <algorithm>

namespace HPS::render
{
namespace
{

constexpr unsigned interactiveMap =
    512; ///< pixels of a shadow map: drawn anew whenever a light follows the view

/// Dearest first, by what a step costs in software against what the eye misses while things move.
constexpr void (*stepsAside[])(Scene&) = {
    [](Scene& s) {
        using Order = Transparency::Order;
        if (s.transparency.order != Order::Scene) s.transparency.order = Order::Objects;
    },
    [](Scene& s) {
        s.shadows.samples = 1;
        s.shadows.jitter = false;
        s.shadows.resolution = std::min(s.shadows.resolution, interactiveMap);
    },
    [](Scene& s) { s.effects.depthOfField.on = false; },
    [](Scene& s) { s.effects.occlusion.on = false; },
    [](Scene& s) { s.effects.smoothing = false; },
    [](Scene& s) { s.effects.silhouettes.on = false; },
};

} // namespace

Scene atQuality(Scene const& scene)
{
    Scene result = scene;
    if (scene.quality == Quality::Interactive)
        for (auto const step : stepsAside) step(result);
    return result;
}

} // namespace HPS::render
