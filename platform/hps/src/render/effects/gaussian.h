// Weights of blurs.
#pragma once
#include <cmath>
#include <vector>

namespace HPS::render
{

/// A tap of a blur along one axis: how far from the pixel, in pixels, and how much it counts.
struct BlurTap {
    float offset, weight;
};

/// One half of a bell curve's weights with the middle first; the other half is its mirror image. Taps lie
/// between two pixels where the texture's own interpolation weighs them right, so that one look serves two.
/// `deviation` in pixels, from 0; weights of both halves together, the middle once, are 1.
inline std::vector<BlurTap> gaussianTaps(double deviation)
{
    if (!(deviation > 0.05)) return {{0, 1}};
    int const reach = int(std::ceil(3 * deviation));
    std::vector<double> weight(std::size_t(reach) + 2, 0.0);
    double sum = 0;
    for (int i = 0; i <= reach; ++i) {
        weight[std::size_t(i)] = std::exp(-0.5 * i * i / (deviation * deviation));
        sum += weight[std::size_t(i)] * (i == 0 ? 1 : 2);
    }
    std::vector<BlurTap> taps{{0, float(weight[0] / sum)}};
    for (int i = 1; i <= reach; i += 2) {
        double const a = weight[std::size_t(i)], b = weight[std::size_t(i) + 1];
        taps.push_back({float(i + b / (a + b)), float((a + b) / sum)});
    }
    return taps;
}

} // namespace HPS::render
