#include "StepShapeAspects.h"

#include <unordered_set>

namespace NarMetaInfra
{
namespace
{
constexpr int LongestOwnerPath = 6;
}

StepShapeAspects::StepShapeAspects(StepEntities const& entities) : Entities(entities)
{
    for (auto const* const keyword :
         {"GEOMETRIC_ITEM_SPECIFIC_USAGE", "ITEM_IDENTIFIED_REPRESENTATION_USAGE"})
        for (int const usage : Entities.ofKind(keyword))
            for (int const shape : Entities.argument(usage, 4).entities())
                Shapes[Entities.argument(usage, 2).entity()].push_back(shape);
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
}

std::vector<int> StepShapeAspects::shapesOf(int aspect) const
{
    std::vector<int> shapes, open{aspect};
    std::unordered_set<int> seen{0};
    auto const take = [&](Relation const& relation, int key, std::vector<int>& into) {
        auto const found = relation.find(key);
        if (found == relation.end()) return;
        for (int const entity : found->second)
            if (seen.insert(entity).second) into.push_back(entity);
    };
    while (!open.empty()) {
        auto const current = open.back();
        open.pop_back();
        take(Shapes, current, shapes);
        take(Parts, current, open);
    }
    return shapes;
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

int StepShapeAspects::productOf(int entity) const
{
    for (int step = 0; step < LongestOwnerPath && entity != 0; ++step) {
        auto const keyword = Entities.keywordOf(entity);
        if (keyword.starts_with("PRODUCT_DEFINITION") && !keyword.ends_with("SHAPE")) return entity;
        if (keyword == "NEXT_ASSEMBLY_USAGE_OCCURRENCE")
            entity = Entities.argument(entity, 4).entity();
        else if (Entities.isKind(entity, "SHAPE_ASPECT"))
            entity = Entities.argument(entity, 2, "SHAPE_ASPECT", 2).entity();
        else
            entity = Entities.argument(entity, 2, "PROPERTY_DEFINITION", 2).entity();
    }
    return 0;
}
} // namespace NarMetaInfra
