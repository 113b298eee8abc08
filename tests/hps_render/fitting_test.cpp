// Cameras that views choose.
#include "scenes.h"

namespace HPS
{
namespace
{

using Fitting = ScenePictures;

TEST_F(Fitting, FitWorldFramesWhatIsVisibleInEitherProjection)
{
    SegmentKey part = root.Subsegment("part");
    insertSquare(part);
    part.GetModellingMatrixControl().Scale(30, 20, 1).Translate(500, 400, -3);
    SegmentKey left = root.Subsegment("left out");
    insertSquare(left, 0, 5000);
    left.GetVisibilityControl().SetEverything(false);
    left.GetBoundingControl().SetExclusion(true);
    colour(root, {1, 0, 0, 1});
    for (auto projection : {Camera::Projection::Orthographic, Camera::Projection::Perspective}) {
        view.GetSegmentKey().GetCameraControl().SetProjection(projection);
        ASSERT_TRUE(view.FitWorld());
        render::Image const image = picture();
        int low = 80, high = 0;
        for (int x = 0; x < 80; ++x)
            if (image.at(x, 40) == red) low = std::min(low, x), high = std::max(high, x);
        EXPECT_GE(low, 1);
        EXPECT_LE(low, 6);
        EXPECT_GE(high, 73);
        EXPECT_LE(high, 78);
        EXPECT_NE(image.at(40, 8), red);
        EXPECT_EQ(image.at(40, 20), red);
    }
}

TEST_F(Fitting, FitWorldGoesByPointsNotByBoxes)
{
    // A needle across the box's diagonal, seen along it and across: its box would need far more room.
    std::vector<Point> needle;
    for (int i = 0; i <= 40; ++i) needle.emplace_back(float(i), float(i), float(i % 2));
    root.GetMaterialMappingControl().SetLineColor({0, 1, 0, 1});
    root.InsertLine(needle);
    SegmentKey hidden = root.Subsegment("hidden");
    insertSquare(hidden, 0, 900);
    hidden.GetVisibilityControl().SetEverything(false);
    for (auto projection : {Camera::Projection::Orthographic, Camera::Projection::Perspective}) {
        CameraKit camera;
        camera.SetPosition({10, 10, 0.5f}).SetTarget({0, 0, 0}).SetUpVector({0, 0, 1}).SetField(4, 4);
        camera.SetProjection(projection);
        view.SetCamera(camera);
        ASSERT_TRUE(view.FitWorld());
        CameraKit fitted, again;
        view.ShowCamera(fitted);
        float width = 0, height = 0;
        fitted.ShowField(width, height);
        EXPECT_LT(width, 3);
        ASSERT_TRUE(view.FitWorld());
        view.ShowCamera(again);
        Point a, b;
        fitted.ShowPosition(a);
        again.ShowPosition(b);
        EXPECT_LT((a - b).Length(), 0.02 * (a - Point(20, 20, 0)).Length());
    }
}

TEST_F(Fitting, AViewStartsFromTheFrontRightTopOfTheModelsOrientation)
{
    insertSquare(root.Subsegment("part"));
    struct {
        Vector up, front, right;
    } const cases[] = {{{0, 0, 1}, {1, 0, 0}, {0, 1, 0}}, {{0, 1, 0}, {0, 0, 1}, {1, 0, 0}}};
    for (auto const& c : cases) {
        ASSERT_TRUE(model.SetOrientation(c.up, c.front));
        View fresh = Factory::CreateView();
        fresh.AttachModel(model);
        ASSERT_TRUE(fresh.FitWorld());
        CameraKit camera;
        ASSERT_TRUE(fresh.ShowCamera(camera));
        Point position, target;
        camera.ShowPosition(position);
        camera.ShowTarget(target);
        Vector const eye = position - target;
        for (Vector const& axis : {c.up, c.front, c.right}) EXPECT_GT(eye.Dot(axis), 0.4 * eye.Length());
        fresh.Delete();
    }
    EXPECT_FALSE(model.SetOrientation({0, 0, 1}, {0, 0, -2}));
}

TEST_F(Fitting, NothingToFrameChangesNothing)
{
    CameraKit before, after;
    view.ShowCamera(before);
    EXPECT_FALSE(view.FitWorld());
    view.ShowCamera(after);
    EXPECT_EQ(before, after);
}

} // namespace
} // namespace HPS
