#include "StepViews.h"

#include <algorithm>
#include <unordered_set>

namespace NarMetaInfra
{
namespace
{
constexpr int DeepestClipping = 4;
}

StepViews::StepViews(StepEntities const& entities, StepShapeAspects const& aspects)
    : Entities(entities), Aspects(aspects)
{
    for (int const link : Entities.ofKind("SHAPE_DEFINITION_REPRESENTATION"))
        ShapeProducts[Entities.argument(link, 1).entity()] =
            Aspects.productOf(Entities.argument(link, 0).entity());
    readPlanes();
    std::unordered_set<int> defaults;
    for (int const view : Entities.ofKind("DEFAULT_MODEL_GEOMETRIC_VIEW"))
        for (std::size_t position : {2u, 3u}) defaults.insert(Entities.argument(view, position).entity());

    std::unordered_set<int> seen;
    for (int const model : Entities.ofKind("DRAUGHTING_MODEL")) {
        auto const context = Entities.argument(model, 2, "REPRESENTATION", 2).entity();
        auto const items = itemsOf(model);
        for (int const item : items)
            if (seen.insert(item).second) Drawn.emplace_back(item, context);
        for (int const item : items) {
            if (!Entities.keywordOf(item).starts_with("CAMERA_MODEL_D3") &&
                !Entities.isKind(item, "CAMERA_MODEL_D3"))
                continue;
            auto view = readView(model, item, StepGeometry(Entities, context));
            view.items = items;
            view.isDefault = defaults.contains(model) || defaults.contains(item);
            Views.push_back(std::move(view));
            break;
        }
    }
}

StepViews::Plane const* StepViews::planeOf(int item) const
{
    auto const found = PlaneOf.find(item);
    return found == PlaneOf.end() ? nullptr : &Planes.at(found->second);
}

std::vector<int> StepViews::itemsOf(int model) const
{
    std::vector<int> items;
    for (int const item : Entities.argument(model, 1, "REPRESENTATION", 1).entities()) {
        items.push_back(item);
        for (int const element : Entities.argument(item, 3, "ANNOTATION_PLANE", 0).entities())
            if (Planes.contains(item)) items.push_back(element);
    }
    return items;
}

void StepViews::readPlanes()
{
    for (int const entity : Entities.ofKind("ANNOTATION_PLANE")) {
        auto& plane = Planes[entity];
        plane.entity = entity;
        plane.name = Entities.argument(entity, 0, "REPRESENTATION_ITEM", 0).words();
        auto const surface = Entities.argument(entity, 2, "STYLED_ITEM", 1).entity();
        auto const frame = StepGeometry(Entities, 0).frame(Entities.argument(surface, 1).entity());
        plane.camera.position = frame.origin;
        plane.camera.direction = -1.0 * frame.z;
        plane.camera.up = frame.y;
        for (int const element : Entities.argument(entity, 3, "ANNOTATION_PLANE", 0).entities())
            PlaneOf.emplace(element, entity);
    }
}

// Two conventions are in use. In the one the eye stands at the projection point, in the axes of the view, and
// the window lies at the view plane's distance along the third axis. In the other the window lies in the
// axes' own plane, in the coordinates of the model like the eye, and the third axis points to the viewer.
StepView StepViews::readView(int model, int camera, StepGeometry const& geometry) const
{
    StepView view;
    view.model = model;
    view.name = Entities.argument(model, 0, "REPRESENTATION", 0).words();
    if (view.name.empty()) view.name = Entities.argument(camera, 0, "REPRESENTATION_ITEM", 0).words();
    auto const axes = geometry.frame(Entities.argument(camera, 1, "CAMERA_MODEL_D3", 0).entity());
    auto const volume = Entities.argument(camera, 2, "CAMERA_MODEL_D3", 1).entity();
    auto const distance = Entities.argument(volume, 2).value().value_or(0.0);
    auto const window = Entities.argument(volume, 8).entity();
    auto const windowAxes = geometry.frame(Entities.argument(window, 3).entity());
    auto const eye = geometry.point(Entities.argument(volume, 1).entity());
    bool const isLocal = distance != 0.0 || dot(windowAxes.z, axes.z) < 0.999;
    view.camera.position = isLocal ? axes.place(eye) : eye;
    view.camera.direction = distance > 0.0 ? axes.z : -1.0 * axes.z;
    view.camera.up = axes.y;
    view.camera.perspective = Entities.argument(volume, 0).text == "CENTRAL";
    view.camera.width = geometry.millimetres() * Entities.argument(window, 1).value().value_or(0.0);
    view.camera.height = geometry.millimetres() * Entities.argument(window, 2).value().value_or(0.0);
    readClippings(camera, geometry, view);

    for (int const item : Entities.argument(model, 1, "REPRESENTATION", 1).entities()) {
        if (!Entities.isKind(item, "MAPPED_ITEM")) continue;
        auto const map = Entities.argument(item, 1, "MAPPED_ITEM", 0).entity();
        auto const shape = ShapeProducts.find(Entities.argument(map, 1).entity());
        if (shape != ShapeProducts.end() && shape->second != 0) view.products.push_back(shape->second);
    }
    return view;
}

void StepViews::readClippings(int camera, StepGeometry const& geometry, StepView& view) const
{
    for (auto const* const keyword :
         {"CAMERA_MODEL_D3_MULTI_CLIPPING", "CAMERA_MODEL_D3_MULTI_CLIPPING_INTERSECTION"})
        for (int const shape : Entities.argument(camera, 3, keyword, 0).entities())
            addClipping(shape, geometry, view, 0);
}

void StepViews::addClipping(int shape, StepGeometry const& geometry, StepView& view, int depth) const
{
    if (depth > DeepestClipping) return;
    if (Entities.keywordOf(shape) == "PLANE") {
        auto const frame = geometry.frame(Entities.argument(shape, 1).entity());
        view.clippings.push_back({frame.origin, frame.z});
        return;
    }
    if (Entities.keywordOf(shape).starts_with("CAMERA_MODEL_D3_MULTI_CLIPPING"))
        for (int const inner : Entities.argument(shape, 1).entities())
            addClipping(inner, geometry, view, depth + 1);
}
} // namespace NarMetaInfra
