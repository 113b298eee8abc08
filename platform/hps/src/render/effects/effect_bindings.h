#pragma once

namespace HPS::render
{

/// Texture units of the effects' shaders.
enum EffectUnit : unsigned { PictureUnit, DepthUnit, OpenSkyUnit, BlurredUnit, GlowUnit, WithoutUnit = 7 };

} // namespace HPS::render
