#include "subscriptions.h"
#include <algorithm>
#include <cassert>
#include <cmath>
#include <hps/MatrixKit.h>
#include <numbers>

namespace HPS
{
namespace
{

using Matrix = std::array<double, 16>;

double cofactor(Matrix const& m, std::size_t row, std::size_t column)
{
    std::array<double, 9> minor{};
    std::size_t n = 0;
    for (std::size_t r = 0; r < 4; ++r)
        for (std::size_t c = 0; c < 4; ++c)
            if (r != row && c != column) minor[n++] = m[r * 4 + c];
    auto const determinant = minor[0] * (minor[4] * minor[8] - minor[5] * minor[7]) -
                             minor[1] * (minor[3] * minor[8] - minor[5] * minor[6]) +
                             minor[2] * (minor[3] * minor[7] - minor[4] * minor[6]);
    return (row + column) % 2 ? -determinant : determinant;
}

Matrix widen(std::array<float, 16> const& m)
{
    Matrix wide{};
    std::copy(m.begin(), m.end(), wide.begin());
    return wide;
}

} // namespace

MatrixKit::MatrixKit(float const elements[16])
{
    SetElements(16, elements);
}

MatrixKit& MatrixKit::SetElements(std::vector<float> const& elements)
{
    return SetElements(elements.size(), elements.data());
}

MatrixKit& MatrixKit::SetElements(std::size_t count, float const elements[])
{
    if (count > m_.size())
        scene::raiseError("Matrix elements refused: there are 16 of them");
    else
        std::copy_n(elements, count, m_.begin());
    return *this;
}

MatrixKit& MatrixKit::SetElement(std::size_t index, float value)
{
    if (index < m_.size())
        m_[index] = value;
    else
        scene::raiseError("Matrix element refused: the last one is number 15");
    return *this;
}

bool MatrixKit::ShowElements(std::vector<float>& elements) const
{
    elements.assign(m_.begin(), m_.end());
    return true;
}

void MatrixKit::ShowElements(float elements[16]) const
{
    std::copy(m_.begin(), m_.end(), elements);
}

bool MatrixKit::ShowElement(std::size_t index, float& value) const
{
    if (index >= m_.size()) return false;
    value = m_[index];
    return true;
}

MatrixKit& MatrixKit::UnsetEverything()
{
    return *this = {};
}

MatrixKit& MatrixKit::Translate(double x, double y, double z)
{
    MatrixKit step;
    step.m_[12] = static_cast<float>(x);
    step.m_[13] = static_cast<float>(y);
    step.m_[14] = static_cast<float>(z);
    return Concatenate(step);
}

MatrixKit& MatrixKit::Rotate(double x, double y, double z)
{
    if (x != 0) RotateOffAxis(Vector::XAxis(), x);
    if (y != 0) RotateOffAxis(Vector::YAxis(), y);
    if (z != 0) RotateOffAxis(Vector::ZAxis(), z);
    return *this;
}

// Rodrigues' formula, transposed for row vectors.
MatrixKit& MatrixKit::RotateOffAxis(Vector const& axis, double degrees)
{
    auto const length = axis.Length();
    if (length == 0) return *this;
    double const x = axis.x / length, y = axis.y / length, z = axis.z / length;
    // Quarter turns stay exact.
    auto const turn = std::remainder(degrees, 360.0);
    double const c = std::abs(turn) == 90    ? 0
                     : std::abs(turn) == 180 ? -1
                                             : std::cos(turn * std::numbers::pi / 180);
    double const s = std::abs(turn) == 180  ? 0
                     : std::abs(turn) == 90 ? std::copysign(1.0, turn)
                                            : std::sin(turn * std::numbers::pi / 180);
    double const t = 1 - c;
    MatrixKit step;
    double const rows[3][3] = {{t * x * x + c, t * x * y + s * z, t * x * z - s * y},
                               {t * x * y - s * z, t * y * y + c, t * y * z + s * x},
                               {t * x * z + s * y, t * y * z - s * x, t * z * z + c}};
    for (std::size_t r = 0; r < 3; ++r)
        for (std::size_t k = 0; k < 3; ++k) step.m_[r * 4 + k] = static_cast<float>(rows[r][k]);
    return Concatenate(step);
}

MatrixKit& MatrixKit::Scale(double x, double y, double z)
{
    MatrixKit step;
    step.m_[0] = static_cast<float>(x);
    step.m_[5] = static_cast<float>(y);
    step.m_[10] = static_cast<float>(z);
    return Concatenate(step);
}

MatrixKit& MatrixKit::Concatenate(MatrixKit const& after)
{
    std::array<float, 16> product;
    for (std::size_t r = 0; r < 4; ++r)
        for (std::size_t c = 0; c < 4; ++c)
            product[r * 4 + c] = m_[r * 4] * after.m_[c] + m_[r * 4 + 1] * after.m_[4 + c] +
                                 m_[r * 4 + 2] * after.m_[8 + c] + m_[r * 4 + 3] * after.m_[12 + c];
    m_ = product;
    return *this;
}

double MatrixKit::ShowDeterminant() const
{
    auto const m = widen(m_);
    double sum = 0;
    for (std::size_t c = 0; c < 4; ++c) sum += m[c] * cofactor(m, 0, c);
    return sum;
}

bool MatrixKit::ShowInverse(MatrixKit& out) const
{
    auto const determinant = ShowDeterminant();
    if (determinant == 0 || !std::isfinite(determinant)) return false;
    auto const m = widen(m_);
    MatrixKit inverse;
    for (std::size_t r = 0; r < 4; ++r)
        for (std::size_t c = 0; c < 4; ++c)
            inverse.m_[r * 4 + c] = static_cast<float>(cofactor(m, c, r) / determinant);
    if (!inverse.IsFinite()) return false;
    out = inverse;
    return true;
}

MatrixKit& MatrixKit::Invert()
{
    ShowInverse(*this);
    return *this;
}

Point MatrixKit::Transform(Point const& p) const
{
    auto const component = [&](std::size_t c) {
        return p.x * m_[c] + p.y * m_[4 + c] + p.z * m_[8 + c] + m_[12 + c];
    };
    auto const w = component(3);
    if (w == 1 || w == 0) return {component(0), component(1), component(2)};
    return {component(0) / w, component(1) / w, component(2) / w};
}

std::vector<Point> MatrixKit::Transform(std::vector<Point> const& points) const
{
    std::vector<Point> moved(points.size());
    std::transform(points.begin(), points.end(), moved.begin(),
                   [this](Point const& p) { return Transform(p); });
    return moved;
}

Vector MatrixKit::Transform(Vector const& v) const
{
    auto const component = [&](std::size_t c) { return v.x * m_[c] + v.y * m_[4 + c] + v.z * m_[8 + c]; };
    return {component(0), component(1), component(2)};
}

bool MatrixKit::IsIdentity() const
{
    return *this == MatrixKit();
}

bool MatrixKit::IsFinite() const
{
    return std::all_of(m_.begin(), m_.end(), [](float e) { return std::isfinite(e); });
}

} // namespace HPS
