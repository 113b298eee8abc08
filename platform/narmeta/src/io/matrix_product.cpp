#include "matrix_product.h"

namespace NarMetaInfra
{
Matrix combined(Matrix const& first, Matrix const& second)
{
    Matrix made{};
    for (std::size_t row = 0; row < 4; ++row)
        for (std::size_t column = 0; column < 4; ++column)
            for (std::size_t k = 0; k < 4; ++k)
                made[4 * row + column] += first[4 * row + k] * second[4 * k + column];
    return made;
}
} // namespace NarMetaInfra
