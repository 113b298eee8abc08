#pragma once
#include <compare>
#include <cstdint>
#include <hps/enumerations.h>

namespace HPS::scene
{
struct NetState;
}

namespace HPS::render
{

/// When and over what something is drawn, whatever it is.
struct Placing {
    std::int16_t order = 0; ///< drawn later the higher it is, among what is opaque
    Drawing::Overlay overlay = Drawing::Overlay::None;
    std::uint16_t nearest = 0, farthest = 65535; ///< part of the depth buffer, in 65535ths
    std::int16_t displacement = 0;               ///< in depth steps, away from the viewer
    std::uint16_t smallest = 0;                  ///< pixels on the screen below which it is left out

    friend auto operator<=>(Placing const&, Placing const&) = default;
};

Placing placingOf(scene::NetState const& state);

} // namespace HPS::render
