#include "InputRouter.h"
#include "OperatorStack.h"
#include "records.h"
#include <algorithm>
#include <cmath>
#include <hps/SprocketPath.h>

namespace HPS
{
namespace
{

KeyPath pathOf(Canvas const& canvas, View const& view)
{
    return SprocketPath(canvas, canvas.GetAttachedLayout(), view).GetKeyPath();
}

bool send(View const& view, std::function<bool(Operator&)> const& handle)
{
    ViewRecord const* const record = Registry::instance().find(view);
    return record != nullptr && record->operators->send(handle);
}

} // namespace

InputRouter::InputRouter(Canvas const& canvas) : canvas_(canvas)
{
    EventDispatcher dispatcher = canvas.GetWindowKey().GetEventDispatcher();
    dispatcher.Subscribe(*this, Event::ClassID<MouseEvent>());
    dispatcher.Subscribe(*this, Event::ClassID<TouchEvent>());
    dispatcher.Subscribe(*this, Event::ClassID<KeyboardEvent>());
    dispatcher.Subscribe(*this, Event::ClassID<FocusLostEvent>());
}

EventHandler::HandleResult InputRouter::Handle(Event const* event)
{
    bool handled = false;
    if (auto const* const mouse = dynamic_cast<MouseEvent const*>(event))
        handled = take(*mouse);
    else if (auto const* const touch = dynamic_cast<TouchEvent const*>(event))
        handled = take(*touch);
    else if (auto const* const key = dynamic_cast<KeyboardEvent const*>(event))
        handled = take(*key);
    else
        loseFocus();
    return handled ? HandleResult::Handled : HandleResult::NotHandled;
}

View InputRouter::viewAt(WindowPoint const& point) const
{
    Layout const layout = canvas_.GetAttachedLayout();
    for (std::size_t layer = layout.GetLayerCount(); layer-- > 0;) {
        View const view = layout.GetAttachedView(layer);
        Point inner;
        using Coordinate::Space;
        if (pathOf(canvas_, view).ConvertCoordinate(Space::Window, point, Space::InnerWindow, inner) &&
            std::abs(inner.x) <= 1 && std::abs(inner.y) <= 1)
            return view;
    }
    return {};
}

View InputRouter::choose(WindowPoint const& point, bool held, KeyPath& path)
{
    View const view = held && held_.Type() != Type::None ? held_ : viewAt(point);
    held_ = last_ = view;
    path = pathOf(canvas_, view);
    return view;
}

bool InputRouter::take(MouseEvent const& event)
{
    using Action = MouseEvent::Action;
    KeyPath path;
    View const view = choose(event.Location, !buttons_.Empty(), path);
    bool const taken = cube_.take(view, canvas_.GetWindowKey(), event, buttons_);
    if (event.CurrentAction == Action::ButtonDown) buttons_ |= event.CurrentButton;
    MouseState const state(canvas_.GetWindowKey(), std::move(path), event, buttons_);
    if (event.CurrentAction == Action::ButtonUp) buttons_ = buttons_.Without(event.CurrentButton);
    if (taken) return true;
    return send(view, [&](Operator& next) {
        switch (event.CurrentAction) {
        case Action::ButtonUp:
            return next.OnMouseUp(state);
        case Action::ButtonDown:
            return next.OnMouseDown(state);
        case Action::Move:
            return next.OnMouseMove(state);
        case Action::Scroll:
            return next.OnMouseWheel(state);
        }
        return false;
    });
}

bool InputRouter::take(TouchEvent const& event)
{
    using Action = TouchEvent::Action;
    KeyPath path;
    WindowPoint const place = event.Touches.empty() ? WindowPoint() : event.Touches.front().location;
    View const view = choose(place, !touches_.empty(), path);
    for (Touch const& touch : event.Touches) {
        auto const known = std::ranges::find(touches_, touch.id, &Touch::id);
        if (known != touches_.end())
            known->location = touch.location;
        else if (event.CurrentAction == Action::TouchDown)
            touches_.push_back(touch);
    }
    TouchState const state(canvas_.GetWindowKey(), std::move(path), event, touches_);
    if (event.CurrentAction == Action::TouchUp)
        for (Touch const& touch : event.Touches)
            std::erase_if(touches_, [&](Touch const& known) { return known.id == touch.id; });
    if (event.CurrentAction == Action::Cancel) {
        loseFocus();
        return false;
    }
    return send(view, [&](Operator& next) {
        switch (event.CurrentAction) {
        case Action::TouchUp:
            return next.OnTouchUp(state);
        case Action::TouchDown:
            return next.OnTouchDown(state);
        case Action::Move:
            return next.OnTouchMove(state);
        case Action::Cancel:
            break;
        }
        return false;
    });
}

bool InputRouter::take(KeyboardEvent const& event)
{
    View const view = last_.Type() != Type::None ? last_ : canvas_.GetFrontView();
    KeyboardState const state(canvas_.GetWindowKey(), pathOf(canvas_, view), event);
    return send(view, [&](Operator& next) {
        return event.CurrentAction == KeyboardEvent::Action::KeyDown ? next.OnKeyDown(state)
                                                                     : next.OnKeyUp(state);
    });
}

void InputRouter::loseFocus()
{
    cube_.cancel();
    buttons_ = {};
    touches_.clear();
    Layout const layout = canvas_.GetAttachedLayout();
    for (std::size_t layer = 0; layer < layout.GetLayerCount(); ++layer)
        send(layout.GetAttachedView(layer), [](Operator& next) {
            next.OnFocusLost();
            return false;
        });
}

} // namespace HPS
