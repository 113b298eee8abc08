// Qt's input events, rebuilt as the scene library's and handed to its operators.

#include "ZELView3D.h"
#include "native_keys.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QWheelEvent>

namespace ZelVizBase
{

namespace
{

HPS::MouseButtons buttonOf(Qt::MouseButton button)
{
    switch (button) {
    case Qt::LeftButton:
        return HPS::MouseButtons::ButtonLeft();
    case Qt::RightButton:
        return HPS::MouseButtons::ButtonRight();
    case Qt::MiddleButton:
        return HPS::MouseButtons::ButtonMiddle();
    default: // a set of flags with many values: the rest have no button of the library
        return {};
    }
}

/// What is held at this moment, which may be later than the event. Alt and Meta are the window manager's.
void addModifiers(HPS::InputEvent& event)
{
    Qt::KeyboardModifiers const held = QGuiApplication::keyboardModifiers();
    if (held.testFlag(Qt::ShiftModifier)) event.ModifierKeyState.Shift(true);
    if (held.testFlag(Qt::ControlModifier)) event.ModifierKeyState.Control(true);
}

using MouseAction = HPS::MouseEvent::Action;
using KeyAction = HPS::KeyboardEvent::Action;

} // namespace

void ZELView3D::inject(HPS::Event const& event)
{
    TheCanvas.GetWindowKey().GetEventDispatcher().InjectEvent(event);
}

HPS::WindowPoint ZELView3D::windowPoint(double x, double y) const
{
    HPS::Point const pixel(static_cast<float>(x), static_cast<float>(y), 0);
    HPS::Point window;
    using HPS::Coordinate::Space;
    TheCanvas.GetWindowKey().ConvertCoordinate(Space::Pixel, pixel, Space::Window, window);
    return window;
}

void ZELView3D::sendMouse(QMouseEvent const& event, MouseAction action, unsigned clickCount)
{
    double const ratio = qApp->devicePixelRatio();
    HPS::MouseEvent sent(action, clickCount);
    sent.CurrentButton = buttonOf(event.button());
    QPoint const place = event.position().toPoint();
    sent.Location = windowPoint(place.x() * ratio, place.y() * ratio);
    addModifiers(sent);
    inject(sent);
}

void ZELView3D::mousePressEvent(QMouseEvent* event)
{
    sendMouse(*event, MouseAction::ButtonDown, 1);
}

void ZELView3D::mouseDoubleClickEvent(QMouseEvent* event)
{
    sendMouse(*event, MouseAction::ButtonDown, 2);
}

void ZELView3D::mouseReleaseEvent(QMouseEvent* event)
{
    sendMouse(*event, MouseAction::ButtonUp, 0);
}

void ZELView3D::mouseMoveEvent(QMouseEvent* event)
{
    sendMouse(*event, MouseAction::Move, 0);
}

void ZELView3D::wheelEvent(QWheelEvent* event)
{
    HPS::MouseEvent sent(MouseAction::Scroll);
    // In Qt's own pixels, unlike the places of the other mouse events.
    sent.Location = windowPoint(event->position().x(), event->position().y());
    sent.WheelDelta = static_cast<float>(-event->angleDelta().y());
    addModifiers(sent);
    inject(sent);
}

void ZELView3D::sendKey(QKeyEvent const& event, KeyAction action)
{
    HPS::KeyboardEvent sent(action, {keyCode(event)});
    addModifiers(sent);
    inject(sent);
}

void ZELView3D::keyPressEvent(QKeyEvent* event)
{
    sendKey(*event, KeyAction::KeyDown);
}

void ZELView3D::keyReleaseEvent(QKeyEvent* event)
{
    sendKey(*event, KeyAction::KeyUp);
}

void ZELView3D::focusOutEvent(QFocusEvent*)
{
    inject(HPS::FocusLostEvent());
}

} // namespace ZelVizBase
