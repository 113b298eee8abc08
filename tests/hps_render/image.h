// A picture and what tests ask of it.
#pragma once
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <ostream>
#include <vector>

namespace HPS::render
{

struct Pixel {
    int red = 0, green = 0, blue = 0, alpha = 255;
    friend bool operator==(Pixel const&, Pixel const&) = default;
    friend std::ostream& operator<<(std::ostream& out, Pixel const& p)
    {
        return out << '(' << p.red << ' ' << p.green << ' ' << p.blue << ' ' << p.alpha << ')';
    }
};

struct Image {
    int width = 0, height = 0;
    std::vector<std::uint8_t> bytes;

    Pixel at(int x, int y) const
    {
        std::uint8_t const* p = &bytes[(std::size_t(y) * std::size_t(width) + std::size_t(x)) * 4];
        return {p[0], p[1], p[2], p[3]};
    }
};

/// The largest difference of a channel between `a`, and `b` seen in a mirror that swaps left and right if
/// asked.
inline int difference(Image const& a, Image const& b, bool mirrored = false)
{
    int worst = 0;
    for (int y = 0; y < a.height; ++y)
        for (int x = 0; x < a.width; ++x) {
            Pixel const p = a.at(x, y), q = b.at(mirrored ? b.width - 1 - x : x, y);
            worst = std::max(
                {worst, std::abs(p.red - q.red), std::abs(p.green - q.green), std::abs(p.blue - q.blue)});
        }
    return worst;
}

} // namespace HPS::render
