#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace NarMetaInfra
{
/// What uses what, by number: a file may place a thing many times that stands in it once.
using UseGraph = std::vector<std::vector<std::size_t>>;

/// More places than this can't be shown; real assemblies have some hundred thousand at most.
inline constexpr std::uint64_t MostPlaces = 4'000'000;
/// Whoever follows the uses calls himself at each level; real assemblies have some dozens at most.
inline constexpr std::size_t MostLevels = 200;

/// Why what stands below @p roots must not be expanded, in words for the user; empty if it may be. The places
/// are not gone through one by one: there may be more than can be counted.
std::string refusalOfPlaces(UseGraph const& uses, std::vector<std::size_t> const& roots);
} // namespace NarMetaInfra
