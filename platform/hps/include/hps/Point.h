#pragma once
#include <hps/Vector.h>

namespace HPS
{

// A place in space, in the units of the space it is used in.
struct Point {
    float x = 0;
    float y = 0;
    float z = 0;

    constexpr Point() = default;
    constexpr Point(float xIn, float yIn, float zIn) : x(xIn), y(yIn), z(zIn) {}
    explicit constexpr Point(Vector const& v) : x(v.x), y(v.y), z(v.z) {}

    static constexpr Point Origin() { return {}; }

    friend constexpr Vector operator-(Point const& a, Point const& b)
    {
        return {a.x - b.x, a.y - b.y, a.z - b.z};
    }
    friend constexpr Point operator+(Point const& p, Vector const& v)
    {
        return {p.x + v.x, p.y + v.y, p.z + v.z};
    }
    friend constexpr Point operator-(Point const& p, Vector const& v)
    {
        return {p.x - v.x, p.y - v.y, p.z - v.z};
    }
    friend constexpr bool operator==(Point const&, Point const&) = default;
};

} // namespace HPS
