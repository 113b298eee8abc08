#pragma once

#include "hps_api.h"

namespace ZelVizBase
{

/// A colour as the model gives it: channels from 0 to 255, each part present or not, 255 where absent.
struct ModelColor {
    unsigned short Red = 255;
    unsigned short Green = 255;
    unsigned short Blue = 255;
    unsigned short Alpha = 255;
    bool HasRgb = false;
    bool HasAlpha = false;

    /// `node` is the node whose attributes decide, for those sources that ask for one.
    template <class Source, class... Node> void ReadRgb(Source const& source, Node const&... node)
    {
        HasRgb = source.GetRGBColor(node..., Red, Green, Blue);
    }
    template <class Source, class... Node> void ReadAlpha(Source const& source, Node const&... node)
    {
        HasAlpha = source.GetAlphaColor(node..., Alpha);
    }

    static float Unit(unsigned short channel) { return static_cast<float>(channel / 255.0); }
    HPS::RGBAColor Rgba() const { return {Unit(Red), Unit(Green), Unit(Blue), Unit(Alpha)}; }
    HPS::RGBAColor Opaque() const { return {Unit(Red), Unit(Green), Unit(Blue), 1.0F}; }
};

} // namespace ZelVizBase
