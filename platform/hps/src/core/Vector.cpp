#include <cmath>
#include <hps/Vector.h>

namespace HPS
{

double Vector::Length() const
{
    return std::hypot(static_cast<double>(x), static_cast<double>(y), static_cast<double>(z));
}

Vector& Vector::Normalize()
{
    if (auto const length = Length(); length > 0)
        *this = {static_cast<float>(x / length), static_cast<float>(y / length),
                 static_cast<float>(z / length)};
    return *this;
}

} // namespace HPS
