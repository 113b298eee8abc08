// How drags, wheel and fingers move the camera.
#include "CameraMotion.h"
#include <algorithm>
#include <cmath>
#include <hps/MouseWheelOperator.h>
#include <hps/OrbitOperator.h>
#include <hps/PanOperator.h>
#include <hps/TouchOperator.h>
#include <hps/ZoomOperator.h>
#include <numbers>

namespace HPS
{
namespace
{

using Triple = CameraMotion::Triple;

struct Pixels {
    float width = 1, height = 1;
};

Pixels pixelsOf(WindowKey const& window)
{
    unsigned int width = 0, height = 0;
    window.GetWindowInfoControl().ShowWindowPixels(width, height);
    return {float(std::max(width, 1u)), float(std::max(height, 1u))};
}

void show(View view, CameraKit const& camera)
{
    view.SetCamera(camera);
    view.Update();
}

constexpr double degreesAcross = 180; ///< of a drag over the shorter side of the window
constexpr double poleMargin = 1;      ///< degrees that a turntable stops short of looking straight down
constexpr double zoomPerHeight = 8;
constexpr double zoomPerNotch = 1.2;
constexpr double deltaPerNotch = 120;
constexpr double fineShare = 0.2;

/// Up of the model that the view shows: turntables stand on it.
Triple uprightOf(View const& view)
{
    Vector up(0, 0, 1), front(1, 0, 0);
    view.GetAttachedModel().ShowOrientation(up, front);
    return {up.x, up.y, up.z};
}

} // namespace

bool DragOperator::OnMouseDown(MouseState const& state)
{
    if (!IsMouseTriggered(state)) return false;
    last_ = state.GetLocation();
    begin(state);
    return true;
}

bool DragOperator::OnMouseUp(MouseState const&)
{
    bool const dragged = last_.has_value();
    last_.reset();
    return dragged;
}

bool DragOperator::OnMouseMove(MouseState const& state)
{
    if (!last_) return false;
    Pixels const pixels = pixelsOf(state.GetEventSource());
    View const view = GetAttachedView();
    CameraKit camera;
    view.ShowCamera(camera);
    show(view, move(camera, {*last_, state.GetLocation(), pixels.width, pixels.height}));
    last_ = state.GetLocation();
    return true;
}

CameraKit OrbitOperator::move(CameraKit const& camera, Step const& step) const
{
    CameraMotion motion(camera);
    // Half a window is 1 of window space.
    double const scale = degreesAcross / 2 / std::min(step.width, step.height);
    double const right = (step.to.x - step.from.x) * step.width * scale;
    double up = (step.to.y - step.from.y) * step.height * scale;
    Triple const center = center_ ? Triple{center_->x, center_->y, center_->z} : motion.target();
    if (style_ == Style::Free) {
        motion.turn(center, motion.up(), -right);
    } else {
        Triple const upright = uprightOf(GetAttachedView());
        Triple const back = motion.back();
        double const height =
            std::clamp(back[0] * upright[0] + back[1] * upright[1] + back[2] * upright[2], -1.0, 1.0);
        double const elevation = std::asin(height) * 180 / std::numbers::pi;
        up = std::clamp(up, elevation - (90 - poleMargin), elevation + (90 - poleMargin));
        motion.turn(center, upright, -right);
    }
    motion.turn(center, motion.right(), up);
    return motion.result();
}

CameraKit PanOperator::move(CameraKit const& camera, Step const& step) const
{
    CameraMotion motion(camera);
    Triple const from = motion.pointAt(step.from.x, step.from.y, step.width, step.height);
    Triple const to = motion.pointAt(step.to.x, step.to.y, step.width, step.height);
    motion.shift({from[0] - to[0], from[1] - to[1], from[2] - to[2]});
    return motion.result();
}

CameraKit ZoomOperator::move(CameraKit const& camera, Step const& step) const
{
    CameraMotion motion(camera);
    motion.zoom(motion.target(), std::pow(zoomPerHeight, (step.to.y - step.from.y) / 2));
    return motion.result();
}

bool MouseWheelOperator::OnMouseWheel(MouseState const& state)
{
    ModifierKeys const held = state.GetModifiers();
    bool const fine = !GetModifierTriggers().Empty() && held.Matches(GetModifierTriggers());
    if (!fine && !held.Empty()) return false;
    View const view = GetAttachedView();
    CameraKit camera;
    view.ShowCamera(camera);
    CameraMotion motion(camera);
    Pixels const pixels = pixelsOf(state.GetEventSource());
    WindowPoint const place = state.GetLocation();
    Triple const center = type_ == ZoomType::MousePosition
                              ? motion.pointAt(place.x, place.y, pixels.width, pixels.height)
                              : motion.target();
    // Away from the user, which is negative, brings nearer.
    double const notches = -state.GetActiveEvent().WheelDelta / deltaPerNotch;
    motion.zoom(center, std::pow(zoomPerNotch, notches * (fine ? fineShare : 1)));
    show(view, motion.result());
    return true;
}

bool TouchOperator::OnTouchDown(TouchState const& state)
{
    before_.clear();
    if (state.GetTouches().size() == 2) before_ = state.GetTouches();
    return !before_.empty();
}

bool TouchOperator::OnTouchUp(TouchState const&)
{
    bool const moved = !before_.empty();
    before_.clear();
    return moved;
}

bool TouchOperator::OnTouchMove(TouchState const& state)
{
    std::vector<Touch> const& now = state.GetTouches();
    if (before_.size() != 2 || now.size() != 2) return false;
    Pixels const pixels = pixelsOf(state.GetEventSource());
    auto const middle = [](std::vector<Touch> const& touches) {
        return std::pair((touches[0].location.x + touches[1].location.x) / 2,
                         (touches[0].location.y + touches[1].location.y) / 2);
    };
    auto const spread = [&](std::vector<Touch> const& touches) {
        return std::hypot((touches[0].location.x - touches[1].location.x) * pixels.width,
                          (touches[0].location.y - touches[1].location.y) * pixels.height);
    };
    View const view = GetAttachedView();
    CameraKit camera;
    view.ShowCamera(camera);
    CameraMotion motion(camera);
    auto const [x0, y0] = middle(before_);
    auto const [x1, y1] = middle(now);
    Triple const from = motion.pointAt(x0, y0, pixels.width, pixels.height);
    Triple const to = motion.pointAt(x1, y1, pixels.width, pixels.height);
    motion.shift({from[0] - to[0], from[1] - to[1], from[2] - to[2]});
    // After the shift `from` lies under the fingers' middle.
    if (float const apart = spread(before_); apart > 0) motion.zoom(from, spread(now) / apart);
    show(view, motion.result());
    before_ = now;
    return true;
}

} // namespace HPS
