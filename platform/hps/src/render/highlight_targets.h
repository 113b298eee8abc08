// Which places of a view its window's highlights are about.
#pragma once
#include "OccurrenceTree.h"
#include "highlights.h"
#include <map>

namespace HPS::render
{

/// What is highlighted at one occurrence: highlights by number, rising.
struct HighlightTarget {
    std::vector<std::uint32_t> whole;                                ///< with all below it
    std::map<scene::SlotIndex, std::vector<std::uint32_t>> geometry; ///< of its own
};
using HighlightTargets = std::map<OccurrenceId, HighlightTarget>;

/// `path` leads from the window down to the segment at the tree's top. Costs what the highlights name: their
/// segments' occurrences are looked up, not searched for. A segment that no window can show, as the library of
/// a model, says nothing about where a highlight is meant.
HighlightTargets highlightTargets(OccurrenceTree const& tree, std::span<KeyIndex const> path,
                                  scene::Highlights const& highlights);

} // namespace HPS::render
