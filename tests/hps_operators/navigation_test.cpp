#include "view_fixture.h"
#include <hps/MouseWheelOperator.h>
#include <hps/OrbitOperator.h>
#include <hps/PanOperator.h>
#include <hps/TouchOperator.h>
#include <hps/ZoomOperator.h>
#include <numbers>

namespace HPS
{
namespace
{

class NavigationTest : public OperatorTest
{
protected:
    template <class Navigation, class... Arguments>
    std::shared_ptr<Navigation> use(Arguments const&... arguments)
    {
        auto const pushed = std::make_shared<Navigation>(arguments...);
        view.GetOperatorControl().UnsetEverything();
        view.GetOperatorControl().Push(pushed);
        return pushed;
    }
    void drag(Point const& from, Point const& to, int steps = 1)
    {
        press(from.x, from.y);
        for (int i = 1; i <= steps; ++i) {
            float const t = float(i) / float(steps);
            moveTo(from.x + t * (to.x - from.x), from.y + t * (to.y - from.y));
        }
        release(to.x, to.y);
    }
};

TEST_F(NavigationTest, OrbitTurnsTheEyeAboutTheTarget)
{
    use<OrbitOperator>();
    // 100 of 300 pixels are half of the shorter side: a quarter of a turn, the scene following the mouse.
    drag({0, 0, 0}, {2.0f / 3, 0, 0}, 7);
    expectNear(eye(), {-10, 0, 0}, 1e-3f);
    expectNear(target(), {0, 0, 0});
    drag({0, 0, 0}, {0, 0.5f, 0}, 3);
    expectNear(eye(), {-10 * std::numbers::sqrt2_v<float> / 2, -10 * std::numbers::sqrt2_v<float> / 2, 0},
               1e-3f);
}

TEST_F(NavigationTest, AWholeTurnEndsWhereItBegan)
{
    auto const orbit = use<OrbitOperator>();
    for (auto const style : {OrbitOperator::Style::Free, OrbitOperator::Style::Turntable}) {
        orbit->SetStyle(style);
        for (int i = 0; i < 4; ++i) drag({-0.3f, 0, 0}, {-0.3f + 2.0f / 3, 0, 0}, 25);
        expectNear(eye(), {0, 0, 10}, 1e-3f);
    }
}

TEST_F(NavigationTest, OrbitAboutAPointKeepsItInPlace)
{
    auto const orbit = use<OrbitOperator>();
    orbit->SetCenter({1, 0.5f, 0});
    Point const before = seenAt({1, 0.5f, 0});
    drag({0, 0, 0}, {0.3f, -0.4f, 0}, 5);
    expectNear(seenAt({1, 0.5f, 0}), before, 1e-3f);
    EXPECT_NE(eye(), (Point{0, 0, 10}));
}

TEST_F(NavigationTest, TurntableStopsShortOfThePole)
{
    use<OrbitOperator>()->SetStyle(OrbitOperator::Style::Turntable);
    for (int i = 0; i < 10; ++i) drag({0, 0.9f, 0}, {0, -0.9f, 0}, 9);
    Vector up;
    camera().ShowUpVector(up);
    EXPECT_GT(eye().y, 9.9f);
    EXPECT_GT(eye().z, 0.1f);
    EXPECT_GT(up.y, 0) << "not upside down";
}

TEST_F(NavigationTest, PanKeepsThePointUnderTheMouse)
{
    use<PanOperator>();
    Point const held = worldAt(-0.4f, 0.2f);
    drag({-0.4f, 0.2f, 0}, {0.5f, -0.6f, 0}, 11);
    Point const seen = seenAt(held);
    EXPECT_NEAR(seen.x, 0.5f, 1e-3f);
    EXPECT_NEAR(seen.y, -0.6f, 1e-3f);
    EXPECT_FLOAT_EQ(fieldHeight(), 4);
}

TEST_F(NavigationTest, DragUpZoomsIn)
{
    use<ZoomOperator>();
    drag({0, -0.5f, 0}, {0, 0.5f, 0}, 8);
    float const factor = std::sqrt(8.0f);
    EXPECT_NEAR(fieldHeight(), 4 / factor, 1e-3f);
    expectNear(eye(), {0, 0, 10 / factor}, 1e-3f);
}

TEST_F(NavigationTest, WheelZoomsAtTheMouseByHowFarItTurned)
{
    use<MouseWheelOperator>();
    Point const held = worldAt(0.5f, -0.3f);
    EXPECT_TRUE(wheel(0.5f, -0.3f, -120));
    EXPECT_NEAR(fieldHeight(), 4 / 1.2f, 1e-4f);
    Point seen = seenAt(held);
    EXPECT_NEAR(seen.x, 0.5f, 1e-4f);
    EXPECT_NEAR(seen.y, -0.3f, 1e-4f);
    for (int i = 0; i < 120; ++i) wheel(0.5f, -0.3f, 1); // a touchpad back
    EXPECT_NEAR(fieldHeight(), 4, 1e-3f);
    wheel(0, 0, -120, ModifierKeys::KeyLeftControl());
    EXPECT_NEAR(fieldHeight(), 4 / std::pow(1.2f, 0.2f), 1e-3f);
    EXPECT_FALSE(wheel(0, 0, -120, ModifierKeys::KeyLeftShift())) << "left to others";
}

TEST_F(NavigationTest, EndlessZoomStaysOnTheMap)
{
    use<MouseWheelOperator>();
    for (float const delta : {-12000.0f, 12000.0f})
        for (int i = 0; i < 100; ++i) wheel(0.1f, 0.1f, delta);
    EXPECT_TRUE(std::isfinite(eye().z) && std::isfinite(fieldHeight()));
    EXPECT_GT(fieldHeight(), 0);
}

TEST_F(NavigationTest, LosingTheFocusEndsADrag)
{
    auto const orbit = use<OrbitOperator>();
    press(0, 0);
    EXPECT_TRUE(orbit->IsDragging());
    inject(FocusLostEvent());
    EXPECT_FALSE(moveTo(0.5f, 0));
    expectNear(eye(), {0, 0, 10});
}

TEST_F(NavigationTest, OnlyTheOperatorsOwnButtonAndModifierStartIt)
{
    use<OrbitOperator>(MouseButtons::ButtonRight(), ModifierKeys::KeyShift());
    EXPECT_FALSE(press(0, 0));
    release(0, 0);
    EXPECT_FALSE(press(0, 0, MouseButtons::ButtonRight()));
    release(0, 0, MouseButtons::ButtonRight());
    EXPECT_TRUE(press(0, 0, MouseButtons::ButtonRight(), ModifierKeys::KeyRightShift()));
}

TEST_F(NavigationTest, TwoFingersHoldTheirPoints)
{
    use<TouchOperator>();
    Point const a = worldAt(-0.2f, 0), b = worldAt(0.2f, 0);
    using Action = TouchEvent::Action;
    EXPECT_FALSE(inject(TouchEvent(Action::TouchDown, {{1, {-0.2f, 0, 0}}})));
    EXPECT_TRUE(inject(TouchEvent(Action::TouchDown, {{2, {0.2f, 0, 0}}})));
    for (int i = 1; i <= 10; ++i) {
        float const t = float(i) / 10;
        inject(TouchEvent(Action::Move,
                          {{1, {-0.2f - 0.2f * t, 0.1f * t, 0}}, {2, {0.2f + 0.4f * t, 0.1f * t, 0}}}));
    }
    Point const seenA = seenAt(a), seenB = seenAt(b);
    EXPECT_NEAR(seenA.x, -0.4f, 2e-3f);
    EXPECT_NEAR(seenA.y, 0.1f, 2e-3f);
    EXPECT_NEAR(seenB.x, 0.6f, 2e-3f);
}

} // namespace
} // namespace HPS
