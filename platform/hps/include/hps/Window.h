// The words of windows and pictures. The numbers are fixed.
#pragma once
#include <cstdint>

namespace HPS
{

namespace Window
{
enum class Driver : std::uint32_t { Default3D = 0, OpenGL = 1, OpenGL2 = 2, DirectX11 = 3 };

// How much of a picture is made anew.
enum class UpdateType : std::uint32_t {
    Default = 0,     // what changed; no picture is drawn if nothing did
    Complete = 1,    // what changed, and the whole picture in any case
    Refresh = 2,     // what changed; the picture is shown again in any case
    CompileOnly = 3, // what changed, without a picture
    Exhaustive = 4   // everything from the ground up
};
} // namespace Window

namespace Rendering
{
enum class Mode : std::uint32_t { Gouraud = 0, Flat = 2, Phong = 4, HiddenLine = 7, Wireframe = 8 };
}

} // namespace HPS
