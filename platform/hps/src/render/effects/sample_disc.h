// Where shaders look around a point.
#pragma once
#include <array>
#include <cmath>
#include <cstddef>

namespace HPS::render
{

/// `Count` points that fill the unit disc evenly, from the rim inwards: neighbours in the row lie in
/// directions far apart, so that the first few already tell most.
template <std::size_t Count> std::array<std::array<float, 2>, Count> sampleDisc(std::size_t used = Count)
{
    constexpr double goldenAngle = 2.399963229728653;
    std::array<std::array<float, 2>, Count> points{};
    for (std::size_t i = 0; i < used && i < Count; ++i) {
        double const r = std::sqrt((double(used - i) - 0.5) / double(used));
        double const angle = goldenAngle * double(i);
        points[i] = {float(r * std::cos(angle)), float(r * std::sin(angle))};
    }
    return points;
}

} // namespace HPS::render
