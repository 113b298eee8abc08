// A view on a canvas without a window, and the user's input to it.
#pragma once
#include <gtest/gtest.h>
#include <hps/Factory.h>
#include <hps/KeyPath.h>
#include <hps/Operator.h>
#include <hps/SprocketPath.h>
#include <hps/hps.h>

namespace HPS
{

class OperatorTest : public testing::Test
{
protected:
    static constexpr int width = 300, height = 200;

    OperatorTest()
    {
        canvas.AttachViewAsLayout(view);
        view.AttachModel(model);
        // 6 by 4 units are seen at the target.
        CameraKit camera;
        camera.SetPosition({0, 0, 10}).SetTarget({0, 0, 0}).SetUpVector({0, 1, 0}).SetField(6, 4);
        camera.SetProjection(Camera::Projection::Perspective);
        view.SetCamera(camera);
        model.SetOrientation({0, 1, 0}, {0, 0, 1});
    }
    ~OperatorTest() override
    {
        canvas.Delete();
        view.Delete();
        model.Delete();
    }

    bool inject(Event const& event) { return canvas.GetWindowKey().GetEventDispatcher().InjectEvent(event); }
    bool mouse(MouseEvent::Action action, float x, float y, MouseButtons button = {}, ModifierKeys held = {})
    {
        MouseEvent event(action);
        event.CurrentButton = button;
        event.Location = {x, y, 0};
        event.ModifierKeyState = held;
        return inject(event);
    }
    bool press(float x, float y, MouseButtons button = MouseButtons::ButtonLeft(), ModifierKeys held = {})
    {
        return mouse(MouseEvent::Action::ButtonDown, x, y, button, held);
    }
    bool release(float x, float y, MouseButtons button = MouseButtons::ButtonLeft())
    {
        return mouse(MouseEvent::Action::ButtonUp, x, y, button);
    }
    bool moveTo(float x, float y) { return mouse(MouseEvent::Action::Move, x, y); }
    bool wheel(float x, float y, float delta, ModifierKeys held = {})
    {
        MouseEvent event(MouseEvent::Action::Scroll);
        event.Location = {x, y, 0};
        event.WheelDelta = delta;
        event.ModifierKeyState = held;
        return inject(event);
    }

    Point eye() const
    {
        Point position;
        camera().ShowPosition(position);
        return position;
    }
    Point target() const
    {
        Point at;
        camera().ShowTarget(at);
        return at;
    }
    float fieldHeight() const
    {
        float w = 0, h = 0;
        camera().ShowField(w, h);
        return h;
    }
    CameraKit camera() const
    {
        CameraKit kit;
        view.ShowCamera(kit);
        return kit;
    }
    /// Where the window shows a point of the world.
    Point seenAt(Point const& world) const
    {
        Point window;
        canvas.GetWindowKey().ConvertCoordinate(Coordinate::Space::World, world, Coordinate::Space::Window,
                                                window);
        return window;
    }
    Point worldAt(float x, float y) const
    {
        Point world;
        canvas.GetWindowKey().ConvertCoordinate(Coordinate::Space::Window, {x, y, 0},
                                                Coordinate::Space::World, world);
        return world;
    }

    Canvas canvas = Factory::CreateOffScreenCanvas(width, height);
    View view = Factory::CreateView();
    Model model = Factory::CreateModel();
};

inline void expectNear(Point const& a, Point const& b, float tolerance = 1e-4f)
{
    EXPECT_NEAR(a.x, b.x, tolerance);
    EXPECT_NEAR(a.y, b.y, tolerance);
    EXPECT_NEAR(a.z, b.z, tolerance);
}

} // namespace HPS
