#include "StepProducts.h"

#include <algorithm>

namespace NarMetaInfra
{
namespace
{
constexpr int LongestOwnerPath = 6;
constexpr std::size_t DeepestWay = 32;
constexpr std::size_t MostWays = 64;
constexpr int MostSteps = 20'000;
} // namespace

StepProducts::StepProducts(StepEntities const& entities) : Entities(entities)
{
    readUses();
    readRepresentations();
}

void StepProducts::readUses()
{
    for (int const use : Entities.ofKind("NEXT_ASSEMBLY_USAGE_OCCURRENCE")) {
        Use const made{Entities.argument(use, 3).entity(), Entities.argument(use, 4).entity()};
        Uses.emplace(use, made);
        UsesOf[made.part].push_back(use);
        Assemblies.insert(made.whole);
    }
    for (int const link : Entities.ofKind("CONTEXT_DEPENDENT_SHAPE_REPRESENTATION")) {
        auto const shape = Entities.argument(link, 1).entity();
        auto const use = Entities.argument(shape, 2, "PROPERTY_DEFINITION", 2).entity();
        if (Uses.contains(use)) Placed.emplace(Entities.argument(link, 0).entity(), use);
    }
}

void StepProducts::readRepresentations()
{
    auto const enter = [&](int link) {
        auto const shape = Entities.argument(link, 0).entity();
        auto const representation = Entities.argument(link, 1).entity();
        auto const use = Entities.argument(shape, 2, "PROPERTY_DEFINITION", 2).entity();
        if (Uses.contains(use))
            Placed.emplace(representation, use);
        else if (int const product = ownerOf(shape); product != 0)
            Representations.emplace(representation, product);
    };
    for (int const link : Entities.ofKind("SHAPE_DEFINITION_REPRESENTATION")) enter(link);
    for (int const link : Entities.ofKind("PROPERTY_DEFINITION_REPRESENTATION"))
        if (Entities.isKind(Entities.argument(link, 1).entity(), "DRAUGHTING_MODEL")) enter(link);

    std::map<int, std::vector<int>> related;
    for (auto const* const keyword : {"SHAPE_REPRESENTATION_RELATIONSHIP", "REPRESENTATION_RELATIONSHIP",
                                      "MECHANICAL_DESIGN_AND_DRAUGHTING_RELATIONSHIP"}) {
        for (int const link : Entities.ofKind(keyword)) {
            if (Entities.isKind(link, "REPRESENTATION_RELATIONSHIP_WITH_TRANSFORMATION")) continue;
            auto const first = Entities.argument(link, 2, "REPRESENTATION_RELATIONSHIP", 2).entity();
            auto const second = Entities.argument(link, 3, "REPRESENTATION_RELATIONSHIP", 3).entity();
            related[first].push_back(second);
            related[second].push_back(first);
        }
    }
    std::vector<std::pair<int, int>> open(Representations.begin(), Representations.end());
    while (!open.empty()) {
        auto const [representation, product] = open.back();
        open.pop_back();
        for (int const other : related[representation])
            if (Representations.emplace(other, product).second) open.emplace_back(other, product);
    }
}

int StepProducts::ownerOf(int entity) const
{
    for (int step = 0; step < LongestOwnerPath && entity != 0; ++step) {
        auto const keyword = Entities.keywordOf(entity);
        if (keyword.starts_with("PRODUCT_DEFINITION") && !keyword.ends_with("SHAPE")) return entity;
        if (auto const uses = usesOf(entity); !uses.empty())
            return Uses.at(uses.front()).whole;
        else if (Entities.isKind(entity, "SHAPE_ASPECT"))
            entity = Entities.argument(entity, 2, "SHAPE_ASPECT", 2).entity();
        else
            entity = Entities.argument(entity, 2, "PROPERTY_DEFINITION", 2).entity();
    }
    return 0;
}

int StepProducts::ofRepresentation(int representation) const
{
    auto const found = Representations.find(representation);
    return found == Representations.end() ? 0 : found->second;
}

std::set<int> StepProducts::representationsOf(int product) const
{
    std::set<int> found;
    for (auto const& [representation, owner] : Representations)
        if (owner == product) found.insert(representation);
    return found;
}

StepProducts::Way StepProducts::usesOf(int usage) const
{
    Way uses;
    if (Uses.contains(usage)) return {usage};
    if (Entities.keywordOf(usage) == "MULTI_LEVEL_REFERENCE_DESIGNATOR") {
        for (int const use : Entities.argument(usage, 6).entities())
            if (Uses.contains(use)) uses.push_back(use);
        return uses;
    }
    // A chain is written from its last link on.
    for (std::size_t step = 0;
         step < DeepestWay && Entities.keywordOf(usage) == "SPECIFIED_HIGHER_USAGE_OCCURRENCE"; ++step) {
        auto const next = Entities.argument(usage, 7).entity();
        if (Uses.contains(next)) uses.insert(uses.begin(), next);
        usage = Entities.argument(usage, 6).entity();
    }
    if (!uses.empty() && Uses.contains(usage)) uses.insert(uses.begin(), usage);
    return uses;
}

int StepProducts::useOf(int relationship) const
{
    auto const found = Placed.find(relationship);
    return found == Placed.end() ? 0 : found->second;
}

std::vector<int> const& StepProducts::usesOfProduct(int product) const
{
    static std::vector<int> const none;
    auto const found = UsesOf.find(product);
    return found == UsesOf.end() ? none : found->second;
}

bool StepProducts::isRepresentation(int entity) const
{
    auto const kind = Entities.keywordOf(entity);
    return kind.ends_with("REPRESENTATION") || kind == "DRAUGHTING_MODEL" ||
           Entities.isKind(entity, "REPRESENTATION");
}

int StepProducts::productOf(int use) const
{
    auto const found = Uses.find(use);
    return found == Uses.end() ? 0 : found->second.part;
}

struct StepProducts::Search {
    int top = 0;
    Way const& through;
    std::deque<int> way;
    std::vector<Way> found;
    int stepsLeft = MostSteps;
};

std::vector<StepProducts::Way> StepProducts::waysDown(int from, int to, Way const& through) const
{
    Search search{from, through, {}, {}};
    addWays(search, to);
    return std::move(search.found);
}

// From below, where few uses lead up, while most of those that lead down end elsewhere.
void StepProducts::addWays(Search& search, int product) const
{
    auto& way = search.way;
    bool const isThrough = search.through.empty() || !std::ranges::search(way, search.through).empty();
    if (product == search.top && isThrough) search.found.emplace_back(way.begin(), way.end());
    auto const uses = UsesOf.find(product);
    if (uses == UsesOf.end() || way.size() >= DeepestWay) return;
    for (int const use : uses->second) {
        if (search.found.size() >= MostWays || --search.stepsLeft < 0) return;
        way.push_front(use);
        addWays(search, Uses.at(use).whole);
        way.pop_front();
    }
}
} // namespace NarMetaInfra
