#include "read_scene.h"

namespace HPS::render
{

Transparency readTransparency(SceneSources const&)
{
    return {};
}

} // namespace HPS::render
