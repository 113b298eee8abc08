#pragma once
#include "linear.h"

namespace HPS::render
{

struct Camera {
    Vec3 position{0, 0, 1};
    Vec3 target;
    Vec3 up{0, 1, 0};
    double fieldWidth = 2, fieldHeight = 2; ///< at the target, in world units; the window shows at least this
    bool perspective = false;

    bool operator==(Camera const&) const = default;
};

} // namespace HPS::render
