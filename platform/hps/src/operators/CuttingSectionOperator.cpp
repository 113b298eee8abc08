#include "CameraMotion.h"
#include <algorithm>
#include <cmath>
#include <hps/CuttingSectionOperator.h>
#include <hps/SegmentKey.h>
#include <hps/WindowKey.h>

namespace HPS
{
namespace
{

using Triple = CameraMotion::Triple;

double dot(Triple const& a, Triple const& b)
{
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

/// How far along a plane's normal, of unit length, a box reaches.
struct Reach {
    double from, to;
    double middle() const { return (from + to) / 2; }
};

/// With a normal of unit length; a plane without one cuts nothing.
struct UnitPlane {
    Triple normal{};
    double place = 0; ///< along the normal

    explicit UnitPlane(Plane const& plane)
    {
        double const length = std::hypot(plane.a, plane.b, plane.c);
        if (length == 0) return;
        normal = {plane.a / length, plane.b / length, plane.c / length};
        place = -plane.d / length;
    }
    Plane result() const { return {float(normal[0]), float(normal[1]), float(normal[2]), float(-place)}; }
    Reach reachOf(SimpleCuboid const& box) const
    {
        Point const middle = box.Center();
        Vector const half = (box.max - box.min) * 0.5F;
        double const at = dot(normal, {middle.x, middle.y, middle.z});
        double const spread =
            std::abs(normal[0]) * half.x + std::abs(normal[1]) * half.y + std::abs(normal[2]) * half.z;
        return {at - spread, at + spread};
    }
};

bool showExtent(View const& view, SimpleCuboid& box)
{
    SimpleSphere sphere;
    return view.GetAttachedModel().GetSegmentKey().GetBoundingControl().ShowVolume(sphere, box) &&
           box.IsValid();
}

/// A normal that points this nearly at the eye moves with the mouse's way up: it has no direction on the
/// screen. The length of its share in the picture.
constexpr double leastShare = 0.2;

} // namespace

CuttingSectionOperator::~CuttingSectionOperator()
{
    section_.Delete();
}

void CuttingSectionOperator::SetPlanes(std::vector<Plane> const& planes)
{
    planes_ = planes;
    moveIntoModel();
    update();
}

void CuttingSectionOperator::SetSectioning(bool sectioning)
{
    sectioning_ = sectioning;
    update();
}

void CuttingSectionOperator::SetIndicatorVisibility(bool visible)
{
    indicator_ = visible;
    update();
}

void CuttingSectionOperator::SetPlaneMaterial(MaterialKit const& material)
{
    material.ShowDiffuseColor(color_);
    update();
}

MaterialKit CuttingSectionOperator::GetPlaneMaterial() const
{
    return MaterialKit().SetDiffuseColor(color_);
}

void CuttingSectionOperator::OnViewAttached(View const&)
{
    moveIntoModel();
    update();
}

void CuttingSectionOperator::OnViewDetached(View const&)
{
    last_.reset();
    section_.Delete();
    section_ = CuttingSectionKey();
}

// What holds the section may have been emptied meanwhile.
void CuttingSectionOperator::update()
{
    SegmentKey model = GetAttachedView().GetAttachedModel().GetSegmentKey();
    if (!sectioning_ || planes_.empty() || model.Type() == Type::None) {
        section_.Delete();
        return;
    }
    if (section_.Type() == Type::None || section_.Owner() != model)
        section_ = model.InsertCuttingSection(planes_);
    else
        section_.SetPlanes(planes_);
    section_.SetVisualization(indicator_ ? CuttingSection::Mode::Square : CuttingSection::Mode::None, color_);
}

void CuttingSectionOperator::moveIntoModel()
{
    SimpleCuboid box;
    if (!showExtent(GetAttachedView(), box)) return;
    for (Plane& plane : planes_) {
        UnitPlane moved(plane);
        Reach const reach = moved.reachOf(box);
        if (moved.place > reach.from && moved.place < reach.to) continue;
        moved.place = reach.middle();
        plane = moved.result();
    }
}

bool CuttingSectionOperator::OnMouseDown(MouseState const& state)
{
    if (!IsMouseTriggered(state)) return false;
    last_ = state.GetLocation();
    return true;
}

bool CuttingSectionOperator::OnMouseUp(MouseState const&)
{
    bool const dragged = last_.has_value();
    last_.reset();
    return dragged;
}

bool CuttingSectionOperator::OnMouseMove(MouseState const& state)
{
    if (!last_) return false;
    moveFirst(*last_, state.GetLocation(), state.GetEventSource());
    last_ = state.GetLocation();
    update();
    GetAttachedView().Update();
    return true;
}

void CuttingSectionOperator::moveFirst(WindowPoint const& from, WindowPoint const& to,
                                       WindowKey const& window)
{
    CameraKit camera;
    SimpleCuboid box;
    unsigned int width = 0, height = 0;
    if (planes_.empty() || !GetAttachedView().ShowCamera(camera) || !showExtent(GetAttachedView(), box) ||
        !window.GetWindowInfoControl().ShowWindowPixels(width, height))
        return;
    CameraMotion const motion(camera);
    Triple const before = motion.pointAt(from.x, from.y, width, height);
    Triple const after = motion.pointAt(to.x, to.y, width, height);
    Triple const way{after[0] - before[0], after[1] - before[1], after[2] - before[2]};
    UnitPlane plane(planes_.front());
    double const right = dot(plane.normal, motion.right()), up = dot(plane.normal, motion.up());
    double const share = std::hypot(right, up);
    double const along =
        share < leastShare
            ? dot(way, motion.up())
            : (dot(way, motion.right()) * right + dot(way, motion.up()) * up) / (share * share);
    Reach const reach = plane.reachOf(box);
    plane.place = std::clamp(plane.place + along, reach.from, reach.to);
    planes_.front() = plane.result();
}

} // namespace HPS
