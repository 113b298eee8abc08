#pragma once

#include "StepProducts.h"

#include <unordered_set>

namespace NarMetaInfra
{
/// What a file says is not to be seen: by itself, by its style, or by its layer.
class StepVisibility
{
public:
    StepVisibility(StepEntities const& entities, StepProducts const& products);

    /// Geometry, or an annotation.
    bool isHidden(int item) const { return Items.contains(item); }
    std::unordered_set<int> const& items() const { return Items; }
    /// Ways to parts and assemblies that are hidden where these ways lead only.
    std::vector<StepProducts::Way> const& uses() const { return Uses; }

private:
    void hide(int entity, int depth);
    void hideStyled(int styled, int depth);
    void hideRepresentation(int representation, int depth);

    StepEntities const& Entities;
    StepProducts const& Products;
    std::unordered_set<int> Items;
    std::vector<StepProducts::Way> Uses;
};

/// Whether there may be anything in it; a look at the characters spares other files the work.
bool hasHiddenItems(std::string_view text);
} // namespace NarMetaInfra
