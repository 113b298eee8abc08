#pragma once

#include <array>
#include <optional>

namespace ZelVizBase
{

using Triple = std::array<float, 3>;

/// The way from the front view to another one: the eye circles the target, right-handed about `axis`.
struct StandardTurn {
    Triple axis{};
    double degrees = 0;
    std::optional<Triple> up; ///< none: that of the front view stays
};

/// Where the standard views lie for models of one orientation.
struct StandardViews {
    char const* cameraName;
    std::size_t towardsEye; ///< the coordinate along which the front view looks: 0 x, 1 y, 2 z
    Triple up;
    StandardTurn back, right, left, top, bottom, drawing;
    Triple isometricFirst,
        isometricSecond; ///< axes of two turns by 45 degrees; the second one tilts `up` too
};

inline constexpr float halfRoot = 0.70710678F; ///< 1 / sqrt(2)

inline constexpr StandardViews viewsWithYUp{
    .cameraName = "HPSCameraYUp",
    .towardsEye = 2,
    .up = {0, 1, 0},
    .back = {{0, 1, 0}, 180, {}},
    .right = {{0, 1, 0}, 90, {}},
    .left = {{0, 1, 0}, -90, {}},
    .top = {{1, 0, 0}, -90, Triple{0, 0, -1}},
    .bottom = {{1, 0, 0}, 90, Triple{0, 0, 1}},
    .drawing = {{0, 0, 1}, 180, {}},
    .isometricFirst = {0, 1, 0},
    .isometricSecond = {-halfRoot, 0, halfRoot},
};

inline constexpr StandardViews viewsWithZUp{
    .cameraName = "HPSCameraZUp",
    .towardsEye = 0,
    .up = {0, 0, 1},
    .back = {{0, 0, 1}, 180, Triple{0, 0, 1}},
    .right = {{0, 0, 1}, 90, {}},
    .left = {{0, 0, 1}, -90, {}},
    .top = {{0, 1, 0}, -90, Triple{-1, 0, 0}},
    .bottom = {{0, 1, 0}, 90, Triple{1, 0, 0}},
    .drawing = {{0, 1, 0}, -90, Triple{0, 1, 0}},
    .isometricFirst = {0, 0, 1},
    .isometricSecond = {halfRoot, -halfRoot, 0},
};

} // namespace ZelVizBase
