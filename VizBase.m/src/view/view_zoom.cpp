// The camera brought to what a path shows.

#include "ZELView3D.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace ZelVizBase
{

using HPS::Coordinate::Space;

namespace
{

constexpr float leastExtent = 1e-9F;        ///< of the window
constexpr float leastField = 1.0000001e-6F; ///< below it there is no field in that direction
constexpr float leastView = 0.001F;
constexpr float shareOfOther = 0.01F;
constexpr float distanceShare = 2.5F; ///< of the field's diagonal, from the target to the eye
constexpr float transitionSeconds = 0.5F;

/// Two corners in the window's space.
struct Corners {
    HPS::Point from, to;
    HPS::Point middle() const { return from + (to - from) * 0.5F; }
};

/// `point` moved along the line of sight into the plane through `reference` that faces the eye.
HPS::Point atDepthOf(HPS::KeyPath const& path, HPS::Point const& reference, HPS::Point const& point)
{
    HPS::Point seen = reference, moved = point, back = point;
    path.ConvertCoordinate(Space::World, reference, Space::Camera, seen);
    path.ConvertCoordinate(Space::World, point, Space::Camera, moved);
    moved.z = seen.z;
    path.ConvertCoordinate(Space::Camera, moved, Space::World, back);
    return back;
}

std::optional<HPS::Point> findTarget(HPS::WindowKey const& window, HPS::KeyPath const& path,
                                     Corners const& corners)
{
    HPS::SelectionControl const selection = window.GetSelectionControl();
    HPS::SelectionOptionsKit options;
    options.SetLevel(HPS::Selection::Level::Entity);
    HPS::SelectionResults results;
    HPS::Point place;
    if (selection.SelectByPoint(corners.middle(), options, results) > 0 &&
        results.GetIterator().GetItem().ShowSelectionPosition(place))
        return place;
    auto const [left, right] = std::minmax({corners.from.x, corners.to.x});
    auto const [bottom, top] = std::minmax({corners.from.y, corners.to.y});
    if (selection.SelectByArea({left, right, bottom, top}, results) == 0) return std::nullopt;
    HPS::Point sum(0, 0, 0);
    for (auto at = results.GetIterator(); at.IsValid(); at.Next())
        if (at.GetItem().ShowSelectionPosition(place)) sum = sum + (place - HPS::Point(0, 0, 0));
    float const share = 1 / static_cast<float>(results.GetCount());
    HPS::Point const average(sum.x * share, sum.y * share, sum.z * share);
    HPS::Point middle;
    if (!path.ConvertCoordinate(Space::Window, corners.middle(), Space::World, middle)) return std::nullopt;
    return atDepthOf(path, average, middle);
}

/// Between two places of the window, in the plane of the target.
float fieldBetween(HPS::KeyPath const& path, HPS::Point const& target, HPS::Point a, HPS::Point b)
{
    for (HPS::Point* const end : {&a, &b}) {
        HPS::Point world;
        path.ConvertCoordinate(Space::Window, *end, Space::World, world);
        *end = atDepthOf(path, target, world);
    }
    return static_cast<float>((a - b).Length());
}

} // namespace

bool ZELView3D::ZoomTo(HPS::KeyPath const& path)
{
    if (Camera == nullptr) return false;
    HPS::CameraKit fitted;
    if (computeZoomCamera(path, fitted)) {
        if (Camera->GetAnimate())
            TheView.SmoothTransition(fitted, transitionSeconds);
        else
            segment().SetCamera(fitted);
    }
    updateThis(HPS::Window::UpdateType::Default);
    return true;
}

bool ZELView3D::computeZoomCamera(HPS::KeyPath const& path, HPS::CameraKit& fitted) const
{
    HPS::Rectangle extent;
    if (!path.ComputeExtent(extent) || extent.Width() < leastExtent || extent.Height() < leastExtent)
        return false;
    Corners const corners{{extent.left, extent.top, 0}, {extent.right, extent.bottom, 0}};
    segment().ShowCamera(fitted);
    HPS::Point oldTarget, oldPosition;
    fitted.ShowTarget(oldTarget);
    fitted.ShowPosition(oldPosition);
    std::optional<HPS::Point> const target = findTarget(TheCanvas.GetWindowKey(), path, corners);
    if (!target) return false;
    HPS::Point const middle = corners.middle();
    float width =
        fieldBetween(path, *target, {corners.to.x, middle.y, middle.z}, {corners.from.x, middle.y, middle.z});
    float height =
        fieldBetween(path, *target, {middle.x, corners.to.y, middle.z}, {middle.x, corners.from.y, middle.z});
    if (width < leastField) width = shareOfOther * height;
    if (height < leastField) height = shareOfOther * width;
    if (std::min(width, height) <= leastView) return false;
    HPS::Vector const direction = (oldPosition - oldTarget).Normalize();
    fitted.SetPosition(*target + direction * (distanceShare * std::hypot(width, height)));
    fitted.SetTarget(*target).SetField(width, height);
    return true;
}

} // namespace ZelVizBase
