#include "Texels.h"
#include <algorithm>
#include <cmath>

namespace HPS::render
{

bool Texels::translucent() const
{
    for (std::size_t i = 3; i < rgba.size(); i += 4)
        if (rgba[i] < 255) return true;
    return false;
}

bool Texels::holdsNormals() const
{
    constexpr std::size_t enough = 4096; // pixels that are looked at
    std::size_t const count = rgba.size() / 4, step = std::max<std::size_t>(1, count / enough);
    std::size_t looked = 0, fitting = 0;
    for (std::size_t i = 0; i < count; i += step, ++looked) {
        auto component = [&](std::size_t c) { return rgba[4 * i + c] / 127.5 - 1; };
        double const length = std::hypot(component(0), component(1), component(2));
        if (std::abs(length - 1) < 0.15 && component(2) > 0) ++fitting;
    }
    return looked > 0 && fitting * 10 >= looked * 9;
}

std::optional<Texels> texelsOf(ImageKit const& image)
{
    ImageKit pixels = image;
    if (!pixels.Convert(Image::Format::RGBA)) return std::nullopt;
    Texels texels;
    pixels.ShowSize(texels.width, texels.height);
    pixels.ShowData(texels.rgba);
    return texels;
}

Texels placeholderTexels()
{
    constexpr unsigned side = 16, square = 4;
    Texels texels{side, side, {}};
    for (unsigned y = 0; y < side; ++y)
        for (unsigned x = 0; x < side; ++x) {
            bool const dark = ((x / square) + (y / square)) % 2 != 0;
            if (dark)
                texels.rgba.insert(texels.rgba.end(), {40, 40, 40, 255});
            else
                texels.rgba.insert(texels.rgba.end(), {255, 0, 255, 255});
        }
    return texels;
}

void shrink(Texels& texels, unsigned side)
{
    while (std::max(texels.width, texels.height) > std::max(side, 1u)) {
        Texels half{std::max(texels.width / 2, 1u), std::max(texels.height / 2, 1u), {}};
        half.rgba.resize(std::size_t(4) * half.width * half.height);
        auto at = [&](unsigned x, unsigned y, unsigned c) {
            x = std::min(x, texels.width - 1), y = std::min(y, texels.height - 1);
            return unsigned(texels.rgba[4 * (std::size_t(y) * texels.width + x) + c]);
        };
        std::size_t out = 0;
        for (unsigned y = 0; y < half.height; ++y)
            for (unsigned x = 0; x < half.width; ++x)
                for (unsigned c = 0; c < 4; ++c)
                    half.rgba[out++] =
                        std::uint8_t((at(2 * x, 2 * y, c) + at(2 * x + 1, 2 * y, c) +
                                      at(2 * x, 2 * y + 1, c) + at(2 * x + 1, 2 * y + 1, c) + 2) /
                                     4);
        texels = std::move(half);
    }
}

Texels squared(Texels const& texels, unsigned side)
{
    if (texels.width == side && texels.height == side) return texels;
    Texels square{side, side, {}};
    square.rgba.reserve(std::size_t(4) * side * side);
    for (unsigned y = 0; y < side; ++y)
        for (unsigned x = 0; x < side; ++x) {
            std::size_t const row = std::size_t(y) * texels.height / side;
            auto const* const pixel =
                &texels.rgba[4 * (row * texels.width + std::size_t(x) * texels.width / side)];
            square.rgba.insert(square.rgba.end(), pixel, pixel + 4);
        }
    return square;
}

void turnUpsideDown(Texels& texels)
{
    std::size_t const row = std::size_t(4) * texels.width;
    for (std::size_t top = 0, bottom = texels.height; top + 1 < bottom; ++top) {
        --bottom;
        std::swap_ranges(texels.rgba.begin() + std::ptrdiff_t(top * row),
                         texels.rgba.begin() + std::ptrdiff_t((top + 1) * row),
                         texels.rgba.begin() + std::ptrdiff_t(bottom * row));
    }
}

} // namespace HPS::render
