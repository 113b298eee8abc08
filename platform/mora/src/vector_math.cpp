#include <cmath>
#include <mora/vector_math.h>
#include <numbers>

namespace ZELVizCore
{

void Add(float const* a, float const* b, float* result)
{
    for (int i = 0; i < 3; ++i) result[i] = a[i] + b[i];
}

void Subtract(float const* a, float const* b, float* result)
{
    for (int i = 0; i < 3; ++i) result[i] = a[i] - b[i];
}

void Multiply(float const* a, double factor, float* result)
{
    for (int i = 0; i < 3; ++i) result[i] = static_cast<float>(a[i] * factor);
}

float DotProduct(float const* a, float const* b)
{
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

float Length(float const* a)
{
    return std::hypot(a[0], a[1], a[2]);
}

void RotatePoint(float const* point, double degrees, float const* center, float const* axis, float* result)
{
    // In double, so that a model far from the origin doesn't jitter while it is turned.
    double const length = std::hypot(double(axis[0]), double(axis[1]), double(axis[2]));
    double const k[3] = {length > 0 ? axis[0] / length : 0, length > 0 ? axis[1] / length : 0,
                         length > 0 ? axis[2] / length : 0};
    double const angle = length > 0 ? degrees * std::numbers::pi / 180 : 0;
    double const c = std::cos(angle);
    double const s = std::sin(angle);
    double const v[3] = {double(point[0]) - center[0], double(point[1]) - center[1],
                         double(point[2]) - center[2]};
    double const cross[3] = {k[1] * v[2] - k[2] * v[1], k[2] * v[0] - k[0] * v[2], k[0] * v[1] - k[1] * v[0]};
    double const along = (k[0] * v[0] + k[1] * v[1] + k[2] * v[2]) * (1 - c);
    for (int i = 0; i < 3; ++i)
        result[i] = static_cast<float>(center[i] + v[i] * c + cross[i] * s + k[i] * along);
}

} // namespace ZELVizCore
