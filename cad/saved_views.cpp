#include "saved_views.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <set>

namespace ZelCad
{

using NarMetaInfra::ZELReference;
using NarMetaPmi::PMIAnnotationView;
using NarMetaPmi::PMICamera;
using NarMetaPmi::PMICapture;
using NarMetaPmi::PMIClippingPlane;
using NarMetaPmi::PMIContainer;

namespace
{

template <class Do> void forEachAnnotation(PMIAnnotationView const& view, Do perform)
{
    auto const all = [&perform](auto const& members) {
        for (auto const& member : members) perform(*member);
    };
    all(view.GetNotes());
    all(view.GetDatums());
    all(view.GetDatumTargets());
    all(view.GetGDTs());
    all(view.GetDimensions());
    all(view.GetRoughnesses());
}

HPS::Point pointOf(std::array<double, 3> const& place)
{
    return {static_cast<float>(place[0]), static_cast<float>(place[1]), static_cast<float>(place[2])};
}

HPS::Vector vectorOf(std::array<double, 3> const& direction)
{
    return HPS::Vector(pointOf(direction) - HPS::Point());
}

/// Whether a box is seen whole in a field around the target.
bool isWithin(HPS::SimpleCuboid const& box, HPS::Point const& target, HPS::Vector const& right,
              HPS::Vector const& up, float width, float height)
{
    for (int corner = 0; corner < 8; ++corner) {
        HPS::Point const at(corner & 1 ? box.min.x : box.max.x, corner & 2 ? box.min.y : box.max.y,
                            corner & 4 ? box.min.z : box.max.z);
        HPS::Vector const from = at - target;
        if (std::abs(from.Dot(right)) > width / 2 || std::abs(from.Dot(up)) > height / 2) return false;
    }
    return box.IsValid();
}

} // namespace

SavedView savedView(PMIAnnotationView const& view)
{
    SavedView saved{view.GetCamera(), {}, {}, {}};
    forEachAnnotation(view,
                      [&saved](auto const& member) { saved.annotations.push_back(member.GetHashedID()); });
    std::ranges::sort(saved.annotations);
    return saved;
}

SavedView savedView(PMICapture const& capture)
{
    SavedView saved{capture.GetCamera(), capture.GetAnnotationIds(), capture.GetClippingPlanes(),
                    capture.GetVisibleReferences()};
    std::ranges::sort(saved.annotations);
    return saved;
}

std::vector<NarMeta::Id> showOnly(PMIContainer const& container, SavedView const& saved)
{
    std::vector<NarMeta::Id> all;
    for (auto const& [owner, sets] : container.GetOwners())
        for (auto const& set : sets)
            for (auto const& view : set->GetViews())
                forEachAnnotation(*view, [&](auto& member) {
                    NarMeta::Id const id = member.GetHashedID();
                    member.SetHidden(!std::ranges::binary_search(saved.annotations, id));
                    all.push_back(id);
                });
    return all;
}

std::map<ZELReference const*, bool> shownParts(NarMetaInfra::ZELProductStructure const& model,
                                               SavedView const& saved)
{
    std::vector<ZELReference const*> open;
    std::wstring pid;
    for (auto const& reference : model.GetReferences())
        if (saved.references.empty() ||
            (reference->GetPID(pid) && std::ranges::find(saved.references, pid) != saved.references.end()))
            open.push_back(reference.get());
    std::set<ZELReference const*> shown;
    while (!open.empty()) {
        ZELReference const* const reference = open.back();
        open.pop_back();
        if (!shown.insert(reference).second) continue;
        for (auto const& instance : reference->GetInstances()) open.push_back(instance->GetReference().get());
    }
    std::map<ZELReference const*, bool> parts;
    for (auto const& reference : model.GetReferences())
        if (reference->IsPart()) parts[reference.get()] = shown.contains(reference.get());
    return parts;
}

HPS::CameraKit cameraOf(PMICamera const& saved, HPS::MatrixKit const& placing, HPS::View const& view,
                        float degrees, HPS::SimpleCuboid const& annotations)
{
    HPS::Vector const sight = placing.Transform(vectorOf(saved.direction)).Normalize();
    HPS::Vector const up = placing.Transform(vectorOf(saved.up)).Normalize();
    HPS::Point const eye = placing.Transform(pointOf(saved.position));
    HPS::SimpleSphere sphere;
    HPS::SimpleCuboid cuboid;
    HPS::Point target = eye + sight;
    // What the eye looks at lies as deep as the middle of the model, so that one turns about that.
    if (view.GetSegmentKey().GetBoundingControl().ShowVolume(sphere, cuboid)) {
        float const depth = static_cast<float>(HPS::Vector(cuboid.Center() - eye).Dot(sight));
        target = eye + sight * depth;
    }
    using HPS::Camera::Projection;
    auto const slope = std::tan(degrees / 360 * std::numbers::pi_v<float>);
    auto const width = static_cast<float>(saved.width), height = static_cast<float>(saved.height);
    bool const hasField =
        !saved.perspective && isWithin(annotations, target, sight.Cross(up), up, width, height);
    float const distance = hasField ? height / 2 / slope : 1;
    HPS::CameraKit kit;
    kit.SetTarget(target).SetPosition(target - sight * distance);
    kit.SetUpVector(up);
    kit.SetProjection(saved.perspective ? Projection::Perspective : Projection::Orthographic);
    kit.SetField(hasField ? width : 2 * slope, hasField ? height : 2 * slope);
    HPS::CameraKit fitted;
    return !hasField && view.ComputeFitWorldCamera(kit, fitted) ? fitted : kit;
}

HPS::Plane planeOf(PMIClippingPlane const& saved, HPS::MatrixKit const& placing)
{
    HPS::Vector const normal = placing.Transform(vectorOf(saved.normal)).Normalize();
    HPS::Vector const from(placing.Transform(pointOf(saved.point)) - HPS::Point());
    return {normal.x, normal.y, normal.z, -static_cast<float>(normal.Dot(from))};
}

} // namespace ZelCad
