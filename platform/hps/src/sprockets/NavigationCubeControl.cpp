#include "corner_shapes.h"
#include "cube_regions.h"
#include "records.h"
#include <algorithm>
#include <hps/WindowKey.h>

namespace HPS
{
namespace
{

using render::as;
using render::vec;
using render::Vec3;

/// A vector of the world in the axes of the cube.
Vec3 inCube(CubeAxes const& axes, Vec3 const& v)
{
    return {dot(v, axes.right), dot(v, axes.up), dot(v, axes.front)};
}

void rebuild(ViewRecord& view)
{
    CornerRecord& cube = view.corners.cube;
    if (cube.segment.Type() == Type::None)
        showCorner(view, cube);
    else
        buildCube(cube.contents, view.corners);
}

} // namespace

NavigationCubeControl& NavigationCubeControl::SetText(UTF8 const& back, UTF8 const& top, UTF8 const& left,
                                                      UTF8 const& front, UTF8 const& bottom,
                                                      UTF8 const& right, TextAttributeKit const& attributes,
                                                      std::vector<UTF8> const& fonts)
{
    auto* const view = Registry::instance().find(view_);
    if (view == nullptr) return *this;
    view->corners.labels = {back, top, left, front, bottom, right};
    view->corners.text = attributes;
    if (!fonts.empty()) view->corners.text.SetFont(fonts.front());
    rebuild(*view);
    return *this;
}

bool NavigationCubeControl::FindRegion(WindowKey const& window, Point const& position,
                                       CubeRegion& region) const
{
    auto* const view = Registry::instance().find(view_);
    unsigned int width = 0, height = 0;
    if (view == nullptr || !window.GetWindowInfoControl().ShowWindowPixels(width, height)) return false;
    CornerRecord const& cube = view->corners.cube;
    Rectangle const place = cube.place();
    if (!cube.visible || !cube.interactive || position.x < place.left || position.x > place.right ||
        position.y < place.bottom || position.y > place.top)
        return false;
    followCamera(*view);
    // The field fills the smaller side of the place; along both sides the scale is the same.
    double const across = 0.5 * place.Width() * width, along = 0.5 * place.Height() * height; // pixels
    double const scale = cubeField / std::min(across, along);
    double const x = (position.x - 0.5 * (place.left + place.right)) * 0.5 * width * scale;
    double const y = (position.y - 0.5 * (place.bottom + place.top)) * 0.5 * height * scale;
    Vec3 const back = normalised(vec(cube.back), {0, 0, 1});
    Vec3 const right = normalised(cross(vec(cube.up), back), {1, 0, 0}), up = cross(back, right);
    CubeAxes const axes = cubeAxes(*view);
    auto const hit = cubeHit(inCube(axes, right * x + up * y + back * 10), inCube(axes, back * -1));
    if (hit) region = *hit;
    return hit.has_value();
}

bool NavigationCubeControl::ComputeCamera(CubeRegion const& region, CameraKit& camera) const
{
    auto* const view = Registry::instance().find(view_);
    CameraKit turned;
    Point position, target;
    if (view == nullptr || region == CubeRegion() || !view->segment.ShowCamera(turned) ||
        !turned.ShowPosition(position) || !turned.ShowTarget(target))
        return false;
    auto const& [right, up, front] = cubeAxes(*view);
    Vec3 const back = normalised(
        right * double(region.right) + up * double(region.up) + front * double(region.front), front);
    turned.SetPosition(target + as<Vector>(back) * float((position - target).Length()));
    // Seen from straight above, the front lies at the lower border of the window; from below at the upper.
    bool const steep = region.right == 0 && region.front == 0;
    turned.SetUpVector(as<Vector>(steep ? front * double(-region.up) : up));
    camera = turned;
    return true;
}

NavigationCubeControl& NavigationCubeControl::Highlight(CubeRegion const& region)
{
    auto* const view = Registry::instance().find(view_);
    if (view == nullptr || view->corners.highlighted == region) return *this;
    view->corners.highlighted = region;
    rebuild(*view);
    return *this;
}

} // namespace HPS
