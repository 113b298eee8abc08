#include "ViewTest.h"

#include <QtTest>

namespace ZelVizBase
{
namespace
{

/// Writes down what reaches the view's operators, and lets nothing through.
class Recorder : public HPS::Operator
{
public:
    bool OnMouseDown(HPS::MouseState const& state) override { return note(state); }
    bool OnMouseUp(HPS::MouseState const& state) override { return note(state); }
    bool OnMouseMove(HPS::MouseState const& state) override { return note(state); }
    bool OnMouseWheel(HPS::MouseState const& state) override { return note(state); }
    bool OnKeyDown(HPS::KeyboardState const& state) override { return note(state); }
    bool OnKeyUp(HPS::KeyboardState const& state) override { return note(state); }
    void OnFocusLost() override { ++FocusLost; }

    HPS::MouseEvent Mouse;
    HPS::KeyboardEvent Key;
    int FocusLost = 0;

private:
    bool note(HPS::MouseState const& state)
    {
        Mouse = state.GetActiveEvent();
        return true;
    }
    bool note(HPS::KeyboardState const& state)
    {
        Key = state.GetActiveEvent();
        return true;
    }
};

class InputTest : public ViewTest
{
protected:
    InputTest()
    {
        View.View().GetNavigationCubeControl().SetVisibility(false);
        View.View().GetOperatorControl().Push(Seen, HPS::Operator::Priority::High);
    }
    std::shared_ptr<Recorder> Seen = std::make_shared<Recorder>();
};

using MouseAction = HPS::MouseEvent::Action;
using HPS::MouseButtons;

TEST_F(InputTest, MouseEvents)
{
    QTest::mousePress(&View, Qt::MiddleButton, {}, QPoint(150, 20));
    EXPECT_EQ(Seen->Mouse.CurrentAction, MouseAction::ButtonDown);
    EXPECT_EQ(Seen->Mouse.CurrentButton, MouseButtons::ButtonMiddle());
    EXPECT_EQ(Seen->Mouse.ClickCount, 1U);
    EXPECT_NEAR(Seen->Mouse.Location.x, 0.5F, 0.02F);
    EXPECT_NEAR(Seen->Mouse.Location.y, 0.8F, 0.02F) << "up is positive";
    QTest::mouseMove(&View, QPoint(50, 150));
    EXPECT_EQ(Seen->Mouse.CurrentAction, MouseAction::Move);
    EXPECT_TRUE(Seen->Mouse.CurrentButton.Empty());
    EXPECT_NEAR(Seen->Mouse.Location.x, -0.5F, 0.02F);
    QTest::mouseRelease(&View, Qt::MiddleButton, {}, QPoint(50, 150));
    EXPECT_EQ(Seen->Mouse.CurrentAction, MouseAction::ButtonUp);
    EXPECT_EQ(Seen->Mouse.ClickCount, 0U);
    QTest::mouseDClick(&View, Qt::RightButton, {}, QPoint(50, 50));
    EXPECT_EQ(Seen->Mouse.CurrentButton, MouseButtons::ButtonRight());

    QWheelEvent wheel(QPointF(50, 50), View.mapToGlobal(QPointF(50, 50)), {}, {0, 120}, Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&View, &wheel);
    EXPECT_EQ(Seen->Mouse.CurrentAction, MouseAction::Scroll);
    EXPECT_EQ(Seen->Mouse.WheelDelta, -120);
}

TEST_F(InputTest, KeysHaveCodesAndFocusGoes)
{
    struct {
        Qt::Key key;
        HPS::KeyboardCode code;
    } const cases[] = {{Qt::Key_A, 0x41},        {Qt::Key_Z, 0x5A},       {Qt::Key_7, 0x37},
                       {Qt::Key_F5, 0x74},       {Qt::Key_Escape, 0x1B},  {Qt::Key_Down, 0x28},
                       {Qt::Key_PageDown, 0x22}, {Qt::Key_Control, 0x11}, {Qt::Key_Delete, 0x2E},
                       {Qt::Key_mu, 0}};
    for (auto const& [key, code] : cases) {
        QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
        QCoreApplication::sendEvent(&View, &press);
        EXPECT_EQ(Seen->Key.CurrentAction, HPS::KeyboardEvent::Action::KeyDown);
        EXPECT_EQ(Seen->Key.KeyboardCodes, HPS::KeyboardCodeArray{code}) << key;
    }
    QKeyEvent release(QEvent::KeyRelease, Qt::Key_A, Qt::NoModifier);
    QCoreApplication::sendEvent(&View, &release);
    EXPECT_EQ(Seen->Key.CurrentAction, HPS::KeyboardEvent::Action::KeyUp);
    QFocusEvent lost(QEvent::FocusOut);
    QCoreApplication::sendEvent(&View, &lost);
    EXPECT_EQ(Seen->FocusLost, 1);
}

} // namespace
} // namespace ZelVizBase
