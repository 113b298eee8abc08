#pragma once

namespace ZELVizCore
{

/// Vectors and points are three floats x, y, z. `result` may be one of the operands.
void Add(float const* a, float const* b, float* result);
void Subtract(float const* a, float const* b, float* result);
void Multiply(float const* a, double factor, float* result);
float DotProduct(float const* a, float const* b);
float Length(float const* a);

/// Turns `point` by `degrees` about the line through `center` along `axis`, right-handed: an axis that looks
/// at the viewer turns counterclockwise. An axis of length 0 turns nothing. Rodrigues' rotation formula.
void RotatePoint(float const* point, double degrees, float const* center, float const* axis, float* result);

} // namespace ZELVizCore
