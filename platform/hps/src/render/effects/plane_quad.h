#pragma once
#include "Viewing.h"

namespace HPS::render
{

/// Paints a rectangle of the scene with the program that is current, which has to go by plane_vertex.glsl. It
/// is hidden by what lies before it, is never cut off by the depth range, and writes no depth.
void paintInPlane(std::array<Vec3, 4> const& corners, Viewing const& view);

} // namespace HPS::render
