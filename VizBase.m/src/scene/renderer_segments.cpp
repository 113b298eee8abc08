// Segments that group geometry by colour, material or persistent id.

#include "ZELRenderer.h"

#include "model_color.h"

#include <cstring>

namespace ZelVizBase
{

namespace
{

constexpr auto diffuse = HPS::Material::Color::Channel::DiffuseColor;

/// Gives a new colour segment its colour and lets it win over colours inside the geometry.
using Dress = void (*)(HPS::SegmentKey& segment, HPS::RGBAColor const& color);

void overrideColor(HPS::SegmentKey& segment, HPS::VisibilityKit const& kind)
{
    segment.GetDrawingAttributeControl().SetOverrideInternalColor(kind);
}

HPS::VisibilityKit nothing()
{
    return HPS::VisibilityKit().SetEverything(false);
}

void dressFaces(HPS::SegmentKey& segment, HPS::RGBAColor const& color)
{
    segment.GetMaterialMappingControl().SetFaceColor(color, diffuse);
    overrideColor(segment, nothing().SetFaces(true));
}

void dressLines(HPS::SegmentKey& segment, HPS::RGBAColor const& color)
{
    segment.GetMaterialMappingControl().SetLineColor(color);
    overrideColor(segment, nothing().SetLines(true));
}

void dressMarkers(HPS::SegmentKey& segment, HPS::RGBAColor const& color)
{
    segment.GetMaterialMappingControl().SetMarkerColor(color);
    overrideColor(segment, nothing().SetMarkers(true));
}

void dressNothing(HPS::SegmentKey& segment, HPS::RGBAColor const&)
{
    overrideColor(segment, nothing());
}

template <class Prepare>
HPS::SegmentKey findOrMake(HPS::SegmentKey& parent, std::string const& name, Prepare prepare)
{
    HPS::SegmentKey segment = parent.Subsegment(name.c_str(), false);
    if (segment.Type() != HPS::Type::None) return segment;
    segment = parent.Subsegment(name.c_str(), true);
    prepare(segment);
    return segment;
}

HPS::SegmentKey channelSegment(HPS::SegmentKey& parent, char const* prefix, ModelColor const& color,
                               Dress dress)
{
    std::string name = prefix;
    for (unsigned short const channel : {color.Red, color.Green, color.Blue, color.Alpha})
        name += std::to_string(channel);
    return findOrMake(parent, name, [&](HPS::SegmentKey& segment) { dress(segment, color.Rgba()); });
}

} // namespace

HPS::SegmentKey ZELRenderer::getNoColorSegment(HPS::SegmentKey& parent)
{
    return parent.Subsegment("nocolor", true);
}

HPS::SegmentKey ZELRenderer::getBodyColorSegment(HPS::SegmentKey& parent, unsigned short red,
                                                 unsigned short green, unsigned short blue,
                                                 unsigned short alpha)
{
    return channelSegment(parent, "b", {red, green, blue, alpha}, dressFaces);
}

HPS::SegmentKey ZELRenderer::getFaceColorSegment(HPS::SegmentKey& parent, unsigned short red,
                                                 unsigned short green, unsigned short blue,
                                                 unsigned short alpha)
{
    return channelSegment(parent, "f", {red, green, blue, alpha}, dressFaces);
}

HPS::SegmentKey ZELRenderer::getEdgeColorSegment(HPS::SegmentKey& parent, unsigned short red,
                                                 unsigned short green, unsigned short blue,
                                                 unsigned short alpha)
{
    return channelSegment(parent, "e", {red, green, blue, alpha}, dressLines);
}

HPS::SegmentKey ZELRenderer::getVertexColorSegment(HPS::SegmentKey& parent, unsigned short red,
                                                   unsigned short green, unsigned short blue,
                                                   unsigned short alpha)
{
    return channelSegment(parent, "v", {red, green, blue, alpha}, dressMarkers);
}

HPS::SegmentKey ZELRenderer::getFaceMaterialSegment(HPS::SegmentKey& parent, int paletteIndex)
{
    return findOrMake(parent, "Fa_" + std::to_string(paletteIndex), [&](HPS::SegmentKey& segment) {
        segment.GetMaterialMappingControl().SetFaceMaterialByIndex(static_cast<float>(paletteIndex));
        overrideColor(segment, nothing().SetFaces(true));
    });
}

HPS::SegmentKey ZELRenderer::getColorSegment(HPS::SegmentKey& parent, char const* kind, double const* rgba)
{
    struct Kind {
        char const* Word;
        char const* Prefix;
        Dress DressSegment;
    };
    static constexpr Kind kinds[] = {
        {"face", "f", dressFaces}, {"edge", "e", dressLines}, {"vertex", "v", dressMarkers}};
    Kind chosen{"", "", dressNothing};
    for (Kind const& known : kinds) {
        if (std::strcmp(known.Word, kind) == 0) chosen = known;
    }
    std::string name = chosen.Prefix;
    for (int i = 0; i < 4; ++i) name += std::to_string(static_cast<int>(rgba[i] * 100));
    HPS::RGBAColor const color(static_cast<float>(rgba[0]), static_cast<float>(rgba[1]),
                               static_cast<float>(rgba[2]), static_cast<float>(rgba[3]));
    return findOrMake(parent, name, [&](HPS::SegmentKey& segment) { chosen.DressSegment(segment, color); });
}

HPS::SegmentKey ZELRenderer::getPIDSegment(HPS::SegmentKey& parent, unsigned long long pid)
{
    return findOrMake(parent, std::to_string(pid), [](HPS::SegmentKey&) {});
}

} // namespace ZelVizBase
