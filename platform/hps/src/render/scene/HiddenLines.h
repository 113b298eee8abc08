#pragma once
#include <cstdint>

namespace HPS::render
{

/// How lines that stand behind faces are drawn in a picture of hidden lines.
struct HiddenLines {
    bool shown = false;
    bool faces = false;                      ///< faces are seen, not only what they hide is not
    bool ownColour = false;                  ///< `colour` counts; else a line keeps its own
    std::uint8_t colour[4] = {0, 0, 0, 255}; ///< red, green, blue, alpha
    float dimming = 0.5f;                    ///< share of their strength that they keep, 0 to 1
    float weight = 0;                        ///< in pixels; 0 for that of the line
    std::int16_t displacement = 0;           ///< of faces, in depth steps away from the viewer
};

} // namespace HPS::render
