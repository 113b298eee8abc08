#pragma once

#include <cstdint>
#include <string>

#include "hps_api.h"

namespace ZelVizBase
{

/// A colour of four bytes, 0 to 255, for users of the library. Alpha 255 is opaque.
struct RGBAColor {
    std::uint8_t r = 255;
    std::uint8_t g = 255;
    std::uint8_t b = 255;
    std::uint8_t a = 255;

    /// White and opaque.
    RGBAColor() = default;
    /// A channel above 255 becomes 255.
    RGBAColor(unsigned short red, unsigned short green, unsigned short blue, unsigned short alpha);
    /// Four channels of 0 to 1 in the order red, green, blue, alpha: cut to whole bytes, then clamped; what
    /// is no number counts as 0.
    explicit RGBAColor(float const* rgba);

    friend bool operator==(RGBAColor const&, RGBAColor const&) = default;

    // Each channel is 0 or 255, alpha 0: a named colour is see-through until it is given an alpha.
    static RGBAColor Black() { return {0, 0, 0, 0}; }
    static RGBAColor Red() { return {255, 0, 0, 0}; }
    static RGBAColor Green() { return {0, 255, 0, 0}; }
    static RGBAColor Blue() { return {0, 0, 255, 0}; }
    static RGBAColor Cyan() { return {0, 255, 255, 0}; }
    static RGBAColor Yellow() { return {255, 255, 0, 0}; }
    static RGBAColor Magenta() { return {255, 0, 255, 0}; }
    static RGBAColor White() { return {255, 255, 255, 0}; }

    bool IsOpaque() const { return a > 254; }
    /// Writes four channels of 0 to 1.
    void ToFloatArray(float* rgba) const;
    /// From the highest byte to the lowest: alpha, red, green, blue.
    std::uint32_t ToInt32() const;
    /// The same with half the alpha, so that the number is never negative.
    std::int32_t ToPositiveInt() const;
    /// `ToInt32` in lower-case hexadecimal, blanks on the left up to eight characters.
    void ToHexString(std::wstring& text) const;
    operator HPS::RGBAColor() const;
};

/// All four channels, cut towards zero and clamped to 0 to 255.
RGBAColor operator*(double factor, RGBAColor const& color);
/// Channel by channel, 255 at most.
RGBAColor operator+(RGBAColor const& left, RGBAColor const& right);

} // namespace ZelVizBase
