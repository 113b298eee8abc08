#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace NarMetaInfra
{
/// What uses what, by number: a file may place a thing many times that stands in it once.
using UseGraph = std::vector<std::vector<std::size_t>>;

/// More places than this can't be shown; real assemblies have some hundred thousand at most.
inline constexpr std::uint64_t MostPlaces = 4'000'000;

/// How many places there are below @p roots, themselves among them, without going through them one by one;
/// the largest number if there are more than it holds. Nothing if something contains itself.
std::optional<std::uint64_t> countPlaces(UseGraph const& uses, std::vector<std::size_t> const& roots);

/// Why a file with these uses must not be expanded, in words for the user; empty if it may be.
std::string refusalOfPlaces(UseGraph const& uses, std::vector<std::size_t> const& roots);
} // namespace NarMetaInfra
