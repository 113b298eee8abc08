#pragma once
#include "portfolio_record.h"
#include <cstdint>
#include <hps/ShapeKit.h>
#include <hps/TextKit.h>

namespace HPS::render
{

/// What holds for the texts of a segment on one path.
struct TextLook {
    TextAttributeData attributes; ///< all of them set but those of backgrounds
    std::uint8_t colour[4]{0, 0, 0, 255};
    std::uint8_t background[4]{255, 255, 255, 255};
    std::uint8_t backgroundRim[4]{0, 0, 0, 255};
    std::optional<ShapeKit> backgroundShape; ///< a rectangle where none is set
    scene::Palette palette;                  ///< that the texts' own colours count in
    bool shown = false, leaderLinesShown = false;

    RGBColor colourWithoutAlpha() const
    {
        return {float(colour[0]) / 255, float(colour[1]) / 255, float(colour[2]) / 255};
    }
};

} // namespace HPS::render
