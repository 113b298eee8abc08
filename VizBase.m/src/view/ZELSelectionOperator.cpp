#include "ZELSelectionOperator.h"

#include "ViewInteraction.h"

#include <cmath>

namespace ZelVizBase
{

namespace
{

constexpr double steady = 4; ///< pixels that a hand may tremble during a click

bool isFar(HPS::WindowKey const& window, HPS::WindowPoint const& from, HPS::WindowPoint const& to)
{
    unsigned width = 0, height = 0;
    window.GetWindowInfoControl().ShowWindowPixels(width, height);
    return std::hypot((to.x - from.x) * width / 2, (to.y - from.y) * height / 2) > steady;
}

} // namespace

ZELSelectionOperator::ZELSelectionOperator(HPS::MouseButtons buttons, HPS::ModifierKeys modifiers,
                                           ZELView3D* owner, ViewInteraction& hand)
    : ZELHighlightOperator(buttons, modifiers, owner), Hand(hand)
{
}

ZELSelectionOperator::Meaning ZELSelectionOperator::meaningOf(HPS::MouseState const& state,
                                                              bool& adding) const
{
    HPS::ModifierKeys held = state.GetModifiers();
    if (state.GetButtons() == HPS::MouseButtons::ButtonRight() && held.Empty()) return Meaning::Menu;
    if (state.GetButtons() != GetMouseTriggers()) return Meaning::None;
    adding = held.Control();
    held.Control(false);
    if (held.Matches(GetModifierTriggers())) return Meaning::Click;
    return held.Matches(HPS::ModifierKeys::KeyShift()) ? Meaning::Box : Meaning::None;
}

bool ZELSelectionOperator::OnMouseDown(HPS::MouseState const& state)
{
    abandon(); // a second button ends what the first one meant
    bool adding = false;
    Meaning const meaning = meaningOf(state, adding);
    Held = Press{state.GetLocation(), state.GetActiveEvent().CurrentButton, meaning, adding};
    return Held->meaning == Meaning::Box;
}

bool ZELSelectionOperator::OnMouseMove(HPS::MouseState const& state)
{
    HPS::WindowPoint const at = state.GetLocation();
    if (!Held) {
        Hand.PointTo(at);
        return false;
    }
    if (!Held->moved && Held->meaning != Meaning::None) {
        // The camera stays until it is clear that this is no click.
        if (!isFar(state.GetEventSource(), Held->at, at)) return true;
        Held->moved = true;
        Hand.PointAway();
    }
    if (Held->meaning != Meaning::Box) return false;
    Hand.ShowBox(Held->at, at);
    return true;
}

bool ZELSelectionOperator::OnMouseUp(HPS::MouseState const& state)
{
    if (!Held || state.GetActiveEvent().CurrentButton != Held->button) return false;
    Press const press = *Held;
    Held.reset();
    finish(press, state.GetLocation());
    return press.meaning == Meaning::Box;
}

void ZELSelectionOperator::finish(Press const& press, HPS::WindowPoint const& at)
{
    switch (press.meaning) {
    case Meaning::Click:
        if (!press.moved) Hand.Click(press.at, press.adding);
        return;
    case Meaning::Box:
        if (press.moved) Hand.SelectBox(press.at, at, press.adding);
        return;
    case Meaning::Menu:
        if (!press.moved) Hand.OpenMenu(press.at);
        return;
    case Meaning::None:
        return;
    }
}

bool ZELSelectionOperator::OnTouchDown(HPS::TouchState const& state)
{
    if (state.GetTouches().size() == 1) Hand.Click(state.GetTouches().front().location, false);
    return false;
}

void ZELSelectionOperator::abandon()
{
    Held.reset();
    Hand.HideBox();
}

void ZELSelectionOperator::OnViewDetached(HPS::View const& view)
{
    ZELHighlightOperator::OnViewDetached(view);
    abandon();
    Hand.PointAway();
}

} // namespace ZelVizBase
