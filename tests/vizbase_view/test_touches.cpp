// Fingers, as recorded on a screen and a pad, played back against the camera's numbers.

#include "ViewInteraction.h"
#include "ViewTest.h"

#include <QNativeGestureEvent>
#include <QtTest>

namespace ZelVizBase
{
namespace
{

class TouchesTest : public ViewTest
{
protected:
    TouchesTest()
    {
        View.View().GetNavigationCubeControl().SetVisibility(false);
        View.GetInteraction();
    }

    struct Seen {
        HPS::Point target;
        float width = 0, height = 0;
        HPS::Vector back;
    };
    Seen seen() const
    {
        HPS::CameraKit camera;
        View.View().ShowCamera(camera);
        Seen now;
        HPS::Point eye;
        camera.ShowTarget(now.target);
        camera.ShowPosition(eye);
        camera.ShowField(now.width, now.height);
        now.back = (eye - now.target).Normalize();
        return now;
    }
    /// Two fingers come down one after the other, move along, and go up.
    void play(std::vector<std::pair<QPoint, QPoint>> const& stream)
    {
        auto touch = QTest::touchEvent(&View, Pad, false);
        touch.press(0, stream.front().first, &View).commit();
        touch.stationary(0).press(1, stream.front().second, &View).commit();
        for (auto const& [first, second] : stream)
            touch.move(0, first, &View).move(1, second, &View).commit();
        touch.release(0, stream.back().first, &View).stationary(1).commit();
        touch.release(1, stream.back().second, &View).commit();
    }
    std::size_t lit() const
    {
        HPS::KeyPathArray paths;
        View.Canvas().GetWindowKey().GetHighlightControl().ShowHighlightedPaths(paths);
        return paths.size();
    }

    static inline QPointingDevice* const Pad = QTest::createTouchDevice();
};

TEST_F(TouchesTest, APinchMagnifiesAsTheFingersPart)
{
    play({{{80, 100}, {120, 100}}, {{77, 100}, {124, 100}}, {{71, 99}, {130, 101}}, {{60, 100}, {140, 100}}});
    Seen const now = seen();
    EXPECT_NEAR(now.width, 2, 0.01) << "twice as far apart, half as much of the scene";
    EXPECT_NEAR(now.target.x, 0, 0.02);
    EXPECT_NEAR(now.target.y, 0, 0.02);
    EXPECT_NEAR(now.back.z, 1, 1e-5) << "nothing turned while there was one finger";
    EXPECT_EQ(lit(), 0U) << "nor was anything selected";
}

TEST_F(TouchesTest, TwoFingersPan)
{
    play({{{40, 60}, {60, 60}}, {{47, 63}, {67, 63}}, {{60, 70}, {80, 70}}});
    Seen const now = seen();
    EXPECT_NEAR(now.width, 4, 1e-3);
    // 20 pixels to the right and 10 down, at 50 a unit: what was seen follows, so the camera goes back.
    EXPECT_NEAR(now.target.x, -0.4, 1e-3);
    EXPECT_NEAR(now.target.y, 0.2, 1e-3);
}

TEST_F(TouchesTest, OneFingerIsTheLeftButton)
{
    auto touch = QTest::touchEvent(&View, Pad, false);
    touch.press(0, {50, 100}, &View).commit();
    touch.release(0, {50, 100}, &View).commit();
    EXPECT_EQ(lit(), 1U);
    touch.press(0, {150, 100}, &View).commit();
    touch.move(0, {170, 100}, &View).commit();
    touch.move(0, {190, 100}, &View).commit();
    touch.release(0, {190, 100}, &View).commit();
    EXPECT_GT(std::abs(seen().back.x), 0.1);
    EXPECT_NEAR(seen().width, 4, 1e-3);
}

TEST_F(TouchesTest, APadsPinchMagnifiesUnderTheMouse)
{
    float const steps[] = {0.01F, 0.04F, 0.09F, 0.06F, 0.02F};
    float all = 1;
    for (float const step : steps) {
        QNativeGestureEvent pinch(Qt::ZoomNativeGesture, QPointingDevice::primaryPointingDevice(), 2,
                                  QPointF(150, 100), QPointF(150, 100), QPointF(150, 100), step, {});
        QCoreApplication::sendEvent(&View, &pinch);
        all *= 1 + step;
    }
    Seen const now = seen();
    EXPECT_NEAR(now.width, 4 / all, 1e-3);
    EXPECT_NEAR(now.target.x, 1 - 1 / all, 1e-3) << "what lies under the mouse stays there";
    QNativeGestureEvent turned(Qt::RotateNativeGesture, QPointingDevice::primaryPointingDevice(), 2,
                               QPointF(150, 100), QPointF(150, 100), QPointF(150, 100), 10, {});
    QCoreApplication::sendEvent(&View, &turned);
    EXPECT_NEAR(seen().width, now.width, 1e-5);
}

} // namespace
} // namespace ZelVizBase
