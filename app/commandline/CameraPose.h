#pragma once

#include "ViewChoice.h"

namespace zelview
{

/// What a camera has to enclose, in the model's unit.
struct SceneBounds {
    Triple center{0, 0, 0};
    float radius = 1; ///< half the diagonal of the box around all that is shown
};

struct CameraPose {
    Triple position;
    Triple target;
    Triple up;
    float fieldOfView; ///< degrees over the height of the picture
    bool orthographic;

    /// Height of what is seen at the target, in the model's unit.
    float fieldHeight() const;
};

inline constexpr float DefaultFieldOfView = 45; ///< degrees

/// The camera that a choice asks for, the same for a window and for a picture without one. What was not said
/// follows from the isometric view, from the bounds and from what was said. Unless the choice gives a
/// position, or if it asks for `fit`, the camera stands where the sphere of the bounds fills the picture.
/// @param aspect width of the picture over its height
/// @param yUp the model's Y axis points upwards; otherwise its Z axis does
CameraPose cameraPose(ViewChoice const& choice, SceneBounds const& bounds, float aspect, bool yUp);

} // namespace zelview
