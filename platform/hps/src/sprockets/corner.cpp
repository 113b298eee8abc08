#include "corner.h"
#include "corner_shapes.h"
#include "records.h"
#include <hps/AxisTriadControl.h>
#include <hps/Database.h>

namespace HPS
{
namespace
{

using render::as;
using render::vec;
using render::Vec3;

bool isCube(ViewRecord const& view, CornerRecord const& corner)
{
    return &corner == &view.corners.cube;
}

void orientCube(ViewRecord& view)
{
    CubeAxes const axes = cubeAxes(view);
    if (view.corners.axes == axes) return;
    view.corners.axes = axes;
    auto const& [r, u, f] = axes;
    float const rows[16] = {float(r.x), float(r.y), float(r.z), 0, float(u.x), float(u.y), float(u.z), 0,
                            float(f.x), float(f.y), float(f.z), 0, 0,          0,          0,          1};
    view.corners.cube.contents.SetModellingMatrix(MatrixKit(rows));
}

void follow(CornerRecord& corner, float field, CameraKit const& camera)
{
    Point position, target;
    Vector up;
    if (!camera.ShowPosition(position) || !camera.ShowTarget(target) || !camera.ShowUpVector(up)) return;
    Vector const back = position - target;
    if (back == corner.back && up == corner.up) return;
    corner.back = back;
    corner.up = up;
    Vec3 const eye = normalised(vec(back), {0, 0, 1}) * 10;
    CameraKit turned;
    turned.SetPosition(Point(as<Vector>(eye))).SetTarget(Point()).SetUpVector(up).SetField(field, field);
    turned.SetProjection(Camera::Projection::Orthographic);
    corner.segment.SetCamera(turned);
}

void makeSegment(ViewRecord& view, CornerRecord& corner)
{
    bool const cube = isCube(view, corner);
    corner.back = corner.up = Vector();
    if (cube) view.corners.axes.reset();
    corner.portfolio.Delete();
    corner.segment = view.segment.Subsegment(cube ? "navigation cube" : "axis triad");
    corner.contents = corner.segment.Subsegment("contents");
    corner.portfolio = Database::CreatePortfolio();
    corner.portfolio.DefineMaterialPalette("corner", cube ? cubeColours() : triadColours());
    corner.segment.GetPortfolioControl().Push(corner.portfolio);
    corner.segment.SetMaterialPalette("corner");
    // It belongs to the window, not to the scene.
    corner.segment.GetBoundingControl().SetExclusion(true);
    corner.segment.GetSelectabilityControl().SetEverything(false);
    if (cube)
        buildCube(corner.contents, view.corners);
    else
        buildTriad(corner.contents);
}

} // namespace

CornerRecords::CornerRecords()
{
    cube.location = Corner::Location::TopRight;
    cube.size = 0.15f;
    text.SetSize(25, Text::SizeUnits::Pixels).SetAlignment(Text::Alignment::Center);
}

CubeAxes cubeAxes(ViewRecord const& view)
{
    Vector up(0, 0, 1), front(1, 0, 0);
    view.model.ShowOrientation(up, front);
    Vec3 const u = normalised(vec(up), {0, 0, 1});
    Vec3 const right = normalised(cross(u, vec(front)), {0, 1, 0});
    return {right, u, cross(right, u)};
}

Rectangle CornerRecord::place() const
{
    float const span = 2 * size;
    switch (location) {
    case Corner::Location::TopLeft:
        return {-1, span - 1, 1 - span, 1};
    case Corner::Location::TopRight:
        return {1 - span, 1, 1 - span, 1};
    case Corner::Location::BottomLeft:
        return {-1, span - 1, -1, span - 1};
    case Corner::Location::BottomRight:
        return {1 - span, 1, -1, span - 1};
    case Corner::Location::Custom:
        break;
    }
    return position;
}

void showCorner(ViewRecord& view, CornerRecord& corner)
{
    if (corner.segment.Type() == Type::None) makeSegment(view, corner);
    SubwindowKit window;
    window.SetSubwindow(corner.place(), IntRectangle(), Subwindow::Type::Lightweight);
    window.SetBackground(Subwindow::Background::Transparent).SetBorder(Subwindow::Border::None);
    corner.segment.SetSubwindow(window);
    VisibilityKit shown;
    shown.SetEverything(false);
    if (corner.visible)
        shown.SetFaces(true).SetText(true).SetFaceLights(true).SetWindows(true).SetPerimeterEdges(
            isCube(view, corner));
    corner.segment.SetVisibility(shown);
    followCamera(view);
}

void followCamera(ViewRecord& view)
{
    CameraKit camera;
    if (!view.segment.ShowCamera(camera)) camera = CameraKit::GetDefault();
    if (view.corners.triad.visible) follow(view.corners.triad, triadField, camera);
    if (!view.corners.cube.visible) return;
    orientCube(view);
    follow(view.corners.cube, cubeField, camera);
}

namespace detail
{
namespace
{

CornerRecord* find(View const& view, CornerHandle::Kind kind)
{
    auto* const record = Registry::instance().find(view);
    if (record == nullptr) return nullptr;
    switch (kind) {
    case CornerHandle::Kind::AxisTriad:
        return &record->corners.triad;
    case CornerHandle::Kind::NavigationCube:
        return &record->corners.cube;
    }
    return nullptr;
}

/// Changes the record and brings the segment in line with it.
template <class F> void change(View const& view, CornerHandle::Kind kind, F const& edit)
{
    CornerRecord* const corner = find(view, kind);
    if (corner == nullptr) return;
    edit(*corner);
    showCorner(*Registry::instance().find(view), *corner);
}

} // namespace

bool CornerHandle::GetVisibility() const
{
    CornerRecord const* const corner = find(view_, kind_);
    return corner != nullptr && corner->visible;
}

bool CornerHandle::GetInteractivity() const
{
    CornerRecord const* const corner = find(view_, kind_);
    return corner != nullptr && corner->interactive;
}

float CornerHandle::GetSize() const
{
    CornerRecord const* const corner = find(view_, kind_);
    return corner != nullptr ? corner->size : 0;
}

Corner::Location CornerHandle::GetLocation() const
{
    CornerRecord const* const corner = find(view_, kind_);
    return corner != nullptr ? corner->location : Corner::Location::Custom;
}

bool CornerHandle::ShowMaterialPalette(UTF8& name) const
{
    CornerRecord const* const corner = find(view_, kind_);
    return corner != nullptr && !corner->ownPalette && corner->segment.ShowMaterialPalette(name);
}

SegmentKey CornerHandle::GetSegmentKey() const
{
    CornerRecord* const corner = find(view_, kind_);
    if (corner == nullptr) return {};
    if (corner->segment.Type() == Type::None) showCorner(*Registry::instance().find(view_), *corner);
    return corner->segment;
}

void CornerHandle::setVisibility(bool state) const
{
    change(view_, kind_, [&](CornerRecord& corner) { corner.visible = state; });
}

void CornerHandle::setInteractivity(bool state) const
{
    change(view_, kind_, [&](CornerRecord& corner) { corner.interactive = state; });
}

void CornerHandle::setSize(float size) const
{
    if (size > 0 && size <= 1) change(view_, kind_, [&](CornerRecord& corner) { corner.size = size; });
}

void CornerHandle::setLocation(Corner::Location location, Rectangle const& position) const
{
    change(view_, kind_, [&](CornerRecord& corner) {
        corner.location = location;
        corner.position = position;
    });
}

void CornerHandle::setMaterialPalette(UTF8 const& name) const
{
    change(view_, kind_, [&](CornerRecord& corner) { corner.ownPalette = name.Empty(); });
    if (CornerRecord* const corner = find(view_, kind_))
        corner->segment.SetMaterialPalette(corner->ownPalette ? UTF8("corner") : name);
}

} // namespace detail
} // namespace HPS
