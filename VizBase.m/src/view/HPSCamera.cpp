#include "HPSCamera.h"

#include "ZELView3D.h"

#include <algorithm>
#include <cmath>

namespace ZelVizBase
{

using namespace ZELVizCore;

namespace
{

void copy(float const* from, float* to)
{
    std::copy_n(from, 3, to);
}

template <class Triple> Triple as(float const* values)
{
    return {values[0], values[1], values[2]};
}

template <class Triple> void put(Triple const& from, float* to)
{
    to[0] = from.x;
    to[1] = from.y;
    to[2] = from.z;
}

constexpr double transitionSeconds = 0.5;
constexpr float startFieldOfView = 45;   ///< degrees
constexpr float radiusOfNothing = 10;    ///< stands in for an empty model
constexpr float standardDistance = 1.5F; ///< times what shows the whole model

} // namespace

template <StandardViews const& Views> HPSCamera<Views>::HPSCamera(MoraCore::IView3DEvo* view) : ACamera(view)
{
    SetFieldOfView(startFieldOfView);
}

template <StandardViews const& Views> ZELView3D* HPSCamera<Views>::view() const
{
    return Evo != nullptr ? static_cast<ZELView3D*>(Evo->GetViewImpl()) : nullptr;
}

template <StandardViews const& Views> void HPSCamera<Views>::GetWindowSize(int& width, int& height)
{
    width = height = 0;
    if (ZELView3D const* const shown = view()) shown->GetWindowSize(width, height);
}

template <StandardViews const& Views> float const* HPSCamera<Views>::GetGeometryCenter()
{
    ZELView3D* const shown = view();
    return shown != nullptr ? shown->GetGeometryCenter() : nullptr;
}

template <StandardViews const& Views> float HPSCamera<Views>::GetGeometryRadius()
{
    ZELView3D* const shown = view();
    return shown != nullptr ? shown->GetGeometryRadius() : 0.0F;
}

template <StandardViews const& Views>
void HPSCamera<Views>::SetStandardPosition(float* position, float* target, float* up)
{
    float radius = GetGeometryRadius();
    if (radius == 0) radius = radiusOfNothing;
    std::fill_n(position, 3, 0.0F);
    std::fill_n(target, 3, 0.0F);
    position[Views.towardsEye] = radius / std::tan(GetFieldOfViewRadians() / 2) * standardDistance;
    copy(Views.up.data(), up);
}

template <StandardViews const& Views>
void HPSCamera<Views>::setFront(float* position, float* target, float* up, bool keepDistance)
{
    SetStandardPosition(position, target, up);
    if (float const* const center = GetGeometryCenter()) copy(center, target);
    if (keepDistance) {
        float line[3];
        Subtract(Target, Position, line);
        position[Views.towardsEye] = Length(line);
    }
    Add(target, position, position);
}

template <StandardViews const& Views> void HPSCamera<Views>::show(StandardTurn const& turn)
{
    if (view() == nullptr) return;
    float position[3]{}, target[3]{}, up[3]{};
    setFront(position, target, up, true);
    RotatePoint(position, turn.degrees, target, turn.axis.data(), position);
    if (turn.up) copy(turn.up->data(), up);
    SetCamera(position, target, up);
}

template <StandardViews const& Views> void HPSCamera<Views>::Isometric()
{
    if (view() == nullptr) return;
    constexpr double degrees = 45;
    float const origin[3]{};
    float position[3]{}, target[3]{}, up[3]{};
    setFront(position, target, up, true);
    RotatePoint(position, degrees, target, Views.isometricFirst.data(), position);
    RotatePoint(position, degrees, target, Views.isometricSecond.data(), position);
    RotatePoint(up, degrees, origin, Views.isometricSecond.data(), up);
    SetCamera(position, target, up);
}

template <StandardViews const& Views>
MoraCore::ACamera* HPSCamera<Views>::cloneTo(MoraCore::IView3DEvo* other) const
{
    auto* const clone = new HPSCamera(*this);
    clone->copySettingsFrom(*this);
    clone->Evo = other;
    return clone;
}

template <StandardViews const& Views> void HPSCamera<Views>::getCurrentCamera()
{
    ZELView3D* const shown = view();
    if (shown == nullptr) return;
    shown->View().GetSegmentKey().ShowCamera(Kit);
    HPS::Point point;
    HPS::Vector vector;
    HPS::Camera::Projection projection{};
    if (Kit.ShowPosition(point)) put(point, Position);
    if (Kit.ShowTarget(point)) put(point, Target);
    if (Kit.ShowUpVector(vector)) put(vector, Up);
    if (Kit.ShowProjection(projection)) Orthographic = projection == HPS::Camera::Projection::Orthographic;
}

template <StandardViews const& Views> void HPSCamera<Views>::updateCameraKit()
{
    ZELView3D* const shown = view();
    if (shown == nullptr) return;
    auto const position = as<HPS::Point>(Position);
    Kit.SetPosition(position).SetTarget(as<HPS::Point>(Target)).SetUpVector(as<HPS::Vector>(Up));
    float width = 0, height = 0;
    computeCameraFields(width, height);

    HPS::CameraControl control = shown->View().GetSegmentKey().GetCameraControl();
    control.SetPosition(position);
    using HPS::Camera::Projection;
    Projection const projection = Orthographic ? Projection::Orthographic : Projection::Perspective;
    Kit.SetProjection(projection, 0, 0);
    control.SetProjection(projection, 0, 0);
    if (width == 0 || height == 0)
        control.ShowField(width, height);
    else
        control.SetField(width, height);
    Kit.SetField(width, height);
}

template <StandardViews const& Views>
ZELView3D* HPSCamera<Views>::take(float const* position, float const* target, float const* up)
{
    ZELView3D* const shown = view();
    if (shown == nullptr) return nullptr;
    shown->View().GetSegmentKey().ShowCamera(Kit);
    copy(position, Position);
    copy(target, Target);
    copy(up, Up);
    updateCameraKit();
    return shown;
}

template <StandardViews const& Views>
void HPSCamera<Views>::moveCamera(float* position, float* target, float* up)
{
    ZELView3D* const shown = take(position, target, up);
    if (shown == nullptr) return;
    shown->View().GetSegmentKey().SetCamera(Kit);
    shown->Update(MoraCore::UpdateType::Default);
}

template <StandardViews const& Views>
void HPSCamera<Views>::animateCamera(float* position, float* target, float* up)
{
    if (ZELView3D* const shown = take(position, target, up))
        shown->View().SmoothTransition(Kit, transitionSeconds);
}

template class HPSCamera<viewsWithYUp>;
template class HPSCamera<viewsWithZUp>;

} // namespace ZelVizBase
