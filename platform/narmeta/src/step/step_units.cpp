// Units and measures: everything comes out in millimetres or degrees.
#include "StepGeometry.h"

#include <array>
#include <numbers>
#include <utility>

namespace NarMetaInfra
{
namespace
{
constexpr int DeepestUnit = 4; // a converted unit is defined by another one

double prefixFactor(std::string_view prefix)
{
    static constexpr std::array<std::pair<std::string_view, double>, 10> Prefixes = {{{"KILO", 1e3},
                                                                                      {"HECTO", 1e2},
                                                                                      {"DECA", 1e1},
                                                                                      {"DECI", 1e-1},
                                                                                      {"CENTI", 1e-2},
                                                                                      {"MILLI", 1e-3},
                                                                                      {"MICRO", 1e-6},
                                                                                      {"NANO", 1e-9},
                                                                                      {"PICO", 1e-12},
                                                                                      {"MEGA", 1e6}}};
    for (auto const& [name, factor] : Prefixes)
        if (name == prefix) return factor;
    return 1.0;
}

double unitFactor(StepEntities const& entities, int unit, int depth)
{
    if (depth > DeepestUnit) return 1.0;
    if (entities.isKind(unit, "SI_UNIT")) {
        auto const prefix = prefixFactor(entities.argument(unit, 1, "SI_UNIT", 0).text);
        auto const name = entities.argument(unit, 2, "SI_UNIT", 1).text;
        if (name == "METRE") return 1000.0 * prefix;
        if (name == "RADIAN") return prefix * 180 / std::numbers::pi;
        return 1.0;
    }
    if (!entities.isKind(unit, "CONVERSION_BASED_UNIT")) return 1.0;
    auto const measure = entities.argument(unit, 2, "CONVERSION_BASED_UNIT", 1).entity();
    auto const amount = entities.argument(measure, 0, "MEASURE_WITH_UNIT", 0).value().value_or(1.0);
    return amount *
           unitFactor(entities, entities.argument(measure, 1, "MEASURE_WITH_UNIT", 1).entity(), depth + 1);
}
} // namespace

double stepUnit(StepEntities const& entities, int unit)
{
    return unitFactor(entities, unit, 0);
}

std::optional<double> stepMeasure(StepEntities const& entities, int measure)
{
    // An item of one type has its name in front; a plain measure has none.
    bool const isItem = entities.keywordOf(measure).ends_with("REPRESENTATION_ITEM");
    std::size_t const first = isItem ? 1 : 0;
    auto value = entities.argument(measure, first, "MEASURE_WITH_UNIT", 0).value();
    if (!value) return std::nullopt;
    auto const unit = entities.argument(measure, first + 1, "MEASURE_WITH_UNIT", 1).entity();
    return *value * unitFactor(entities, unit, 0);
}
} // namespace NarMetaInfra
