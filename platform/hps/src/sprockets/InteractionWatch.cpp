#include "InteractionWatch.h"
#include "CanvasPicture.h"
#include "records.h"
#include <algorithm>

namespace HPS
{

InteractionWatch::InteractionWatch(KeyIndex canvas, EventDispatcher dispatcher)
    : canvas_(canvas), dispatcher_(std::move(dispatcher))
{
    beLast();
}

InteractionWatch::~InteractionWatch()
{
    Shutdown();
}

// Whoever works with an event redraws before the watch asks whether a redraw is due.
void InteractionWatch::beLast()
{
    for (auto const type :
         {Event::ClassID<MouseEvent>(), Event::ClassID<TouchEvent>(), Event::ClassID<FocusLostEvent>()}) {
        dispatcher_.UnSubscribe(*this, type);
        dispatcher_.Subscribe(*this, type);
    }
}

EventHandler::HandleResult InteractionWatch::Handle(Event const* event)
{
    bool const before = interacting();
    if (auto const* const mouse = dynamic_cast<MouseEvent const*>(event)) {
        take(*mouse);
    } else if (auto const* const touch = dynamic_cast<TouchEvent const*>(event)) {
        take(*touch);
    } else {
        pressed_.clear();
        fingers_.clear();
    }
    if (interacting() && !before) beLast();
    if (before && !interacting()) end();
    return HandleResult::NotHandled;
}

void InteractionWatch::take(MouseEvent const& event)
{
    switch (event.CurrentAction) {
    case MouseEvent::Action::ButtonDown:
        if (std::ranges::find(pressed_, event.CurrentButton) == pressed_.end())
            pressed_.push_back(event.CurrentButton);
        break;
    case MouseEvent::Action::ButtonUp:
        std::erase(pressed_, event.CurrentButton);
        break;
    case MouseEvent::Action::Move:
    case MouseEvent::Action::Scroll:
        break;
    }
}

void InteractionWatch::take(TouchEvent const& event)
{
    if (event.CurrentAction == TouchEvent::Action::Move) return;
    for (Touch const& touch : event.Touches) {
        std::erase(fingers_, touch.id);
        if (event.CurrentAction == TouchEvent::Action::TouchDown) fingers_.push_back(touch.id);
    }
    if (event.CurrentAction == TouchEvent::Action::Cancel) fingers_.clear();
}

void InteractionWatch::end()
{
    Canvas const canvas(canvas_);
    auto const* const record = Registry::instance().find(canvas);
    if (record != nullptr && record->picture->restDue()) canvas.Update();
}

} // namespace HPS
