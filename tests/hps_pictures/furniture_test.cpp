// The navigation cube and the axis triad: what lies where, and which cameras it leads to.
#include "Stage.h"
#include <cmath>
#include <gtest/gtest.h>
#include <hps/AxisTriadControl.h>
#include <hps/NavigationCubeControl.h>
#include <set>

using namespace HPS;

namespace
{

std::vector<CubeRegion> allRegions()
{
    std::vector<CubeRegion> regions;
    for (int i = 0; i < 27; ++i)
        if (i != 13) regions.push_back({i % 3 - 1, i / 3 % 3 - 1, i / 9 - 1});
    return regions;
}

/// Which way is up, and which way the front looks.
struct Orientation {
    char const* name;
    Vector up, front;
};
Orientation const orientations[] = {
    {"z up", {0, 0, 1}, {1, 0, 0}}, {"y up", {0, 1, 0}, {0, 0, 1}}, {"slanting", {0, 1, 1}, {1, 0, 0.2f}}};

class Cube : public testing::Test
{
protected:
    Cube() : stage(640, 360), cube(stage.view.GetNavigationCubeControl())
    {
        insertBox(stage.root(), {-1, -1, -1}, {1, 1, 1});
        cube.SetVisibility(true).SetInteractivity(true).SetSize(0.3f);
    }
    /// The middle of the cube in the window, from -1 to 1: in the upper right corner.
    static constexpr Point middle{0.7f, 0.7f, 0};
    bool find(Point const& at, CubeRegion& region) { return cube.FindRegion(stage.window(), at, region); }

    Stage stage;
    NavigationCubeControl cube;
};

TEST_F(Cube, eachRegionIsHitFromItsOwnCamera)
{
    for (Orientation const& orientation : orientations) {
        stage.model.SetOrientation(orientation.up, orientation.front);
        for (CubeRegion const& region : allRegions()) {
            CameraKit camera;
            ASSERT_TRUE(cube.ComputeCamera(region, camera));
            stage.view.SetCamera(camera);
            CubeRegion found;
            EXPECT_TRUE(find(middle, found) && found == region)
                << orientation.name << ": " << region.right << region.up << region.front << " is "
                << found.right << found.up << found.front;
        }
    }
}

TEST_F(Cube, camerasTurnAboutTheirTarget)
{
    stage.model.SetOrientation({0, 0, 1}, {1, 0, 0});
    CameraKit before, camera;
    before.SetPosition({3, 4, 12}).SetTarget({1, 2, 3}).SetUpVector({0, 1, 0}).SetField(7, 5);
    before.SetProjection(Camera::Projection::Perspective);
    stage.view.SetCamera(before);
    float const distance = std::sqrt(4.f + 4 + 81);
    struct Expected {
        CubeRegion region;
        Vector direction, up;
    };
    for (Expected const& e : {Expected{{0, 0, 1}, {1, 0, 0}, {0, 0, 1}}, // front
                              {{0, 0, -1}, {-1, 0, 0}, {0, 0, 1}},
                              {{1, 0, 0}, {0, 1, 0}, {0, 0, 1}},
                              {{-1, 0, 0}, {0, -1, 0}, {0, 0, 1}},
                              {{0, 1, 0}, {0, 0, 1}, {-1, 0, 0}},
                              {{0, -1, 0}, {0, 0, -1}, {1, 0, 0}},
                              {{1, 1, 1}, Vector::Unit(), {0, 0, 1}}}) {
        ASSERT_TRUE(cube.ComputeCamera(e.region, camera));
        Point position, target;
        Vector up;
        float width = 0, height = 0;
        Camera::Projection projection{};
        camera.ShowPosition(position);
        camera.ShowTarget(target);
        camera.ShowUpVector(up);
        camera.ShowField(width, height);
        camera.ShowProjection(projection);
        EXPECT_EQ(target, Point(1, 2, 3));
        Point const expected = target + e.direction * distance;
        EXPECT_NEAR((position - expected).Length(), 0, 1e-4);
        EXPECT_NEAR((up - e.up).Length(), 0, 1e-6);
        EXPECT_EQ(width, 7);
        EXPECT_EQ(height, 5);
        EXPECT_EQ(projection, Camera::Projection::Perspective);
    }
    EXPECT_FALSE(cube.ComputeCamera({}, camera));
}

TEST_F(Cube, whatFacesTheViewerIsFoundAndNothingElse)
{
    stage.model.SetOrientation({0, 1, 0}, {0, 0, 1});
    stage.look({5, 5, 5});
    std::set<std::tuple<int, int, int>> found;
    for (float x = 0.4f; x <= 1; x += 0.004f)
        for (float y = 0.4f; y <= 1; y += 0.004f)
            if (CubeRegion r; find({x, y, 0}, r)) found.insert({r.right, r.up, r.front});
    // Three sides, the corner between them with its three edges, and what leans over the outline: the other
    // three corners and six edges of these sides.
    for (auto const& [right, up, front] : found) EXPECT_GE(right + up + front, 0);
    EXPECT_TRUE(found.contains({1, 1, 1}));
    EXPECT_TRUE(found.contains({0, 1, 0}));
    EXPECT_TRUE(found.contains({0, 1, 1}));
    EXPECT_TRUE(found.contains({1, 1, -1}));
    EXPECT_EQ(found.size(), 10u); // 3 sides, 3 edges, 1 corner in front; 3 corners at the rim
    CubeRegion region;
    EXPECT_FALSE(find({0, 0, 0}, region));
    EXPECT_FALSE(find({0.41f, 0.99f, 0}, region)); // within the corner, beside the cube
}

TEST_F(Cube, onlyAnInteractiveCubeIsFound)
{
    CubeRegion region;
    EXPECT_TRUE(find(middle, region));
    cube.SetInteractivity(false);
    EXPECT_FALSE(find(middle, region));
    cube.SetInteractivity(true).SetVisibility(false);
    EXPECT_FALSE(find(middle, region));
    cube.SetVisibility(true).SetLocation(Corner::Location::BottomLeft);
    EXPECT_FALSE(find(middle, region));
    EXPECT_TRUE(find({-0.7f, -0.7f, 0}, region));
    cube.SetLocation(Corner::Location::Custom, Rectangle(-0.2f, 0.2f, -0.2f, 0.2f));
    EXPECT_TRUE(find({0, 0, 0}, region));
}

TEST_F(Cube, isNoPartOfTheScene)
{
    SimpleSphere sphere;
    SimpleCuboid cuboid;
    ASSERT_TRUE(stage.viewSegment().GetBoundingControl().ShowVolume(sphere, cuboid));
    stage.view.GetAxisTriadControl().SetVisibility(true);
    SimpleCuboid after;
    ASSERT_TRUE(stage.viewSegment().GetBoundingControl().ShowVolume(sphere, after));
    EXPECT_EQ(cuboid.max, Point(1, 1, 1));
    EXPECT_EQ(after.max, Point(1, 1, 1));
}

TEST_F(Cube, keepsWhatItIsToldAndSurvivesItsView)
{
    EXPECT_EQ(cube.GetSize(), 0.3f);
    cube.SetSize(-1).SetSize(2);
    EXPECT_EQ(cube.GetSize(), 0.3f);
    UTF8 palette;
    EXPECT_FALSE(cube.ShowMaterialPalette(palette));
    cube.SetMaterialPalette("NavCubeColors");
    EXPECT_TRUE(cube.ShowMaterialPalette(palette));
    EXPECT_EQ(palette, UTF8("NavCubeColors"));
    stage.viewSegment().Flush(); // takes the cube's segment along
    cube.SetVisibility(true);
    EXPECT_EQ(cube.GetSegmentKey().Type(), Type::SegmentKey);
    stage.view.Delete();
    cube.SetVisibility(true).SetSize(0.2f).Highlight({1, 0, 0});
    EXPECT_FALSE(cube.GetVisibility());
    EXPECT_TRUE(cube.GetSegmentKey().Empty());
}

} // namespace
