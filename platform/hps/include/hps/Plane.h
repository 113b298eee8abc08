#pragma once

namespace HPS
{

// The points with a x + b y + c z + d = 0; (a, b, c) is the normal.
template <class F> struct Plane_3D {
    F a = 0;
    F b = 0;
    F c = 0;
    F d = 0;

    constexpr Plane_3D() = default;
    constexpr Plane_3D(F aIn, F bIn, F cIn, F dIn) : a(aIn), b(bIn), c(cIn), d(dIn) {}
    friend constexpr bool operator==(Plane_3D const&, Plane_3D const&) = default;
};

using Plane = Plane_3D<float>;

} // namespace HPS
