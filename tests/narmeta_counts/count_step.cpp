#include "StepText.h"
#include "file_counts.h"

#include <cmath>
#include <cstdio>
#include <fstream>
#include <iterator>

namespace
{
bool isCurve(std::string_view type)
{
    return type == "TRIMMED_CURVE" || type == "CIRCLE" || type == "POLYLINE" ||
           type.starts_with("B_SPLINE_CURVE");
}

// What an invisibility names: styles stand for what they are put on, layers for what lies on them.
void collectHidden(StepText const& text, int number, std::set<int>& hidden)
{
    if (!text.Entities.contains(number) || !hidden.insert(number).second) return;
    auto const& [types, body, strings, references] = text.Entities.at(number);
    if (types.front() == "PRESENTATION_LAYER_ASSIGNMENT" || types.front() == "GEOMETRIC_CURVE_SET")
        for (int const member : references) collectHidden(text, member, hidden);
    if (types.front().ends_with("STYLED_ITEM") && !references.empty())
        collectHidden(text, references.back(), hidden);
}

void countHidden(StepText const& text, std::set<int> const& hidden, Counts& counts)
{
    std::set<int> faces;
    for (int const number : hidden) {
        faces.merge(facesBelow(text, number));
        if (text.is(number, isCurve)) ++counts["hidden curves"];
        if (text.is(number, [](std::string_view type) { return type == "COMPOSITE_CURVE"; }))
            counts["hidden curves"] += static_cast<int>(text.Entities.at(number).references.size());
    }
    counts["hidden faces"] = static_cast<int>(faces.size());
}

void countDrawn(StepText const& text, std::set<int> const& hidden, Counts& counts)
{
    auto const isCallout = [](std::string_view type) { return type == "DRAUGHTING_CALLOUT"; };
    auto const isOccurrence = [](std::string_view type) { return type.ends_with("_OCCURRENCE"); };
    auto const isPlace = [](std::string_view type) { return type.find("PLACEHOLDER") != type.npos; };
    auto const isPlane = [](std::string_view type) { return type == "ANNOTATION_PLANE"; };
    // A note may be tied to a feature that is that of a datum.
    auto const isMeaning = [](std::string_view type) {
        return isTolerance(type) || isDimension(type) || type == "GEOMETRIC_TOLERANCE" || type == "DATUM" ||
               type.ends_with("DATUM_TARGET") || type == "PLACED_DATUM_TARGET_FEATURE";
    };
    auto const isDatum = [](std::string_view type) { return type == "DATUM_FEATURE"; };
    std::set<int> held, drawn, meant, inCameras, inPlanes;
    std::map<int, int> calloutOf;
    for (auto const& [number, entity] : text.Entities)
        if (text.is(number, isCallout))
            for (int const content : entity.references) calloutOf[content] = number;
    auto const top = [&](int number) { return calloutOf.contains(number) ? calloutOf.at(number) : number; };
    auto const isPicture = [&](int number) {
        return text.is(number, isOccurrence) && !text.is(number, isPlace);
    };
    auto const isDrawn = [&](int number) {
        return text.is(number, isCallout)
                   ? std::ranges::any_of(text.Entities.at(number).references, isPicture)
                   : isPicture(number);
    };
    for (auto const& [number, entity] : text.Entities) {
        bool const isModel =
            text.is(number, [](std::string_view type) { return type == "DRAUGHTING_MODEL"; });
        if (isModel || text.is(number, isPlane))
            for (int const item : entity.references)
                if (isDrawn(top(item))) drawn.insert(top(item));
        if (text.is(number,
                    [](std::string_view type) {
                        return type.starts_with("DRAUGHTING_MODEL_ITEM_ASSOCIATION");
                    }) &&
            (text.is(entity.references.front(), isMeaning) ||
             (entity.strings.starts_with("PMI") && text.is(entity.references.front(), isDatum))))
            meant.insert(top(entity.references.back()));
        bool const hasCamera =
            isModel && std::ranges::any_of(entity.references, [&](int item) {
                return text.is(item, [](std::string_view type) { return type.starts_with("CAMERA_MODEL"); });
            });
        if (hasCamera)
            for (int const item : entity.references) inCameras.insert(top(item));
    }
    for (int const number : drawn) {
        auto const& references = text.Entities.at(number).references;
        bool const isHidden = hidden.contains(number) ||
                              (text.is(number, isCallout) && std::ranges::any_of(references, [&](int item) {
                                   return hidden.contains(item);
                               }));
        if (isHidden) ++counts["hidden drawn"];
        if (!meant.contains(number)) ++counts["notes"];
    }
    counts["drawn"] = static_cast<int>(drawn.size());
    counts["captures"] = text.count("CAMERA_MODEL_D3") + text.count("CAMERA_MODEL_D3_MULTI_CLIPPING");
    counts["views"] = counts["captures"];
    for (auto const& [number, entity] : text.Entities)
        if (text.is(number, isPlane) && std::ranges::any_of(entity.references, [&](int item) {
                return drawn.contains(item) && !inCameras.contains(item);
            }))
            ++counts["views"];
}

void countProducts(StepText const& text, Counts& counts)
{
    std::set<int> used;
    for (auto const& [number, entity] : text.Entities)
        if (entity.types.front() == "NEXT_ASSEMBLY_USAGE_OCCURRENCE" && entity.references.size() >= 2)
            used.insert(entity.references[1]);
    auto const products = text.count("PRODUCT_DEFINITION");
    auto const uses = text.count("NEXT_ASSEMBLY_USAGE_OCCURRENCE");
    auto const tops = products - static_cast<int>(used.size());
    bool const hasOneTop = tops == 1 && uses > 0;
    counts["references"] = products - (hasOneTop ? 1 : 0);
    counts["instances"] = uses + (hasOneTop ? 0 : tops);
}

void countShapes(StepText const& text, Counts& counts, std::set<std::string>& colours)
{
    std::set<int> faces;
    counts["bodies"] +=
        text.count("MANIFOLD_SOLID_BREP") + text.count("BREP_WITH_VOIDS") + text.count("FACETED_BREP");
    for (auto const& [number, entity] : text.Entities) {
        if (entity.types.front() == "SHELL_BASED_SURFACE_MODEL")
            counts["bodies"] += static_cast<int>(entity.references.size());
        if (entity.types.front().ends_with("_SHELL")) faces.merge(facesBelow(text, number));
    }
    counts["faces"] += static_cast<int>(faces.size());
    colours.merge(coloursOf(text));
}
} // namespace

std::string colourText(double red, double green, double blue)
{
    char text[8];
    auto const byte = [](double x) {
        return static_cast<unsigned>(std::lround(std::clamp(x, 0.0, 1.0) * 255));
    };
    std::snprintf(text, sizeof text, "%02x%02x%02x", byte(red) & 255, byte(green) & 255, byte(blue) & 255);
    return text;
}

Counts countStep(std::string const& words, std::filesystem::path const& folder)
{
    StepText const text(words);
    Counts counts;
    std::set<std::string> colours;
    countProducts(text, counts);
    countShapes(text, counts, colours);
    std::set<std::string> files;
    for (auto const& [number, entity] : text.Entities)
        if (entity.types.front() == "DOCUMENT_FILE") files.insert(entity.strings);
    for (auto const& file : files) {
        std::ifstream stream(folder / file, std::ios::binary);
        std::string const part((std::istreambuf_iterator<char>(stream)), std::istreambuf_iterator<char>());
        countShapes(StepText(part), counts, colours);
    }
    counts["colours"] = static_cast<int>(colours.size());

    counts["dimensions"] = text.countIf(isDimension);
    counts["tolerances"] = text.countIf(isTolerance);
    counts["datums"] = text.count("DATUM");
    counts["datum targets"] = text.count("PLACED_DATUM_TARGET_FEATURE") + text.count("DATUM_TARGET");
    std::set<int> hidden;
    for (auto const& [number, entity] : text.Entities)
        if (entity.types.front() == "INVISIBILITY")
            for (int const item : entity.references) collectHidden(text, item, hidden);
    countHidden(text, hidden, counts);
    countDrawn(text, hidden, counts);
    return counts;
}
