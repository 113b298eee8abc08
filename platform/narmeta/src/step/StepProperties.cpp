#include "StepProperties.h"

#include "StepGeometry.h"
#include "step_kinds.h"
#include "step_quantity.h"

#include <algorithm>
#include <iterator>

namespace NarMetaInfra
{
namespace
{
constexpr int DetailedDigits = 10;
}

StepProperties::StepProperties(StepEntities const& entities) : Entities(entities)
{
    for (auto const* const keyword : {"PROPERTY_DEFINITION", "PRODUCT_DEFINITION_SHAPE"})
        for (int const property : Entities.ofKind(keyword))
            Definitions[Entities.argument(property, 2, "PROPERTY_DEFINITION", 2).entity()].push_back(
                property);
    for (int const link : Entities.ofKind("PROPERTY_DEFINITION_REPRESENTATION"))
        Values[Entities.argument(link, 0).entity()].push_back(Entities.argument(link, 1).entity());
    for (int const link : Entities.ofKind("GENERAL_PROPERTY_ASSOCIATION"))
        Names[Entities.argument(link, 3).entity()].push_back(Entities.argument(link, 2).entity());
    for (int const stand : Entities.ofKind("CHARACTERIZED_ITEM_WITHIN_REPRESENTATION"))
        Stands[Entities.argument(stand, 2, "CHARACTERIZED_ITEM_WITHIN_REPRESENTATION", 0).entity()].push_back(
            stand);
}

NarMeta::Properties StepProperties::of(int entity) const
{
    NarMeta::Properties made;
    std::vector<int> owners{entity};
    if (auto const stands = Stands.find(entity); stands != Stands.end())
        owners.insert(owners.end(), stands->second.begin(), stands->second.end());
    // What is said of the shape of a product is said of the product.
    if (auto const own = Definitions.find(entity); own != Definitions.end())
        std::ranges::copy_if(own->second, std::back_inserter(owners), [&](int property) {
            return Entities.isKind(property, "PRODUCT_DEFINITION_SHAPE");
        });
    for (int const owner : owners)
        if (auto const properties = Definitions.find(owner); properties != Definitions.end())
            for (int const property : properties->second)
                std::ranges::move(valuesOf(property), std::back_inserter(made));
    return made;
}

NarMeta::Properties StepProperties::valuesOf(int property) const
{
    NarMeta::Properties made;
    auto const values = Values.find(property);
    if (values == Values.end()) return made;
    auto outer = Entities.argument(property, 0, "PROPERTY_DEFINITION", 0).words();
    if (auto const names = Names.find(property); names != Names.end())
        if (auto general = Entities.argument(names->second.front(), 1).words(); !general.empty())
            outer = std::move(general);
    for (int const representation : values->second) {
        for (int const item : Entities.argument(representation, 1, "REPRESENTATION", 1).entities()) {
            auto value = valueOf(item, representation);
            if (value.find_first_not_of(L" \t") == value.npos) continue;
            auto const own = Entities.argument(item, 0, "REPRESENTATION_ITEM", 0).words();
            bool const addsName = !outer.empty() && !own.empty() && own != outer;
            made.push_back({addsName ? outer + L": " + own : outer.empty() ? own : outer, std::move(value)});
        }
    }
    return made;
}

NarMeta::Properties StepProperties::identityOf(int product) const
{
    auto const formation = Entities.argument(product, 2, "PRODUCT_DEFINITION", 2).entity();
    auto const whole = Entities.argument(formation, 2, "PRODUCT_DEFINITION_FORMATION", 2).entity();
    struct Line {
        wchar_t const* label;
        int entity;
        std::size_t position;
    };
    NarMeta::Properties made;
    for (auto const& [label, entity, position] :
         {Line{L"Part number", whole, 0}, Line{L"Description", whole, 2}, Line{L"Revision", formation, 0},
          Line{L"Revision description", formation, 1}, Line{L"Definition", product, 1}}) {
        auto const text = Entities.argument(entity, position, Entities.keywordOf(entity), position).words();
        bool const isSaid = text.find_first_not_of(L" \t") != text.npos && text != L"NONE";
        if (isSaid) made.push_back({label, text});
    }
    return made;
}

std::wstring StepProperties::valueOf(int item, int representation) const
{
    if (Entities.isKind(item, "DESCRIPTIVE_REPRESENTATION_ITEM"))
        return Entities.argument(item, 1, "DESCRIPTIVE_REPRESENTATION_ITEM", 0).words();
    if (Entities.isKind(item, "MEASURE_REPRESENTATION_ITEM")) return stepQuantity(Entities, item);
    if (Entities.isKind(item, "CARTESIAN_POINT")) {
        auto const context = Entities.argument(representation, 2, "REPRESENTATION", 2).entity();
        auto const [x, y, z] = StepGeometry(Entities, context).point(item);
        return stepNumber(x) + L", " + stepNumber(y) + L", " + stepNumber(z) + L" mm";
    }
    auto const& value = Entities.argument(item, 1, "VALUE_REPRESENTATION_ITEM", 0);
    if (auto const number = value.value()) return stepNumber(*number, DetailedDigits);
    return value.words();
}
} // namespace NarMetaInfra
