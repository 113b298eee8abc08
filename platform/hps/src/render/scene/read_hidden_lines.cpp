#include "read_scene.h"
#include <algorithm>
#include <cmath>
#include <hps/HiddenLineAttributeKit.h>

namespace HPS::render
{
namespace
{

std::uint8_t byte(float value)
{
    return value > 0 ? std::uint8_t(std::lround(std::min(value, 1.0f) * 255.0f)) : std::uint8_t(0);
}

} // namespace

HiddenLines readHiddenLines(SceneSources const& sources)
{
    auto const& set = sources.view.get<HiddenLineAttributeData>();
    HiddenLines lines;
    lines.shown = set.visibility.value_or(false);
    lines.faces = set.renderFaces.value_or(false);
    if (set.color) {
        lines.ownColour = true;
        std::uint8_t const colour[] = {byte(set.color->red), byte(set.color->green), byte(set.color->blue),
                                       byte(set.color->alpha)};
        std::copy_n(colour, 4, lines.colour);
    }
    lines.dimming = std::clamp(set.dimFactor.value_or(0.5f), 0.0f, 1.0f);
    if (set.weight) {
        auto const [weight, units] = *set.weight;
        bool const pixels = units == Line::SizeUnits::ScaleFactor || units == Line::SizeUnits::Pixels;
        constexpr float pixelsPerPoint = 96.0f / 72.0f;
        if (pixels) lines.weight = weight;
        if (units == Line::SizeUnits::Points) lines.weight = weight * pixelsPerPoint;
        if (!(lines.weight >= 0 && lines.weight < 1e6f)) lines.weight = 0;
    }
    lines.displacement = std::int16_t(std::clamp(set.faceDisplacement.value_or(0), -30000.0f, 30000.0f));
    return lines;
}

} // namespace HPS::render
