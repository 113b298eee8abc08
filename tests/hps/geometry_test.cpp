#include "geometry_records.h"
#include "store.h"
#include "support.h"
#include <limits>

using namespace HPS;

namespace
{

using Geometry = Scene;
constexpr float nan = std::numeric_limits<float>::quiet_NaN();
constexpr float infinity = std::numeric_limits<float>::infinity();

struct FacelistCase {
    char const* what;
    std::vector<int> facelist;
    bool accepted;
    std::size_t faces = 0;
};

TEST_F(Geometry, FacelistsAreCheckedBeforeAnythingIsStored)
{
    std::vector<Point> const points(6);
    int const lowest = std::numeric_limits<int>::min();
    FacelistCase const cases[] = {
        {"a triangle", {3, 0, 1, 2}, true, 1},
        {"a face with a hole", {3, 0, 1, 2, -3, 3, 4, 5}, true, 1},
        {"two faces", {3, 0, 1, 2, 4, 2, 3, 4, 5}, true, 2},
        {"a hole alone", {-3, 0, 1, 2}, true, 0},
        {"a piece of an outline", {2, 0, 1}, true, 1},
        {"no faces at all", {}, true, 0},
        {"an index behind the last point", {3, 0, 1, 6}, false},
        {"a negative index", {3, 0, -1, 2}, false},
        {"a count of zero", {3, 0, 1, 2, 0}, false},
        {"an end within a face", {3, 0, 1}, false},
        {"a count and nothing more", {3}, false},
        {"a count beyond all bounds", {std::numeric_limits<int>::max(), 0, 1, 2}, false},
        {"the lowest count there is", {lowest, 0, 1, 2}, false},
    };
    for (auto const& test : cases) {
        auto const key = root.InsertShell(points, test.facelist);
        EXPECT_EQ(!key.Empty(), test.accepted) << test.what;
        EXPECT_EQ(key.GetFaceCount(), test.faces) << test.what;
        EXPECT_EQ(key.GetPointCount(), test.accepted ? 6u : 0u) << test.what;
        SearchResults results;
        EXPECT_EQ(root.Find(Search::Type::Shell, Search::Space::SegmentOnly, results), test.accepted)
            << test.what;
        root.Flush(Search::Type::Geometry);
    }
}

TEST_F(Geometry, WhatIsNoNumberIsRefused)
{
    EXPECT_TRUE(root.InsertShell({{0, 0, 0}, {1, nan, 0}, {0, 1, 0}}, {3, 0, 1, 2}).Empty());
    EXPECT_TRUE(root.InsertLine({{0, 0, infinity}, {1, 0, 0}}).Empty());
    EXPECT_TRUE(root.InsertPolygon({{nan, 0, 0}}).Empty());
    EXPECT_TRUE(root.InsertMarker({0, 0, nan}).Empty());
    EXPECT_TRUE(root.InsertText({nan, 0, 0}, "text").Empty());
    EXPECT_TRUE(root.InsertDistantLight(Vector(0, nan, 0)).Empty());
    EXPECT_TRUE(root.InsertDistantLight(Vector()).Empty());
    EXPECT_TRUE(root.InsertLine(std::vector<Point>()).Empty());
    EXPECT_TRUE(root.InsertShell({}, {}).Empty());
    SearchResults results;
    EXPECT_EQ(root.Find(Search::Type::Geometry, Search::Space::SegmentOnly, results), 0u);
}

ShellKit triangle()
{
    return ShellKit().SetPoints({{0, 0, 0}, {1, 0, 0}, {0, 1, 0}}).SetFacelist({3, 0, 1, 2});
}

TEST_F(Geometry, MoreValuesThanElementsAreRefused)
{
    std::vector<Vector> const four(4, Vector::ZAxis());
    std::vector<RGBColor> const two(2);
    EXPECT_TRUE(root.InsertShell(triangle().SetVertexNormalsByRange(0, four)).Empty());
    EXPECT_TRUE(root.InsertShell(triangle().SetVertexNormalsByRange(3, {Vector()})).Empty());
    EXPECT_TRUE(root.InsertShell(triangle().SetVertexNormalsByRange(0, {Vector(nan, 0, 0)})).Empty());
    EXPECT_TRUE(root.InsertShell(triangle().SetFaceRGBColorsByRange(0, two)).Empty());
    EXPECT_FALSE(root.InsertShell(triangle().SetFaceRGBColorsByRange(0, {RGBColor()})).Empty());
}

TEST_F(Geometry, AShellComesBackAsItWentIn)
{
    auto kit = triangle();
    kit.SetVertexNormalsByRange(1, {Vector::ZAxis()});
    kit.SetVertexRGBColorsByRange(0, {RGBColor::Red()}, ShellKit::Component::Edges);
    kit.SetUserData(0, {4}).SetUserData(1, {5, 6}).SetPriority(3);
    auto key = root.InsertShell(kit);
    EXPECT_EQ(key.ShowUserDataCount(), 2u);
    ShellKit back;
    ASSERT_TRUE(key.Show(back));
    EXPECT_EQ(back, kit);

    std::vector<bool> isSet;
    std::vector<Vector> normals;
    ASSERT_TRUE(back.ShowVertexNormals(isSet, normals));
    EXPECT_THAT(isSet, testing::ElementsAre(false, true, false));

    back.SetPoints({{0, 0, 0}, {5, 0, 0}, {0, 5, 0}});
    ASSERT_TRUE(key.Consume(back));
    EXPECT_TRUE(back.Empty());
    back = triangle().SetFacelist({3, 0, 1, 9});
    EXPECT_FALSE(key.Consume(back));
    EXPECT_FALSE(back.Empty()) << "a refused kit stays with its owner";
    ASSERT_TRUE(key.Show(back));
    std::vector<Point> points;
    back.ShowPoints(points);
    EXPECT_EQ(points[1], Point(5, 0, 0));
}

TEST_F(Geometry, OtherKindsComeBackAsTheyWentIn)
{
    TextKit text(Point(1, 2, 3), L"\u2293 12");
    text.SetFont("MRISO1.otf").SetSize(3.5f, Text::SizeUnits::WorldSpace).SetColor(RGBAColor::Black());
    text.SetAlignment(Text::Alignment::BottomLeft).SetSpacing(2);
    TextKit textBack;
    EXPECT_TRUE(root.InsertText(text).Show(textBack));
    EXPECT_EQ(textBack, text);

    LineKit line;
    EXPECT_TRUE(root.InsertLine(Point(), Point(1, 1, 1)).Show(line));
    EXPECT_EQ(line.GetPointCount(), 2u);

    DistantLightKit light, lightBack;
    light.SetDirection({1, 0, -1.5f}).SetColor(RGBAColor(0.5f, 0.5f, 0.5f)).SetCameraRelative(true);
    EXPECT_TRUE(root.InsertDistantLight(light).Show(lightBack));
    EXPECT_EQ(lightBack, light);
}

TEST_F(Geometry, LoopsOfAFacelist)
{
    std::vector<int> const facelist{3, 0, 1, 2, -4, 3, 4, 5, 6};
    std::vector<std::pair<std::size_t, bool>> loops;
    scene::forEachLoop(
        facelist, [&](scene::FaceLoop const& loop) { loops.emplace_back(loop.indices.size(), loop.isHole); });
    EXPECT_THAT(loops, testing::ElementsAre(std::pair(3u, false), std::pair(4u, true)));
}

} // namespace
