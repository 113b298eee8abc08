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
    for (auto const type : {std::type_index(typeid(MouseEvent)), std::type_index(typeid(FocusLostEvent))}) {
        dispatcher_.UnSubscribe(*this, type);
        dispatcher_.Subscribe(*this, type);
    }
}

EventHandler::HandleResult InteractionWatch::Handle(Event const* event)
{
    if (dynamic_cast<FocusLostEvent const*>(event) != nullptr && interacting()) {
        pressed_.clear();
        end();
    }
    auto const* const mouse = dynamic_cast<MouseEvent const*>(event);
    if (mouse == nullptr) return HandleResult::NotHandled;
    switch (mouse->CurrentAction) {
    case MouseEvent::Action::ButtonDown:
        if (std::find(pressed_.begin(), pressed_.end(), mouse->CurrentButton) == pressed_.end())
            pressed_.push_back(mouse->CurrentButton);
        beLast();
        break;
    case MouseEvent::Action::ButtonUp:
        if (std::erase(pressed_, mouse->CurrentButton) != 0 && !interacting()) end();
        break;
    case MouseEvent::Action::Move:
    case MouseEvent::Action::Scroll:
        break;
    }
    return HandleResult::NotHandled;
}

void InteractionWatch::end()
{
    Canvas const canvas(canvas_);
    auto const* const record = Registry::instance().find(canvas);
    if (record != nullptr && record->picture->restDue()) canvas.Update();
}

} // namespace HPS
