// Cameras that frame what can be seen.
#pragma once
#include <hps/CameraKit.h>

namespace HPS::render
{
class VisibleExtent;
}

namespace HPS
{

/// A camera that looks from the front, the right and the top of a model with these axes at the origin.
CameraKit defaultCamera(Vector const& up, Vector const& front);

/// `camera` moved along its own direction so that `extent`, not empty, fills the field with a small margin,
/// in the middle. Aspects that the camera lacks come from `defaultCamera`; a perspective keeps the angle of
/// its larger side.
CameraKit fittedCamera(CameraKit const& camera, render::VisibleExtent const& extent);

} // namespace HPS
