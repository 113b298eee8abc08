#pragma once
#include "linear.h"
#include <array>
#include <cstdint>
#include <span>
#include <vector>

namespace HPS::render
{

/// A triangle of the scene, in the world.
using Corners = std::array<Vec3, 3>;

/// Where somebody looks from, as far as order goes.
struct SightPoint {
    Vec3 eye;  ///< in the world
    Vec3 back; ///< to the viewer
    bool perspective = false;

    /// Larger for what is nearer.
    double nearness(Vec3 const& p) const
    {
        Vec3 const way = p - eye;
        return perspective ? -dot(way, way) : dot(way, back);
    }
};

/// Triangles cut along each other, so that from wherever one looks there is an order in which each piece
/// hides none that comes after it. H. Fuchs, Z. Kedem, B. Naylor, "On Visible Surface Generation by A Priori
/// Tree Structures" (1980). The work is limited: what is left over when the limit is reached is kept in
/// groups, whose pieces are ordered by their middles.
class SplitTriangles
{
public:
    /// A part of one of the triangles given; `shares[i]` tells how much of that triangle's corners is in
    /// corner i of the piece.
    struct Piece {
        std::uint32_t source;
        std::array<std::array<float, 3>, 3> shares;
    };

    explicit SplitTriangles(std::span<Corners const> triangles);

    std::vector<Piece> const& pieces() const { return pieces_; }

    /// Numbers of the pieces, from back to front.
    void order(SightPoint const& from, std::vector<std::uint32_t>& result) const;

private:
    struct Plane {
        Vec3 normal;
        double offset;
        double at(Vec3 const& p) const { return dot(normal, p) + offset; }
    };
    struct Node {
        Plane plane;
        std::uint32_t first, count; ///< in `held_`: pieces in the plane, or all of a group
        std::int32_t front = -1, back = -1;
        bool group = false;
    };
    struct Work;
    Corners placeOf(Piece const& piece) const;
    void build(std::vector<std::uint32_t> all);
    void cut(std::uint32_t piece, Plane const& plane, double tolerance, Work& work);

    std::vector<Corners> sources_;
    std::vector<Piece> pieces_;
    std::vector<Corners> places_; ///< of the pieces
    std::vector<Node> nodes_;     ///< the root first
    std::vector<std::uint32_t> held_;
};

/// The order of whole triangles by their middles, from back to front.
void orderByMiddles(std::span<Corners const> triangles, SightPoint const& from,
                    std::vector<std::uint32_t>& result);

} // namespace HPS::render
