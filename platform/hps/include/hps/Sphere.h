#pragma once
#include <hps/Cuboid.h>

namespace HPS
{

// A ball; negative radius means there is none.
struct SimpleSphere {
    Point center;
    float radius = -1;

    constexpr SimpleSphere() = default;
    constexpr SimpleSphere(Point const& centerIn, float radiusIn) : center(centerIn), radius(radiusIn) {}
    // The ball around a box.
    explicit SimpleSphere(SimpleCuboid const& box)
        : center(box.Center()), radius(static_cast<float>(box.Diagonal() / 2))
    {
    }

    constexpr bool IsValid() const { return radius >= 0; }
    constexpr SimpleCuboid Box() const
    {
        Vector const r(radius, radius, radius);
        return IsValid() ? SimpleCuboid(center - r, center + r) : SimpleCuboid();
    }
    friend constexpr bool operator==(SimpleSphere const&, SimpleSphere const&) = default;
};

} // namespace HPS
