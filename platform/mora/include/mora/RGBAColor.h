#pragma once
#include <cstdint>

namespace ZELVizCore
{

/// Colour of four bytes, each 0 to 255; alpha 255 is opaque. White and opaque when default-made.
struct RGBAColor {
    std::uint8_t r = 255;
    std::uint8_t g = 255;
    std::uint8_t b = 255;
    std::uint8_t a = 255;

    friend bool operator==(RGBAColor const&, RGBAColor const&) = default;
};

} // namespace ZELVizCore
