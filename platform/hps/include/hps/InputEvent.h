// What a window's user does, as events for the dispatcher of its WindowKey.
#pragma once
#include <hps/Event.h>
#include <hps/InputState.h>
#include <hps/Point.h>
#include <vector>

namespace HPS
{

// A place in window space: x from -1 at the left to 1 at the right, y from -1 at the bottom to 1 at the top.
using WindowPoint = Point;

class InputEvent : public Event
{
public:
    ModifierKeys ModifierKeyState;
};

class MouseEvent final : public InputEvent
{
public:
    enum class Action : std::uint32_t { ButtonUp = 0, ButtonDown = 1, Move = 2, Scroll = 3 };

    MouseEvent() = default;
    explicit MouseEvent(Action action, unsigned int clickCount = 0)
        : CurrentAction(action), ClickCount(clickCount)
    {
    }

    Action CurrentAction = Action::Move;
    MouseButtons CurrentButton; // the one that went down or up
    unsigned int ClickCount = 0;
    WindowPoint Location;
    float WheelDelta = 0; // eighths of a degree, the negative ones away from the user
};

// One finger on the screen or the pad.
struct Touch {
    std::uint64_t id = 0; // the same from its coming to its going
    WindowPoint location;
    friend bool operator==(Touch const&, Touch const&) = default;
};

class TouchEvent final : public InputEvent
{
public:
    enum class Action : std::uint32_t { TouchUp = 0, TouchDown = 1, Move = 2, Cancel = 3 };

    TouchEvent() = default;
    explicit TouchEvent(Action action, std::vector<Touch> touches = {}, unsigned int tapCount = 0)
        : CurrentAction(action), Touches(std::move(touches)), TapCount(tapCount)
    {
    }

    Action CurrentAction = Action::Move;
    std::vector<Touch> Touches; // those that came, went or moved
    unsigned int TapCount = 0;
};

using KeyboardCode = std::uint32_t; // virtual-key codes
using KeyboardCodeArray = std::vector<KeyboardCode>;

class KeyboardEvent final : public InputEvent
{
public:
    enum class Action : std::uint32_t { None = 0, KeyDown = 1, KeyUp = 2 };

    KeyboardEvent() = default;
    explicit KeyboardEvent(Action action, KeyboardCodeArray codes = {})
        : CurrentAction(action), KeyboardCodes(std::move(codes))
    {
    }

    Action CurrentAction = Action::None;
    KeyboardCodeArray KeyboardCodes;
};

class FocusLostEvent final : public InputEvent
{
};

} // namespace HPS
