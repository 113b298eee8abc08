#pragma once
#include "linear.h"
#include <algorithm>
#include <hps/MatrixKit.h>

namespace HPS::render
{

/// The matrix in double precision, in which products of many keep their places.
inline Mat4 wide(MatrixKit const& matrix)
{
    Mat4 result;
    std::copy_n(matrix.Data(), 16, result.begin());
    return result;
}

} // namespace HPS::render
