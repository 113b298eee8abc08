#pragma once
#include <array>

namespace MoraCore
{

/// A button that is dragged, and what is held with it.
struct MouseGesture {
    enum class Button { Left, Middle, Right };

    Button button = Button::Left;
    bool shift = false;
    bool control = false;
};

/// Which gestures move the camera. The rest is alike in all styles: the wheel zooms, a left click selects,
/// with Control it adds and takes away, a left drag with Shift draws a box, and a right click opens a menu.
struct MouseStyle {
    char const* word; ///< for files
    char const* name; ///< for users
    MouseGesture orbit, pan, zoom;
};

/// The first one is what a view starts with.
inline constexpr std::array<MouseStyle, 4> MouseStyles = [] {
    using enum MouseGesture::Button;
    return std::array<MouseStyle, 4>{{
        {"left-orbits", "Left button orbits", {Left}, {Right}, {Middle}},
        {"middle-orbits",
         "Middle button orbits",
         {Middle},
         {.button = Middle, .control = true},
         {.button = Middle, .shift = true}},
        {"middle-pans",
         "Middle button pans",
         {.button = Middle, .shift = true},
         {Middle},
         {.button = Middle, .control = true}},
        {"right-orbits", "Right button orbits", {Right}, {Middle}, {.button = Right, .shift = true}},
    }};
}();

} // namespace MoraCore
