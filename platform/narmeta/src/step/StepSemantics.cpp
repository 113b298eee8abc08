#include "StepSemantics.h"

#include "StepGeometry.h"
#include "step_kinds.h"
#include "step_quantity.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace NarMetaInfra
{
namespace
{
using NarMetaPmi::PMIDimensionSubType;
using NarMetaPmi::PMIDimensionType;

constexpr int DeepestReference = 4;

/// Signs of the modifiers in a feature control frame.
std::wstring modifierSign(std::string_view modifier)
{
    static constexpr std::array<std::pair<std::string_view, wchar_t>, 9> Signs = {
        {{"MAXIMUM_MATERIAL_REQUIREMENT", L'\u24C2'},
         {"MAXIMUM_MATERIAL_CONDITION", L'\u24C2'},
         {"LEAST_MATERIAL_REQUIREMENT", L'\u24C1'},
         {"LEAST_MATERIAL_CONDITION", L'\u24C1'},
         {"FREE_STATE", L'\u24BB'},
         {"TANGENT_PLANE", L'\u24C9'},
         {"RECIPROCITY_REQUIREMENT", L'\u24C7'},
         {"STATISTICAL_TOLERANCE", L'\u24C8'},
         {"UNEQUALLY_DISPOSED", L'\u24CA'}}};
    auto const sign = std::ranges::find(Signs, modifier, [](auto const& row) { return row.first; });
    return sign == Signs.end() ? std::wstring() : L" " + std::wstring(1, sign->second);
}

std::wstring modifierSigns(StepValue const& modifiers)
{
    std::wstring signs;
    for (auto const& modifier : modifiers.items) signs += modifierSign(modifier.text);
    return signs;
}

std::wstring deviationText(NarMetaPmi::PMIDimensionValue const& value)
{
    if (!value.upper || !value.lower) return {};
    if (std::abs(*value.upper + *value.lower) < 1e-9) return L" \u00B1" + stepNumber(*value.upper);
    auto const isSigned = [](double x) { return (x < 0 ? L" " : L" +") + stepNumber(x); };
    return isSigned(*value.upper) + isSigned(*value.lower);
}
} // namespace

StepSemantics::StepSemantics(StepEntities const& entities, StepProducts const& products,
                             StepShapeAspects const& aspects)
    : Entities(entities), Products(products), Aspects(aspects)
{
    readDatums();
    readTargets();
    readTolerances();
    readDimensions();
    readTextures();
    for (auto& [entity, meaning] : Meanings)
        for (int const aspect : meaning.aspects)
            if (meaning.product == 0) meaning.product = Products.ownerOf(aspect);
}

StepMeaning const* StepSemantics::behind(int definition) const
{
    auto found = Meanings.find(definition);
    if (found == Meanings.end()) found = Meanings.find(Aspects.datumOf(definition));
    return found == Meanings.end() ? nullptr : &found->second;
}

StepMeaning& StepSemantics::add(int entity, StepMeaning::Kind kind)
{
    auto& meaning = Meanings[entity];
    meaning.entity = entity;
    meaning.kind = kind;
    return meaning;
}

void StepSemantics::readDatums()
{
    for (int const datum : Entities.ofKind("DATUM")) {
        auto& meaning = add(datum, StepMeaning::Kind::Datum);
        meaning.text = Entities.argument(datum, 4, "DATUM", 0).words();
        meaning.aspects = Aspects.featuresOf(datum);
        meaning.product = Products.ownerOf(datum);
        for (int const feature : meaning.aspects)
            if (meaning.name.empty()) meaning.name = Entities.argument(feature, 0, "SHAPE_ASPECT", 0).words();
    }
}

void StepSemantics::readTargets()
{
    std::map<int, std::vector<int>> parameters; // by target
    for (auto const* const keyword :
         {"SHAPE_DEFINITION_REPRESENTATION", "PROPERTY_DEFINITION_REPRESENTATION"}) {
        for (int const link : Entities.ofKind(keyword)) {
            auto const representation = Entities.argument(link, 1).entity();
            if (!Entities.isKind(representation, "SHAPE_REPRESENTATION_WITH_PARAMETERS")) continue;
            auto const target =
                Entities.argument(Entities.argument(link, 0).entity(), 2, "PROPERTY_DEFINITION", 2).entity();
            parameters[target] = Entities.argument(representation, 1, "REPRESENTATION", 1).entities();
        }
    }
    for (auto const* const keyword : {"DATUM_TARGET", "PLACED_DATUM_TARGET_FEATURE"}) {
        for (int const target : Entities.ofKind(keyword)) {
            auto& meaning = add(target, StepMeaning::Kind::DatumTarget);
            auto const letter = Meanings.find(Aspects.datumOf(target));
            meaning.name = Entities.argument(target, 0, "SHAPE_ASPECT", 0).words();
            meaning.text = (letter == Meanings.end() ? std::wstring() : letter->second.text) +
                           Entities.argument(target, 4, keyword, 0).words();
            auto form = Entities.argument(target, 1, "SHAPE_ASPECT", 1).words();
            if (auto const size = targetSize(parameters[target]); !size.empty())
                form += (form.empty() ? L"" : L" ") + size;
            if (!form.empty()) meaning.text += L" (" + form + L")";
            meaning.aspects = {target};
            meaning.product = Products.ownerOf(target);
        }
    }
}

// Diameter of a round target, width and length of a rectangular one, length of a line.
std::wstring StepSemantics::targetSize(std::vector<int> const& parameters) const
{
    std::wstring text;
    for (auto const* const name : {L"target diameter", L"target width", L"target length"}) {
        for (int const item : parameters) {
            auto const value = stepMeasure(Entities, item);
            if (!value || Entities.argument(item, 0, "REPRESENTATION_ITEM", 0).words() != name) continue;
            if (!text.empty()) text += L"\u00D7";
            if (std::wstring_view(name).ends_with(L"diameter")) text += L"\u2300";
            text += stepNumber(*value);
        }
    }
    return text;
}

void StepSemantics::readTolerances()
{
    readZones();
    for (auto const& [keyword, type] : StepToleranceKinds) {
        for (int const tolerance : Entities.ofKind(keyword)) {
            auto& meaning = add(tolerance, StepMeaning::Kind::Tolerance);
            if (meaning.tolerance == NarMetaPmi::PMIToleranceType::Unknown) meaning.tolerance = type;
            meaning.name = Entities.argument(tolerance, 0, "GEOMETRIC_TOLERANCE", 0).words();
            auto const magnitude = Entities.argument(tolerance, 2, "GEOMETRIC_TOLERANCE", 2).entity();
            meaning.zone = stepMeasure(Entities, magnitude).value_or(0.0);
            auto const target = Entities.argument(tolerance, 3, "GEOMETRIC_TOLERANCE", 3).entity();
            meaning.aspects = {target};
            // A tolerance may be put on a dimension, and so on what that measures.
            if (!Entities.argument(target, 0, "DIMENSIONAL_SIZE", 0).entities().empty())
                meaning.aspects = Entities.argument(target, 0, "DIMENSIONAL_SIZE", 0).entities();
            meaning.text = toleranceText(tolerance, meaning.zone);
        }
    }
}

void StepSemantics::readZones()
{
    std::map<int, double> projected; // by zone
    for (int const definition : Entities.ofKind("PROJECTED_ZONE_DEFINITION"))
        if (auto const length = stepMeasure(Entities, Entities.argument(definition, 3).entity()))
            projected[Entities.argument(definition, 0).entity()] = *length;
    for (int const zone : Entities.ofKind("TOLERANCE_ZONE")) {
        auto const form = Entities.argument(zone, 5, "TOLERANCE_ZONE", 1).entity();
        auto const length = projected.find(zone);
        for (int const tolerance : Entities.argument(zone, 4, "TOLERANCE_ZONE", 0).entities())
            Zones[tolerance] = {Entities.argument(form, 0).words(),
                                length == projected.end() ? 0.0 : length->second};
    }
}

// Two editions of the standard have words of their own for the form of a zone.
std::wstring StepSemantics::toleranceText(int tolerance, double width) const
{
    static Zone const plain;
    auto const found = Zones.find(tolerance);
    auto const& zone = found == Zones.end() ? plain : found->second;
    auto const isForm = [&](std::wstring_view word) { return zone.form.find(word) != zone.form.npos; };
    std::wstring text = isForm(L"cylind") ? L"\u2300" : isForm(L"spher") ? L"S\u2300" : L"";
    text += stepNumber(width) + unitAreaText(tolerance);
    if (zone.projected > 0.0) text += L" \u24C5" + stepNumber(zone.projected);
    text += modifierSigns(Entities.argument(tolerance, 99, "GEOMETRIC_TOLERANCE_WITH_MODIFIERS", 0));
    auto const& system = Entities.argument(tolerance, 4, "GEOMETRIC_TOLERANCE_WITH_DATUM_REFERENCE", 0);
    for (int const reference : system.entities()) {
        auto const& compartments = Entities.argument(reference, 4, "DATUM_SYSTEM", 0);
        if (compartments.items.empty()) {
            if (auto const letters = datumLetters(reference); !letters.empty()) text += L" | " + letters;
            continue;
        }
        for (int const compartment : compartments.entities()) text += L" | " + datumLetters(compartment);
    }
    return text;
}

// A tolerance may hold for any piece of a length or an area within the whole.
std::wstring StepSemantics::unitAreaText(int tolerance) const
{
    auto const measureOf = [&](std::string_view part, std::size_t position) {
        return stepMeasure(Entities, Entities.argument(tolerance, 99, part, position).entity());
    };
    auto const size = measureOf("GEOMETRIC_TOLERANCE_WITH_DEFINED_UNIT", 0);
    if (!size) return {};
    static constexpr std::string_view Area = "GEOMETRIC_TOLERANCE_WITH_DEFINED_AREA_UNIT";
    auto const form = Entities.argument(tolerance, 99, Area, 0).text;
    auto const length = stepNumber(*size);
    if (form == "CIRCULAR") return L" / \u2300" + length;
    if (form == "SQUARE") return L" / " + length + L"\u00D7" + length;
    auto const second = form == "RECTANGULAR" ? measureOf(Area, 1) : std::nullopt;
    return L" / " + length + (second ? L"\u00D7" + stepNumber(*second) : std::wstring());
}

std::wstring StepSemantics::datumLetters(int reference, int depth) const
{
    if (depth > DeepestReference) return {};
    if (Entities.isKind(reference, "DATUM")) return Entities.argument(reference, 4, "DATUM", 0).words();
    if (Entities.keywordOf(reference) == "DATUM_REFERENCE")
        return datumLetters(Entities.argument(reference, 1).entity(), depth + 1);
    std::wstring letters;
    for (int const base : Entities.argument(reference, 4, "GENERAL_DATUM_REFERENCE", 0).entities())
        letters += (letters.empty() ? L"" : L"-") + datumLetters(base, depth + 1);
    return letters + modifierSigns(Entities.argument(reference, 5, "GENERAL_DATUM_REFERENCE", 1));
}

void StepSemantics::readDimensions()
{
    struct Form {
        std::string_view keyword, part;
        std::size_t aspect, name; // where an entity of this one type has them
        bool isLocation, isAngle;
    };
    static constexpr Form Forms[] = {
        {"DIMENSIONAL_SIZE", "DIMENSIONAL_SIZE", 0, 1, false, false},
        {"DIMENSIONAL_SIZE_WITH_PATH", "DIMENSIONAL_SIZE", 0, 1, false, false},
        {"DIMENSIONAL_SIZE_WITH_DATUM_FEATURE", "DIMENSIONAL_SIZE", 4, 5, false, false},
        {"ANGULAR_SIZE", "DIMENSIONAL_SIZE", 0, 1, false, true},
        {"DIMENSIONAL_LOCATION", "SHAPE_ASPECT_RELATIONSHIP", 2, 0, true, false},
        {"DIMENSIONAL_LOCATION_WITH_PATH", "SHAPE_ASPECT_RELATIONSHIP", 2, 0, true, false},
        {"DIRECTED_DIMENSIONAL_LOCATION", "SHAPE_ASPECT_RELATIONSHIP", 2, 0, true, false},
        {"ANGULAR_LOCATION", "SHAPE_ASPECT_RELATIONSHIP", 2, 0, true, true},
    };
    std::map<int, int> sizes, ranges; // representation and range of deviations, by dimension
    for (int const link : Entities.ofKind("DIMENSIONAL_CHARACTERISTIC_REPRESENTATION"))
        sizes[Entities.argument(link, 0).entity()] = Entities.argument(link, 1).entity();
    for (int const range : Entities.ofKind("PLUS_MINUS_TOLERANCE"))
        ranges[Entities.argument(range, 1).entity()] = Entities.argument(range, 0).entity();
    for (auto const& form : Forms) {
        for (int const dimension : Entities.ofKind(form.keyword)) {
            auto& meaning = add(dimension, StepMeaning::Kind::Dimension);
            auto const at = [&](std::size_t position, std::size_t partPosition) -> StepValue const& {
                return Entities.argument(dimension, position, form.part, partPosition);
            };
            auto const& name = at(form.name, form.isLocation ? 0 : 1);
            bool const isAngle = form.isAngle || meaning.measured == PMIDimensionSubType::Angle;
            meaning.measured = stepMeasured(name.text, isAngle);
            meaning.dimension = form.isLocation ? PMIDimensionType::Location : PMIDimensionType::Size;
            meaning.aspects = at(form.aspect, form.isLocation ? 2 : 0).entities();
            if (form.isLocation)
                for (int const related : at(3, 3).entities()) meaning.aspects.push_back(related);
            if (auto const size = sizes.find(dimension); size != sizes.end()) readSize(size->second, meaning);
            readDeviations(ranges, meaning);
            if (meaning.value) meaning.text = dimensionText(sizes[dimension], ranges[dimension], meaning);
        }
    }
}

// A size that only says where things ideally are stands in a frame, one that follows from others in brackets.
std::wstring StepSemantics::dimensionText(int representation, int range, StepMeaning const& meaning) const
{
    auto text = stepSign(meaning.measured) + stepNumber(meaning.value->nominal) +
                (isStepAngle(meaning.measured) ? L"\u00B0" : L"") + deviationText(*meaning.value);
    for (int const item : Entities.argument(representation, 1, "REPRESENTATION", 1).entities()) {
        auto const note = Entities.argument(item, 1, "DESCRIPTIVE_REPRESENTATION_ITEM", 0).text;
        if (note == "theoretical") text = L"[" + text + L"]";
        if (note == "auxiliary") text = L"(" + text + L")";
        if (note == "statistical") text += L" \u24C8";
    }
    if (Entities.keywordOf(range) == "LIMITS_AND_FITS")
        text += L" " + Entities.argument(range, 0).words() + Entities.argument(range, 2).words();
    return text;
}

void StepSemantics::readSize(int representation, StepMeaning& meaning) const
{
    std::optional<double> nominal, upper, lower;
    for (int const item : Entities.argument(representation, 1, "REPRESENTATION", 1).entities()) {
        auto const value = stepMeasure(Entities, item);
        if (!value) continue;
        auto const name = Entities.argument(item, 0, "REPRESENTATION_ITEM", 0).text;
        if (name.find("upper") != name.npos)
            upper = value;
        else if (name.find("lower") != name.npos)
            lower = value;
        else if (!nominal)
            nominal = value;
    }
    if (!nominal && upper && lower) nominal = (*upper + *lower) / 2;
    if (!nominal) return;
    meaning.value = NarMetaPmi::PMIDimensionValue{*nominal, std::nullopt, std::nullopt};
    if (upper && lower) {
        meaning.value->upper = *upper - *nominal;
        meaning.value->lower = *lower - *nominal;
    }
}

void StepSemantics::readDeviations(std::map<int, int> const& ranges, StepMeaning& meaning) const
{
    auto const range = ranges.find(meaning.entity);
    if (range == ranges.end() || !meaning.value) return;
    auto const lower = stepMeasure(Entities, Entities.argument(range->second, 0).entity());
    auto const upper = stepMeasure(Entities, Entities.argument(range->second, 1).entity());
    if (Entities.keywordOf(range->second) != "TOLERANCE_VALUE" || !lower || !upper) return;
    meaning.value->lower = *lower;
    meaning.value->upper = *upper;
}

void StepSemantics::readTextures()
{
    for (int const link : Entities.ofKind("PROPERTY_DEFINITION_REPRESENTATION")) {
        auto const texture = Entities.argument(link, 1).entity();
        if (!Entities.isKind(texture, "SURFACE_TEXTURE_REPRESENTATION")) continue;
        auto const property = Entities.argument(link, 0).entity();
        auto& meaning = add(property, StepMeaning::Kind::Roughness);
        meaning.name = Entities.argument(property, 0, "PROPERTY_DEFINITION", 0).words();
        meaning.aspects = Entities.argument(property, 2, "PROPERTY_DEFINITION", 2).entities();
        for (int const item : Entities.argument(texture, 1, "REPRESENTATION", 1).entities()) {
            auto const name = Entities.argument(item, 0, "REPRESENTATION_ITEM", 0).words();
            auto word = stepQuantity(Entities, item);
            if (word.empty()) word = Entities.argument(item, 1, "DESCRIPTIVE_REPRESENTATION_ITEM", 0).words();
            if (!word.empty()) meaning.text += (meaning.text.empty() ? L"" : L", ") + name + L" " + word;
        }
    }
}
} // namespace NarMetaInfra
