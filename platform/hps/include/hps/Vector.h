#pragma once

namespace HPS
{

// A direction or displacement. It does not move with a translation.
struct Vector {
    float x = 0;
    float y = 0;
    float z = 0;

    constexpr Vector() = default;
    constexpr Vector(float xIn, float yIn, float zIn) : x(xIn), y(yIn), z(zIn) {}

    // (1, 1, 1) normalised.
    static constexpr Vector Unit() { return {0.57735027f, 0.57735027f, 0.57735027f}; }
    static constexpr Vector Zero() { return {}; }
    static constexpr Vector XAxis() { return {1, 0, 0}; }
    static constexpr Vector YAxis() { return {0, 1, 0}; }
    static constexpr Vector ZAxis() { return {0, 0, 1}; }

    constexpr float Dot(Vector const& v) const { return x * v.x + y * v.y + z * v.z; }
    constexpr Vector Cross(Vector const& v) const
    {
        return {y * v.z - z * v.y, z * v.x - x * v.z, x * v.y - y * v.x};
    }
    double Length() const;
    // To length one; the zero vector stays as it is.
    Vector& Normalize();

    constexpr Vector operator-() const { return {-x, -y, -z}; }
    friend constexpr Vector operator+(Vector const& a, Vector const& b)
    {
        return {a.x + b.x, a.y + b.y, a.z + b.z};
    }
    friend constexpr Vector operator-(Vector const& a, Vector const& b)
    {
        return {a.x - b.x, a.y - b.y, a.z - b.z};
    }
    friend constexpr Vector operator*(Vector const& a, float s) { return {a.x * s, a.y * s, a.z * s}; }
    friend constexpr bool operator==(Vector const&, Vector const&) = default;
};

} // namespace HPS
