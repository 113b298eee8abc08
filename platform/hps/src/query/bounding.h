#pragma once
#include "extents.h"
#include <array>
#include <optional>
#include <span>

namespace HPS::scene
{

// The extent of a segment with all below it, in its own coordinates, before its own matrix: the volume given
// on it, or else its geometry, its children and what it includes, but for what is excluded. Empty if there is
// nothing. Kept until a write changes it.
SimpleCuboid const& boundsOf(SegmentRecord const& segment);

std::array<Point, 8> cornersOf(SimpleCuboid const& box);

// The extent of a segment, a geometry or what an include shows, where it stands. Empty for anything else.
SimpleCuboid leafBox(Key const& leaf);

// The extent as it stands in the coordinates above the segment: with its own matrix. The box of a view's
// world is that of the segment the view shows. Exclusion of the segment itself does not count here.
SimpleCuboid worldBoundsOf(SegmentRecord const& segment);

// The segments of a path, from the root down, geometry at its leaf and includes left out. One that is named
// twice in a row counts once: paths put together from pieces may repeat the key where they join. Nothing if a
// key is stale.
std::optional<std::vector<SegmentRecord const*>> segmentsOf(std::span<Key const> leafFirst);

} // namespace HPS::scene
