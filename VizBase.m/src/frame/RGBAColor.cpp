#include "RGBAColor.h"

#include <algorithm>
#include <array>
#include <cwchar>

namespace ZelVizBase
{

namespace
{

std::uint8_t clamped(unsigned short channel)
{
    return static_cast<std::uint8_t>(std::min<unsigned short>(channel, 255));
}

/// Cut towards zero; what is no number counts as 0.
std::uint8_t cut(double channel)
{
    return channel > 0 ? static_cast<std::uint8_t>(std::min(channel, 255.0)) : std::uint8_t{0};
}

constexpr std::array channels{&RGBAColor::r, &RGBAColor::g, &RGBAColor::b, &RGBAColor::a};

} // namespace

RGBAColor::RGBAColor(unsigned short red, unsigned short green, unsigned short blue, unsigned short alpha)
    : r(clamped(red)), g(clamped(green)), b(clamped(blue)), a(clamped(alpha))
{
}

RGBAColor::RGBAColor(float const* rgba)
{
    for (auto const channel : channels) this->*channel = cut(*rgba++ * 255.0F);
}

void RGBAColor::ToFloatArray(float* rgba) const
{
    for (auto const channel : channels) *rgba++ = static_cast<float>(this->*channel) / 255.0F;
}

std::uint32_t RGBAColor::ToInt32() const
{
    return std::uint32_t{a} << 24 | std::uint32_t{r} << 16 | std::uint32_t{g} << 8 | std::uint32_t{b};
}

std::int32_t RGBAColor::ToPositiveInt() const
{
    std::uint32_t const alpha = a & 0xFEU;
    return static_cast<std::int32_t>(alpha << 23 | (ToInt32() & 0xFFFFFFU));
}

void RGBAColor::ToHexString(std::wstring& text) const
{
    std::array<wchar_t, 9> digits{};
    std::swprintf(digits.data(), digits.size(), L"%8x", ToInt32());
    text = digits.data();
}

RGBAColor::operator HPS::RGBAColor() const
{
    std::array<float, 4> rgba{};
    ToFloatArray(rgba.data());
    return {rgba[0], rgba[1], rgba[2], rgba[3]};
}

RGBAColor operator*(double factor, RGBAColor const& color)
{
    RGBAColor result;
    for (auto const channel : channels) result.*channel = cut(factor * color.*channel);
    return result;
}

RGBAColor operator+(RGBAColor const& left, RGBAColor const& right)
{
    RGBAColor result;
    for (auto const channel : channels)
        result.*channel = clamped(static_cast<unsigned short>(left.*channel + right.*channel));
    return result;
}

} // namespace ZelVizBase
