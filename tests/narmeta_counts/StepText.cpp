#include "StepText.h"

#include "file_counts.h"

#include <array>
#include <cstdio>
#include <cstdlib>

StepText::StepText(std::string const& text)
{
    std::string statement, strings;
    bool inString = false, inComment = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        char const c = text[i];
        if (inComment) {
            inComment = !(c == '/' && text[i - 1] == '*');
        } else if (c == '\'') {
            inString = !inString;
        } else if (inString) {
            strings += c;
        } else if (c == '/' && text.compare(i, 2, "/*") == 0) {
            inComment = true;
            ++i;
        } else if (c == ';') {
            enter(statement, strings);
            statement.clear();
            strings.clear();
        } else if (!std::isspace(static_cast<unsigned char>(c))) {
            statement += c;
        }
    }
}

void StepText::enter(std::string const& statement, std::string const& strings)
{
    if (statement.empty() || statement[0] != '#') return;
    auto const equals = statement.find('=');
    if (equals == std::string::npos) return;
    Entity entity;
    entity.body = statement.substr(equals + 1);
    entity.strings = strings;
    int depth = 0;
    int const typeDepth = entity.body[0] == '(' ? 1 : 0;
    std::string word;
    for (std::size_t i = 0; i < entity.body.size(); ++i) {
        char const c = entity.body[i];
        if (c == '(') {
            if (depth == typeDepth && !word.empty()) entity.types.push_back(word);
            ++depth;
            word.clear();
        } else if (c == ')') {
            --depth;
            word.clear();
        } else if (c == '#') {
            entity.references.push_back(std::atoi(entity.body.c_str() + i + 1));
            word.clear();
        } else {
            word += c;
        }
    }
    Entities[std::atoi(statement.c_str() + 1)] = std::move(entity);
}

bool isTolerance(std::string_view type)
{
    static constexpr std::array<std::string_view, 14> Names = {
        "ANGULARITY_TOLERANCE",      "CIRCULAR_RUNOUT_TOLERANCE", "COAXIALITY_TOLERANCE",
        "CONCENTRICITY_TOLERANCE",   "CYLINDRICITY_TOLERANCE",    "FLATNESS_TOLERANCE",
        "LINE_PROFILE_TOLERANCE",    "PARALLELISM_TOLERANCE",     "PERPENDICULARITY_TOLERANCE",
        "POSITION_TOLERANCE",        "ROUNDNESS_TOLERANCE",       "STRAIGHTNESS_TOLERANCE",
        "SURFACE_PROFILE_TOLERANCE", "TOTAL_RUNOUT_TOLERANCE"};
    return type == "SYMMETRY_TOLERANCE" || std::ranges::find(Names, type) != Names.end();
}

bool isDimension(std::string_view type)
{
    return type == "DIMENSIONAL_SIZE" || type == "ANGULAR_SIZE" || type == "DIMENSIONAL_SIZE_WITH_PATH" ||
           type == "DIMENSIONAL_LOCATION" || type == "ANGULAR_LOCATION" ||
           type == "DIMENSIONAL_SIZE_WITH_DATUM_FEATURE" || type == "DIRECTED_DIMENSIONAL_LOCATION" ||
           type == "DIMENSIONAL_LOCATION_WITH_PATH";
}

namespace
{
// Colours of surfaces that a style leads to.
void collectColours(StepText const& text, int number, int depth, std::set<std::string>& colours)
{
    auto const found = text.Entities.find(number);
    if (found == text.Entities.end() || depth > 12) return;
    auto const& [types, body, strings, references] = found->second;
    if (types.empty() || types[0] == "CURVE_STYLE" || types[0] == "POINT_STYLE") return;
    if (types[0] == "COLOUR_RGB") {
        double rgb[3] = {};
        auto const comma = body.find(',');
        if (comma != std::string::npos &&
            std::sscanf(body.c_str() + comma, ",%lf,%lf,%lf", &rgb[0], &rgb[1], &rgb[2]) == 3)
            colours.insert(colourText(rgb[0], rgb[1], rgb[2]));
        return;
    }
    if (types[0] == "DRAUGHTING_PRE_DEFINED_COLOUR") {
        static std::map<std::string, std::string> const Named = {
            {"red", "ff0000"},     {"green", "00ff00"}, {"blue", "0000ff"},  {"yellow", "ffff00"},
            {"magenta", "ff00ff"}, {"cyan", "00ffff"},  {"black", "000000"}, {"white", "ffffff"}};
        if (auto const named = Named.find(strings); named != Named.end()) colours.insert(named->second);
        return;
    }
    for (int const next : references) collectColours(text, next, depth + 1, colours);
}
// Not of the points and curves that stand for themselves, nor of the lines of annotations.
bool isStyleOfSurface(StepText const& text, Entity const& entity)
{
    static constexpr std::array<std::string_view, 3> Styles = {"STYLED_ITEM", "OVER_RIDING_STYLED_ITEM",
                                                               "CONTEXT_DEPENDENT_OVER_RIDING_STYLED_ITEM"};
    if (entity.types.empty() || entity.references.empty()) return false;
    if (std::ranges::find(Styles, entity.types[0]) == Styles.end()) return false;
    auto const item = text.Entities.find(entity.references.back());
    if (item == text.Entities.end() || item->second.types.empty()) return false;
    std::string_view const kind = item->second.types[0];
    return kind.ends_with("FACE") || kind.ends_with("BREP") || kind.ends_with("SHELL") ||
           kind == "BREP_WITH_VOIDS" || kind == "SHELL_BASED_SURFACE_MODEL" || kind == "MAPPED_ITEM" ||
           kind == "ADVANCED_BREP_SHAPE_REPRESENTATION" || kind == "SHAPE_REPRESENTATION";
}
} // namespace

std::set<std::string> coloursOf(StepText const& text)
{
    std::set<std::string> colours;
    for (auto const& [number, entity] : text.Entities) {
        if (!isStyleOfSurface(text, entity)) continue;
        for (std::size_t i = 0; i + 1 < entity.references.size(); ++i)
            collectColours(text, entity.references[i], 0, colours);
    }
    return colours;
}

std::set<int> facesBelow(StepText const& text, int number)
{
    std::set<int> faces;
    auto const isShell = [](std::string_view type) { return type == "CLOSED_SHELL" || type == "OPEN_SHELL"; };
    auto const isBody = [](std::string_view type) {
        return type.ends_with("_BREP") || type == "SHELL_BASED_SURFACE_MODEL" || type == "BREP_WITH_VOIDS";
    };
    if (text.is(number, [](std::string_view type) { return type == "ADVANCED_FACE"; })) faces.insert(number);
    if (text.is(number, isShell)) {
        auto const& own = text.Entities.at(number).references;
        faces.insert(own.begin(), own.end());
    }
    if (text.is(number, isBody))
        for (int const shell : text.Entities.at(number).references) faces.merge(facesBelow(text, shell));
    return faces;
}
