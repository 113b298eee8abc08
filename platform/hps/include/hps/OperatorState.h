// What an operator is told of an input event: the event, where it came from and what is held meanwhile.
#pragma once
#include <hps/InputEvent.h>
#include <hps/KeyPath.h>
#include <hps/WindowKey.h>
#include <vector>

namespace HPS
{

class OperatorState
{
public:
    OperatorState(WindowKey const& source, KeyPath path, ModifierKeys modifiers)
        : source_(source), path_(std::move(path)), modifiers_(modifiers)
    {
    }
    WindowKey GetEventSource() const { return source_; }
    // From the segment of the view that the event fell into up to the window.
    KeyPath const& GetEventPath() const { return path_; }
    ModifierKeys GetModifiers() const { return modifiers_; }

private:
    WindowKey source_;
    KeyPath path_;
    ModifierKeys modifiers_;
};

class MouseState : public OperatorState
{
public:
    MouseState(WindowKey const& source, KeyPath path, MouseEvent const& event, MouseButtons held)
        : OperatorState(source, std::move(path), event.ModifierKeyState), event_(event), held_(held)
    {
    }
    MouseEvent const& GetActiveEvent() const { return event_; }
    WindowPoint GetLocation() const { return event_.Location; }
    // All buttons that are down; the one that goes down with this event is among them.
    MouseButtons GetButtons() const { return held_; }

private:
    MouseEvent event_;
    MouseButtons held_;
};

class TouchState : public OperatorState
{
public:
    TouchState(WindowKey const& source, KeyPath path, TouchEvent const& event, std::vector<Touch> down)
        : OperatorState(source, std::move(path), event.ModifierKeyState),
          event_(event),
          down_(std::move(down))
    {
    }
    TouchEvent const& GetActiveEvent() const { return event_; }
    // All fingers that are down, in the order in which they came, where they are now.
    std::vector<Touch> const& GetTouches() const { return down_; }

private:
    TouchEvent event_;
    std::vector<Touch> down_;
};

class KeyboardState : public OperatorState
{
public:
    KeyboardState(WindowKey const& source, KeyPath path, KeyboardEvent const& event)
        : OperatorState(source, std::move(path), event.ModifierKeyState), event_(event)
    {
    }
    KeyboardEvent const& GetActiveEvent() const { return event_; }

private:
    KeyboardEvent event_;
};

} // namespace HPS
