#include "read_scene.h"

namespace HPS::render
{

Effects readEffects(SceneSources const&)
{
    return {};
}

} // namespace HPS::render
