#include "StepVisibility.h"

namespace NarMetaInfra
{
namespace
{
constexpr int DeepestItem = 4; // a layer, a style, a representation and what it holds
}

StepVisibility::StepVisibility(StepEntities const& entities, StepProducts const& products)
    : Entities(entities), Products(products)
{
    for (int const invisibility : Entities.ofKind("INVISIBILITY"))
        for (int const entity : Entities.argument(invisibility, 0).entities()) hide(entity, 0);
}

void StepVisibility::hide(int entity, int depth)
{
    if (depth > DeepestItem || !Items.insert(entity).second) return;
    auto const kind = Entities.keywordOf(entity);
    if (kind == "PRESENTATION_LAYER_ASSIGNMENT") {
        for (int const member : Entities.argument(entity, 2).entities()) hide(member, depth + 1);
    } else if (Products.isRepresentation(entity)) {
        hideRepresentation(entity, depth);
    } else if (kind.ends_with("STYLED_ITEM")) {
        hideStyled(entity, depth);
    }
}

// A style may stand for one use of what it speaks of. That of a single face can't be told from the others.
void StepVisibility::hideStyled(int styled, int depth)
{
    auto const target = Entities.argument(styled, 2, "STYLED_ITEM", 1).entity();
    StepProducts::Way way;
    for (int const context : Entities.argument(styled, 4).entities())
        if (int const use = Products.useOf(context); use != 0) way.push_back(use);
    if (way.empty())
        hide(target, depth + 1);
    else if (!Entities.keywordOf(target).ends_with("_FACE"))
        Uses.push_back(std::move(way));
}

void StepVisibility::hideRepresentation(int representation, int depth)
{
    if (int const use = Products.useOf(representation); use != 0) return Uses.push_back({use});
    auto const product = Products.ofRepresentation(representation);
    if (product != 0 && Products.isAssembly(product)) {
        for (int const use : Products.usesOfProduct(product)) Uses.push_back({use});
        return;
    }
    for (int const item : Entities.argument(representation, 1, "REPRESENTATION", 1).entities())
        hide(item, depth + 1);
}

bool hasHiddenItems(std::string_view text)
{
    return text.find("INVISIBILITY") != text.npos;
}
} // namespace NarMetaInfra
