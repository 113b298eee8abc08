#pragma once
#include <cstdint>
#include <hps/ContourLineKit.h>
#include <hps/ShellKit.h>
#include <span>
#include <vector>

namespace HPS::render
{

/// A straight piece of a contour line.
struct ContourPiece {
    Point from, to;
    std::uint32_t number; ///< of its line among all positions; repeating ones count from the offset, wrapped
};

/// Where the first parameter of the vertices has one of the positions, over the triangles of a shell. With
/// repeating positions `number` grows by one at every interval and is brought into 0 to `wrap` - 1. Triangles
/// with a vertex that has no parameter are left out; so is what would be more than `most` pieces.
std::vector<ContourPiece> findContours(ShellData const& shell, std::span<std::uint32_t const> triangles,
                                       ContourLineData const& contours, std::uint32_t wrap,
                                       std::size_t most = 1'000'000);

} // namespace HPS::render
