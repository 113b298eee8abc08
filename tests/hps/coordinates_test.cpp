#include "store.h"
#include "structure.h"
#include "support.h"

using namespace HPS;
using Space = Coordinate::Space;

namespace
{

// A window of 800 by 400 pixels that shows a part from the front, 10 away.
class Coordinates : public Scene
{
protected:
    SegmentKey window{scene::store().indexOf(scene::createSegment(nullptr, {}, Type::ApplicationWindowKey))};
    SegmentKey view = window.Subsegment("view"), part = view.Subsegment("part");
    KeyPath const path{KeyArray{part, view, window}};

    Coordinates()
    {
        auto& record = *scene::store().resolve<scene::WindowRecord>(window);
        record.width = 800;
        record.height = 400;
        part.GetModellingMatrixControl().Translate(0, 0, 1);
        look(Camera::Projection::Orthographic);
    }
    ~Coordinates() override { window.Delete(); }
    void look(Camera::Projection projection)
    {
        view.GetCameraControl().SetPosition({5, -10, 0}).SetTarget({5, 0, 0}).SetUpVector({0, 0, 1});
        view.GetCameraControl().SetProjection(projection).SetField(4, 4);
    }
    std::optional<Point> convert(Space from, Point const& point, Space to)
    {
        Point converted;
        return path.ConvertCoordinate(from, point, to, converted) ? std::optional(converted) : std::nullopt;
    }
};

MATCHER_P(Near, point, "")
{
    return arg && (*arg - point).Length() < 1e-4;
}

TEST_F(Coordinates, OfThePartInEverySpace)
{
    // The field of 4 by 4 fills the height; the width shows twice as much.
    Point const object(6, 2, 0);
    EXPECT_THAT(convert(Space::Object, object, Space::World), Near(Point(6, 2, 1)));
    EXPECT_THAT(convert(Space::Object, object, Space::Camera), Near(Point(1, 1, -2)));
    EXPECT_THAT(convert(Space::Object, object, Space::Window), Near(Point(0.25f, 0.5f, -0.2f)));
    EXPECT_THAT(convert(Space::Object, object, Space::Pixel), Near(Point(500, 100, -0.2f)));
    look(Camera::Projection::Perspective);
    EXPECT_THAT(convert(Space::Object, object, Space::Pixel), Near(Point(483.3333f, 116.6667f, -1 / 6.0f)));
    EXPECT_THAT(convert(Space::World, {5, 0, 0}, Space::Window), Near(Point(0, 0, 0)));
    EXPECT_THAT(convert(Space::Pixel, {0, 0, 0}, Space::Window), Near(Point(-1, 1, 0)));
    EXPECT_THAT(convert(Space::Pixel, {0, 0, 0}, Space::World), Near(Point(1, 0, 2)));
}

TEST_F(Coordinates, GoBackTheWayTheyCame)
{
    std::vector spaces{Space::Object, Space::World,       Space::Camera,    Space::Window,
                       Space::Pixel,  Space::InnerWindow, Space::InnerPixel};
    view.SetSubwindow(SubwindowKit().SetSubwindow({-1, 0, -0.5f, 1}, {10, 0, 0, -20}));
    for (auto const projection : {Camera::Projection::Orthographic, Camera::Projection::Perspective}) {
        look(projection);
        Point const start(5.5f, 1, 0.25f);
        for (auto const a : spaces)
            for (auto const b : spaces) {
                auto const there = convert(Space::Object, start, a);
                auto const across = there ? convert(a, *there, b) : std::nullopt;
                ASSERT_TRUE(across) << int(a) << int(b);
                EXPECT_THAT(convert(b, *across, Space::Object), Near(start)) << int(a) << int(b);
            }
    }
}

TEST_F(Coordinates, OfASubwindowCountWithinIt)
{
    // The left half of the window, but for 100 pixels at the bottom.
    view.SetSubwindow(SubwindowKit().SetSubwindow({-1, 0, -1, 1}, {0, 0, 100, 0}));
    EXPECT_THAT(convert(Space::World, {5, 0, 0}, Space::InnerWindow), Near(Point(0, 0, 0)));
    EXPECT_THAT(convert(Space::World, {5, 0, 0}, Space::InnerPixel), Near(Point(200, 150, 0)));
    EXPECT_THAT(convert(Space::World, {5, 0, 0}, Space::Pixel), Near(Point(200, 150, 0)));
    EXPECT_THAT(convert(Space::InnerWindow, {1, -1, 0}, Space::Pixel), Near(Point(400, 300, 0)));
    EXPECT_THAT(convert(Space::Window, {1, 1, 0}, Space::InnerWindow), Near(Point(3, 1, 0)));
}

TEST_F(Coordinates, WithoutAnAnswerChangeNothing)
{
    look(Camera::Projection::Perspective);
    EXPECT_FALSE(convert(Space::World, {5, -10, 0}, Space::Window)) << "at the eye";
    EXPECT_FALSE(convert(Space::World, {5, -20, 0}, Space::Window)) << "behind it";
    EXPECT_FALSE(convert(Space::Window, {0, 0, -1}, Space::World));
    Point point(1, 2, 3);
    KeyPath const windowless(KeyArray{part, view});
    EXPECT_TRUE(windowless.ConvertCoordinate(Space::Object, {0, 0, 0}, Space::Camera, point));
    point = {1, 2, 3};
    EXPECT_FALSE(windowless.ConvertCoordinate(Space::Object, {0, 0, 0}, Space::Pixel, point));
    part.SetModellingMatrix(MatrixKit().Scale(0, 1, 1));
    EXPECT_FALSE(path.ConvertCoordinate(Space::World, Point(), Space::Object, point));
    part.Delete();
    EXPECT_FALSE(path.ConvertCoordinate(Space::World, Point(), Space::Camera, point));
    EXPECT_FALSE(KeyPath().ConvertCoordinate(Space::World, Point(), Space::Camera, point));
    EXPECT_EQ(point, Point(1, 2, 3));
}

TEST_F(Coordinates, TheExtentOfALeafIsWhatItTakesOfTheWindow)
{
    Rectangle extent;
    EXPECT_FALSE(path.ComputeExtent(extent)) << "nothing to be seen";
    auto const line = part.InsertLine({4, 0, -1}, {6, 0, 0});
    ASSERT_TRUE(KeyPath(path).PushFront(line).ComputeExtent(extent));
    EXPECT_NEAR(extent.left, -0.25, 1e-5);
    EXPECT_NEAR(extent.right, 0.25, 1e-5);
    EXPECT_NEAR(extent.bottom, 0, 1e-5);
    EXPECT_NEAR(extent.top, 0.5, 1e-5);
    look(Camera::Projection::Perspective);
    part.InsertMarker({5, -30, 0});
    EXPECT_TRUE(path.ComputeExtent(extent)) << "a part of it is behind the eye";
    part.Flush();
    part.InsertMarker({5, -30, 0});
    EXPECT_FALSE(path.ComputeExtent(extent)) << "all of it is";
}

} // namespace
