#include "step_quantity.h"

#include "StepGeometry.h"
#include "step_kinds.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace NarMetaInfra
{
namespace
{
constexpr int DetailedDigits = 10;

using Symbol = std::pair<std::string_view, wchar_t const*>;
constexpr std::array<Symbol, 17> Symbols = {{{"METRE", L"m"},
                                             {"GRAM", L"g"},
                                             {"SECOND", L"s"},
                                             {"AMPERE", L"A"},
                                             {"KELVIN", L"K"},
                                             {"MOLE", L"mol"},
                                             {"CANDELA", L"cd"},
                                             {"RADIAN", L"rad"},
                                             {"STERADIAN", L"sr"},
                                             {"HERTZ", L"Hz"},
                                             {"NEWTON", L"N"},
                                             {"PASCAL", L"Pa"},
                                             {"JOULE", L"J"},
                                             {"WATT", L"W"},
                                             {"VOLT", L"V"},
                                             {"OHM", L"\u03A9"},
                                             {"DEGREE_CELSIUS", L"\u00B0C"}}};
constexpr std::array<Symbol, 10> Prefixes = {{{"MEGA", L"M"},
                                              {"KILO", L"k"},
                                              {"HECTO", L"h"},
                                              {"DECA", L"da"},
                                              {"DECI", L"d"},
                                              {"CENTI", L"c"},
                                              {"MILLI", L"m"},
                                              {"MICRO", L"\u00B5"},
                                              {"NANO", L"n"},
                                              {"PICO", L"p"}}};

template <std::size_t Size>
std::wstring symbolOf(std::array<Symbol, Size> const& table, std::string_view name)
{
    auto const row = std::ranges::find(table, name, [](Symbol const& entry) { return entry.first; });
    return row == table.end() ? std::wstring() : row->second;
}

std::wstring powerOf(int exponent)
{
    static constexpr std::array<wchar_t const*, 4> Signs = {L"", L"", L"\u00B2", L"\u00B3"};
    exponent = std::abs(exponent);
    return exponent < 4 ? Signs[static_cast<std::size_t>(exponent)] : L"^" + std::to_wstring(exponent);
}

/// A simple unit to a power.
struct Factor {
    int unit = 0;
    int exponent = 1;
};

std::vector<Factor> factorsOf(StepEntities const& entities, int unit)
{
    if (!entities.isKind(unit, "DERIVED_UNIT")) return {{unit, 1}};
    std::vector<Factor> factors;
    for (int const element : entities.argument(unit, 0, "DERIVED_UNIT", 0).entities()) {
        auto const exponent = entities.argument(element, 1).value().value_or(1.0);
        factors.push_back({entities.argument(element, 0).entity(),
                           static_cast<int>(std::lround(std::clamp(exponent, -9.0, 9.0)))});
    }
    std::ranges::stable_sort(factors, std::ranges::greater(), &Factor::exponent);
    return factors;
}

std::wstring textOf(StepEntities const& entities, int unit)
{
    if (entities.isKind(unit, "SI_UNIT")) {
        auto const prefix = symbolOf(Prefixes, entities.argument(unit, 1, "SI_UNIT", 0).text);
        return prefix + symbolOf(Symbols, entities.argument(unit, 2, "SI_UNIT", 1).text);
    }
    for (auto const* const kind : {"CONVERSION_BASED_UNIT", "CONTEXT_DEPENDENT_UNIT"})
        if (entities.isKind(unit, kind)) return entities.argument(unit, 1, kind, 0).words();
    return {};
}

std::wstring textOf(StepEntities const& entities, std::vector<Factor> const& factors)
{
    std::wstring text;
    for (auto const& [unit, exponent] : factors) {
        auto const name = textOf(entities, unit);
        if (name.empty() || exponent == 0) continue;
        if (exponent < 0)
            text += text.empty() ? L"1/" : L"/";
        else if (!text.empty())
            text += L"\u00B7";
        text += name + powerOf(exponent);
    }
    return text;
}
} // namespace

std::wstring stepQuantity(StepEntities const& entities, int item)
{
    // An item of one type has its name in front; a plain measure has none.
    std::size_t const first = entities.keywordOf(item).ends_with("REPRESENTATION_ITEM") ? 1 : 0;
    auto value = entities.argument(item, first, "MEASURE_WITH_UNIT", 0).value();
    if (!value) return {};
    auto const factors =
        factorsOf(entities, entities.argument(item, first + 1, "MEASURE_WITH_UNIT", 1).entity());
    auto const isAll = [&](std::string_view kind) {
        return std::ranges::all_of(factors,
                                   [&](Factor const& one) { return entities.isKind(one.unit, kind); });
    };
    bool const isLength = isAll("LENGTH_UNIT"), isAngle = isAll("PLANE_ANGLE_UNIT");
    int power = 0;
    for (auto const& [unit, exponent] : factors) {
        if (isLength || isAngle) *value *= std::pow(stepUnit(entities, unit), exponent);
        power += exponent;
    }
    auto const number = stepNumber(*value, DetailedDigits);
    if (isAngle) return number + L"\u00B0";
    auto const text = isLength ? L"mm" + powerOf(power) : textOf(entities, factors);
    return text.empty() ? number : number + L" " + text;
}
} // namespace NarMetaInfra
