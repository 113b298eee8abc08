#pragma once
#include <hps/OperatorState.h>
#include <hps/View.h>
#include <memory>
#include <vector>

namespace HPS
{

// What a user does to a view is done by operators on the view's stack: an event goes down the stack, from
// high to low priority and among equals from the last one pushed, until a handler returns true. An operator
// is on one stack at most.
class Operator
{
public:
    enum class Priority : std::uint32_t { Low = 0, Default = 1, High = 2 };

    explicit Operator(MouseButtons buttons = MouseButtons::ButtonLeft(), ModifierKeys modifiers = {})
        : buttons_(buttons), modifiers_(modifiers)
    {
    }
    virtual ~Operator() = default;

    virtual UTF8 GetName() const { return "HPS_Operator"; }

    // True ends the event's way.
    virtual bool OnMouseDown(MouseState const&) { return false; }
    virtual bool OnMouseUp(MouseState const&) { return false; }
    virtual bool OnMouseMove(MouseState const&) { return false; }
    virtual bool OnMouseWheel(MouseState const&) { return false; }
    virtual bool OnTouchDown(TouchState const&) { return false; }
    virtual bool OnTouchUp(TouchState const&) { return false; }
    virtual bool OnTouchMove(TouchState const&) { return false; }
    virtual bool OnKeyDown(KeyboardState const&) { return false; }
    virtual bool OnKeyUp(KeyboardState const&) { return false; }

    // The window lost the keyboard: whatever is under way ends. Every operator of the stack hears of it.
    virtual void OnFocusLost() {}
    virtual void OnViewAttached(View const&) {}
    virtual void OnViewDetached(View const&) {}

    // Empty while the operator is on no stack.
    View GetAttachedView() const { return view_.Empty() ? View() : view_; }
    // Takes the operator off its stack.
    void DetachView();

    // The buttons and modifiers that start it.
    MouseButtons GetMouseTriggers() const { return buttons_; }
    void SetMouseTriggers(MouseButtons buttons) { buttons_ = buttons; }
    ModifierKeys GetModifierTriggers() const { return modifiers_; }
    void SetModifierTriggers(ModifierKeys modifiers) { modifiers_ = modifiers; }
    // All of its buttons are held, and just its modifiers.
    bool IsMouseTriggered(MouseState const& state) const
    {
        return !buttons_.Empty() && state.GetButtons().Contains(buttons_) &&
               state.GetModifiers().Matches(modifiers_);
    }

protected:
    // A copy is on no stack.
    Operator(Operator const& other) : buttons_(other.buttons_), modifiers_(other.modifiers_) {}
    Operator& operator=(Operator const& other)
    {
        buttons_ = other.buttons_;
        modifiers_ = other.modifiers_;
        return *this;
    }

private:
    friend class OperatorStack;
    MouseButtons buttons_;
    ModifierKeys modifiers_;
    View view_;
};

using OperatorPtr = std::shared_ptr<Operator>;
using OperatorPtrArray = std::vector<OperatorPtr>;

// The operators of a view. On a view that is gone every operation does nothing and tells so by false.
class OperatorControl
{
public:
    explicit OperatorControl(View const& view) : view_(view) {}

    // On top of its priority. An operator that is on a stack, this one too, leaves it first. False for none.
    bool Push(OperatorPtr const& pushed, Operator::Priority priority = Operator::Priority::Default);
    // Takes the top of a priority off; false if it has none.
    bool Pop(Operator::Priority priority = Operator::Priority::Default);
    bool Pop(Operator::Priority priority, OperatorPtr& popped);
    bool ShowTop(OperatorPtr& top, Operator::Priority priority = Operator::Priority::Default) const;
    // From the bottom to the top.
    OperatorPtrArray Show(Operator::Priority priority) const;
    OperatorControl& UnsetEverything();
    OperatorControl& UnsetEverything(Operator::Priority priority);

private:
    View view_;
};

} // namespace HPS
