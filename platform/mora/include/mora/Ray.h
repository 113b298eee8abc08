#pragma once

namespace ZELVizCore
{

/// Pick ray in world coordinates.
struct Ray {
    float origin[3] = {0, 0, 0};
    float direction[3] = {0, 0, 1}; ///< unit length as a camera makes it
    float aperture = 0;             ///< half width of the pick square at the origin, world units
    bool perspective = false;       ///< the width grows with the distance from the eye
};

} // namespace ZELVizCore
