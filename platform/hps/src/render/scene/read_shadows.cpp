#include "read_scene.h"

namespace HPS::render
{

Shadows readShadows(SceneSources const&)
{
    return {};
}

} // namespace HPS::render
