// What holds for lines, edges and markers in any picture: widths, lengths of dashes, what shows from where.
#include "Stage.h"
#include <cmath>
#include <gtest/gtest.h>

using namespace HPS;

namespace
{

bool isInk(QImage const& image, int x, int y)
{
    return qGray(image.pixel(x, y)) > 90;
}

/// Lengths of the runs of ink along a row of pixels, those at the ends left out.
std::vector<int> runsAlong(QImage const& image, int y)
{
    std::vector<int> runs;
    int run = 0;
    bool whole = false;
    for (int x = 0; x < image.width(); ++x)
        if (isInk(image, x, y)) {
            ++run;
        } else {
            if (run > 0 && whole) runs.push_back(run);
            run = 0;
            whole = true;
        }
    return runs;
}

int widthAcross(QImage const& image, int x)
{
    int width = 0;
    for (int y = 0; y < image.height(); ++y) width += isInk(image, x, y) ? 1 : 0;
    return width;
}

void definePatterns(SegmentKey segment)
{
    PortfolioKey portfolio = Database::CreatePortfolio();
    portfolio.DefineLinePattern("dashed", LinePatternKit::GetDefault(LinePattern::Default::Dashed));
    segment.GetPortfolioControl().Push(portfolio);
    segment.GetMaterialMappingControl().SetLineColor(RGBAColor(1, 1, 1));
}

struct WeightCase {
    float weight;
    Line::SizeUnits units;
    float scale;
    int pixels; ///< in a window 150 pixels and 3 units high
};

class Weights : public testing::TestWithParam<WeightCase>
{
};

TEST_P(Weights, AreAsTheUnitsSay)
{
    Stage stage;
    SegmentKey place = stage.root().Subsegment("place");
    place.GetMaterialMappingControl().SetLineColor(RGBAColor(1, 1, 1));
    place.GetModellingMatrixControl().Scale(GetParam().scale, GetParam().scale, GetParam().scale);
    place.GetLineAttributeControl().SetWeight(GetParam().weight, GetParam().units);
    place.InsertLine({-0.5f, 0, 0}, {0.5f, 0, 0});
    EXPECT_NEAR(widthAcross(stage.picture(), 100), GetParam().pixels, 1);
}

using Units = Line::SizeUnits;
INSTANTIATE_TEST_SUITE_P(All, Weights,
                         testing::Values(WeightCase{6, Units::ScaleFactor, 2, 6},
                                         WeightCase{0.1f, Units::ObjectSpace, 2, 10},
                                         WeightCase{0.1f, Units::WorldSpace, 2, 5},
                                         WeightCase{0.08f, Units::SubscreenRelative, 2, 12},
                                         WeightCase{0.08f, Units::WindowRelative, 2, 12},
                                         WeightCase{9, Units::Points, 2, 12},
                                         WeightCase{9, Units::Pixels, 2, 9}));

TEST(Patterns, HaveDashesOfTheirLengthOnTheScreenAtAnyZoom)
{
    Stage stage;
    definePatterns(stage.root());
    stage.root().GetLineAttributeControl().SetPattern("dashed").SetWeight(3, Units::Pixels);
    stage.root().InsertLine({-100, 0, 0}, {100, 0, 0});
    for (float height : {3.0f, 30.0f, 0.3f}) {
        stage.look({0, 0, 10}, height);
        QImage const image = stage.picture();
        std::vector<int> const runs = runsAlong(image, 75);
        ASSERT_GE(runs.size(), 5u) << height; // a period is 27 pixels
        for (int run : runs) EXPECT_NEAR(run, 18, 1.5) << height;
    }
}

TEST(Patterns, OfLinesMeasuredInTheWorldGrowWithIt)
{
    Stage stage;
    definePatterns(stage.root());
    stage.root().GetLineAttributeControl().SetPattern("dashed").SetWeight(0.05f, Units::WorldSpace);
    stage.root().InsertLine({-100, 0, 0}, {100, 0, 0});
    for (float height : {3.0f, 1.5f}) {
        stage.look({0, 0, 10}, height);
        for (int run : runsAlong(stage.picture(), 75)) EXPECT_NEAR(run, 6 * 0.05 * 150 / height, 2);
    }
}

TEST(Patterns, RunOnAroundTheCornersOfAChain)
{
    Stage one, many;
    for (Stage* stage : {&one, &many}) {
        definePatterns(stage->root());
        stage->root().GetLineAttributeControl().SetPattern("dashed").SetWeight(4, Units::Pixels);
    }
    one.root().InsertLine({-1.8f, 0, 0}, {1.8f, 0, 0});
    std::vector<Point> points;
    for (int i = 0; i <= 36; ++i) points.emplace_back(-1.8f + 0.1f * float(i), 0.0f, 0.0f);
    many.root().InsertLine(points);
    QImage const whole = one.picture(), pieces = many.picture();
    int different = 0;
    for (int x = 0; x < 200; ++x) different += isInk(whole, x, 75) != isInk(pieces, x, 75) ? 1 : 0;
    EXPECT_LE(different, 4);
}

TEST(Lines, WithoutEndReachTheBordersAtAnyZoom)
{
    Stage stage;
    stage.root().GetMaterialMappingControl().SetLineColor(RGBAColor(1, 1, 1));
    stage.root().GetLineAttributeControl().SetWeight(4, Units::Pixels);
    stage.root().InsertInfiniteLine({0, 0, 0}, {0.001f, 0, 0});
    stage.root().InsertInfiniteRay({0, 0, 0}, {0, 1, 0});
    for (bool perspective : {false, true})
        for (float height : {3.0f, 3000.0f, 0.003f}) {
            stage.look({0, 0, 10}, height, perspective);
            QImage const image = stage.picture();
            EXPECT_TRUE(isInk(image, 1, 75)) << height;
            EXPECT_TRUE(isInk(image, 198, 75)) << height;
            EXPECT_TRUE(isInk(image, 100, 1)) << height;
            EXPECT_FALSE(isInk(image, 100, 140)) << height; // where the ray does not go
        }
}

/// Pixels of the edges' colour, which is that of nothing else.
int edgePixels(Stage& stage)
{
    QImage const image = stage.picture();
    int count = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) {
            QRgb const c = image.pixel(x, y);
            count += qRed(c) > 150 && qGreen(c) < 90 && qBlue(c) < 90 ? 1 : 0;
        }
    return count;
}

void prepareEdges(Stage& stage)
{
    stage.root()
        .GetMaterialMappingControl()
        .SetFaceColor(RGBAColor(0.2f, 0.3f, 0.5f))
        .SetEdgeColor(RGBAColor(1, 0, 0));
    stage.root().GetDrawingAttributeControl().SetFaceDisplacement(true, 16);
    stage.root().GetVisibilityControl().SetEdges(false);
}

TEST(Edges, OfSilhouettesLieOnTheOutlineFromEverySide)
{
    Stage stage;
    prepareEdges(stage);
    stage.root().InsertSphere({0, 0, 0}, 1);
    stage.root().GetSphereAttributeControl().SetTessellation(60);
    stage.root().GetVisibilityControl().SetInteriorSilhouetteEdges(true);
    stage.root().GetEdgeAttributeControl().SetWeight(2, Edge::SizeUnits::Pixels);
    for (Point const eye : {Point(0, 0, 10), Point(10, 0, 0), Point(6, 6, 5)}) {
        stage.look(eye);
        QImage const image = stage.picture();
        for (int i = 0; i < 12; ++i) { // the outline is a circle of 50 pixels about the middle
            double const angle = i * 3.14159265 / 6;
            bool found = false;
            for (int r = 46; r <= 53; ++r) {
                QRgb const c = image.pixel(int(100 + r * std::cos(angle)), int(75 - r * std::sin(angle)));
                found = found || (qRed(c) > 120 && qGreen(c) < 90);
            }
            EXPECT_TRUE(found) << i;
        }
        EXPECT_LT(qRed(image.pixel(100, 75)), 120);
    }
}

TEST(Edges, OfEachKindAreSeenWhereThereAreSome)
{
    using Set = VisibilityControl& (VisibilityControl::*)(bool);
    struct Case {
        char const* name;
        Set set;
        bool box, sheet; ///< seen on a box, on a flat mesh
    };
    for (Case const& c : {Case{"generic", &VisibilityControl::SetGenericEdges, true, true},
                          Case{"hard", &VisibilityControl::SetHardEdges, true, false},
                          Case{"adjacent", &VisibilityControl::SetAdjacentEdges, true, true},
                          Case{"perimeter", &VisibilityControl::SetPerimeterEdges, false, true},
                          Case{"non-culled", &VisibilityControl::SetNonCulledEdges, true, true},
                          Case{"quads", &VisibilityControl::SetMeshQuadEdges, false, true}}) {
        for (bool const box : {true, false}) {
            Stage stage;
            prepareEdges(stage);
            stage.look({3, 4, 10});
            if (box)
                insertBox(stage.root(), {-0.7f, -0.7f, -0.7f}, {0.7f, 0.7f, 0.7f});
            else
                stage.root().InsertMesh(3, 3,
                                        {{-1, -1, 0},
                                         {0, -1, 0},
                                         {1, -1, 0},
                                         {-1, 0, 0},
                                         {0, 0, 0},
                                         {1, 0, 0},
                                         {-1, 1, 0},
                                         {0, 1, 0},
                                         {1, 1, 0}});
            VisibilityControl control = stage.root().GetVisibilityControl();
            (control.*c.set)(true);
            EXPECT_EQ(edgePixels(stage) > 20, box ? c.box : c.sheet) << c.name << (box ? " box" : " sheet");
        }
    }
}

TEST(Vertices, KeepTheirColoursAndVisibilities)
{
    Stage stage;
    stage.root().GetVisibilityControl().SetVertices(true).SetFaces(false);
    stage.root().GetMarkerAttributeControl().SetSize(12, Marker::SizeUnits::Pixels);
    ShellKit kit;
    kit.SetPoints({{-1, -1, 0}, {1, -1, 0}, {1, 1, 0}, {-1, 1, 0}}).SetFacelist({4, 0, 1, 2, 3});
    kit.SetVertexRGBColorsByRange(0, {RGBColor(1, 0, 0), RGBColor(0, 1, 0)}, ShellKit::Component::Vertices);
    kit.SetVertexVisibilitiesByRange(2, {false});
    stage.root().InsertShell(kit);
    QImage const image = stage.picture();
    EXPECT_GT(qRed(image.pixel(50, 125)), 200);
    EXPECT_GT(qGreen(image.pixel(150, 125)), 200);
    EXPECT_EQ(image.pixel(150, 25), image.pixel(100, 75)); // hidden
    EXPECT_NE(image.pixel(50, 25), image.pixel(100, 75));
}

TEST(Markers, OfEveryNameCoverSomethingOfTheirSize)
{
    for (UTF8 const& name : GlyphKit::GetDefaultNames())
        for (auto preference : {Marker::DrawingPreference::Nicest, Marker::DrawingPreference::Fastest}) {
            Stage stage;
            stage.root().GetVisibilityControl().SetMarkers(true);
            stage.root().GetMaterialMappingControl().SetMarkerColor(RGBAColor(1, 1, 1));
            stage.root()
                .GetMarkerAttributeControl()
                .SetSymbol(name)
                .SetSize(40, Marker::SizeUnits::Pixels)
                .SetDrawingPreference(preference);
            stage.root().InsertMarker({0, 0, 0});
            QImage const image = stage.picture();
            QRect ink;
            for (int y = 0; y < image.height(); ++y)
                for (int x = 0; x < image.width(); ++x)
                    if (isInk(image, x, y)) ink = ink.united(QRect(x, y, 1, 1));
            EXPECT_GE(ink.width(), 24) << name.GetBytes();
            EXPECT_LE(ink.width(), 45) << name.GetBytes();
            EXPECT_GE(ink.height(), 24) << name.GetBytes();
        }
}

} // namespace
