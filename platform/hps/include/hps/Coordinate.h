#pragma once
#include <cstdint>
#include <hps/Rectangle.h>

namespace HPS
{

// The coordinates that a point may be given in, from what is drawn to the screen.
namespace Coordinate
{
enum class Space : std::uint32_t {
    Object = 0, // of the path's leaf
    World = 1,  // above the path's root
    Camera = 2, // x to the right, y up, z to the viewer, counted from the camera's target, in world units
    // x from -1 at the left to 1 at the right, y from -1 at the bottom to 1 at the top. z is 0 at the
    // camera's target and rises to the viewer.
    Window = 3,
    Pixel = 4,       // x and y in pixels from the top left corner, y downwards; z as in Window
    InnerWindow = 5, // as Window, within the part of the window that the path's subwindow takes
    InnerPixel = 6   // as Pixel, within that part
};
} // namespace Coordinate

} // namespace HPS
