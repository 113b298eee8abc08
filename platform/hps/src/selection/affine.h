// What the selection needs of matrices beyond what the renderer does.
#pragma once
#include "wide.h"
#include <optional>

namespace HPS::selection
{

using render::Box;
using render::Mat4;
using render::operator*;
using render::wide;
using render::Vec3;

template <class T> Vec3 wide(T const& p)
{
    return {p.x, p.y, p.z};
}

inline Vec3 transformDirection(Vec3 const& v, Mat4 const& m)
{
    return {v.x * m[0] + v.y * m[4] + v.z * m[8], v.x * m[1] + v.y * m[5] + v.z * m[9],
            v.x * m[2] + v.y * m[6] + v.z * m[10]};
}

/// Of the affine part; nothing for a matrix that flattens space.
inline std::optional<Mat4> inverseOf(Mat4 const& m)
{
    double const determinant = render::determinant3(m);
    if (!(std::abs(determinant) > 0) || !std::isfinite(determinant)) return std::nullopt;
    Vec3 const x{m[0], m[1], m[2]}, y{m[4], m[5], m[6]}, z{m[8], m[9], m[10]}, t{m[12], m[13], m[14]};
    double const s = 1 / determinant;
    Vec3 const a = cross(y, z) * s, b = cross(z, x) * s, c = cross(x, y) * s; // columns
    return Mat4{a.x, b.x, c.x, 0, a.y, b.y, c.y, 0, a.z, b.z, c.z, 0, -dot(t, a), -dot(t, b), -dot(t, c), 1};
}

/// Somewhat larger, so that no rounding on the way to it leaves anything of its contents outside.
inline Box loosened(Box box)
{
    constexpr float share = 1e-6f;
    for (std::size_t i = 0; i < 3 && !box.empty(); ++i) {
        float const by = share * std::max(std::abs(box.low[i]), std::abs(box.high[i]));
        box.low[i] -= by;
        box.high[i] += by;
    }
    return box;
}

} // namespace HPS::selection
