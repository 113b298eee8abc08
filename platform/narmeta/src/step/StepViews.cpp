#include "StepViews.h"

#include <algorithm>

namespace NarMetaInfra
{
namespace
{
constexpr int DeepestClipping = 4;
}

StepViews::StepViews(StepEntities const& entities, StepProducts const& products, StepDrawings const& drawings)
    : Entities(entities), Products(products), Drawings(drawings)
{
    std::set<int> defaults;
    for (int const view : Entities.ofKind("DEFAULT_MODEL_GEOMETRIC_VIEW"))
        for (std::size_t position : {2u, 3u}) defaults.insert(Entities.argument(view, position).entity());
    for (int const model : Entities.ofKind("DRAUGHTING_MODEL")) {
        auto const items = Entities.argument(model, 1, "REPRESENTATION", 1).entities();
        auto const camera = std::ranges::find_if(items, [&](int item) {
            return Entities.keywordOf(item).starts_with("CAMERA_MODEL_D3") ||
                   Entities.isKind(item, "CAMERA_MODEL_D3");
        });
        if (camera == items.end()) continue;
        Views.push_back(readView(model, *camera));
        Views.back().isDefault = defaults.contains(model) || defaults.contains(*camera);
    }
}

StepView StepViews::readView(int model, int camera) const
{
    StepGeometry const geometry(Entities, Entities.argument(model, 2, "REPRESENTATION", 2).entity());
    auto const place = Drawings.placesOf(model).front();
    StepView view;
    view.model = model;
    view.product = place.product;
    view.name = Entities.argument(model, 0, "REPRESENTATION", 0).words();
    if (view.name.empty()) view.name = Entities.argument(camera, 0, "REPRESENTATION_ITEM", 0).words();
    view.camera = readCamera(camera, geometry);
    readClippings(camera, geometry, view);
    view.camera.position = place.frame.place(view.camera.position);
    view.camera.direction = place.frame.turn(view.camera.direction);
    view.camera.up = place.frame.turn(view.camera.up);
    for (auto& plane : view.clippings) {
        plane.point = place.frame.place(plane.point);
        plane.normal = place.frame.turn(plane.normal);
    }
    auto const hidden = hiddenIn(model);
    for (int const item : Drawings.itemsOf(model)) {
        if (hidden.contains(item)) continue;
        view.items.push_back(item);
        if (!Entities.isKind(item, "MAPPED_ITEM")) continue;
        auto const map = Entities.argument(item, 1, "MAPPED_ITEM", 0).entity();
        auto const shown = Entities.argument(map, 1).entity();
        if (Entities.isKind(shown, "DRAUGHTING_MODEL")) continue;
        if (int const product = Products.ofRepresentation(shown); product != 0)
            view.products.push_back(product);
    }
    return view;
}

std::set<int> StepViews::hiddenIn(int model) const
{
    std::set<int> hidden;
    for (int const entity : Entities.ofKind("CONTEXT_DEPENDENT_INVISIBILITY")) {
        if (Entities.argument(entity, 1).entity() != model) continue;
        for (int const item : Entities.argument(entity, 0).entities()) hidden.insert(item);
    }
    return hidden;
}

// Two conventions are in use. In the one the eye stands at the projection point, in the axes of the view, and
// the window lies at the view plane's distance along the third axis. In the other the window lies in the
// axes' own plane, in the coordinates of the model like the eye, and the third axis points to the viewer.
NarMetaPmi::PMICamera StepViews::readCamera(int camera, StepGeometry const& geometry) const
{
    NarMetaPmi::PMICamera made;
    auto const axes = geometry.frame(Entities.argument(camera, 1, "CAMERA_MODEL_D3", 0).entity());
    auto const volume = Entities.argument(camera, 2, "CAMERA_MODEL_D3", 1).entity();
    auto const distance = Entities.argument(volume, 2).value().value_or(0.0);
    auto const window = Entities.argument(volume, 8).entity();
    auto const windowAxes = geometry.frame(Entities.argument(window, 3).entity());
    auto const eye = geometry.point(Entities.argument(volume, 1).entity());
    bool const isLocal = distance != 0.0 || dot(windowAxes.z, axes.z) < 0.999;
    made.position = isLocal ? axes.place(eye) : eye;
    made.direction = distance > 0.0 ? axes.z : -1.0 * axes.z;
    made.up = axes.y;
    made.perspective = Entities.argument(volume, 0).text == "CENTRAL";
    made.width = geometry.millimetres() * Entities.argument(window, 1).value().value_or(0.0);
    made.height = geometry.millimetres() * Entities.argument(window, 2).value().value_or(0.0);
    return made;
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
