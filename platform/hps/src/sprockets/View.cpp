#include "VisibleExtent.h"
#include "fitting.h"
#include "records.h"
#include <algorithm>
#include <hps/AxisTriadControl.h>
#include <hps/NavigationCubeControl.h>
#include <hps/VisualEffectsKit.h>

namespace HPS
{
namespace
{

/// The camera that the user set, or else the view's own for the model's orientation.
CameraKit cameraOf(ViewRecord const& view)
{
    CameraKit camera;
    bool const has = view.segment.ShowCamera(camera);
    if (has && !(camera == view.automatic)) return camera;
    Vector up(0, 0, 1), front(1, 0, 0);
    view.model.ShowOrientation(up, front);
    return defaultCamera(up, front);
}

void setAutomatic(ViewRecord& view, CameraKit const& camera)
{
    view.segment.UnsetCamera();
    view.segment.SetCamera(camera);
    view.automatic = camera;
}

} // namespace

SegmentKey View::GetSegmentKey() const
{
    auto const* const record = Registry::instance().find(*this);
    return record != nullptr ? record->segment : SegmentKey();
}

SegmentKey View::GetModelIncludeKey() const
{
    auto const* const record = Registry::instance().find(*this);
    return record != nullptr ? record->modelInclude : SegmentKey();
}

View& View::AttachModel(Model const& model)
{
    auto* const record = Registry::instance().find(*this);
    if (record == nullptr) return *this;
    record->include.Delete();
    record->include.Reset();
    record->model = Model(static_cast<Sprocket const&>(model));
    if (record->model.Empty()) return *this;
    record->include = record->modelInclude.IncludeSegment(record->model.GetSegmentKey());
    CameraKit camera;
    if (!record->segment.ShowCamera(camera) || camera == record->automatic)
        if (!FitWorld()) setAutomatic(*record, cameraOf(*record));
    return *this;
}

View& View::DetachModel()
{
    return AttachModel(Model());
}

Model View::GetAttachedModel() const
{
    auto const* const record = Registry::instance().find(*this);
    return record != nullptr && !record->model.Empty() ? record->model : Model();
}

bool View::ComputeFitWorldCamera(CameraKit const& camera, CameraKit& fitted) const
{
    auto const* const record = Registry::instance().find(*this);
    if (record == nullptr) return false;
    render::VisibleExtent const extent(*scene::store().resolve<scene::SegmentRecord>(record->segment));
    if (extent.empty()) return false;
    fitted = fittedCamera(camera, extent);
    return true;
}

bool View::FitWorld()
{
    auto* const record = Registry::instance().find(*this);
    if (record == nullptr) return false;
    CameraKit current, fitted;
    bool const users = record->segment.ShowCamera(current) && !(current == record->automatic);
    if (!ComputeFitWorldCamera(cameraOf(*record), fitted)) return false;
    if (users)
        record->segment.SetCamera(fitted);
    else
        setAutomatic(*record, fitted);
    return true;
}

bool View::SetCamera(CameraKit const& camera)
{
    auto* const record = Registry::instance().find(*this);
    if (record != nullptr) record->segment.SetCamera(camera);
    return record != nullptr;
}

bool View::ShowCamera(CameraKit& camera) const
{
    auto const* const record = Registry::instance().find(*this);
    return record != nullptr && record->segment.ShowCamera(camera);
}

AxisTriadControl View::GetAxisTriadControl() const
{
    return AxisTriadControl(*this);
}

NavigationCubeControl View::GetNavigationCubeControl() const
{
    return NavigationCubeControl(*this);
}

View& View::SetRenderingMode(Rendering::Mode mode)
{
    if (auto* const record = Registry::instance().find(*this)) record->mode = mode;
    return *this;
}

Rendering::Mode View::GetRenderingMode() const
{
    auto const* const record = Registry::instance().find(*this);
    return record != nullptr ? record->mode : Rendering::Mode::Gouraud;
}

View& View::SetSimpleShadow(bool state, float offset)
{
    auto* const record = Registry::instance().find(*this);
    if (record == nullptr) return *this;
    VisualEffectsKit effects = VisualEffectsKit::GetDefault();
    bool was = false, ignore = false;
    unsigned resolution = 0, blurring = 0;
    effects.ShowSimpleShadow(was, resolution, blurring, ignore);
    auto control = record->segment.GetVisualEffectsControl();
    control.ShowSimpleShadow(was, resolution, blurring, ignore);
    control.SetSimpleShadow(state, resolution, blurring, ignore);
    render::VisibleExtent const extent(*scene::store().resolve<scene::SegmentRecord>(record->segment));
    if (!state || extent.empty()) return *this;
    Vector up(0, 0, 1), front(1, 0, 0);
    record->model.ShowOrientation(up, front);
    render::Vec3 const way = render::normalised({up.x, up.y, up.z}, {0, 0, 1});
    auto across = [&](render::Vec3 const& axis) { return extent.support(axis) + extent.support(axis * -1); };
    double const height = across(way);
    // A plane through what is flat would hide it.
    double const size =
        height > 0 ? height : std::max({across({1, 0, 0}), across({0, 1, 0}), across({0, 0, 1})});
    double const level = -extent.support(way * -1) - 0.01 * offset * size;
    control.SetSimpleShadowPlane(Plane(float(way.x), float(way.y), float(way.z), float(-level)));
    control.SetSimpleShadowLightDirection(Vector(float(way.x), float(way.y), float(way.z)));
    return *this;
}

void View::Update(Window::UpdateType type) const
{
    for (Canvas const& canvas : Registry::instance().canvasesOf(*this)) canvas.Update(type);
}

} // namespace HPS
