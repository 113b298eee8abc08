// Updates, sizes, layers and handles.
#include "scenes.h"
#include <limits>

namespace HPS
{
namespace
{

using CanvasPictures = ScenePictures;

TEST_F(CanvasPictures, ACameraMoveMakesNothingAnew)
{
    insertSquare(root);
    colour(root, {1, 0, 0, 1});
    picture();
    EXPECT_EQ(report().compiledViews, 1u);
    setCamera(canvas, {0, 10, 10});
    render::Image const moved = picture();
    EXPECT_EQ(report().compiledViews, 0u);
    EXPECT_EQ(report().uploadedMeshes, 0u);
    EXPECT_EQ(moved.at(40, 23), black); // seen at a slant the square is lower
    EXPECT_EQ(moved.at(40, 40), red);
}

TEST_F(CanvasPictures, AnEditShowsAndUploadsOnlyWhatItTouched)
{
    SegmentKey parts[3];
    ShellKey shells[3];
    for (int i = 0; i < 3; ++i) {
        parts[i] = root.Subsegment(std::to_string(i));
        shells[i] = insertSquare(parts[i], float(i), 0.3f);
        parts[i].GetModellingMatrixControl().Translate(i - 1.0, 0, 0);
    }
    colour(root, {1, 0, 0, 1});
    picture();
    EXPECT_EQ(report().uploadedMeshes, 3u);

    colour(parts[1], {0, 1, 0, 1});
    EXPECT_EQ(picture().at(40, 40), green);
    EXPECT_EQ(report().uploadedMeshes, 0u);

    ShellKit kit;
    kit.SetPoints({{-0.3f, -0.3f, 0}, {0.3f, -0.3f, 0}, {0.3f, 1.5f, 0}}).SetFacelist({3, 0, 1, 2});
    ASSERT_TRUE(shells[1].Consume(kit));
    EXPECT_EQ(picture().at(45, 25), green);
    EXPECT_EQ(report().uploadedMeshes, 1u);

    shells[1].Delete();
    insertSquare(parts[2], 0, 0.1f);
    EXPECT_EQ(picture().at(40, 40), black);
    EXPECT_LE(report().uploadedMeshes, 2u);

    parts[0].Delete();
    EXPECT_EQ(picture().at(20, 40), black);
}

TEST_F(CanvasPictures, AnUpdateWithoutAChangeDrawsNothing)
{
    insertSquare(root);
    render::Image const first = picture();
    render::Image const again = picture();
    EXPECT_EQ(report().drawCalls, 0u);
    EXPECT_EQ(first.bytes, again.bytes);
    render::Image const refreshed = picture(canvas, Window::UpdateType::Complete);
    EXPECT_GT(report().drawCalls, 0u);
    EXPECT_EQ(report().compiledViews, 0u);
    EXPECT_EQ(first.bytes, refreshed.bytes);
    render::Image const anew = picture(canvas, Window::UpdateType::Exhaustive);
    EXPECT_EQ(report().compiledViews, 1u);
    EXPECT_EQ(first.bytes, anew.bytes);
}

TEST_F(CanvasPictures, TwoCanvasesShowOneModelEachInItsOwnWay)
{
    insertSquare(root);
    colour(root, {1, 0, 0, 1});
    Canvas other = Factory::CreateOffScreenCanvas(160, 40);
    View second = Factory::CreateView();
    other.AttachViewAsLayout(second);
    second.AttachModel(model);
    setCamera(other, {0, 0, 10});
    second.GetSegmentKey().GetVisibilityControl().SetEdges(false);
    render::Image const here = picture();
    render::Image const there = picture(other);
    EXPECT_EQ(here.at(40, 40), red);
    EXPECT_EQ(there.width, 160);
    EXPECT_EQ(there.at(80, 20), red);
    EXPECT_NE(there.at(60, 20), red);
    UpdateReport r;
    other.ShowUpdateReport(r);
    EXPECT_EQ(r.uploadedMeshes, 0u); // the mesh is there already
    other.Delete();
    second.Delete();
    colour(root, {0, 1, 0, 1});
    EXPECT_EQ(picture().at(40, 40), green);
}

TEST_F(CanvasPictures, ResizingTakesEffectAtTheNextUpdate)
{
    insertSquare(root, 0, 100);
    colour(root, {1, 0, 0, 1});
    picture();
    ASSERT_TRUE(canvas.SetSize(200, 50));
    render::Image const image = picture();
    EXPECT_EQ(image.bytes.size(), 200u * 50u * 4u);
    EXPECT_EQ(image.at(199, 49), red);
    unsigned width = 0, height = 0;
    ASSERT_TRUE(canvas.GetWindowKey().GetWindowInfoControl().ShowWindowPixels(width, height));
    EXPECT_EQ(width, 200u);
    for (auto [w, h] : {std::pair{0, 10}, {10, -1}, {20000, 10}}) EXPECT_FALSE(canvas.SetSize(w, h));
}

TEST_F(CanvasPictures, LayersLieOneAboveTheOther)
{
    insertSquare(root, 0, 100);
    colour(root, {1, 0, 0, 1});
    Model second = Factory::CreateModel();
    insertSquare(second.GetSegmentKey(), -50, 0.5f); // farther, but in front by its layer
    colour(second.GetSegmentKey(), {0, 1, 0, 1});
    View front = Factory::CreateView();
    front.AttachModel(second);
    canvas.GetAttachedLayout().AttachViewFront(front);
    setCamera(canvas, {0, 0, 10});
    render::Image const image = picture();
    EXPECT_EQ(image.at(40, 40), green);
    EXPECT_EQ(image.at(5, 5), red);
    front.Delete();
    second.Delete();
    EXPECT_EQ(canvas.GetAttachedLayout().GetLayerCount(), 1u);
    EXPECT_EQ(picture().at(40, 40), red);
}

TEST_F(CanvasPictures, AStaleHandleIsHarmless)
{
    Model gone = Factory::CreateModel("gone");
    Model const copy = gone;
    SegmentKey const segment = gone.GetSegmentKey();
    view.AttachModel(gone);
    gone.Delete();
    EXPECT_EQ(copy.Type(), Type::None);
    EXPECT_EQ(segment.Type(), Type::None);
    EXPECT_TRUE(copy.GetSegmentKey().Empty());
    EXPECT_TRUE(view.GetAttachedModel().Empty());
    picture();
    Canvas none;
    EXPECT_FALSE(none.Update());
    Picture pixels;
    EXPECT_FALSE(none.ReadPixels(pixels));
}

TEST_F(CanvasPictures, ThePathOfTheSprocketsRunsFromTheModelToTheWindow)
{
    KeyPath const path = SprocketPath(canvas, canvas.GetAttachedLayout(), view, model).GetKeyPath();
    ASSERT_GE(path.Size(), 3u);
    EXPECT_EQ(path.Front(), root);
    EXPECT_EQ(path.Back(), canvas.GetWindowKey());
    // Every key is held, or shown, by the next.
    for (std::size_t i = 0; i + 1 < path.Size(); ++i) {
        IncludeKey const include(path.At(i + 1));
        if (!include.Empty())
            EXPECT_EQ(include.GetTarget(), path.At(i));
        else
            EXPECT_EQ(path.At(i).Owner(), path.At(i + 1));
    }
    EXPECT_TRUE(
        SprocketPath(canvas, canvas.GetAttachedLayout(), view, Factory::CreateModel()).GetKeyPath().Empty());
}

TEST_F(CanvasPictures, ValuesThatAreNoNumbersSpoilNothingElse)
{
    insertSquare(root.Subsegment("good"));
    colour(root, {1, 0, 0, 1});
    float const none = std::numeric_limits<float>::quiet_NaN(), huge = std::numeric_limits<float>::max();
    for (float value : {none, huge, std::numeric_limits<float>::infinity()}) {
        SegmentKey bad = root.Subsegment();
        float elements[16] = {value, 0, 0, 0, 0, 1, 0, 0, 0, 0, value, 0, 0, 0, value, 1};
        bad.GetModellingMatrixControl().SetElements(16, elements);
        insertSquare(bad, 1, 0.3f);
        bad.GetMaterialMappingControl().SetFaceColor({value, 0, value, 1});
        EXPECT_EQ(picture().at(22, 22), red) << value;
        CameraKit camera;
        view.ShowCamera(camera);
        view.GetSegmentKey().GetCameraControl().SetField(value, value).SetPosition({value, 0, 0});
        picture();
        view.SetCamera(camera);
        bad.Delete();
    }
    EXPECT_EQ(picture().at(40, 40), red);
}

} // namespace
} // namespace HPS
