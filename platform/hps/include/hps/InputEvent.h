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

using KeyboardCode = std::uint32_t; // as the platform numbers its keys
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
