#pragma once
#include <array>
#include <cstdint>
#include <hps/Point.h>
#include <span>
#include <vector>

namespace HPS::render
{

/// Polylines that are drawn with a pattern, or with caps and joins of their own.
struct StrokeChains {
    /// One straight piece as the device takes it. `before` and `after` are the points that the chain comes
    /// from and goes on to; at its ends they repeat the piece's own.
    struct Piece {
        float from[3];
        float to[3];
        float before[3];
        float after[3];
        float distance; ///< of `from` along the chain
        std::uint32_t kind;
    };
    enum Kind : std::uint32_t {
        First = 1,    ///< begins with the cap of a start
        Last = 2,     ///< ends with the cap of an end
        Infinite = 4, ///< goes on beyond `to` for ever
        BothWays = 8, ///< and beyond `from`
    };
    static_assert(sizeof(Piece) == 56);

    std::vector<Piece> pieces;

    /// A closed chain has joins all around. Points that repeat their neighbour count once.
    void add(std::span<Point const> points, bool closed = false);
    /// From `from` through `to`.
    void addInfinite(Point const& from, Point const& to, bool bothWays);
};

/// Lengths along chains as they lie on the screen: for each piece the pixels that the pieces before it take.
/// `toClip` leads from the chains' coordinates to clip coordinates, row vectors. Cut off where a piece passes
/// behind the viewer, as it is drawn.
void measureOnScreen(StrokeChains const& chains, std::array<double, 16> const& toClip, double width,
                     double height, std::span<float> distances);

} // namespace HPS::render
