#pragma once

#include "StepEntities.h"

#include <narmeta/Property.h>

namespace NarMetaInfra
{
/// Properties that a file hangs on its entities: what users noted, and what the exporter left for checks.
class StepProperties
{
public:
    explicit StepProperties(StepEntities const& entities);

    /// Of an annotation, product definition or feature itself, in file order.
    NarMeta::Properties of(int entity) const;
    /// What a product definition, its version and its product say about themselves.
    NarMeta::Properties identityOf(int product) const;

    /// Of one property definition.
    NarMeta::Properties valuesOf(int property) const;

private:
    std::wstring valueOf(int item, int representation) const;

    StepEntities const& Entities;
    std::unordered_map<int, std::vector<int>> Definitions; // properties by what they speak of
    std::unordered_map<int, std::vector<int>> Values;      // representations by property
    std::unordered_map<int, std::vector<int>> Names;       // general properties by property
    std::unordered_map<int, std::vector<int>> Stands;      // stand-ins of an item in a drawing
};
} // namespace NarMetaInfra
