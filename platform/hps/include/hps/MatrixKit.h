#pragma once
#include <array>
#include <cstddef>
#include <hps/Point.h>
#include <vector>

namespace HPS
{

// A 4 x 4 matrix, row by row, for row vectors: p' = p M. The translation stands in elements 12, 13, 14.
// Each of Translate, Rotate, Scale and Concatenate acts after what the matrix did before: M becomes M X.
class MatrixKit
{
public:
    // The identity.
    MatrixKit() = default;
    explicit MatrixKit(float const elements[16]);

    // From element 0 on. More than 16, or an index above 15, are refused.
    MatrixKit& SetElements(std::vector<float> const& elements);
    MatrixKit& SetElements(std::size_t count, float const elements[]);
    MatrixKit& SetElement(std::size_t index, float value);
    bool ShowElements(std::vector<float>& elements) const;
    void ShowElements(float elements[16]) const;
    bool ShowElement(std::size_t index, float& value) const;
    MatrixKit& UnsetEverything(); // back to the identity

    MatrixKit& Translate(double x, double y, double z);
    // Degrees, right-handed, about the x axis first, then y, then z.
    MatrixKit& Rotate(double x, double y, double z);
    MatrixKit& RotateOffAxis(Vector const& axis, double degrees);
    MatrixKit& Scale(double x, double y, double z);
    MatrixKit& Concatenate(MatrixKit const& after);
    MatrixKit& Multiply(MatrixKit const& after) { return Concatenate(after); }

    // False, leaving `out` as it is, if the matrix has no inverse.
    bool ShowInverse(MatrixKit& out) const;
    MatrixKit& Invert(); // the matrix stays as it is if it has none
    double ShowDeterminant() const;

    // Divides by w where the matrix is a projection.
    Point Transform(Point const& p) const;
    std::vector<Point> Transform(std::vector<Point> const& points) const;
    Vector Transform(Vector const& v) const;

    bool IsIdentity() const;
    // True for a matrix that turns right-handed into left-handed.
    bool IsMirrored() const { return ShowDeterminant() < 0; }
    bool IsFinite() const;

    float const* Data() const { return m_.data(); }
    friend MatrixKit operator*(MatrixKit left, MatrixKit const& right) { return left.Concatenate(right); }
    friend bool operator==(MatrixKit const&, MatrixKit const&) = default;

private:
    std::array<float, 16> m_{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};
};

} // namespace HPS
