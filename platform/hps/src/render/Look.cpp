#include "Look.h"
#include "merge.h"
#include "plain_colour.h"
#include "segment_record.h"
#include "stored_kit.h"
#include "surface_material.h"
#include <algorithm>
#include <array>
#include <cmath>
#include <numeric>
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
    CuttingSectionAttributeData cuts = CuttingSectionAttributeKit::GetDefault().data();
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
    lay(colour, sources.materials.*slot, sources.palette.get());
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
    stroke.flags &= ~std::uint32_t(SizeInWorld | SizeInWindow);
    stroke.inObject = units == Units::ObjectSpace;
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
    case Units::WindowRelative:
        stroke.size = size;
        stroke.flags |= SizeInWindow;
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

void put(std::uint8_t (&out)[4], RGBColor const& rgb, float alpha)
{
    out[0] = colourByte(rgb.red);
    out[1] = colourByte(rgb.green);
    out[2] = colourByte(rgb.blue);
    out[3] = colourByte(alpha);
}

TextLook textLook(LookSources const& sources)
{
    static TextAttributeData const fallback = TextAttributeKit::GetDefault().data();
    TextLook look;
    look.attributes = fallback;
    scene::merge(look.attributes, sources.texts);
    look.palette = sources.palette;
    Look::Stroke stroke;
    paint(stroke, &MaterialMappingData::text, sources);
    std::copy_n(stroke.colour, 4, look.colour);
    std::copy_n(stroke.colour, 4, look.backgroundRim);
    put(look.background, plainColour(sources.materials.window, sources.palette, {1, 1, 1}), 1);
    if (look.attributes.background)
        if (auto const* const shape = scene::findDefinition<Type::ShapeDefinition>(
                sources.portfolios, std::get<UTF8>(*look.attributes.background).Str()))
            look.backgroundShape = *shape;
    if (look.attributes.backgroundStyle)
        if (auto const* const style =
                scene::findStyle(sources.portfolios, look.attributes.backgroundStyle->Str())) {
            auto const& materials =
                scene::valuesOf<MaterialMappingData>(style->kit(scene::KitKind::MaterialMapping));
            Colour area{plainColour(sources.materials.window, sources.palette, {1, 1, 1}), 1};
            lay(area, materials.frontFace, sources.palette.get());
            put(look.background, area.rgb, area.alpha);
            Colour rim{look.colourWithoutAlpha(), 1};
            lay(rim, materials.line, sources.palette.get());
            lay(rim, materials.edge, sources.palette.get());
            put(look.backgroundRim, rim.rgb, rim.alpha);
        }
    return look;
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

/// Patterns, caps and joins.
void style(Look& look, LookSources const& sources)
{
    auto patternOf = [&](UTF8 const& name) {
        return name.Empty() ? nullptr : scene::findLinePattern(sources.portfolios, name.Str());
    };
    if (sources.lines.pattern) {
        auto const& [name, options] = *sources.lines.pattern;
        look.line.pattern = sources.strokes.intern(patternOf(name), options);
        LinePatternOptionsData const& ends = options.data();
        auto place = [&](auto const& end, ChainPlace where) {
            if (!end || end->modifier != LinePattern::Modifier::GlyphName) return;
            if (GlyphKit const* const glyph = scene::findGlyph(sources.portfolios, end->glyph.Str()))
                look.lineGlyphs.emplace_back(where, *glyph);
        };
        place(ends.startCap, ChainPlace::Start);
        place(ends.endCap, ChainPlace::End);
        place(ends.join, ChainPlace::Corner);
    }
    if (sources.edges.pattern)
        look.edge.pattern = sources.strokes.intern(patternOf(*sources.edges.pattern), {});
    look.line.styled = look.line.pattern != 0;
    look.edge.styled = look.edge.pattern != 0;
}

/// The marker shader knows the built-in glyphs upright; all others are drawings.
void chooseMarker(Look& look, std::string const& symbol, LookSources const& sources)
{
    look.markerRotation = sources.markers.glyphRotation.value_or(0.0f);
    bool const nicest = sources.markers.drawingPreference.value_or(Marker::DrawingPreference::Fastest) ==
                        Marker::DrawingPreference::Nicest;
    bool const known = std::any_of(glyphs.begin(), glyphs.end(),
                                   [&](NamedGlyph const& glyph) { return glyph.name == symbol; });
    auto const* const own = scene::findDefinition<Type::GlyphDefinition>(sources.portfolios, symbol);
    if (own != nullptr)
        look.markerGlyph = *own;
    else if (known && symbol != "dot" && (nicest || look.markerRotation != 0))
        look.markerGlyph = *scene::builtInGlyph(symbol);
}

void readContours(Look& look, LookSources const& sources)
{
    ContourLineData const& given = sources.contours;
    if (!given.visibility.value_or(false)) return;
    Look::Contours contours{given, {}};
    if (!contours.lines.positions)
        contours.lines.positions.emplace(ContourLine::Mode::Repeating, std::vector<float>{1, 0});
    auto const count = [](auto const& list) { return list ? list->size() : std::size_t(0); };
    std::size_t const weights = given.weights ? std::get<0>(*given.weights).size() : 0;
    // Lists of unlike lengths repeat each by itself; beyond this nobody tells the lines apart.
    constexpr std::size_t most = 64;
    std::size_t const styles = std::min(
        most, std::max<std::size_t>(1, std::lcm(std::lcm(std::max<std::size_t>(1, count(given.colors)),
                                                         std::max<std::size_t>(1, weights)),
                                                std::max<std::size_t>(1, count(given.patterns)))));
    for (std::size_t i = 0; i < styles; ++i) {
        Look::Stroke stroke = look.line;
        stroke.styled = false;
        stroke.pattern = 0;
        if (count(given.colors) > 0) put(stroke.colour, (*given.colors)[i % given.colors->size()], 1);
        if (weights > 0) {
            auto const& [sizes, units] = *given.weights;
            auto const unit = units.empty() ? Line::SizeUnits::ScaleFactor : units[i % units.size()];
            measure(stroke, std::optional(std::tuple(sizes[i % weights], unit)), defaults().lines.weight, 1);
        }
        if (count(given.patterns) > 0) {
            UTF8 const& name = (*given.patterns)[i % given.patterns->size()];
            stroke.pattern =
                sources.strokes.intern(scene::findLinePattern(sources.portfolios, name.Str()), {});
            stroke.styled = stroke.pattern != 0;
        }
        contours.strokes.push_back(stroke);
    }
    look.contours = std::move(contours);
}

/// What is seen of a cut. Caps go with the faces that they close, unless they are asked for in any case.
void readCut(Look& look, LookSources const& sources)
{
    using namespace CuttingSection;
    using Kinds = VisibilityKinds;
    CuttingSectionAttributeData const& fallback = defaults().cuts;
    auto value = [&](auto slot) { return sources.cuts.*slot ? *(sources.cuts.*slot) : *(fallback.*slot); };
    auto shows = [&](Kinds::Kind kind) {
        return sources.visibility.shows(kind, defaults().visibility.shows(kind, true));
    };
    CappingUsage const usage = value(&CuttingSectionAttributeData::cappingUsage);
    bool const wanted = usage == CappingUsage::On || (usage == CappingUsage::Visibility && look.facesShown);
    look.cut.faces = wanted && shows(Kinds::CutFaces);
    look.cut.edges = wanted && shows(Kinds::CutEdges);
    if (!look.cut.faces && !look.cut.edges) return;
    look.cut.level = value(&CuttingSectionAttributeData::cappingLevel);
    auto const [tolerance, units] = value(&CuttingSectionAttributeData::tolerance);
    look.cut.tolerance = tolerance;
    look.cut.toleranceInPercent = units == ToleranceUnits::Percent;
    bool const own = value(&CuttingSectionAttributeData::materialPreference) == MaterialPreference::Implicit;
    paint(look.cut.face, own ? &MaterialMappingData::frontFace : &MaterialMappingData::cutFace, sources);
    paint(look.cut.edge, &MaterialMappingData::cutEdge, sources);
    if (!shows(Kinds::FaceLights)) look.cut.face.flags |= Unlit;
    measure(look.cut.edge, sources.cuts.edgeWeight, fallback.edgeWeight, 1);
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
    look.edges.hardAngle = sources.edges.hardAngle.value_or(*defaults().edges.hardAngle);
    for (auto const& [kind, edge] : {std::pair{Kinds::GenericEdges, PlainEdge},
                                     {Kinds::AdjacentEdges, AdjacentEdge},
                                     {Kinds::PerimeterEdges, PerimeterEdge},
                                     {Kinds::HardEdges, HardEdge},
                                     {Kinds::MeshQuadEdges, QuadEdge},
                                     {Kinds::InteriorSilhouetteEdges, SilhouetteEdge},
                                     {Kinds::NonCulledEdges, NonCulledEdge}})
        if (shows(kind)) look.edges.kinds |= edge;
    readCut(look, sources);
    bool const texts = shows(Kinds::Text), leaders = shows(Kinds::LeaderLines);
    look.text.shown = texts;
    if (!look.anything()) return look;
    if (texts) look.text = textLook(sources);
    look.text.shown = texts;
    look.text.leaderLinesShown = leaders;

    paint(look.face, &MaterialMappingData::frontFace, sources);
    paint(look.edge, &MaterialMappingData::edge, sources);
    paint(look.line, &MaterialMappingData::line, sources);
    paint(look.marker, &MaterialMappingData::marker, sources);
    paint(look.vertex, &MaterialMappingData::vertex, sources);
    if (!shows(Kinds::FaceLights)) look.face.flags |= Unlit;

    measure(look.line, sources.lines.weight, defaults().lines.weight, 1);
    measure(look.edge, sources.edges.weight, defaults().edges.weight, 1);
    measure(look.marker, sources.markers.size, defaults().markers.size, 8);
    style(look, sources);
    UTF8 const& symbol = sources.markers.symbol ? *sources.markers.symbol : *defaults().markers.symbol;
    look.marker.flags |= glyphParts(symbol.Str()) << glyphShift;
    look.vertex.size = look.marker.size;
    look.vertex.inObject = look.marker.inObject;
    look.vertex.flags = look.marker.flags;
    chooseMarker(look, symbol.Str(), sources);

    look.cullBack = sources.culling.backFace.value_or(false);
    if (auto const& displacement = sources.drawing.faceDisplacement)
        if (auto const [on, buckets] = *displacement; on)
            look.displacement = std::int16_t(std::clamp(buckets, -30000, 30000));
    if (sources.drawing.overrideInternalColor) {
        VisibilityData const& overridden = sources.drawing.overrideInternalColor->data();
        look.plainFaces = overridden.shows(Kinds::Faces, false);
        look.plainEdges = overridden.shows(Kinds::GenericEdges, false);
        look.plainVertices = overridden.shows(Kinds::Vertices, false);
    }
    look.fineness = finenessOf(sources.curves, sources.surfaces, sources.cylinders, sources.spheres);
    readContours(look, sources);
    lookEffects(look, sources);
    return look;
}

} // namespace HPS::render
