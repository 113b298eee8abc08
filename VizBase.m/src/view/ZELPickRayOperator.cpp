#include "ZELPickRayOperator.h"

#include "ZELView3D.h"

#include <cmath>

namespace ZelVizBase
{

using namespace ZELVizCore;

int ZELPickRayOperator::_aperture = 4;

namespace
{

HPS::Vector unit(float const* values)
{
    return HPS::Vector(values[0], values[1], values[2]).Normalize();
}

/// In double, as the pixel at a far target is small beside its coordinates.
HPS::Point moved(HPS::Point const& from, HPS::Vector const& along, double by)
{
    return {static_cast<float>(from.x + along.x * by), static_cast<float>(from.y + along.y * by),
            static_cast<float>(from.z + along.z * by)};
}

} // namespace

ZELPickRayOperator::ZELPickRayOperator(ZELView3D* owner)
    : Operator(HPS::MouseButtons::ButtonLeft(), HPS::ModifierKeys::KeyControl()), Owner(owner)
{
}

bool ZELPickRayOperator::OnMouseDown(HPS::MouseState const& state)
{
    if (!state.GetActiveEvent().CurrentButton.Left()) return false;
    recordMouseLocation(state);
    makeRayNotifyPick();
    return true;
}

bool ZELPickRayOperator::OnMouseMove(HPS::MouseState const& state)
{
    if (IsMouseTriggered(state)) return false;
    recordMouseLocation(state);
    updateAperture();
    Owner->Update(MoraCore::UpdateType::Default);
    return true;
}

void ZELPickRayOperator::OnViewAttached(HPS::View const&)
{
    Active = true;
    constructApertureSegment();
}

void ZELPickRayOperator::OnViewDetached(HPS::View const&)
{
    flushApertureSegment();
    Owner->Update(MoraCore::UpdateType::Default);
    Active = false;
}

void ZELPickRayOperator::constructApertureSegment()
{
    HPS::RGBAColor const black(0, 0, 0, 1);
    ApertureSegment = GetAttachedView()
                          .GetSegmentKey()
                          .Subsegment("construction segment", true)
                          .Subsegment("aperture segment", true);
    ApertureSegment.GetBoundingControl().SetExclusion(true);
    ApertureSegment.GetDrawingAttributeControl().SetOverlay(HPS::Drawing::Overlay::Default);
    ApertureSegment.GetVisualEffectsControl().SetPostProcessEffectsEnabled(false);
    ApertureSegment.GetVisibilityControl().SetLines(true).SetEdges(true).SetFaces(false);
    ApertureSegment.GetMaterialMappingControl().SetLineColor(black).SetEdgeColor(black);
    ApertureSegment.Flush(HPS::Search::Type::Geometry, HPS::Search::Space::SegmentOnly);
    ApertureCircle.Reset();
}

void ZELPickRayOperator::flushApertureSegment()
{
    if (!Active) return;
    ApertureSegment.Flush(HPS::Search::Type::Geometry, HPS::Search::Space::SegmentOnly);
    ApertureCircle.Reset();
}

void ZELPickRayOperator::recordMouseLocation(HPS::MouseState const& state)
{
    using HPS::Coordinate::Space;
    SourceWindow = state.GetEventSource();
    HPS::KeyPath const& path = state.GetEventPath();
    MouseWindow = state.GetLocation();
    path.ConvertCoordinate(Space::Window, MouseWindow, Space::InnerWindow, MouseInnerWindow);
    path.ConvertCoordinate(Space::Window, MouseWindow, Space::InnerPixel, MouseInnerPixel);
    path.ConvertCoordinate(Space::Window, MouseWindow, Space::World, MouseWorld);
}

void ZELPickRayOperator::updateAperture()
{
    MoraCore::ACamera* const camera = Owner != nullptr ? Owner->GetCamera() : nullptr;
    if (camera == nullptr) return;
    int width = 0, height = 0;
    Owner->GetWindowSize(width, height);
    if (height <= 0) return;
    float position[3], target[3], up[3], line[3];
    camera->GetCamera(position, target, up);
    Subtract(position, target, line);
    auto const fieldHeight =
        static_cast<float>(2.0 * (Length(line) * std::tan(camera->GetFieldOfViewRadians() / 2.0)));
    double const radius = _aperture * static_cast<double>(fieldHeight / static_cast<float>(height));
    HPS::Vector const upward = unit(up);
    HPS::Point const minor = moved(MouseWorld, upward, radius);
    HPS::Point const major = moved(MouseWorld, upward.Cross(unit(line)), radius);
    if (ApertureCircle.Type() == HPS::Type::None)
        ApertureCircle = ApertureSegment.InsertEllipse(MouseWorld, major, minor);
    else
        ApertureCircle.SetCenter(MouseWorld).SetMajor(major).SetMinor(minor);
}

bool ZELPickRayOperator::makeRayNotifyPick()
{
    PickRay = Owner->GetCamera()->Make3DRay(static_cast<int>(MouseInnerPixel.x),
                                            static_cast<int>(MouseInnerPixel.y), _aperture);
    moveRayOutsideModel(PickRay);
    return Owner->NotifyPick(PickRay);
}

void ZELPickRayOperator::moveRayOutsideModel(Ray& ray)
{
    float const* const center = Owner->GetGeometryCenter();
    if (center == nullptr) return;
    float toCenter[3], step[3];
    Subtract(center, ray.origin, toCenter);
    float const radius = Owner->GetGeometryRadius();
    if (radius > Length(toCenter)) {
        Multiply(ray.direction, 2.0 * radius / Length(ray.direction), step);
        Add(ray.origin, ray.direction, ray.origin);
        Subtract(ray.origin, step, ray.origin);
    } else if (float const along = DotProduct(toCenter, ray.direction); along < 0) {
        Multiply(ray.direction, 2.0 * along, step);
        Add(ray.origin, step, ray.origin);
    }
}

} // namespace ZelVizBase
