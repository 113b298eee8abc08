#pragma once
#include <hps/InputEvent.h>
#include <hps/NavigationCubeControl.h>
#include <hps/View.h>
#include <optional>

namespace HPS
{

class WindowKey;

/// What the mouse does to the navigation cube of a view: the region under it lights up, and a click on one
/// turns the camera there. Nothing happens to a cube that is hidden or not interactive.
class CubeInput
{
public:
    /// True if the cube takes the event; `held` are the buttons that were down before it.
    bool take(View const& view, WindowKey const& window, MouseEvent const& event, MouseButtons held);
    void cancel() { pressed_.reset(); }

private:
    std::optional<CubeRegion> pressed_; ///< that the left button went down on
};

} // namespace HPS
