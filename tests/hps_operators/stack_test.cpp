#include "view_fixture.h"

namespace HPS
{
namespace
{

/// Writes down what it is told, by its own letter, and answers as it was made.
struct Recorder : Operator {
    Recorder(char name, std::string& written, bool last = false) : letter(name), log(written), ends(last) {}
    bool note(char what)
    {
        log += {letter, what, ' '};
        if (react) react();
        return ends;
    }
    bool OnMouseDown(MouseState const&) override { return note('d'); }
    bool OnMouseUp(MouseState const&) override { return note('u'); }
    bool OnMouseMove(MouseState const& state) override
    {
        buttons = state.GetButtons();
        return note('m');
    }
    bool OnMouseWheel(MouseState const&) override { return note('w'); }
    bool OnTouchDown(TouchState const& state) override
    {
        fingers = state.GetTouches().size();
        return note('t');
    }
    bool OnTouchUp(TouchState const& state) override
    {
        fingers = state.GetTouches().size();
        return note('T');
    }
    bool OnKeyDown(KeyboardState const& state) override
    {
        key = state.GetActiveEvent().KeyboardCodes.at(0);
        return note('k');
    }
    void OnFocusLost() override { note('f'); }
    void OnViewAttached(View const&) override { log += {letter, '+', ' '}; }
    void OnViewDetached(View const&) override { log += {letter, '-', ' '}; }

    char letter;
    std::string& log;
    bool ends;
    std::function<void()> react;
    MouseButtons buttons;
    std::size_t fingers = 0;
    KeyboardCode key = 0;
};

class OperatorStackTest : public OperatorTest
{
protected:
    using Priority = Operator::Priority;
    // They write into the log, which goes before the view.
    ~OperatorStackTest() override { view.GetOperatorControl().UnsetEverything(); }
    std::shared_ptr<Recorder> push(char letter, Priority priority, bool ends = false)
    {
        auto pushed = std::make_shared<Recorder>(letter, log, ends);
        view.GetOperatorControl().Push(pushed, priority);
        log.clear();
        return pushed;
    }
    std::string log;
};

TEST_F(OperatorStackTest, EventsGoDownUntilHandled)
{
    push('a', Priority::Low);
    push('b', Priority::High);
    auto const c = push('c', Priority::Default);
    push('d', Priority::Default);
    EXPECT_FALSE(press(0, 0));
    EXPECT_EQ(log, "bd dd cd ad ");
    log.clear();
    c->ends = true;
    EXPECT_TRUE(moveTo(0, 0));
    EXPECT_EQ(log, "bm dm cm ");
    EXPECT_TRUE(c->buttons.Left()) << "the button that went down is held";
    release(0, 0);
    moveTo(0, 0);
    EXPECT_TRUE(c->buttons.Empty());
}

TEST_F(OperatorStackTest, ComingAndGoing)
{
    auto const a = push('a', Priority::Default);
    auto const b = push('b', Priority::Default);
    OperatorControl control = view.GetOperatorControl();
    OperatorPtr top;
    ASSERT_TRUE(control.ShowTop(top));
    EXPECT_EQ(top, b);
    EXPECT_FALSE(control.ShowTop(top, Priority::High));
    EXPECT_TRUE(a->GetAttachedView() == view);

    // A second push moves it.
    EXPECT_TRUE(control.Push(a, Priority::High));
    EXPECT_EQ(log, "a- a+ ");
    EXPECT_EQ(control.Show(Priority::Default), OperatorPtrArray{b});
    a->DetachView();
    EXPECT_TRUE(a->GetAttachedView().Empty());
    a->DetachView(); // is nowhere
    EXPECT_TRUE(control.Pop());
    EXPECT_FALSE(control.Pop());
    EXPECT_EQ(log, "a- a+ a- b- ");
    EXPECT_FALSE(control.Push(nullptr));
    EXPECT_FALSE(View().GetOperatorControl().Push(a));
}

TEST_F(OperatorStackTest, HandlersMayChangeTheStack)
{
    push('a', Priority::Low);
    auto const b = push('b', Priority::Default);
    auto const c = push('c', Priority::High);
    c->react = [&] {
        b->DetachView();
        view.GetOperatorControl().Push(std::make_shared<Recorder>('n', log), Priority::Low);
        c->DetachView();
    };
    press(0, 0);
    EXPECT_EQ(log, "cd b- n+ c- ad ") << "who left hears no more, who came waits";
    log.clear();
    moveTo(0, 0);
    EXPECT_EQ(log, "nm am ");
}

TEST_F(OperatorStackTest, FocusFingersAndKeys)
{
    auto const a = push('a', Priority::Low, true);
    auto const b = push('b', Priority::High);
    press(0, 0);
    log.clear();
    inject(FocusLostEvent());
    EXPECT_EQ(log, "bf af ") << "every operator hears of it";
    moveTo(0, 0);
    EXPECT_TRUE(b->buttons.Empty());

    inject(TouchEvent(TouchEvent::Action::TouchDown, {{7, {0, 0, 0}}}));
    inject(TouchEvent(TouchEvent::Action::TouchDown, {{9, {0.5f, 0, 0}}}));
    EXPECT_EQ(b->fingers, 2U);
    inject(TouchEvent(TouchEvent::Action::TouchUp, {{7, {0, 0, 0}}}));
    inject(TouchEvent(TouchEvent::Action::TouchDown, {{11, {0, 0, 0}}}));
    EXPECT_EQ(b->fingers, 2U);
    EXPECT_TRUE(inject(KeyboardEvent(KeyboardEvent::Action::KeyDown, {0x46})));
    EXPECT_EQ(a->key, 0x46U);
}

TEST_F(OperatorStackTest, AViewThatGoesLetsItsOperatorsGo)
{
    auto const a = push('a', Priority::Low);
    View other = Factory::CreateView();
    other.GetOperatorControl().Push(a);
    log.clear();
    other.Delete();
    EXPECT_EQ(log, "a- ");
    EXPECT_TRUE(a->GetAttachedView().Empty());
}

TEST_F(OperatorStackTest, TwoViewsADragStaysWhereItBegan)
{
    View front = Factory::CreateView();
    canvas.GetAttachedLayout().AttachViewFront(front);
    push('a', Priority::Low);
    auto const inFront = std::make_shared<Recorder>('b', log);
    front.GetOperatorControl().Push(inFront);
    log.clear();
    press(0, 0);
    moveTo(0.5f, 0);
    EXPECT_EQ(log, "bd bm ");
    canvas.GetAttachedLayout().DetachView(front);
    log.clear();
    release(0.5f, 0);
    moveTo(0, 0);
    EXPECT_EQ(log.substr(log.size() - 3), "am ");
    front.Delete();
}

} // namespace
} // namespace HPS
