#pragma once

namespace HPS
{

// Channels from 0 to 1.
struct RGBColor {
    float red = 0;
    float green = 0;
    float blue = 0;

    constexpr RGBColor() = default;
    constexpr RGBColor(float r, float g, float b) : red(r), green(g), blue(b) {}
    explicit constexpr RGBColor(float grey) : red(grey), green(grey), blue(grey) {}

    static constexpr RGBColor Black() { return {0, 0, 0}; }
    static constexpr RGBColor White() { return {1, 1, 1}; }
    static constexpr RGBColor Red() { return {1, 0, 0}; }
    static constexpr RGBColor Green() { return {0, 1, 0}; }
    static constexpr RGBColor Blue() { return {0, 0, 1}; }
    friend constexpr bool operator==(RGBColor const&, RGBColor const&) = default;
};

// Channels from 0 to 1; alpha 1 is opaque.
struct RGBAColor {
    float red = 0;
    float green = 0;
    float blue = 0;
    float alpha = 1;

    constexpr RGBAColor() = default;
    constexpr RGBAColor(float r, float g, float b, float a = 1) : red(r), green(g), blue(b), alpha(a) {}
    constexpr RGBAColor(RGBColor const& color, float a = 1)
        : red(color.red), green(color.green), blue(color.blue), alpha(a)
    {
    }

    constexpr RGBColor RGB() const { return {red, green, blue}; }
    static constexpr RGBAColor Black() { return {0, 0, 0, 1}; }
    static constexpr RGBAColor White() { return {1, 1, 1, 1}; }
    friend constexpr bool operator==(RGBAColor const&, RGBAColor const&) = default;
};

} // namespace HPS
