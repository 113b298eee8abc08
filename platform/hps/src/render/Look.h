#pragma once
#include "DrawList.h"
#include "MeshBuilder.h"
#include "TextLook.h"
#include "drawn_shapes.h"
#include <hps/CullingKit.h>
#include <hps/CuttingSectionAttributeKit.h>
#include <hps/Definition.h>
#include <hps/DrawingAttributeKit.h>
#include <hps/EdgeAttributeKit.h>
#include <hps/LineAttributeKit.h>
#include <hps/MarkerAttributeKit.h>
#include <hps/MaterialMappingKit.h>
#include <hps/TransparencyKit.h>
#include <hps/VisibilityKit.h>
#include <hps/VisualEffectsKit.h>

namespace HPS::render
{

/// How the contents of a segment are drawn on one path: net attributes, worked out to what the device takes.
struct Look {
    struct Stroke {
        std::uint8_t colour[4] = {0, 0, 0, 255};
        float size = 1;
        std::uint32_t flags = 0;
        bool inObject = false;     ///< `size` counts in units of the object
        std::uint32_t pattern = 0; ///< row of the stroke table
        bool styled = false;       ///< has a pattern, or caps or a join of its own
        bool transparent() const { return colour[3] < 255; }
    };
    bool facesShown = false, linesShown = false, markersShown = false, verticesShown = false;
    bool plainFaces = false; ///< the shells' own colours give way
    bool cullBack = false;
    std::int16_t displacement = 0;
    EdgeChoice edges;
    struct Cut {
        bool faces = false, edges = false;
        CuttingSection::CappingLevel level = CuttingSection::CappingLevel::Segment;
        float tolerance = 0; ///< in units of the segment, or in percent of the body's extent
        bool toleranceInPercent = false;
        Stroke face, edge;
    };
    Cut cut; ///< what is seen where sections cut
    Stroke face, edge, line, marker, vertex;
    /// Drawings at places of lines, and those that stand for markers that the marker shader does not know.
    std::vector<std::pair<ChainPlace, GlyphKit>> lineGlyphs;
    std::optional<GlyphKit> markerGlyph;
    float markerRotation = 0; ///< degrees
    Fineness fineness;
    bool plainEdges = false, plainVertices = false; ///< as `plainFaces`
    /// Contour lines, if they are shown: what each number of line looks like.
    struct Contours {
        ContourLineData lines;
        std::vector<Stroke> strokes;
    };
    std::optional<Contours> contours;
    TextLook text;

    Manner manner; ///< but for the numbers of the two below
    std::optional<PlaneShadow> planeShadow;
    std::optional<PlaneReflection> reflection;

    bool anything() const
    {
        return facesShown || linesShown || markersShown || verticesShown || edges.any() || text.shown ||
               cut.faces || cut.edges;
    }
};

/// The net attributes that a look is made of; what is not set takes its default.
struct LookSources {
    VisibilityData const& visibility;
    MaterialMappingData const& materials;
    LineAttributeData const& lines;
    EdgeAttributeData const& edges;
    MarkerAttributeData const& markers;
    DrawingAttributeData const& drawing;
    CullingData const& culling;
    CuttingSectionAttributeData const& cuts;
    TransparencyData const& transparency;
    VisualEffectsData const& effects;
    TextAttributeData const& texts;
    CurveAttributeData const& curves;
    NURBSSurfaceAttributeData const& surfaces;
    CylinderAttributeData const& cylinders;
    SphereAttributeData const& spheres;
    ContourLineData const& contours;
    scene::Palette const& palette; ///< that material indices count in; null if there is none
    std::span<KeyIndex const> portfolios;
    StrokeTable& strokes; ///< takes the patterns up
};

Look lookOf(LookSources const& sources);

/// Fills in what concerns transparency, shadows and effects.
void lookEffects(Look& look, LookSources const& sources);

} // namespace HPS::render
