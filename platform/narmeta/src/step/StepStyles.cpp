#include "StepStyles.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace NarMetaInfra
{
namespace
{
using LineStyle = NarMetaVisu::LineAttribute::VisuLineStyle;
using NarMeta::Colour;
using NarMetaVisu::LineAttribute;

constexpr int DeepestStyle = 6;

constexpr std::array<std::pair<std::string_view, Colour>, 8> NamedColours = {{{"red", {255, 0, 0}},
                                                                              {"green", {0, 255, 0}},
                                                                              {"blue", {0, 0, 255}},
                                                                              {"yellow", {255, 255, 0}},
                                                                              {"magenta", {255, 0, 255}},
                                                                              {"cyan", {0, 255, 255}},
                                                                              {"black", {0, 0, 0}},
                                                                              {"white", {255, 255, 255}}}};
constexpr std::array<std::pair<std::string_view, LineStyle>, 5> NamedPatterns = {
    {{"continuous", LineAttribute::Solid},
     {"dashed", LineAttribute::Dashed},
     {"dotted", LineAttribute::Dotted},
     {"chain", LineAttribute::LongDashedDotted},
     {"chain double dash", LineAttribute::LongDashedDoubleDotted}}};

template <class Table, class Value>
void find(Table const& table, std::string_view name, std::optional<Value>& out)
{
    auto const row = std::ranges::find(table, name, [](auto const& entry) { return entry.first; });
    if (row != table.end()) out = row->second;
}

unsigned short channel(StepValue const& value)
{
    return static_cast<unsigned short>(std::lround(std::clamp(value.value().value_or(0.0), 0.0, 1.0) * 255));
}
} // namespace

StepLook StepLook::over(StepLook const& inner) const
{
    auto const pick = [](auto const& own, auto const& other) { return own ? own : other; };
    return {pick(inner.line, line), pick(inner.fill, fill), pick(inner.pattern, pattern),
            pick(inner.width, width)};
}

StepStyles::StepStyles(StepEntities const& entities) : Entities(entities)
{
    for (auto const* const keyword : {"STYLED_ITEM", "OVER_RIDING_STYLED_ITEM"})
        for (int const item : Entities.ofKind(keyword))
            StyledItems[Entities.argument(item, 2, "STYLED_ITEM", 1).entity()] = item;
}

StepLook StepStyles::look(StepValue const& assignments) const
{
    StepLook made;
    for (int const assignment : assignments.entities()) addStyle(assignment, made, 0);
    return made;
}

std::optional<StepLook> StepStyles::lookOf(int item) const
{
    auto const found = StyledItems.find(item);
    if (found == StyledItems.end()) return std::nullopt;
    return look(Entities.argument(found->second, 1, "STYLED_ITEM", 0));
}

void StepStyles::addStyle(int style, StepLook& look, int depth) const
{
    if (depth > DeepestStyle) return;
    auto const kind = Entities.keywordOf(style);
    auto const descend = [&](std::size_t position) {
        for (int const inner : Entities.argument(style, position).entities())
            addStyle(inner, look, depth + 1);
    };
    if (kind == "PRESENTATION_STYLE_ASSIGNMENT" || kind == "PRESENTATION_STYLE_BY_CONTEXT") {
        descend(0);
    } else if (kind == "CURVE_STYLE") {
        auto const font = Entities.argument(style, 1).entity();
        find(NamedPatterns, Entities.argument(font, 0).text, look.pattern);
        if (auto const width = Entities.argument(style, 2).value()) look.width = width;
        if (auto const ink = colour(Entities.argument(style, 3).entity())) look.line = ink;
    } else if (kind == "FILL_AREA_STYLE" || kind == "SURFACE_SIDE_STYLE" || kind == "SURFACE_STYLE_USAGE") {
        descend(1);
    } else if (kind == "SURFACE_STYLE_FILL_AREA") {
        descend(0);
    } else if (kind == "FILL_AREA_STYLE_COLOUR") {
        if (auto const ink = colour(Entities.argument(style, 1).entity())) look.fill = ink;
    } else if (kind == "TEXT_STYLE" || kind == "TEXT_STYLE_WITH_BOX_CHARACTERISTICS") {
        descend(1);
    } else if (kind == "TEXT_STYLE_FOR_DEFINED_FONT") {
        if (auto const ink = colour(Entities.argument(style, 0).entity())) look.fill = ink;
    }
}

std::optional<Colour> StepStyles::colour(int entity) const
{
    auto const kind = Entities.keywordOf(entity);
    if (kind == "COLOUR_RGB")
        return Colour{channel(Entities.argument(entity, 1)), channel(Entities.argument(entity, 2)),
                      channel(Entities.argument(entity, 3))};
    std::optional<Colour> found;
    if (kind == "DRAUGHTING_PRE_DEFINED_COLOUR" || kind == "PRE_DEFINED_COLOUR")
        find(NamedColours, Entities.argument(entity, 0).text, found);
    return found;
}
} // namespace NarMetaInfra
