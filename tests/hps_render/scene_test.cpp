// Pictures of scenes made through the public interface.
#include "image.h"
#include <gtest/gtest.h>
#include <hps/Factory.h>
#include <hps/KeyPath.h>
#include <hps/SprocketPath.h>
#include <hps/WindowKey.h>
#include <hps/hps.h>

namespace HPS
{
namespace
{

using render::Image;
using render::Pixel;

Pixel const red{255, 0, 0}, green{0, 255, 0}, blue{0, 0, 255}, black{0, 0, 0};

/// A model that holds squares, seen along the z axis on x and y from -2 to 2, without a light.
class ScenePictures : public testing::Test
{
protected:
    void SetUp() override
    {
        canvas.AttachViewAsLayout(view);
        view.AttachModel(model);
        setCamera(canvas, {0, 0, 10});
        view.GetSegmentKey().GetVisibilityControl().SetEdges(false).SetMarkers(false);
        canvas.GetWindowKey()
            .GetMaterialMappingControl()
            .SetWindowColor(RGBAColor::Black())
            .SetWindowContrastColor(RGBAColor::Black());
    }
    void TearDown() override
    {
        canvas.Delete();
        view.Delete();
        model.Delete();
    }

    static void setCamera(Canvas const& which, Point const& position)
    {
        CameraKit camera;
        camera.SetPosition(position).SetTarget({0, 0, 0}).SetUpVector({0, 1, 0}).SetField(4, 4);
        camera.SetProjection(Camera::Projection::Orthographic);
        which.GetFrontView().SetCamera(camera);
    }

    static ShellKey insertSquare(SegmentKey segment, float z = 0, float half = 1)
    {
        return segment.InsertShell({{-half, -half, z}, {half, -half, z}, {half, half, z}, {-half, half, z}},
                                   {4, 0, 1, 2, 3});
    }
    static void colour(SegmentKey const& segment, RGBAColor const& c)
    {
        segment.GetMaterialMappingControl().SetFaceColor(c);
    }

    Image picture() { return picture(canvas); }
    static Image picture(Canvas const& of, Window::UpdateType type = Window::UpdateType::Default)
    {
        UTF8 cause;
        EXPECT_TRUE(of.Update(type)) << (of.ShowFailure(cause) ? cause.GetBytes() : "");
        Picture pixels;
        EXPECT_TRUE(of.ReadPixels(pixels));
        return {pixels.width, pixels.height, pixels.pixels};
    }
    UpdateReport report() const
    {
        UpdateReport r;
        canvas.ShowUpdateReport(r);
        return r;
    }

    Canvas canvas = Factory::CreateOffScreenCanvas(80, 80);
    View view = Factory::CreateView("the view");
    Model model = Factory::CreateModel("the model");
    SegmentKey root = model.GetSegmentKey();
};

TEST_F(ScenePictures, AShellShowsInTheColourSetAbove)
{
    SegmentKey part = root.Subsegment("part");
    insertSquare(part);
    colour(root, {1, 0, 0, 1});
    Image const image = picture();
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
    Image const image = picture();
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
    Image const image = picture();
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
    Image const image = picture();
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
        Image const image = picture();
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
    Image const image = picture();
    EXPECT_EQ(image.at(25, 40), red);
    EXPECT_EQ(image.at(40, 30), black); // the notch
}

TEST_F(ScenePictures, MarkersShowInTheirSize)
{
    view.GetSegmentKey().GetVisibilityControl().SetMarkers(true);
    root.GetMaterialMappingControl().SetMarkerColor({0, 1, 0, 1});
    root.GetMarkerAttributeControl().SetSize(10, Marker::SizeUnits::Pixels).SetSymbol("solid circle");
    root.InsertMarker(Point(0.025f, 0.025f, 0));
    Image const image = picture();
    EXPECT_EQ(image.at(40, 39), green);
    EXPECT_EQ(image.at(43, 39), green);
    EXPECT_EQ(image.at(47, 39), black);
}

TEST_F(ScenePictures, ACameraMoveMakesNothingAnew)
{
    insertSquare(root);
    colour(root, {1, 0, 0, 1});
    picture();
    EXPECT_EQ(report().compiledViews, 1u);
    setCamera(canvas, {0, 10, 10});
    Image const moved = picture();
    EXPECT_EQ(report().compiledViews, 0u);
    EXPECT_EQ(report().uploadedMeshes, 0u);
    EXPECT_EQ(moved.at(40, 23), black); // seen at a slant the square is lower
    EXPECT_EQ(moved.at(40, 40), red);
}

TEST_F(ScenePictures, AnEditShowsAndUploadsOnlyWhatItTouched)
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

TEST_F(ScenePictures, AnUpdateWithoutAChangeDrawsNothing)
{
    insertSquare(root);
    Image const first = picture();
    Image const again = picture();
    EXPECT_EQ(report().drawCalls, 0u);
    EXPECT_EQ(first.bytes, again.bytes);
    Image const refreshed = picture(canvas, Window::UpdateType::Refresh);
    EXPECT_GT(report().drawCalls, 0u);
    EXPECT_EQ(report().compiledViews, 0u);
    EXPECT_EQ(first.bytes, refreshed.bytes);
    Image const anew = picture(canvas, Window::UpdateType::Exhaustive);
    EXPECT_EQ(report().compiledViews, 1u);
    EXPECT_EQ(first.bytes, anew.bytes);
}

TEST_F(ScenePictures, TwoCanvasesShowOneModelEachInItsOwnWay)
{
    insertSquare(root);
    colour(root, {1, 0, 0, 1});
    Canvas other = Factory::CreateOffScreenCanvas(160, 40);
    View second = Factory::CreateView();
    other.AttachViewAsLayout(second);
    second.AttachModel(model);
    setCamera(other, {0, 0, 10});
    second.GetSegmentKey().GetVisibilityControl().SetEdges(false);
    Image const here = picture();
    Image const there = picture(other);
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

TEST_F(ScenePictures, ResizingTakesEffectAtTheNextUpdate)
{
    insertSquare(root, 0, 100);
    colour(root, {1, 0, 0, 1});
    picture();
    ASSERT_TRUE(canvas.SetSize(200, 50));
    Image const image = picture();
    EXPECT_EQ(image.bytes.size(), 200u * 50u * 4u);
    EXPECT_EQ(image.at(199, 49), red);
    unsigned width = 0, height = 0;
    ASSERT_TRUE(canvas.GetWindowKey().GetWindowInfoControl().ShowWindowPixels(width, height));
    EXPECT_EQ(width, 200u);
    for (auto [w, h] : {std::pair{0, 10}, {10, -1}, {20000, 10}}) EXPECT_FALSE(canvas.SetSize(w, h));
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

TEST_F(ScenePictures, FitWorldFramesWhatIsVisibleInEitherProjection)
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
        Image const image = picture();
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

TEST_F(ScenePictures, FitWorldGoesByPointsNotByBoxes)
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

TEST_F(ScenePictures, AViewStartsFromTheFrontRightTopOfTheModelsOrientation)
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

TEST_F(ScenePictures, NothingToFrameChangesNothing)
{
    CameraKit before, after;
    view.ShowCamera(before);
    EXPECT_FALSE(view.FitWorld());
    view.ShowCamera(after);
    EXPECT_EQ(before, after);
}

TEST_F(ScenePictures, LayersLieOneAboveTheOther)
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
    Image const image = picture();
    EXPECT_EQ(image.at(40, 40), green);
    EXPECT_EQ(image.at(5, 5), red);
    front.Delete();
    second.Delete();
    EXPECT_EQ(canvas.GetAttachedLayout().GetLayerCount(), 1u);
    EXPECT_EQ(picture().at(40, 40), red);
}

TEST_F(ScenePictures, AStaleHandleIsHarmless)
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

TEST_F(ScenePictures, ThePathOfTheSprocketsRunsFromTheModelToTheWindow)
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

} // namespace
} // namespace HPS
