// What is seen through: every algorithm and method, against numbers that follow from the colours alone.
#include "Stage.h"
#include <cmath>
#include <gtest/gtest.h>

using namespace HPS;

namespace
{

using Algorithm = Transparency::Algorithm;

struct NamedAlgorithm {
    std::string_view name;
    Algorithm algorithm;
};
constexpr NamedAlgorithm algorithms[] = {
    {"none", Algorithm::None},
    {"painters", Algorithm::Painters},
    {"nicest", Algorithm::ZSortNicest},
    {"fastest", Algorithm::ZSortFastest},
    {"peeling", Algorithm::DepthPeeling},
    {"weighted", Algorithm::WeightedBlended},
};

void applyArguments(Stage& stage)
{
    TransparencyControl control = stage.viewSegment().GetTransparencyControl();
    for (auto const& [name, algorithm] : algorithms)
        if (stage.value("algorithm") == name) control.SetAlgorithm(algorithm);
    if (stage.value("method") == "none") control.SetMethod(Transparency::Method::None);
    if (stage.value("method") == "screen") control.SetMethod(Transparency::Method::ScreenDoor);
    if (stage.value("preference") == "fastest")
        control.SetDepthPeelingPreference(Transparency::Preference::Fastest);
    if (std::string const layers = stage.value("layers"); !layers.empty())
        control.SetDepthPeelingLayers(unsigned(std::stoi(layers)));
    if (std::string const area = stage.value("area"); !area.empty())
        control.SetDepthPeelingMinimumArea(std::stof(area), Transparency::AreaUnits::Pixels);
    control.SetDepthWriting(stage.has("depth"));
}

SegmentKey coloured(SegmentKey parent, RGBAColor const& colour)
{
    SegmentKey segment = parent.Subsegment();
    segment.GetMaterialMappingControl().SetFaceColor(colour);
    return segment;
}

constexpr float height[] = {0, 1, -1}; // of the sheets, as they come in the scene
RGBAColor const sheetColours[] = {
    {0.9f, 0.2f, 0.1f, 0.4f}, {0.1f, 0.8f, 0.2f, 0.5f}, {0.2f, 0.3f, 1.0f, 0.6f}};

// Three sheets that overlap in the middle, in an order of the scene that is not that of their depths.
void sheets(Stage& stage)
{
    applyArguments(stage);
    for (int i = 0; i < 3; ++i)
        insertRectangle(coloured(stage.root(), sheetColours[i]),
                        {0.3f * float(i - 1), 0.25f * float(i - 1), height[i]}, 2, 1.5f);
}

// Two sheets that pass through each other, and a bar behind both.
void crossed(Stage& stage)
{
    applyArguments(stage);
    stage.look({0, 5, 10});
    insertBox(coloured(stage.root(), {0.8f, 0.8f, 0.2f}), {-1.8f, -0.2f, -2.2f}, {1.8f, 0.2f, -2});
    for (float const side : {1.0f, -1.0f}) {
        SegmentKey sheet = coloured(stage.root(), side > 0 ? RGBAColor(0.9f, 0.3f, 0.2f, 0.6f)
                                                           : RGBAColor(0.2f, 0.4f, 0.9f, 0.6f));
        insertRectangle(sheet, {0, 0, 0}, 3, 1.6f);
        sheet.GetModellingMatrixControl().Rotate(0, 40 * side, 0);
    }
}

// Lit bodies: glass before and around what is opaque, with lines and markers that are seen through too.
void glass(Stage& stage)
{
    applyArguments(stage);
    stage.light();
    stage.look({3, 3, 10});
    stage.viewSegment().GetVisibilityControl().SetMarkers(true);
    insertBox(coloured(stage.root(), {0.8f, 0.6f, 0.2f}), {-0.5f, -0.5f, -0.5f}, {0.5f, 0.5f, 0.5f});
    insertBall(coloured(stage.root(), {0.3f, 0.6f, 0.9f, 0.4f}), {0, 0, 0}, 1.1f);
    insertBall(coloured(stage.root(), {0.9f, 0.3f, 0.4f, 0.5f}), {1.1f, 0.3f, 0.8f}, 0.6f);
    SegmentKey strokes = stage.root().Subsegment();
    strokes.GetMaterialMappingControl().SetLineColor(RGBAColor(1, 1, 1, 0.5f));
    strokes.GetMaterialMappingControl().SetMarkerColor(RGBAColor(0.3f, 1, 0.3f, 0.5f));
    strokes.GetLineAttributeControl().SetWeight(6, Line::SizeUnits::Pixels);
    strokes.GetMarkerAttributeControl().SetSize(24, Marker::SizeUnits::Pixels).SetSymbol("solid circle");
    strokes.InsertLine(Point(-1.8f, -0.8f, 0.9f), Point(1.8f, 0.8f, 0.9f));
    strokes.InsertMarker({-1.2f, 0.6f, 0});
}

// Slanting edges and strokes, on the left without the smoothing that the right has.
void smoothing(Stage& stage)
{
    for (float const side : {-1.0f, 1.0f}) {
        SegmentKey half = coloured(stage.root(), {0.9f, 0.9f, 0.9f});
        half.GetVisualEffectsControl().SetAntiAliasing(side > 0);
        half.GetMaterialMappingControl().SetLineColor(RGBAColor(1, 0.8f, 0.2f));
        SegmentKey turned = half.Subsegment();
        insertRectangle(turned, {0, 0, 0}, 1.2f, 0.5f);
        turned.GetModellingMatrixControl().Rotate(0, 0, 10).Translate(0.95f * side, 0.6f, 0);
        half.InsertLine(Point(0.95f * side - 0.7f, -0.9f, 0), Point(0.95f * side + 0.7f, -0.4f, 0));
        half.Subsegment().InsertLine(Point(0.95f * side - 0.7f, -0.5f, 0), Point(0.95f * side + 0.7f, 0, 0));
    }
}

SceneTable const table{{"sheets", sheets}, {"crossed", crossed}, {"glass", glass}, {"smoothing", smoothing}};

struct Colour {
    double r, g, b;
};

Colour over(Colour const& below, RGBAColor const& above)
{
    double const a = double(above.alpha);
    return {below.r + (double(above.red) - below.r) * a, below.g + (double(above.green) - below.g) * a,
            below.b + (double(above.blue) - below.b) * a};
}

void expectColour(QColor const& seen, Colour const& wanted, int tolerance)
{
    EXPECT_NEAR(seen.red(), wanted.r * 255, tolerance);
    EXPECT_NEAR(seen.green(), wanted.g * 255, tolerance);
    EXPECT_NEAR(seen.blue(), wanted.b * 255, tolerance);
}

Colour const behind{0.12, 0.12, 0.16};

QImage pictureOf(void (*scene)(Stage&), std::vector<std::string> arguments)
{
    Stage stage;
    stage.arguments = std::move(arguments);
    scene(stage);
    return stage.picture();
}

QColor middle(QImage const& picture)
{
    return picture.pixelColor(picture.width() / 2, picture.height() / 2);
}

} // namespace

TEST(TransparencyOrder, isExactWhereTheAlgorithmSaysSo)
{
    Colour exact = behind;
    for (int const i : {2, 0, 1}) exact = over(exact, sheetColours[i]);
    for (std::string_view const name : {"painters", "nicest", "fastest", "peeling"}) {
        SCOPED_TRACE(name);
        expectColour(middle(pictureOf(sheets, {"algorithm=" + std::string(name)})), exact, 2);
    }
    SCOPED_TRACE("once a pixel");
    expectColour(middle(pictureOf(sheets, {"algorithm=peeling", "preference=fastest"})), exact, 2);
}

TEST(TransparencyOrder, isThatOfTheSceneWithoutAlgorithm)
{
    Colour inOrder = behind;
    for (int i = 0; i < 3; ++i) inOrder = over(inOrder, sheetColours[i]);
    expectColour(middle(pictureOf(sheets, {"algorithm=none"})), inOrder, 2);
}

// With depths written, what comes second and lies deeper is hidden.
TEST(TransparencyOrder, hidesWhatComesLaterAndDeeperOnceDepthsAreWritten)
{
    Colour expected = over(over(behind, sheetColours[0]), sheetColours[1]);
    expectColour(middle(pictureOf(sheets, {"algorithm=none", "depth"})), expected, 2);
}

TEST(TransparencyOrder, weighsNearThingsMoreAndCoversJustAsMuch)
{
    Colour exact = behind;
    for (int const i : {2, 0, 1}) exact = over(exact, sheetColours[i]);
    expectColour(middle(pictureOf(sheets, {"algorithm=weighted"})), exact, 40);
    // Of a single sheet the mean is the sheet.
    QColor const single = pictureOf(sheets, {"algorithm=weighted"}).pixelColor(200 / 2 - 62, 150 / 2 + 45);
    expectColour(single, over(behind, sheetColours[0]), 2);
    // Nothing shows just outside of what the sheets cover.
    QImage const picture = pictureOf(sheets, {"algorithm=weighted"});
    for (int x = 28; x < 34; ++x) EXPECT_EQ(picture.pixelColor(x, 60), QColor(31, 31, 41)) << x;
    for (int y = 126; y < 132; ++y) EXPECT_EQ(picture.pixelColor(60, y), QColor(31, 31, 41)) << y;
}

TEST(TransparencyOrder, splitsSheetsThatPassThroughEachOther)
{
    QImage const peeled = pictureOf(crossed, {"algorithm=peeling"});
    QImage const split = pictureOf(crossed, {"algorithm=nicest"});
    QImage const objects = pictureOf(crossed, {"algorithm=painters"});
    auto differing = [&](QImage const& other) {
        int count = 0;
        for (int y = 0; y < peeled.height(); ++y)
            for (int x = 0; x < peeled.width(); ++x)
                count += std::abs(peeled.pixelColor(x, y).red() - other.pixelColor(x, y).red()) > 8;
        return count;
    };
    EXPECT_LT(differing(split), 250); // along rims
    EXPECT_GT(differing(objects), 2000);
}

TEST(DepthPeeling, keepsTheNearestLayersWhateverTheirNumber)
{
    // Two layers exact, the rest below them: with one sheet left that is exact too.
    QImage const all = pictureOf(sheets, {"algorithm=peeling"});
    EXPECT_EQ(middle(all), middle(pictureOf(sheets, {"algorithm=peeling", "layers=2"})));
    // The nearest sheet alone is sure of its place with a single layer.
    Colour loose = over(over(over(behind, sheetColours[0]), sheetColours[2]), sheetColours[1]);
    Colour exact = over(over(over(behind, sheetColours[2]), sheetColours[0]), sheetColours[1]);
    QColor const one = middle(pictureOf(sheets, {"algorithm=peeling", "layers=1"}));
    EXPECT_NEAR(one.green(), 255 * std::max(loose.g, exact.g), 30);
}

TEST(DepthPeeling, endsWithALayerTooSmallToMatter)
{
    // More pixels than the window has: the first layer is the last one.
    Colour const nearest = over(behind, sheetColours[1]);
    expectColour(middle(pictureOf(sheets, {"algorithm=peeling", "area=40000"})), nearest, 2);
}

TEST(TransparencyMethod, noneIsOpaque)
{
    QColor const seen = middle(pictureOf(sheets, {"method=none"}));
    expectColour(seen, {0.1, 0.8, 0.2}, 2);
}

TEST(TransparencyMethod, screenDoorLeavesOutASharedPatternOfPixels)
{
    QImage const picture = pictureOf(sheets, {"method=screen"});
    int nearest = 0, background = 0, all = 0;
    for (int y = 67; y < 83; ++y)
        for (int x = 92; x < 108; ++x, ++all) {
            nearest += picture.pixelColor(x, y).green() > 195;
            background += picture.pixelColor(x, y) == QColor(31, 31, 41);
        }
    EXPECT_EQ(nearest, all / 2);
    EXPECT_EQ(background, all * 6 / 16); // under 0.6, the least transparent of them
}

TEST(LineSmoothing, isLeftOutForThePartOfTheSceneThatSaysSo)
{
    QImage const picture = pictureOf(smoothing, {});
    auto between = [&](int from, int to) {
        int count = 0;
        for (int y = 0; y < picture.height(); ++y)
            for (int x = from; x < to; ++x) {
                int const red = picture.pixelColor(x, y).red();
                count += red > 40 && red < 220;
            }
        return count;
    };
    EXPECT_EQ(between(0, 100), 0);
    EXPECT_GT(between(100, 200), 40);
}
