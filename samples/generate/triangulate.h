#pragma once

#include "Profile.h"

#include <cstdint>

namespace samples
{

/// Fills a counter-clockwise outline with clockwise holes by cutting ears. The indices count through the
/// points of all outlines in their order; triangles are counter-clockwise.
std::vector<std::uint32_t> Triangulate(std::vector<std::vector<Point2>> const& outlines);

} // namespace samples
