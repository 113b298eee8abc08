#pragma once
#include "Viewing.h"

namespace HPS::render
{

/// What a light from infinitely far sees of the box around everything that takes shadows, as a square.
/// `direction` is the way of the light in the world. With a `view` the square holds no more than what of the
/// box can be seen from there. It moves and grows in steps, so that most small moves of the view leave it as
/// it is.
Camera shadowCamera(Vec3 const& direction, Box const& receivers, Viewing const* view);

/// From the view coordinates of `view` to x, y across a map seen from `light` and z into its depth, each from
/// 0 to 1 within the map. Homogeneous.
Mat4 viewToMap(Viewing const& view, Viewing const& light);

/// From view coordinates to the world.
Mat4 viewToWorld(Viewing const& view);
/// From the world to view coordinates.
Mat4 worldToView(Viewing const& view);

} // namespace HPS::render
