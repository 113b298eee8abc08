// Cameras that frame a box.
#pragma once
#include <hps/CameraKit.h>
#include <hps/Cuboid.h>
#include <utility>

namespace HPS
{

/// A camera that looks from the front, the right and the top of a model with these axes at the origin.
CameraKit defaultCamera(Vector const& up, Vector const& front);

/// `camera` moved along its own direction so that `box` fills the field with a small margin. Aspects that the
/// camera lacks come from `defaultCamera`; a perspective keeps its angle.
CameraKit fittedCamera(CameraKit const& camera, SimpleCuboid const& box);

} // namespace HPS
