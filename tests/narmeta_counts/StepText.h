// Statements of a STEP file, taken apart by nothing but their characters.
#pragma once

#include <algorithm>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

struct Entity {
    std::vector<std::string> types; // one, or those of a combined instance
    std::string body;               // without strings
    std::string strings;            // their characters
    std::vector<int> references;
};

class StepText
{
public:
    explicit StepText(std::string const& text);

    int count(std::string_view type) const
    {
        return countIf([&](std::string_view other) { return other == type; });
    }
    template <typename Test> int countIf(Test const& test) const
    {
        return static_cast<int>(std::ranges::count_if(
            Entities, [&](auto const& entry) { return std::ranges::any_of(entry.second.types, test); }));
    }
    /// Whether an entity of this number has a type that passes.
    template <typename Test> bool is(int number, Test const& test) const
    {
        auto const found = Entities.find(number);
        return found != Entities.end() && std::ranges::any_of(found->second.types, test);
    }

    std::map<int, Entity> Entities;

private:
    void enter(std::string const& statement, std::string const& strings);
};

bool isTolerance(std::string_view type);
bool isDimension(std::string_view type);
/// Distinct colours of faces, bodies and instances.
std::set<std::string> coloursOf(StepText const& text);
/// Numbers of the faces that bound solids and shells, or of those below one entity.
std::set<int> facesBelow(StepText const& text, int number);
