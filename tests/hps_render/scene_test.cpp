// What the attributes of segments do to pictures.
#include "scenes.h"

namespace HPS
{
namespace
{

TEST_F(ScenePictures, AShellShowsInTheColourSetAbove)
{
    SegmentKey part = root.Subsegment("part");
    insertSquare(part);
    colour(root, {1, 0, 0, 1});
    render::Image const image = picture();
    for (int y = 0; y < 80; ++y)
        for (int x = 0; x < 80; ++x)
            ASSERT_EQ(image.at(x, y), x >= 20 && x < 60 && y >= 20 && y < 60 ? red : black) << x << ' ' << y;
}

TEST_F(ScenePictures, TheBackgroundHasTheWindowsColours)
{
    canvas.GetWindowKey()
        .GetMaterialMappingControl()
        .SetWindowColor({0, 0, 1, 1})
        .SetWindowContrastColor({1, 0, 0, 1});
    render::Image const image = picture();
    EXPECT_GT(image.at(3, 0).blue, 245);
    EXPECT_GT(image.at(3, 79).red, 245);
}

TEST_F(ScenePictures, OneSharedPartShowsOncePerInstance)
{
    SegmentKey part = model.GetLibraryKey().Subsegment("part");
    insertSquare(part, 0, 0.4f);
    RGBAColor const colours[] = {{1, 0, 0, 1}, {0, 1, 0, 1}, {0, 0, 1, 1}};
    for (int i = 0; i < 3; ++i) {
        SegmentKey instance = root.Subsegment(std::to_string(i));
        instance.GetModellingMatrixControl().Translate(i - 1.0, 0, 0);
        colour(instance, colours[i]);
        instance.IncludeSegment(part);
    }
    render::Image const image = picture();
    EXPECT_EQ(image.at(20, 40), red);
    EXPECT_EQ(image.at(40, 40), green);
    EXPECT_EQ(image.at(60, 40), blue);
    EXPECT_EQ(report().uploadedMeshes, 1u);
    EXPECT_EQ(report().records, 3u);
}

TEST_F(ScenePictures, ALockedColourOfAnInstanceWinsOverThePartsOwn)
{
    SegmentKey part = model.GetLibraryKey().Subsegment("part");
    SegmentKey face = part.Subsegment("face");
    colour(face, {0, 1, 0, 1});
    insertSquare(face, 0, 0.4f);
    for (int i = 0; i < 2; ++i) {
        SegmentKey instance = root.Subsegment(std::to_string(i));
        instance.GetModellingMatrixControl().Translate(i * 2 - 1.0, 0, 0);
        colour(instance, {1, 0, 0, 1});
        if (i == 1)
            instance.GetAttributeLockControl().SetLock(AttributeLock::Type::MaterialFaceDiffuseColor, true);
        instance.IncludeSegment(part);
    }
    render::Image const image = picture();
    EXPECT_EQ(image.at(20, 40), green);
    EXPECT_EQ(image.at(60, 40), red);
}

TEST_F(ScenePictures, AConditionHidesABodyInOneInstanceOnly)
{
    PortfolioKey portfolio = model.GetPortfolioKey();
    SegmentKey source = Database::CreateRootSegment();
    source.GetVisibilityControl().SetEverything(false);
    source.GetAttributeLockControl().SetLock(AttributeLock::Type::Visibility, true);
    portfolio.DefineNamedStyle("hidden", source);
    view.GetSegmentKey().GetPortfolioControl().Push(portfolio);

    SegmentKey body = model.GetLibraryKey().Subsegment("part/body");
    body.GetStyleControl().PushNamed("hidden", ConditionalExpression("hide_#7"));
    insertSquare(body, 0, 0.4f);
    colour(root, {1, 0, 0, 1});
    SegmentKey instances[2];
    for (int i = 0; i < 2; ++i) {
        instances[i] = root.Subsegment(std::to_string(i));
        instances[i].GetModellingMatrixControl().Translate(i * 2 - 1.0, 0, 0);
        instances[i].IncludeSegment(body.Up());
    }
    auto shown = [&] {
        render::Image const image = picture();
        return std::pair(image.at(20, 40) == red, image.at(60, 40) == red);
    };
    EXPECT_EQ(shown(), std::pair(true, true));
    instances[0].SetCondition("hide_#7");
    EXPECT_EQ(shown(), std::pair(false, true));
    EXPECT_EQ(report().uploadedMeshes, 0u);
    instances[0].UnsetConditions();
    view.GetSegmentKey().SetConditions({"hide_#7"});
    EXPECT_EQ(shown(), std::pair(false, false));
    view.GetSegmentKey().UnsetConditions();
    EXPECT_EQ(shown(), std::pair(true, true));
}

TEST_F(ScenePictures, TransparencyComesFromTheAlphaOfTheColour)
{
    SegmentKey back = root.Subsegment("back"), front = root.Subsegment("front");
    colour(back, {0, 0, 1, 1});
    colour(front, {1, 0, 0, 0.5f});
    insertSquare(back, -1);
    insertSquare(front, 1, 0.5f);
    Pixel const p = picture().at(40, 40);
    EXPECT_NEAR(p.red, 128, 2);
    EXPECT_NEAR(p.blue, 127, 2);
}

TEST_F(ScenePictures, VisibilityPicksTheKindsThatShow)
{
    colour(root, {1, 0, 0, 1});
    root.GetMaterialMappingControl().SetLineColor({0, 1, 0, 1});
    root.GetLineAttributeControl().SetWeight(4, Line::SizeUnits::Pixels);
    insertSquare(root, 0, 1);
    root.InsertLine({-2, 0, 0.5f}, {2, 0, 0.5f});
    auto see = [&](bool faces, bool lines) {
        view.GetSegmentKey().GetVisibilityControl().SetFaces(faces).SetLines(lines);
        return picture();
    };
    EXPECT_EQ(see(true, true).at(40, 40), green);
    EXPECT_EQ(see(true, false).at(40, 40), red);
    EXPECT_EQ(see(false, true).at(40, 40), green);
    EXPECT_EQ(see(false, true).at(40, 25), black);
    EXPECT_EQ(see(false, false).at(40, 40), black);
}

TEST_F(ScenePictures, EdgesOfFacesShowWhenAskedFor)
{
    colour(root, {1, 0, 0, 1});
    root.GetMaterialMappingControl().SetEdgeColor({0, 1, 0, 1});
    root.GetEdgeAttributeControl().SetWeight(4, Edge::SizeUnits::Pixels);
    insertSquare(root);
    EXPECT_EQ(picture().at(40, 20), red);
    view.GetSegmentKey().GetVisibilityControl().SetEdges(true);
    EXPECT_EQ(picture().at(40, 20), green);
    EXPECT_EQ(picture().at(40, 40), red);
}

TEST_F(ScenePictures, APolygonIsAFaceWithAnOutline)
{
    colour(root, {1, 0, 0, 1});
    root.InsertPolygon({{-1, -1, 0}, {1, -1, 0}, {1, 1, 0}, {0, -0.5f, 0}, {-1, 1, 0}, {-1, -1, 0}});
    root.GetVisibilityControl().SetLines(false).SetEdges(false);
    render::Image const image = picture();
    EXPECT_EQ(image.at(25, 40), red);
    EXPECT_EQ(image.at(40, 30), black); // the notch
}

TEST_F(ScenePictures, MarkersShowInTheirSize)
{
    view.GetSegmentKey().GetVisibilityControl().SetMarkers(true);
    root.GetMaterialMappingControl().SetMarkerColor({0, 1, 0, 1});
    root.GetMarkerAttributeControl().SetSize(10, Marker::SizeUnits::Pixels).SetSymbol("solid circle");
    root.InsertMarker(Point(0.025f, 0.025f, 0));
    render::Image const image = picture();
    EXPECT_EQ(image.at(40, 39), green);
    EXPECT_EQ(image.at(43, 39), green);
    EXPECT_EQ(image.at(47, 39), black);
}

TEST_F(ScenePictures, LightsShadeTheFaces)
{
    insertSquare(root);
    colour(root, {0.5f, 0.5f, 0.5f, 1});
    DistantLightKit light;
    light.SetDirection({0, 0, -1}).SetColor({0.5f, 0.5f, 0.5f, 1}).SetCameraRelative(true);
    DistantLightKey key = view.GetSegmentKey().InsertDistantLight(light);
    int const straight = picture().at(40, 40).red;
    setCamera(canvas, {0, 8, 6});
    int const slanted = picture().at(40, 40).red;
    EXPECT_LT(slanted, straight - 10);
    key.Delete();
    EXPECT_NEAR(picture().at(40, 40).red, 128, 1);
}

} // namespace
} // namespace HPS
