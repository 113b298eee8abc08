// What shells bring themselves: colours, normals, holes and edges.
#include "pictures.h"
#include "scenes.h"

namespace HPS
{
namespace
{

using ShellPictures = ScenePictures;

std::vector<Point> const corners{{-1, -1, 0}, {0, -1, 0}, {1, -1, 0}, {1, 1, 0}, {0, 1, 0}, {-1, 1, 0}};

TEST_F(ShellPictures, FacesShowTheirOwnColoursUnlessTheSegmentOverridesThem)
{
    ShellKit kit;
    kit.SetPoints(corners).SetFacelist({4, 0, 1, 4, 5, 4, 1, 2, 3, 4});
    kit.SetFaceRGBAColorsByRange(1, {{0, 1, 0, 1}});
    root.InsertShell(kit);
    colour(root, {1, 0, 0, 1});
    render::Image const own = picture();
    EXPECT_EQ(own.at(39, 40), red);
    EXPECT_EQ(own.at(41, 40), green);
    root.GetDrawingAttributeControl().SetOverrideInternalColor(
        VisibilityKit().SetEverything(false).SetFaces(true));
    EXPECT_EQ(picture().at(41, 40), red);
}

TEST_F(ShellPictures, VertexColoursBlendOverAFace)
{
    ShellKit kit;
    kit.SetPoints({{-1, -1, 0}, {1, -1, 0}, {1, 1, 0}, {-1, 1, 0}}).SetFacelist({4, 0, 1, 2, 3});
    RGBAColor const left(1, 0, 0), right(0, 0, 1);
    kit.SetVertexRGBAColorsByRange(0, {left, right, right, left});
    root.InsertShell(kit);
    render::Image const image = picture();
    EXPECT_GT(image.at(21, 40).red, 240);
    EXPECT_NEAR(image.at(40, 40).red, 125, 8);
    EXPECT_GT(image.at(58, 40).blue, 240);
}

TEST_F(ShellPictures, AFaceColourWithAlphaIsTransparent)
{
    SegmentKey back = root.Subsegment("back");
    insertSquare(back, -1);
    colour(back, {0, 0, 1, 1});
    ShellKit kit;
    kit.SetPoints(corners).SetFacelist({4, 0, 1, 4, 5}).SetFaceRGBAColorsByRange(0, {{1, 0, 0, 0.5f}});
    root.InsertShell(kit);
    Pixel const p = picture().at(30, 40);
    EXPECT_NEAR(p.red, 128, 2);
    EXPECT_NEAR(p.blue, 127, 2);
}

TEST_F(ShellPictures, HolesAreOpen)
{
    root.InsertShell({{-1, -1, 0},
                      {1, -1, 0},
                      {1, 1, 0},
                      {-1, 1, 0},
                      {-0.5f, -0.5f, 0},
                      {0.5f, -0.5f, 0},
                      {0.5f, 0.5f, 0},
                      {-0.5f, 0.5f, 0}},
                     {4, 0, 1, 2, 3, -4, 4, 5, 6, 7});
    colour(root, {1, 0, 0, 1});
    render::Image const image = picture();
    EXPECT_EQ(image.at(40, 40), black);
    EXPECT_EQ(image.at(25, 40), red);
}

TEST_F(ShellPictures, NormalsRuleWhicheverWayAFaceRuns)
{
    colour(root, {0.8f, 0.6f, 0.2f, 1});
    view.GetSegmentKey().InsertDistantLight(Vector(1, -0.5f, -1.5f));
    setCamera(canvas, {5, 4, 6});
    auto shown = [&](std::vector<int> const& facelist, float sign) {
        SegmentKey part = root.Subsegment();
        ShellKit kit;
        kit.SetPoints({{-1, -1, 0}, {1, -1, 0}, {1, 1, 0}, {-1, 1, 0}}).SetFacelist(facelist);
        // Leaning outwards, as on a cushion.
        kit.SetVertexNormalsByRange(0, {{-0.3f * sign, -0.3f * sign, sign},
                                        {0.3f * sign, -0.3f * sign, sign},
                                        {0.3f * sign, 0.3f * sign, sign},
                                        {-0.3f * sign, 0.3f * sign, sign}});
        part.InsertShell(kit);
        render::Image const image = picture();
        part.Delete();
        return image;
    };
    render::Image const straight = shown({4, 0, 1, 2, 3}, 1);
    EXPECT_NE(straight.at(30, 40), straight.at(50, 40)); // shaded like something round
    EXPECT_LE(render::difference(straight, shown({4, 3, 2, 1, 0}, 1)), 6);
    EXPECT_LE(render::difference(straight, shown({4, 0, 1, 2, 3}, -1)), 6);
}

TEST_F(ShellPictures, ThousandShellsOfOneSegmentAreOneMeshAndOneRecord)
{
    for (int i = 0; i < 1000; ++i) insertSquare(root, 0.001f * float(i), 0.5f);
    picture();
    EXPECT_EQ(report().uploadedMeshes, 1u);
    EXPECT_EQ(report().records, 1u);
    EXPECT_EQ(report().triangles, 2000u);
}

struct EdgeCase {
    bool perimeter, hard, generic;
    std::uint64_t segments;
};
class Edges : public ScenePictures, public testing::WithParamInterface<EdgeCase>
{
};
// Two squares side by side in one plane and a third that stands up from the far side of the second.
INSTANTIATE_TEST_SUITE_P(All, Edges,
                         testing::Values(EdgeCase{false, false, false, 0}, EdgeCase{true, false, false, 8},
                                         EdgeCase{false, true, false, 1}, EdgeCase{true, true, false, 9},
                                         EdgeCase{false, false, true, 10}));

TEST_P(Edges, ShowTheKindsThatAreVisible)
{
    std::vector<Point> points = corners;
    points.emplace_back(1.0f, -1.0f, 1.0f);
    points.emplace_back(1.0f, 1.0f, 1.0f);
    root.InsertShell(points, {4, 0, 1, 4, 5, 4, 1, 2, 3, 4, 4, 2, 6, 7, 3});
    root.GetVisibilityControl()
        .SetPerimeterEdges(GetParam().perimeter)
        .SetHardEdges(GetParam().hard)
        .SetGenericEdges(GetParam().generic);
    picture();
    EXPECT_EQ(report().lineSegments, GetParam().segments);
}

} // namespace
} // namespace HPS
