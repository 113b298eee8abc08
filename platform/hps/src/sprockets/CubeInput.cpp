#include "CubeInput.h"
#include "records.h"

namespace HPS
{

bool CubeInput::take(View const& view, WindowKey const& window, MouseEvent const& event, MouseButtons held)
{
    using Action = MouseEvent::Action;
    ViewRecord const* const record = Registry::instance().find(view);
    if (record == nullptr || (!held.Empty() && !pressed_)) return false;
    NavigationCubeControl cube = view.GetNavigationCubeControl();
    CubeRegion region;
    bool const over = cube.FindRegion(window, event.Location, region);
    switch (event.CurrentAction) {
    case Action::Move:
        if (!(record->corners.highlighted == region)) {
            cube.Highlight(region);
            view.Update();
        }
        return over || pressed_;
    case Action::ButtonDown:
        if (over && event.CurrentButton == MouseButtons::ButtonLeft()) pressed_ = region;
        return over || pressed_;
    case Action::ButtonUp: {
        if (!pressed_) return false;
        CameraKit camera;
        bool const clicked = over && *pressed_ == region && event.CurrentButton.Left();
        pressed_.reset();
        if (clicked && cube.ComputeCamera(region, camera)) View(view).SmoothTransition(camera);
        return true;
    }
    case Action::Scroll:
        return false;
    }
    return false;
}

} // namespace HPS
