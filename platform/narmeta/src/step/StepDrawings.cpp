#include "StepDrawings.h"

namespace NarMetaInfra
{
namespace
{
constexpr std::size_t MostPlaces = 256; // of one drawing
constexpr int MostSteps = 1024;         // to find them
} // namespace

StepDrawings::StepDrawings(StepEntities const& entities, StepProducts const& products)
    : Entities(entities), Products(products)
{
    for (int const model : Entities.ofKind("DRAUGHTING_MODEL")) enter(model);
    std::map<std::pair<int, int>, std::size_t> entries; // an entity may stand in several drawings
    for (int const drawing : Drawings) {
        for (auto const& place : placesOf(drawing)) {
            for (int const item : ownItemsOf(drawing)) {
                StepDrawn const drawn{item, contextOf(drawing), place};
                auto const [known, isNew] = entries.emplace(std::pair(item, place.mapping), Drawn.size());
                if (isNew)
                    Drawn.push_back(drawn);
                else if (Drawn[known->second].place.product == 0)
                    Drawn[known->second] = drawn;
                if (Entities.isKind(item, "ANNOTATION_PLANE")) readPlane(drawn);
            }
        }
    }
}

// What a drawing shows is a drawing too, unless it is the shape of a product.
void StepDrawings::enter(int drawing)
{
    std::vector<int> open{drawing};
    while (!open.empty()) {
        auto const current = open.back();
        open.pop_back();
        if (!Known.insert(current).second) continue;
        Drawings.push_back(current);
        for (int const item : Entities.argument(current, 1, "REPRESENTATION", 1).entities()) {
            auto const shown = mappedBy(item);
            bool const isModel = Entities.isKind(shown, "DRAUGHTING_MODEL");
            if (shown == 0 || (!isModel && Products.ofRepresentation(shown) != 0)) continue;
            Mappings[shown].push_back({current, item});
            if (!isModel) open.push_back(shown);
        }
    }
}

int StepDrawings::mappedBy(int item) const
{
    if (!Entities.isKind(item, "MAPPED_ITEM")) return 0;
    return Entities.argument(Entities.argument(item, 1, "MAPPED_ITEM", 0).entity(), 1).entity();
}

std::vector<StepPlace> StepDrawings::placesOf(int drawing) const
{
    std::vector<StepPlace> places;
    int stepsLeft = MostSteps;
    addPlaces(drawing, {}, stepsLeft, places);
    if (places.empty()) places.emplace_back(); // drawings that show each other in a ring
    return places;
}

void StepDrawings::addPlaces(int drawing, StepPlace const& inner, int& stepsLeft,
                             std::vector<StepPlace>& places) const
{
    if (--stepsLeft < 0 || places.size() >= MostPlaces) return;
    auto const product = Products.ofRepresentation(drawing);
    auto const shown = Mappings.find(drawing);
    if (product != 0 || shown == Mappings.end()) {
        places.push_back({product, inner.frame, inner.mapping});
        return;
    }
    for (auto const& [outer, item] : shown->second) {
        auto const frame = StepGeometry(Entities, contextOf(outer)).mapping(item) * inner.frame;
        addPlaces(outer, {0, frame, inner.mapping == 0 ? item : inner.mapping}, stepsLeft, places);
    }
}

std::vector<int> StepDrawings::itemsOf(int drawing) const
{
    std::set<int> seen;
    std::vector<int> items;
    addItems(drawing, seen, items);
    return items;
}

void StepDrawings::addItems(int drawing, std::set<int>& seen, std::vector<int>& items) const
{
    if (!seen.insert(drawing).second || seen.size() > MostPlaces) return;
    for (int const item : ownItemsOf(drawing)) {
        items.push_back(item);
        if (auto const shown = mappedBy(item); Known.contains(shown)) addItems(shown, seen, items);
    }
}

std::vector<int> StepDrawings::ownItemsOf(int drawing) const
{
    std::vector<int> items;
    for (int const item : Entities.argument(drawing, 1, "REPRESENTATION", 1).entities()) {
        items.push_back(item);
        for (int const element : Entities.argument(item, 3, "ANNOTATION_PLANE", 0).entities())
            if (Entities.isKind(item, "ANNOTATION_PLANE")) items.push_back(element);
    }
    return items;
}

void StepDrawings::readPlane(StepDrawn const& drawn)
{
    auto& plane = Planes[drawn.item];
    plane.entity = drawn.item;
    plane.name = Entities.argument(drawn.item, 0, "REPRESENTATION_ITEM", 0).words();
    auto const surface = Entities.argument(drawn.item, 2, "STYLED_ITEM", 1).entity();
    auto const placement =
        Entities.isKind(surface, "PLANE") ? Entities.argument(surface, 1).entity() : surface;
    auto const frame = drawn.place.frame * StepGeometry(Entities, drawn.context).frame(placement);
    plane.camera.position = frame.origin;
    plane.camera.direction = -1.0 * frame.z;
    plane.camera.up = frame.y;
    for (int const element : Entities.argument(drawn.item, 3, "ANNOTATION_PLANE", 0).entities())
        PlaneOf.emplace(element, drawn.item);
}

StepDrawings::Plane const* StepDrawings::planeOf(int item) const
{
    auto const found = PlaneOf.find(item);
    return found == PlaneOf.end() ? nullptr : &Planes.at(found->second);
}
} // namespace NarMetaInfra
