#pragma once
#include <array>
#include <cstdint>
#include <hps/Point.h>
#include <span>
#include <vector>

class GLUtesselator;

namespace HPS::render
{

/// A corner that no input point stands for: two edges of a face cross there.
struct BlendedPoint {
    Point at;
    std::array<std::uint32_t, 4> sources; ///< input points; those that count for nothing repeat the first
    std::array<float, 4> weights;
};

/// Cuts faces into triangles. Fans where a face allows it; a tessellator with the odd rule for concave faces,
/// faces with holes and faces that cross themselves.
class Triangulator
{
public:
    Triangulator();
    ~Triangulator();
    Triangulator(Triangulator const&) = delete;
    Triangulator& operator=(Triangulator const&) = delete;

    /// A facelist: for each face the number of its corners and that many point indices. A negative number
    /// makes that many corners a hole of the face before. Faces of fewer than three corners give nothing;
    /// what follows the first fault (an index or a number out of range, a coordinate that is no number) is
    /// left out. False if there was a fault.
    bool run(std::span<Point const> points, std::span<int const> facelist);

    /// Three corners a triangle; valid, as all results, until the next `run`. An index of `points.size() + i`
    /// means `blended()[i]`.
    std::span<std::uint32_t const> triangles() const { return triangles_; }
    std::span<BlendedPoint const> blended() const { return blended_; }
    /// For each triangle the face that it is part of, counted without the holes.
    std::span<std::uint32_t const> faces() const { return faces_; }

private:
    void addFace(std::span<int const> corners, std::span<int const> holes);
    bool addFan(std::span<int const> corners, std::array<double, 3> const& normal);
    void tessellate(std::span<int const> corners, std::span<int const> holes,
                    std::array<double, 3> const& normal);
    friend struct TessellatorCalls;

    std::span<Point const> points_;
    std::vector<std::uint32_t> triangles_;
    std::vector<std::uint32_t> faces_;
    std::vector<BlendedPoint> blended_;
    std::uint32_t face_ = 0;
    GLUtesselator* tessellator_ = nullptr; ///< made when first needed; ours
};

} // namespace HPS::render
