#include "Clock.h"
#include "Presenter.h"
#include "view_fixture.h"
#include <deque>
#include <hps/NavigationCubeControl.h>

namespace HPS
{
namespace
{

double now = 0;
std::deque<std::function<void()>>* frames = nullptr;
int presented = 0;

/// A window of a toolkit whose event loop is the test.
struct TestPresenter : Presenter {
    bool showSize(int& width, int& height) const override
    {
        width = 60;
        height = 40;
        return true;
    }
    void present(Picture const&) override { ++presented; }
    bool requestFrame(std::function<void()> next) override
    {
        frames->push_back(std::move(next));
        return true;
    }
};

class TransitionTest : public OperatorTest
{
protected:
    TransitionTest()
    {
        now = 100;
        presented = 0;
        frames = &queue;
        setClock([] { return now; });
        static PresenterMaker const maker = [](WindowHandle) -> std::unique_ptr<Presenter> {
            return std::make_unique<TestPresenter>();
        };
        setPresenterMaker(maker);
        window = Factory::CreateCanvas(1);
        window.AttachViewAsLayout(view);
        there = camera();
        there.SetPosition({40, 0, 0}).SetTarget({0, 0, 0}).SetUpVector({0, 1, 0}).SetField(24, 16);
    }
    ~TransitionTest() override
    {
        window.Delete();
        setPresenterMaker(nullptr);
        setClock(nullptr);
    }
    /// The next frame, at a time after the start. False if none is asked for.
    bool frameAt(double seconds)
    {
        now = 100 + seconds;
        if (queue.empty()) return false;
        auto const next = queue.front();
        queue.pop_front();
        next();
        return true;
    }

    std::deque<std::function<void()>> queue;
    Canvas window;
    CameraKit there;
};

float distance(Point const& p)
{
    return std::hypot(p.x, p.y, p.z);
}

TEST_F(TransitionTest, SwingsAboutTheTargetAndEndsAtTheCamera)
{
    ASSERT_TRUE(view.SmoothTransition(there, 0.5f));
    expectNear(eye(), {0, 0, 10});
    ASSERT_TRUE(frameAt(0.25));
    // Half of a quarter of a turn, at the geometric mean of the distances.
    EXPECT_NEAR(distance(eye()), 20, 1e-3f);
    EXPECT_NEAR(eye().x, eye().z, 1e-3f);
    EXPECT_NEAR(fieldHeight(), 8, 1e-3f);
    EXPECT_EQ(presented, 1);
    ASSERT_TRUE(frameAt(0.6));
    expectNear(eye(), {40, 0, 0});
    EXPECT_FLOAT_EQ(fieldHeight(), 16);
    EXPECT_FALSE(frameAt(0.7)) << "nothing goes on after the end";
}

TEST_F(TransitionTest, StartsAndEndsGently)
{
    view.SmoothTransition(there, 1);
    auto const angleAt = [&](double seconds) {
        frameAt(seconds);
        return std::atan2(eye().x, eye().z);
    };
    float const first = angleAt(0.1), middle = angleAt(0.45), next = angleAt(0.55), last = angleAt(0.9);
    float const steady = 0.1f * 1.5708f;
    EXPECT_LT(first, 0.5f * steady);
    EXPECT_GT(next - middle, steady);
    EXPECT_GT(last, 1.5708f - 0.5f * steady);
}

TEST_F(TransitionTest, AnotherCameraEndsIt)
{
    view.SmoothTransition(there, 1);
    frameAt(0.3);
    CameraKit users = camera();
    users.SetPosition({1, 2, 3});
    view.SetCamera(users);
    EXPECT_TRUE(frameAt(0.4));
    expectNear(eye(), {1, 2, 3});
    EXPECT_FALSE(frameAt(0.5));
}

TEST_F(TransitionTest, ASecondOneGoesOnFromWhereTheFirstIs)
{
    view.SmoothTransition(there, 1);
    frameAt(0.5);
    Point const between = eye();
    CameraKit back = there;
    back.SetPosition({0, 0, 10}).SetField(6, 4);
    view.SmoothTransition(back, 1);
    expectNear(eye(), between);
    frameAt(0.6); // that of the first, void now
    expectNear(eye(), between);
    frameAt(1.5);
    expectNear(eye(), {0, 0, 10});
    EXPECT_TRUE(queue.empty());
}

TEST_F(TransitionTest, OppositeViewsAndWindowsThatGo)
{
    there.SetPosition({0, 0, -10}).SetField(6, 4);
    view.SmoothTransition(there, 1);
    frameAt(0.5);
    EXPECT_NEAR(distance(eye()), 10, 1e-3f) << "not through the target";
    window.Delete();
    frameAt(0.6);
    expectNear(eye(), {0, 0, -10});
    EXPECT_TRUE(queue.empty());
    there.SetPosition({5, 0, 0});
    view.SmoothTransition(there, 1);
    expectNear(eye(), {5, 0, 0}); // at once where nobody watches
    EXPECT_FALSE(View().SmoothTransition(there));
}

TEST_F(TransitionTest, AClickOnTheNavigationCubeTurnsTheCamera)
{
    canvas.DetachLayout();
    now = 100;
    NavigationCubeControl cube = view.GetNavigationCubeControl();
    cube.SetVisibility(true).SetInteractivity(true).SetSize(0.3f);
    EventDispatcher input = window.GetWindowKey().GetEventDispatcher();
    window.Update();
    auto const send = [&](MouseEvent::Action action, Point const& at) {
        MouseEvent event(action);
        event.Location = at;
        if (action != MouseEvent::Action::Move) event.CurrentButton = MouseButtons::ButtonLeft();
        return input.InjectEvent(event);
    };
    // Where the edge between front and right is, as seen from the front.
    Point at;
    CubeRegion region;
    bool found = false;
    for (int i = 0; i < 200 * 200 && !found; ++i) {
        at = Point(-0.995f + 0.01f * float(i % 200), -0.995f + 0.01f * float(i / 200), 0);
        found = cube.FindRegion(window.GetWindowKey(), at, region) && region == CubeRegion{1, 0, 1};
    }
    ASSERT_TRUE(found);
    Point const beside(0, 0, 0);
    EXPECT_TRUE(send(MouseEvent::Action::Move, at));
    EXPECT_FALSE(send(MouseEvent::Action::Move, beside));
    EXPECT_TRUE(send(MouseEvent::Action::ButtonDown, at));
    EXPECT_TRUE(send(MouseEvent::Action::ButtonUp, beside)) << "drawn off the cube: no click";
    EXPECT_TRUE(queue.empty());
    send(MouseEvent::Action::ButtonDown, at);
    send(MouseEvent::Action::ButtonUp, at);
    frameAt(1);
    EXPECT_NEAR(eye().x, eye().z, 1e-3f);
    EXPECT_NEAR(distance(eye()), 10, 1e-3f);
    cube.SetInteractivity(false);
    EXPECT_FALSE(send(MouseEvent::Action::ButtonDown, at));
}

} // namespace
} // namespace HPS
