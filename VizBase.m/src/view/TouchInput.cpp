#include "TouchInput.h"

#include <QNativeGestureEvent>
#include <QTouchEvent>
#include <QWidget>

#include <cmath>

namespace ZelVizBase
{

using MouseAction = HPS::MouseEvent::Action;
using TouchAction = HPS::TouchEvent::Action;

namespace
{

constexpr double deltaPerNotch = 120, zoomPerNotch = 1.2; ///< of the wheel

} // namespace

TouchInput::TouchInput(QWidget& widget, HPS::WindowKey const& window) : Widget(widget), Window(window)
{
    Widget.setAttribute(Qt::WA_AcceptTouchEvents);
}

// Shares of the widget are shares of the window, whatever the pixels are.
HPS::WindowPoint TouchInput::placeOf(QPointF const& at) const
{
    return {static_cast<float>(2 * at.x() / Widget.width() - 1),
            static_cast<float>(1 - 2 * at.y() / Widget.height()), 0};
}

void TouchInput::press(HPS::WindowPoint const& at, MouseAction action)
{
    HPS::MouseEvent event(action, action == MouseAction::ButtonDown ? 1 : 0);
    if (action != MouseAction::Move) event.CurrentButton = HPS::MouseButtons::ButtonLeft();
    event.Location = at;
    Window.GetEventDispatcher().InjectEvent(event);
}

void TouchInput::send(TouchAction action, std::vector<HPS::Touch> const& touches)
{
    if (!touches.empty()) Window.GetEventDispatcher().InjectEvent(HPS::TouchEvent(action, touches));
}

void TouchInput::Take(QTouchEvent const& event)
{
    if (event.type() == QEvent::TouchCancel) {
        Window.GetEventDispatcher().InjectEvent(HPS::FocusLostEvent());
        State = Fingers::None;
        Known.clear();
        return;
    }
    if (State == Fingers::One && event.points().size() > 1)
        Window.GetEventDispatcher().InjectEvent(HPS::FocusLostEvent());
    if (State != Fingers::Several) State = event.points().size() > 1 ? Fingers::Several : Fingers::One;
    if (State == Fingers::One)
        takeOne(event);
    else
        takeSeveral(event);
    if (event.type() == QEvent::TouchEnd) State = Fingers::None;
}

void TouchInput::takeOne(QTouchEvent const& event)
{
    QEventPoint const& finger = event.points().front();
    HPS::WindowPoint const at = placeOf(finger.position());
    if (event.type() == QEvent::TouchBegin) press(at, MouseAction::ButtonDown);
    if (event.type() == QEvent::TouchUpdate) press(at, MouseAction::Move);
    if (event.type() == QEvent::TouchEnd) press(at, MouseAction::ButtonUp);
}

void TouchInput::takeSeveral(QTouchEvent const& event)
{
    std::vector<HPS::Touch> down, moved, up;
    for (QEventPoint const& finger : event.points()) {
        HPS::Touch const touch{static_cast<std::uint64_t>(finger.id()), placeOf(finger.position())};
        // The first one came as a button.
        bool const known = finger.state() != QEventPoint::Pressed && Known.contains(touch.id);
        if (finger.state() == QEventPoint::Released)
            up.push_back(touch);
        else
            (known ? moved : down).push_back(touch);
    }
    for (HPS::Touch const& touch : down) Known.insert(touch.id);
    for (HPS::Touch const& touch : up) Known.erase(touch.id);
    send(TouchAction::TouchDown, down);
    send(TouchAction::Move, moved);
    send(TouchAction::TouchUp, up);
}

bool TouchInput::Take(QNativeGestureEvent const& event)
{
    if (event.gestureType() != Qt::ZoomNativeGesture || event.value() <= -1) return false;
    HPS::MouseEvent turn(MouseAction::Scroll);
    turn.Location = placeOf(event.position());
    turn.WheelDelta =
        static_cast<float>(-deltaPerNotch * std::log(1 + event.value()) / std::log(zoomPerNotch));
    Window.GetEventDispatcher().InjectEvent(turn);
    return true;
}

} // namespace ZelVizBase
