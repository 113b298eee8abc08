#pragma once

namespace HPS
{

// A rectangle by its sides; bottom below top.
template <class T> struct Rectangle_2D {
    T left = 0;
    T right = 0;
    T bottom = 0;
    T top = 0;

    constexpr Rectangle_2D() = default;
    constexpr Rectangle_2D(T leftIn, T rightIn, T bottomIn, T topIn)
        : left(leftIn), right(rightIn), bottom(bottomIn), top(topIn)
    {
    }
    constexpr T Width() const { return right - left; }
    constexpr T Height() const { return top - bottom; }
    friend constexpr bool operator==(Rectangle_2D const&, Rectangle_2D const&) = default;
};

using Rectangle = Rectangle_2D<float>;
using IntRectangle = Rectangle_2D<int>;

} // namespace HPS
