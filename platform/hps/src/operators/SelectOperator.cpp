#include <hps/SelectOperator.h>
#include <hps/SelectionControl.h>

namespace HPS
{

void SelectOperator::select(WindowKey const& window, WindowPoint const& place)
{
    window.GetSelectionControl().SelectByPoint(place, options_, selection_);
}

bool SelectOperator::OnMouseDown(MouseState const& state)
{
    if (!IsMouseTriggered(state)) return false;
    select(state.GetEventSource(), state.GetLocation());
    return true;
}

bool SelectOperator::OnTouchDown(TouchState const& state)
{
    if (state.GetTouches().size() != 1) return false;
    select(state.GetEventSource(), state.GetTouches().front().location);
    return true;
}

} // namespace HPS
