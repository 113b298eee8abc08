#pragma once
#include "Scene.h"

namespace HPS::render
{

/// The scene with all that is too dear for a picture that somebody waits for left out or made cheaper; as it
/// is for a picture at rest. The one place that settles what steps aside.
Scene atQuality(Scene const& scene);

} // namespace HPS::render
