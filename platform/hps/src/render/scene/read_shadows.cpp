#include "read_scene.h"
#include <hps/VisualEffectsKit.h>

namespace HPS::render
{

Shadows readShadows(SceneSources const& sources)
{
    auto const& maps = sources.view.get<VisualEffectsData>().shadowMaps;
    Shadows shadows;
    if (maps)
        std::tie(shadows.maps, shadows.samples, shadows.resolution, shadows.viewDependent, shadows.jitter) =
            *maps;
    return shadows;
}

} // namespace HPS::render
