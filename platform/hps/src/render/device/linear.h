// Small linear algebra of the renderer.
//
// Vectors are rows: a point goes through a matrix as p·M, the translation stands in elements 12 to 14, and a
// product reads from left to right in the order in which the matrices act.
#pragma once
#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace HPS::render
{

struct Vec3 {
    double x = 0, y = 0, z = 0;

    friend Vec3 operator+(Vec3 const& a, Vec3 const& b) { return {a.x + b.x, a.y + b.y, a.z + b.z}; }
    friend Vec3 operator-(Vec3 const& a, Vec3 const& b) { return {a.x - b.x, a.y - b.y, a.z - b.z}; }
    friend Vec3 operator*(Vec3 const& a, double s) { return {a.x * s, a.y * s, a.z * s}; }
    friend bool operator==(Vec3 const&, Vec3 const&) = default;
};

/// From a point or a vector of whatever precision, and back.
template <class Triple> Vec3 vec(Triple const& t)
{
    return {t.x, t.y, t.z};
}
template <class Triple> Triple as(Vec3 const& v)
{
    return Triple(float(v.x), float(v.y), float(v.z));
}

inline double dot(Vec3 const& a, Vec3 const& b)
{
    return a.x * b.x + a.y * b.y + a.z * b.z;
}
inline Vec3 cross(Vec3 const& a, Vec3 const& b)
{
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}
inline double length(Vec3 const& a)
{
    return std::sqrt(dot(a, a));
}

/// `a` at length 1, or `otherwise` where `a` has no direction.
inline Vec3 normalised(Vec3 const& a, Vec3 const& otherwise)
{
    double const l = length(a);
    return l > 0 && std::isfinite(l) ? a * (1 / l) : otherwise;
}

using Mat4 = std::array<double, 16>;

inline constexpr Mat4 identity{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};

/// First `a`, then `b`.
inline Mat4 operator*(Mat4 const& a, Mat4 const& b)
{
    Mat4 product{};
    for (int row = 0; row < 4; ++row)
        for (int column = 0; column < 4; ++column)
            for (int k = 0; k < 4; ++k) product[row * 4 + column] += a[row * 4 + k] * b[k * 4 + column];
    return product;
}

/// The affine part of `m` only.
inline Vec3 transformPoint(Vec3 const& p, Mat4 const& m)
{
    return {p.x * m[0] + p.y * m[4] + p.z * m[8] + m[12], p.x * m[1] + p.y * m[5] + p.z * m[9] + m[13],
            p.x * m[2] + p.y * m[6] + p.z * m[10] + m[14]};
}

/// Of the upper left 3 x 3 part; negative for a mirroring matrix.
inline double determinant3(Mat4 const& m)
{
    return dot({m[0], m[1], m[2]}, cross({m[4], m[5], m[6]}, {m[8], m[9], m[10]}));
}

/// An axis-aligned box, empty when made.
struct Box {
    std::array<float, 3> low{std::numeric_limits<float>::max(), std::numeric_limits<float>::max(),
                             std::numeric_limits<float>::max()};
    std::array<float, 3> high{std::numeric_limits<float>::lowest(), std::numeric_limits<float>::lowest(),
                              std::numeric_limits<float>::lowest()};

    bool empty() const { return low[0] > high[0]; }
    /// False for a box that is empty, or reaches so far that single precision has no room for products.
    bool drawable() const
    {
        constexpr float limit = 1e15f;
        for (std::size_t i = 0; i < 3; ++i) // a comparison with what is no number is false
            if (!(low[i] >= -limit && low[i] <= high[i] && high[i] <= limit)) return false;
        return true;
    }
    bool contains(Vec3 const& p) const
    {
        return p.x >= low[0] && p.x <= high[0] && p.y >= low[1] && p.y <= high[1] && p.z >= low[2] &&
               p.z <= high[2];
    }
    void add(float x, float y, float z)
    {
        low = {std::min(low[0], x), std::min(low[1], y), std::min(low[2], z)};
        high = {std::max(high[0], x), std::max(high[1], y), std::max(high[2], z)};
    }
    void add(Box const& other)
    {
        for (int i = 0; i < 3; ++i) {
            low[i] = std::min(low[i], other.low[i]);
            high[i] = std::max(high[i], other.high[i]);
        }
    }
    Vec3 centre() const
    {
        return {0.5 * (double(low[0]) + high[0]), 0.5 * (double(low[1]) + high[1]),
                0.5 * (double(low[2]) + high[2])};
    }
    Vec3 corner(int index) const
    {
        return {(index & 1) != 0 ? high[0] : low[0], (index & 2) != 0 ? high[1] : low[1],
                (index & 4) != 0 ? high[2] : low[2]};
    }
    double diagonal() const
    {
        return empty()
                   ? 0
                   : length({double(high[0]) - low[0], double(high[1]) - low[1], double(high[2]) - low[2]});
    }
};

/// The box around the image of `box` under an affine matrix.
inline Box transformed(Box const& box, Mat4 const& m)
{
    Box image;
    if (box.empty()) return image;
    for (int out = 0; out < 3; ++out) {
        double low = m[12 + out], high = low;
        for (int in = 0; in < 3; ++in) {
            double const a = box.low[in] * m[in * 4 + out], b = box.high[in] * m[in * 4 + out];
            low += std::min(a, b);
            high += std::max(a, b);
        }
        image.low[out] = float(low);
        image.high[out] = float(high);
    }
    return image;
}

} // namespace HPS::render
