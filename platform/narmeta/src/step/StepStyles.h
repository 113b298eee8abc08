#pragma once

#include "StepEntities.h"

#include <narmeta/Colour.h>
#include <narmeta/visu/LineAttribute.h>

namespace NarMetaInfra
{
/// How the lines and fillings of a styled item are drawn; each aspect may be left open.
struct StepLook {
    std::optional<NarMeta::Colour> line;
    std::optional<NarMeta::Colour> fill;
    std::optional<NarMetaVisu::LineAttribute::VisuLineStyle> pattern;
    /// In the unit of the drawing, which the exporters take for millimetres.
    std::optional<double> width;

    /// This where `inner` leaves an aspect open.
    StepLook over(StepLook const& inner) const;
    bool operator==(StepLook const&) const = default;
};

/// Styles of the items of a file.
class StepStyles
{
public:
    explicit StepStyles(StepEntities const& entities);

    /// What a list of style assignments says.
    StepLook look(StepValue const& assignments) const;
    /// The style that a styled item of its own puts on a geometry, if any.
    std::optional<StepLook> lookOf(int item) const;

private:
    void addStyle(int style, StepLook& look, int depth) const;
    std::optional<NarMeta::Colour> colour(int entity) const;

    StepEntities const& Entities;
    std::unordered_map<int, int> StyledItems; // geometry to styled item
};
} // namespace NarMetaInfra
