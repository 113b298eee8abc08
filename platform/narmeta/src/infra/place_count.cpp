#include "place_count.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace NarMetaInfra
{
namespace
{
constexpr auto Endless = std::numeric_limits<std::uint64_t>::max();

std::uint64_t sumOf(std::uint64_t a, std::uint64_t b)
{
    return a > Endless - b ? Endless : a + b;
}
} // namespace

std::string refusalOfPlaces(UseGraph const& uses, std::vector<std::size_t> const& roots)
{
    enum class State { New, Open, Done };
    std::vector<State> states(uses.size(), State::New);
    std::vector<std::uint64_t> counts(uses.size(), 1);
    std::vector<std::size_t> levels(uses.size(), 1);
    std::vector<std::pair<std::size_t, std::size_t>> open; // a thing, and how many of its uses are done
    std::uint64_t total = 0;
    std::size_t deepest = 0;
    for (auto const root : roots) {
        if (states[root] == State::New) {
            open.emplace_back(root, 0);
            states[root] = State::Open;
        }
        while (!open.empty()) {
            auto& [thing, next] = open.back();
            if (next == uses[thing].size()) {
                for (auto const used : uses[thing]) {
                    counts[thing] = sumOf(counts[thing], counts[used]);
                    levels[thing] = std::max(levels[thing], levels[used] + 1);
                }
                states[thing] = State::Done;
                open.pop_back();
                continue;
            }
            auto const used = uses[thing][next++];
            if (states[used] == State::Open) return "something in it contains itself";
            if (states[used] == State::Done) continue;
            states[used] = State::Open;
            open.emplace_back(used, 0);
        }
        total = sumOf(total, counts[root]);
        deepest = std::max(deepest, levels[root]);
    }
    if (total > MostPlaces) return "it places its parts more than " + std::to_string(MostPlaces) + " times";
    if (deepest > MostLevels) return "its parts are nested more than " + std::to_string(MostLevels) + " deep";
    return {};
}
} // namespace NarMetaInfra
