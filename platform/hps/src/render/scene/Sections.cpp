#include "Sections.h"

namespace HPS::render
{

CutReach Sections::reach(std::uint32_t set, Box const& world) const
{
    CutReach reach = CutReach::Whole;
    if (set >= sets.size()) return reach;
    for (std::uint32_t section : sets[set]) {
        CutReach const one = reachOf(std::span(&sections[section], 1), world);
        if (one == CutReach::Gone) return one;
        if (one == CutReach::Cut) reach = one;
    }
    return reach;
}

std::vector<CutSection> Sections::inForce(std::uint32_t set) const
{
    std::vector<CutSection> result;
    if (set < sets.size())
        for (std::uint32_t section : sets[set]) result.push_back(sections[section]);
    return result;
}

} // namespace HPS::render
