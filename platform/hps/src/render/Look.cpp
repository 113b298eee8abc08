#include "Look.h"
#include "surface_material.h"
#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>

namespace HPS::render
{
namespace
{

/// What is drawn where nothing is set.
struct Defaults {
    MaterialMappingData materials = MaterialMappingKit::GetDefault().data();
    VisibilityData visibility = VisibilityKit::GetDefault().data();
    LineAttributeData lines = LineAttributeKit::GetDefault().data();
    EdgeAttributeData edges = EdgeAttributeKit::GetDefault().data();
    MarkerAttributeData markers = MarkerAttributeKit::GetDefault().data();
};
Defaults const& defaults()
{
    static Defaults const values;
    return values;
}

/// Inherited colour: absent parts come from the default of the kind.
struct Colour {
    RGBColor rgb;
    float alpha = 1;
};

void lay(Colour& colour, std::optional<RGBColor> const& rgb, std::optional<float> const& alpha)
{
    if (rgb) colour.rgb = *rgb;
    if (alpha) colour.alpha = *alpha;
}

void lay(Colour& colour, MaterialData const& material)
{
    lay(colour, material.diffuseColor, material.diffuseAlpha);
}

void lay(Colour& colour, std::optional<ComplexMaterial> const& material, MaterialKitArray const* palette)
{
    if (!material) return;
    if (material->index)
        if (auto const found = paletteMaterial(palette, *material->index)) lay(colour, *found);
    lay(colour, material->values());
}

void lay(Colour& colour, std::optional<SimpleMaterial> const& material, MaterialKitArray const* palette)
{
    if (!material) return;
    if (material->index)
        if (auto const found = paletteMaterial(palette, *material->index)) lay(colour, *found);
    lay(colour, material->color, material->alpha);
}

template <class Slot>
void paint(Look::Stroke& stroke, Slot MaterialMappingData::*slot, LookSources const& sources)
{
    Colour colour;
    lay(colour, defaults().materials.*slot, nullptr);
    lay(colour, sources.materials.*slot, sources.palette);
    stroke.colour[0] = colourByte(colour.rgb.red);
    stroke.colour[1] = colourByte(colour.rgb.green);
    stroke.colour[2] = colourByte(colour.rgb.blue);
    stroke.colour[3] = colourByte(colour.alpha);
}

/// `whole` is the size in pixels of a factor of 1. Lines, edges and markers number their units alike.
template <class Units> void measure(Look::Stroke& stroke, std::optional<std::tuple<float, Units>> const& set,
                                    std::optional<std::tuple<float, Units>> const& fallback, float whole)
{
    auto const& [size, units] = set ? *set : *fallback;
    constexpr float pixelsPerPoint = 96.0f / 72.0f;
    stroke.flags &= ~std::uint32_t(SizeInWorld);
    switch (units) {
    case Units::ScaleFactor:
        stroke.size = size * whole;
        break;
    case Units::ObjectSpace:
    case Units::WorldSpace:
        stroke.size = size;
        stroke.flags |= SizeInWorld;
        break;
    case Units::SubscreenRelative:
    case Units::WindowRelative: // a share of a window of common height
        stroke.size = size * 720.0f;
        break;
    case Units::Points:
        stroke.size = size * pixelsPerPoint;
        break;
    case Units::Pixels:
        stroke.size = size;
        break;
    }
    if (!std::isfinite(stroke.size) || stroke.size < 0) stroke.size = 1;
}

struct NamedGlyph {
    std::string_view name;
    std::uint32_t parts;
};
constexpr std::array glyphs{
    NamedGlyph{"dot", Disc},
    NamedGlyph{"solid circle", Disc},
    NamedGlyph{"circle", Ring},
    NamedGlyph{"circle with circle", Ring | SmallRing},
    NamedGlyph{"circle with dot", Ring | SmallDisc},
    NamedGlyph{"circle with times", Ring | Times},
    NamedGlyph{"plus", Plus},
    NamedGlyph{"times", Times},
    NamedGlyph{"splat", Plus | Times},
    NamedGlyph{"box", Square},
    NamedGlyph{"Box", Square},
    NamedGlyph{"solid box", SolidSquare},
    NamedGlyph{"triangle up", Triangle},
    NamedGlyph{"solid triangle up", SolidTriangle},
    NamedGlyph{"triangle down", Triangle | UpsideDown},
    NamedGlyph{"solid triangle down", SolidTriangle | UpsideDown},
    NamedGlyph{"diamond", Diamond},
    NamedGlyph{"slant right", RisingStroke},
    NamedGlyph{"slant left", FallingStroke},
};

std::uint32_t glyphParts(std::string_view name)
{
    auto const found =
        std::find_if(glyphs.begin(), glyphs.end(), [&](NamedGlyph const& g) { return g.name == name; });
    return found != glyphs.end() ? found->parts : std::uint32_t(Disc);
}

} // namespace

Look lookOf(LookSources const& sources)
{
    using Kinds = VisibilityKinds;
    auto shows = [&](Kinds::Kind kind) {
        return sources.visibility.shows(kind, defaults().visibility.shows(kind, true));
    };
    Look look;
    look.facesShown = shows(Kinds::Faces);
    look.linesShown = shows(Kinds::Lines);
    look.markersShown = shows(Kinds::Markers);
    look.verticesShown = shows(Kinds::Vertices);
    look.edges = {shows(Kinds::GenericEdges), shows(Kinds::PerimeterEdges), shows(Kinds::HardEdges)};
    if (!look.anything()) return look;

    paint(look.face, &MaterialMappingData::frontFace, sources);
    paint(look.edge, &MaterialMappingData::edge, sources);
    paint(look.line, &MaterialMappingData::line, sources);
    paint(look.marker, &MaterialMappingData::marker, sources);
    paint(look.vertex, &MaterialMappingData::vertex, sources);
    if (!shows(Kinds::FaceLights)) look.face.flags |= Unlit;

    measure(look.line, sources.lines.weight, defaults().lines.weight, 1);
    measure(look.edge, sources.edges.weight, defaults().edges.weight, 1);
    measure(look.marker, sources.markers.size, defaults().markers.size, 8);
    look.vertex.size = look.marker.size;
    UTF8 const& symbol = sources.markers.symbol ? *sources.markers.symbol : *defaults().markers.symbol;
    std::uint32_t const glyph = glyphParts(symbol.Str()) << glyphShift;
    look.marker.flags |= glyph;
    look.vertex.flags = look.marker.flags;

    look.cullBack = sources.culling.backFace.value_or(false);
    if (auto const& displacement = sources.drawing.faceDisplacement)
        if (auto const [on, buckets] = *displacement; on)
            look.displacement = std::int16_t(std::clamp(buckets, -30000, 30000));
    if (sources.drawing.overrideInternalColor)
        look.plainFaces = sources.drawing.overrideInternalColor->data().shows(Kinds::Faces, false);
    return look;
}

} // namespace HPS::render
