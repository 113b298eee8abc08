// Lines, edges and markers in all their settings.
#include "Stage.h"
#include <array>

using namespace HPS;

namespace
{

constexpr std::array patternNames{"solid",     "dashed",       "dotted",
                                  "dash dot",  "dash dot dot", "dash dot dot dot",
                                  "long dash", "center line",  "phantom"};

PortfolioKey patterns(Stage& stage)
{
    PortfolioKey portfolio = Database::CreatePortfolio();
    for (std::uint32_t i = 0; i < patternNames.size(); ++i)
        portfolio.DefineLinePattern(patternNames[i], LinePatternKit::GetDefault(LinePattern::Default(i)));
    LinePatternKit rails;
    rails.SetParallels({{{}, -1.5f},
                        {{}, 1.5f},
                        {{{LinePatternElement::Kind::Dash, 2}, {LinePatternElement::Kind::Blank, 3}}, 0}});
    portfolio.DefineLinePattern("rails", rails);
    stage.root().GetPortfolioControl().Push(portfolio);
    stage.root().GetMaterialMappingControl().SetLineColor(RGBAColor(1, 1, 1, 1));
    return portfolio;
}

void lines(Stage& stage)
{
    patterns(stage);
    std::string const what = stage.value("what");
    SegmentKey root = stage.root();
    if (what == "patterns") {
        for (std::size_t i = 0; i < patternNames.size(); ++i) {
            SegmentKey row = root.Subsegment(patternNames[i]);
            float const y = 1.2f - 0.3f * float(i);
            row.GetLineAttributeControl().SetPattern(patternNames[i]).SetWeight(3, Line::SizeUnits::Pixels);
            row.InsertLine({{-1.8f, y, 0}, {1.8f, y, 0}});
        }
    } else if (what == "caps") {
        for (std::uint32_t i = 0; i < 5; ++i) {
            SegmentKey row = root.Subsegment("cap" + std::to_string(i));
            float const y = 1.1f - 0.55f * float(i);
            LinePatternOptionsKit ends;
            ends.SetStartCap(LinePattern::Cap(i)).SetEndCap(LinePattern::Cap(i));
            row.GetLineAttributeControl().SetPattern("", ends).SetWeight(18, Line::SizeUnits::Pixels);
            row.InsertLine({{-1.5f, y, 0}, {-0.3f, y, 0}});
            SegmentKey dashes = row.Subsegment("dashes");
            LinePatternOptionsKit inner = ends;
            inner.SetInnerCap(LinePattern::Cap(i));
            dashes.GetLineAttributeControl()
                .SetPattern("dashed", inner)
                .SetWeight(9, Line::SizeUnits::Pixels);
            dashes.InsertLine({{0.2f, y, 0}, {1.7f, y, 0}});
        }
    } else if (what == "joins") {
        for (std::uint32_t i = 0; i < 3; ++i) {
            SegmentKey row = root.Subsegment("join" + std::to_string(i));
            float const x = -1.6f + 1.15f * float(i);
            LinePatternOptionsKit join;
            join.SetJoin(LinePattern::Join(i));
            row.GetLineAttributeControl().SetPattern("", join).SetWeight(14, Line::SizeUnits::Pixels);
            row.InsertLine({{x, 0.2f, 0}, {x + 0.4f, 1.1f, 0}, {x + 0.8f, 0.2f, 0}, {x + 0.1f, 0.4f, 0}});
            row.InsertLine({{x, -1.1f, 0}, {x + 0.8f, -1.1f, 0}, {x + 0.8f, -0.4f, 0}, {x, -1.1f, 0}});
        }
    } else if (what == "around") { // a pattern that runs on around corners, and one of several rows
        SegmentKey circle = root.Subsegment("circle");
        circle.GetLineAttributeControl().SetPattern("dash dot").SetWeight(3, Line::SizeUnits::Pixels);
        circle.InsertCircularArc({-0.8f + 0.7f, 0, 0}, {-0.8f, 0.7f, 0}, {-0.8f - 0.7f, 0, 0});
        circle.InsertLine({{-1.5f, -0.2f, 0}, {-0.8f, -1, 0}, {-0.1f, -0.2f, 0}});
        SegmentKey track = root.Subsegment("track");
        track.GetLineAttributeControl().SetPattern("rails").SetWeight(4, Line::SizeUnits::Pixels);
        track.InsertLine({{0.3f, -1, 0}, {0.6f, 0.8f, 0}, {1.6f, 0.9f, 0}});
    } else if (what == "endless") {
        SegmentKey axes = root.Subsegment("axes");
        axes.GetLineAttributeControl().SetPattern("center line").SetWeight(2, Line::SizeUnits::Pixels);
        axes.InsertInfiniteLine({-0.5f, 0.2f, 0}, {0.5f, 0.4f, 0});
        axes.InsertInfiniteRay({0, -0.5f, 0}, {0.1f, -0.6f, 0});
        stage.look({2, 3, 6}, 3, true);
        axes.InsertInfiniteLine({0, 0, 0}, {0, 0, 1});
    } else if (what == "arrows") {
        LinePatternOptionsKit ends;
        ends.SetStartCap("solid circle").SetEndCap("solid triangle up").SetJoin("box");
        SegmentKey row = root.Subsegment("row");
        row.GetLineAttributeControl().SetPattern("", ends).SetWeight(3, Line::SizeUnits::Pixels);
        row.InsertLine({{-1.5f, -0.8f, 0}, {0, 0.9f, 0}, {1.4f, -0.5f, 0}});
    }
}

void markers(Stage& stage)
{
    SegmentKey root = stage.root();
    root.GetVisibilityControl().SetMarkers(true);
    root.GetMaterialMappingControl().SetMarkerColor(RGBAColor(1, 0.9f, 0.5f));
    PortfolioKey portfolio = Database::CreatePortfolio();
    GlyphKit arrow;
    arrow.SetRadius(100).SetOffset({0, 0}).SetElements(
        {{GlyphElement::Kind::Polygon,
          {{-100, -40}, {0, -40}, {0, -100}, {100, 0}, {0, 100}, {0, 40}, {-100, 40}},
          0}});
    portfolio.DefineGlyph("arrow", arrow);
    root.GetPortfolioControl().Push(portfolio);
    bool const nicest = stage.has("nicest");
    std::vector<UTF8> names = GlyphKit::GetDefaultNames();
    names.push_back("arrow");
    for (std::size_t i = 0; i < names.size(); ++i) {
        SegmentKey place = root.Subsegment(names[i]);
        place.GetMarkerAttributeControl().SetSymbol(names[i]).SetSize(24, Marker::SizeUnits::Pixels);
        if (nicest) place.GetMarkerAttributeControl().SetDrawingPreference(Marker::DrawingPreference::Nicest);
        if (stage.has("turned")) place.GetMarkerAttributeControl().SetGlyphRotation(30);
        place.InsertMarker({-1.6f + 0.8f * float(i % 5), 1.1f - 0.7f * float(i / 5), 0});
    }
}

void edges(Stage& stage)
{
    stage.look({3, 4, 10});
    SegmentKey root = stage.root();
    root.GetMaterialMappingControl()
        .SetFaceColor(RGBAColor(0.35f, 0.4f, 0.5f))
        .SetEdgeColor(RGBAColor(1, 1, 0.6f));
    root.GetDrawingAttributeControl().SetFaceDisplacement(true, 16);
    std::string const kind = stage.value("kind");
    VisibilityKit visibility;
    visibility.SetEdges(false);
    if (kind == "generic") visibility.SetGenericEdges(true);
    if (kind == "hard") visibility.SetHardEdges(true);
    if (kind == "adjacent") visibility.SetAdjacentEdges(true);
    if (kind == "perimeter") visibility.SetPerimeterEdges(true);
    if (kind == "silhouette") visibility.SetInteriorSilhouetteEdges(true);
    if (kind == "unculled") visibility.SetNonCulledEdges(true);
    if (kind == "quads") visibility.SetMeshQuadEdges(true);
    root.SetVisibility(visibility);
    SegmentKey ball = root.Subsegment("ball");
    ball.GetModellingMatrixControl().Translate(-1, 0, 0);
    ball.InsertSphere({0, 0, 0}, 0.8f);
    SegmentKey drum = root.Subsegment("drum");
    drum.InsertCylinder({0.4f, -0.8f, 0}, {0.4f, 0.8f, 0}, 0.35f);
    SegmentKey sheet = root.Subsegment("sheet");
    std::vector<Point> points;
    for (int row = 0; row < 4; ++row)
        for (int column = 0; column < 4; ++column)
            points.emplace_back(1 + 0.25f * float(column), -0.7f + 0.45f * float(row),
                                0.1f * float(column * column % 3));
    sheet.InsertMesh(4, 4, points);
}

SceneTable const table{{"lines", lines}, {"markers", markers}, {"edges", edges}};

} // namespace
