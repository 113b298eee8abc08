#pragma once
#include "cut_planes.h"
#include <cstdint>

namespace HPS::render
{

struct DrawList;

/// Cutting sections in force, in sets that instances name, see `Instance::material`.
struct Sections {
    std::vector<CutSection> sections;             ///< in the world
    std::vector<std::vector<std::uint32_t>> sets; ///< in `sections`; the first set is empty
    DrawList const* caps = nullptr; ///< what closes the bodies; null if nothing is cut. Not owned

    bool any() const { return sets.size() > 1; }
    /// What a set does to a box in the world.
    CutReach reach(std::uint32_t set, Box const& world) const;
    std::vector<CutSection> inForce(std::uint32_t set) const;
};

} // namespace HPS::render
