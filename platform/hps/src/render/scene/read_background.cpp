#include "plain_colour.h"
#include "read_scene.h"

namespace HPS::render
{

Background readBackground(SceneSources const& sources)
{
    Background background;
    auto const& materials = sources.window.get<MaterialMappingData>();
    RGBColor const top = plainColour(materials.window, sources.window.palette(), {1, 1, 1});
    put(background.top, top);
    // A window without a contrast colour is of one colour.
    put(background.bottom, plainColour(materials.windowContrast, sources.window.palette(), top));
    return background;
}

} // namespace HPS::render
