#include "operation.h"

using namespace HPS;
using Coordinate::Space;

OperationRows pathOperations()
{
    return {
        {"KeyPath::PushFront and the rest", "conversion of tree ids",
         [](Bench& b) {
             KeyPath path;
             EXPECT_TRUE(path.Empty());
             path.PushFront(b.top).PushFront(b.instance).PushFront(b.include);
             EXPECT_EQ(path, KeyPath(KeyArray{b.include, b.instance, b.top}));
             EXPECT_EQ(path.Front(), b.include);
             EXPECT_EQ(path.Back(), b.top);
             EXPECT_EQ(KeyPath(path).Reverse(), KeyPath(KeyArray{b.top, b.instance, b.include}));
             EXPECT_EQ(KeyPath(path).PopFront().PopBack(), KeyPath(KeyArray{b.instance}));
             EXPECT_EQ(KeyPath(path).PushBack(b.window()).Size(), 4u);
             EXPECT_TRUE(path.At(9).Empty());
             EXPECT_TRUE(KeyPath().PopFront().Reverse().Empty());
         }},
        {"SprocketPath::GetKeyPath", "view widget",
         [](Bench& b) {
             auto const path = b.modelPath();
             EXPECT_EQ(path.Front(), b.top);
             EXPECT_EQ(path.Back(), b.window());
         }},
        {"KeyPath::ShowNetBounding", "zoom to a node",
         [](Bench& b) {
             b.instance.SetModellingMatrix(MatrixKit().Scale(2, 2, 2).Translate(10, 0, 0));
             BoundingKit kit;
             SimpleSphere sphere;
             SimpleCuboid box;
             ASSERT_TRUE(b.shellPath().ShowNetBounding(kit));
             ASSERT_TRUE(kit.ShowVolume(sphere, box));
             EXPECT_EQ(box.min, Point(10, 0, 0));
             EXPECT_EQ(box.max, Point(12, 2, 0));
             SimpleCuboid sum;
             EXPECT_FALSE(sum.IsValid());
             sum.Merge(box);
             EXPECT_TRUE(sum.IsValid());
             b.shell.Delete();
             EXPECT_FALSE(b.shellPath().ShowNetBounding(kit)) << "a key of the path is stale";
             EXPECT_FALSE(KeyPath().ShowNetBounding(kit));
         }},
        {"KeyPath::ShowNetBounding of joined paths", "conversion of tree ids",
         [](Bench& b) {
             b.part.SetModellingMatrix(MatrixKit().Translate(1, 0, 0));
             auto path = b.modelPath().PushFront(KeyPath(KeyArray{b.part, b.include, b.instance}));
             path.PushFront(KeyPath(KeyArray{b.shell, b.body, b.part}));
             BoundingKit kit;
             SimpleSphere sphere;
             SimpleCuboid box;
             ASSERT_TRUE(path.ShowNetBounding(kit) && kit.ShowVolume(sphere, box));
             EXPECT_EQ(box.max, Point(2, 1, 0)) << "the part stands in it twice and counts once";
             b.window().GetHighlightControl().Highlight(path, HighlightOptionsKit::GetDefault());
             std::vector<HighlightOptionsKit> options;
             EXPECT_TRUE(b.window().GetHighlightControl().ShowHighlight(b.shellPath(), options));
         }},
        {"KeyPath::ShowNetBounding of what changes", "zoom to a node",
         [](Bench& b) {
             BoundingKit kit;
             SimpleSphere sphere;
             SimpleCuboid box;
             auto const high = [&] {
                 EXPECT_TRUE(b.modelPath().ShowNetBounding(kit) && kit.ShowVolume(sphere, box));
                 return box.max;
             };
             EXPECT_EQ(high(), Point(1, 1, 0));
             auto hidden = b.part.Subsegment("hidden");
             hidden.InsertMarker({9, 9, 9});
             EXPECT_EQ(high(), Point(9, 9, 9));
             hidden.GetBoundingControl().SetExclusion(true);
             EXPECT_EQ(high(), Point(1, 1, 0));
             auto marker = b.model.GetLibraryKey().InsertMarker({3, 3, 3});
             b.body.ReferenceGeometry(marker);
             EXPECT_EQ(high(), Point(3, 3, 3));
             marker.SetPoint({2, 2, 2});
             EXPECT_EQ(high(), Point(2, 2, 2));
             marker.Delete();
             EXPECT_EQ(high(), Point(1, 1, 0));
         }},
        {"KeyPath::ComputeExtent", "zoom to a picked item",
         [](Bench& b) {
             auto camera = CameraKit::GetDefault();
             camera.SetPosition({0, 0, 10}).SetTarget({0, 0, 0}).SetUpVector({0, 1, 0}).SetField(4, 4);
             b.view.GetSegmentKey().SetCamera(camera.SetProjection(Camera::Projection::Orthographic));
             Rectangle extent;
             ASSERT_TRUE(b.shellPath().ComputeExtent(extent));
             EXPECT_FLOAT_EQ(extent.bottom, 0);
             EXPECT_FLOAT_EQ(extent.top, 0.5f);
             EXPECT_FLOAT_EQ(extent.right, 0.25f) << "the window is twice as wide as high";
         }},
        {"KeyPath::ConvertCoordinate", "pick ray",
         [](Bench& b) {
             b.instance.SetModellingMatrix(MatrixKit().Translate(5, 0, 0));
             Point point;
             ASSERT_TRUE(b.shellPath().ConvertCoordinate(Space::Object, {1, 0, 0}, Space::World, point));
             EXPECT_EQ(point, Point(6, 0, 0));
             Point back;
             ASSERT_TRUE(b.shellPath().ConvertCoordinate(Space::World, point, Space::Object, back));
             EXPECT_EQ(back, Point(1, 0, 0));
         }},
        {"WindowKey::ConvertCoordinate", "event bridge",
         [](Bench& b) {
             Point point;
             ASSERT_TRUE(b.window().ConvertCoordinate(Space::Pixel, {150, 25, 0}, Space::Window, point));
             EXPECT_EQ(point, Point(0.5f, 0.5f, 0));
         }},
    };
}
