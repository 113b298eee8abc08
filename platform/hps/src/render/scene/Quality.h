#pragma once
#include <cstdint>

namespace HPS::render
{

/// Every dear step asks it before it starts. In the order in which effects are given up while somebody
/// interacts with a picture that takes too long, dearest for the eye last.
enum class Quality : std::uint8_t {
    Resting,     ///< everything
    Interactive, ///< without what costs most; the picture at rest comes when the interaction ends
};

} // namespace HPS::render
