#include "StepShapeAspects.h"

#include <algorithm>
#include <set>

namespace NarMetaInfra
{
namespace
{
constexpr std::size_t MostFeatures = 10'000; // that one annotation may speak of
}

StepShapeAspects::StepShapeAspects(StepEntities const& entities, StepProducts const& products)
    : Entities(entities), Products(products)
{
    for (auto const* const keyword :
         {"GEOMETRIC_ITEM_SPECIFIC_USAGE", "ITEM_IDENTIFIED_REPRESENTATION_USAGE",
          "CHAIN_BASED_GEOMETRIC_ITEM_SPECIFIC_USAGE", "CHAIN_BASED_ITEM_IDENTIFIED_REPRESENTATION_USAGE"})
        for (int const usage : Entities.ofKind(keyword)) addUsage(usage);
    for (auto const* const keyword :
         {"SHAPE_ASPECT_RELATIONSHIP", "SHAPE_ASPECT_DERIVING_RELATIONSHIP",
          "FEATURE_FOR_DATUM_TARGET_RELATIONSHIP", "SHAPE_ASPECT_ASSOCIATIVITY"}) {
        for (int const relationship : Entities.ofKind(keyword)) {
            auto const from = Entities.argument(relationship, 2, "SHAPE_ASPECT_RELATIONSHIP", 2).entity();
            auto const to = Entities.argument(relationship, 3, "SHAPE_ASPECT_RELATIONSHIP", 3).entity();
            if (Entities.isKind(to, "DATUM")) {
                Features[to].push_back(from);
                Datums.emplace(from, to);
            } else {
                Parts[from].push_back(to);
            }
        }
    }
    for (int const aspect : Entities.ofKind("COMPONENT_PATH_SHAPE_ASPECT"))
        Parts[aspect].push_back(Entities.argument(aspect, 5).entity());
}

// Geometry deep in an assembly is named with the relationships that lead down to it.
void StepShapeAspects::addUsage(int usage)
{
    auto const aspect = Entities.argument(usage, 2, "ITEM_IDENTIFIED_REPRESENTATION_USAGE", 2).entity();
    auto const representation =
        Entities.argument(usage, 3, "ITEM_IDENTIFIED_REPRESENTATION_USAGE", 3).entity();
    StepShapeUse use{0, Products.ofRepresentation(representation), {}};
    for (int const link : Entities.argument(usage, 6).entities())
        if (int const placed = Products.useOf(link); placed != 0) use.through.push_back(placed);
    bool const isFromBelow =
        use.through.size() > 1 && Products.ownerOf(use.through[0]) == Products.productOf(use.through[1]);
    if (isFromBelow) std::ranges::reverse(use.through);
    if (!use.through.empty()) use.product = Products.productOf(use.through.back());
    for (int const item : Entities.argument(usage, 4, "ITEM_IDENTIFIED_REPRESENTATION_USAGE", 4).entities()) {
        if (Entities.isKind(item, "MAPPED_ITEM")) {
            addPlaced(item, use, aspect);
            continue;
        }
        use.shape = item;
        Shapes[aspect].push_back(use);
    }
}

// A placed representation stands for all that it holds.
void StepShapeAspects::addPlaced(int item, StepShapeUse use, int aspect)
{
    auto const map = Entities.argument(item, 1, "MAPPED_ITEM", 0).entity();
    auto const representation = Entities.argument(map, 1).entity();
    if (int const product = Products.ofRepresentation(representation); product != 0) use.product = product;
    for (int const shape : Entities.argument(representation, 1, "REPRESENTATION", 1).entities()) {
        if (Entities.keywordOf(shape).starts_with("AXIS2_PLACEMENT")) continue;
        use.shape = shape;
        Shapes[aspect].push_back(use);
    }
}

// Of a feature of a use, or of one that is reached through uses.
StepProducts::Way StepShapeAspects::usesOf(int aspect) const
{
    auto const path = Entities.argument(aspect, 4, "COMPONENT_PATH_SHAPE_ASPECT", 0);
    if (Entities.keywordOf(aspect) == "COMPONENT_PATH_SHAPE_ASPECT") return Products.usesOf(path.entity());
    auto const shape = Entities.argument(aspect, 2, "SHAPE_ASPECT", 2).entity();
    return Products.usesOf(Entities.argument(shape, 2, "PROPERTY_DEFINITION", 2).entity());
}

std::vector<StepShapeUse> StepShapeAspects::shapesOf(int aspect) const
{
    std::set<StepShapeUse> shapes;
    std::set<std::pair<int, StepProducts::Way>> seen;
    std::vector<std::pair<int, StepProducts::Way>> open{{aspect, {}}};
    while (!open.empty() && seen.size() < MostFeatures) {
        auto [current, through] = std::move(open.back());
        open.pop_back();
        if (through.empty()) through = usesOf(current);
        if (!seen.emplace(current, through).second) continue;
        if (auto const own = Shapes.find(current); own != Shapes.end()) {
            for (auto use : own->second) {
                bool const isFurther =
                    !through.empty() && !use.through.empty() &&
                    Products.productOf(through.back()) == Products.ownerOf(use.through.front());
                if (use.through.empty() || isFurther)
                    use.through.insert(use.through.begin(), through.begin(), through.end());
                if (use.product == 0 && !through.empty()) use.product = Products.productOf(through.back());
                if (use.product == 0) use.product = Products.ownerOf(current);
                shapes.insert(std::move(use));
            }
        }
        if (auto const parts = Parts.find(current); parts != Parts.end())
            for (int const part : parts->second) open.emplace_back(part, through);
    }
    return {shapes.begin(), shapes.end()};
}

std::vector<int> StepShapeAspects::featuresOf(int datum) const
{
    auto const found = Features.find(datum);
    return found == Features.end() ? std::vector<int>() : found->second;
}

int StepShapeAspects::datumOf(int feature) const
{
    auto const found = Datums.find(feature);
    return found == Datums.end() ? 0 : found->second;
}

} // namespace NarMetaInfra
