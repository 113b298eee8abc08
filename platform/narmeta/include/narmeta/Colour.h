#pragma once

#include <optional>

namespace NarMeta
{

/// Channels from 0 to 255.
struct Colour {
    unsigned short red = 255;
    unsigned short green = 255;
    unsigned short blue = 255;

    bool operator==(Colour const&) const = default;
};

/// Something that may have a colour and, apart from it, an opacity (0 clear, 255 opaque).
class Coloured
{
public:
    void SetRGBColor(unsigned short red, unsigned short green, unsigned short blue)
    {
        colour_ = Colour{red, green, blue};
    }
    void SetColour(std::optional<Colour> colour) { colour_ = colour; }
    void SetAlphaColor(std::optional<unsigned short> alpha) { alpha_ = alpha; }

    /// False, and nothing written, if there is no colour.
    bool GetRGBColor(unsigned short& red, unsigned short& green, unsigned short& blue) const
    {
        if (!colour_) return false;
        red = colour_->red;
        green = colour_->green;
        blue = colour_->blue;
        return true;
    }
    /// False, and nothing written, if there is no opacity.
    bool GetAlphaColor(unsigned short& alpha) const
    {
        if (alpha_) alpha = *alpha_;
        return alpha_.has_value();
    }
    std::optional<Colour> const& GetColour() const { return colour_; }
    std::optional<unsigned short> const& GetAlpha() const { return alpha_; }

private:
    std::optional<Colour> colour_;
    std::optional<unsigned short> alpha_;
};

} // namespace NarMeta
