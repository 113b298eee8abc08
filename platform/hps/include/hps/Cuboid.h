#pragma once
#include <hps/Point.h>
#include <limits>

namespace HPS
{

// A box along the axes. Empty until something is merged into it.
template <class F> struct Cuboid_3D {
    Point min{std::numeric_limits<F>::max(), std::numeric_limits<F>::max(), std::numeric_limits<F>::max()};
    Point max{std::numeric_limits<F>::lowest(), std::numeric_limits<F>::lowest(),
              std::numeric_limits<F>::lowest()};

    constexpr Cuboid_3D() = default;
    constexpr Cuboid_3D(Point const& minIn, Point const& maxIn) : min(minIn), max(maxIn) {}

    constexpr bool IsValid() const { return min.x <= max.x && min.y <= max.y && min.z <= max.z; }
    constexpr void Invalidate() { *this = {}; }

    // Grows the box to hold the point, or the other box; an empty box adds nothing.
    constexpr Cuboid_3D& Merge(Point const& p)
    {
        min = {p.x < min.x ? p.x : min.x, p.y < min.y ? p.y : min.y, p.z < min.z ? p.z : min.z};
        max = {p.x > max.x ? p.x : max.x, p.y > max.y ? p.y : max.y, p.z > max.z ? p.z : max.z};
        return *this;
    }
    constexpr Cuboid_3D& Merge(Cuboid_3D const& other)
    {
        return other.IsValid() ? Merge(other.min).Merge(other.max) : *this;
    }

    constexpr Point Center() const { return min + (max - min) * 0.5f; }
    double Diagonal() const { return IsValid() ? (max - min).Length() : 0; }
    friend constexpr bool operator==(Cuboid_3D const&, Cuboid_3D const&) = default;
};

using Cuboid = Cuboid_3D<float>;
using SimpleCuboid = Cuboid_3D<float>;

} // namespace HPS
