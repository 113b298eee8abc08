#include "block_codec.h"
#include <algorithm>
#include <array>
#include <cstring>
#include <stb_dxt.h>

namespace HPS::scene
{
namespace
{

using Pixel = std::array<byte, 4>;
using Block = std::array<Pixel, 16>;

std::uint64_t readLittleEndian(byte const* bytes, int count)
{
    std::uint64_t value = 0;
    for (int i = count; i-- > 0;) value = value << 8 | bytes[i];
    return value;
}

Pixel unpacked565(unsigned int packed)
{
    auto const widened = [](unsigned int value, unsigned int bits) {
        auto const top = value << (8 - bits);
        return static_cast<byte>(top | top >> bits);
    };
    return {widened(packed >> 11, 5), widened(packed >> 5 & 63, 6), widened(packed & 31, 5), 255};
}

// `partsOfA` of `parts` of a, the rest of b.
Pixel mixed(Pixel const& a, Pixel const& b, int partsOfA, int parts)
{
    Pixel pixel{};
    for (std::size_t i = 0; i < 4; ++i)
        pixel[i] = static_cast<byte>((a[i] * partsOfA + b[i] * (parts - partsOfA)) / parts);
    return pixel;
}

void decodeColors(byte const* bytes, bool mayHaveHoles, Block& block)
{
    auto const first = static_cast<unsigned int>(readLittleEndian(bytes, 2));
    auto const second = static_cast<unsigned int>(readLittleEndian(bytes + 2, 2));
    std::array<Pixel, 4> colors{unpacked565(first), unpacked565(second)};
    if (mayHaveHoles && first <= second) {
        colors[2] = mixed(colors[0], colors[1], 1, 2);
        colors[3] = {0, 0, 0, 0};
    } else {
        colors[2] = mixed(colors[0], colors[1], 2, 3);
        colors[3] = mixed(colors[0], colors[1], 1, 3);
    }
    auto const choices = readLittleEndian(bytes + 4, 4);
    for (std::size_t i = 0; i < 16; ++i) block[i] = colors[choices >> 2 * i & 3];
}

// Alpha as 16 numbers of four bits.
void decodePlainAlpha(byte const* bytes, Block& block)
{
    auto const values = readLittleEndian(bytes, 8);
    for (std::size_t i = 0; i < 16; ++i) block[i][3] = static_cast<byte>((values >> 4 * i & 15) * 17);
}

// Alpha as two ends and 16 numbers of three bits that mix them.
void decodeMixedAlpha(byte const* bytes, Block& block)
{
    int const first = bytes[0], second = bytes[1];
    std::array<int, 8> alphas{first, second};
    int const steps = first > second ? 7 : 5;
    for (int i = 1; i < steps; ++i)
        alphas[static_cast<std::size_t>(i) + 1] = (first * (steps - i) + second * i) / steps;
    if (steps == 5) alphas[6] = 0, alphas[7] = 255;
    auto const choices = readLittleEndian(bytes + 2, 6);
    for (std::size_t i = 0; i < 16; ++i) block[i][3] = static_cast<byte>(alphas[choices >> 3 * i & 7]);
}

// Calls f(block number, x, y) for each block, x and y of its first pixel.
template <class F> void forEachBlock(unsigned int width, unsigned int height, F&& f)
{
    std::size_t number = 0;
    for (unsigned int y = 0; y < height; y += 4)
        for (unsigned int x = 0; x < width; x += 4) f(number++, x, y);
}

std::size_t blockBytes(Image::Format format)
{
    return format == Image::Format::DXT1 ? 8 : 16;
}

std::size_t blockCount(unsigned int width, unsigned int height)
{
    return std::size_t((width + 3) / 4) * ((height + 3) / 4);
}

} // namespace

bool decodeBlocks(std::span<byte const> blocks, Image::Format format, unsigned int width, unsigned int height,
                  Raster& raster)
{
    auto const step = blockBytes(format);
    if (blocks.size() != blockCount(width, height) * step) return false;
    raster = {width, height, 4, ByteArray(std::size_t(width) * height * 4)};
    forEachBlock(width, height, [&](std::size_t number, unsigned int left, unsigned int top) {
        byte const* const bytes = &blocks[number * step];
        Block block;
        decodeColors(bytes + step - 8, format == Image::Format::DXT1, block);
        if (format == Image::Format::DXT3) decodePlainAlpha(bytes, block);
        if (format == Image::Format::DXT5) decodeMixedAlpha(bytes, block);
        for (unsigned int y = top; y < std::min(top + 4, height); ++y)
            for (unsigned int x = left; x < std::min(left + 4, width); ++x)
                std::memcpy(&raster.pixels[(std::size_t(y) * width + x) * 4],
                            block[(y - top) * 4 + (x - left)].data(), 4);
    });
    return true;
}

ByteArray encodeBlocks(Raster const& raster, Image::Format format)
{
    auto const step = blockBytes(format);
    ByteArray bytes(blockCount(raster.width, raster.height) * step);
    forEachBlock(raster.width, raster.height, [&](std::size_t number, unsigned int left, unsigned int top) {
        Block block;
        for (unsigned int i = 0; i < 16; ++i) {
            auto const x = std::min(left + i % 4, raster.width - 1),
                       y = std::min(top + i / 4, raster.height - 1);
            std::memcpy(block[i].data(), &raster.pixels[(std::size_t(y) * raster.width + x) * 4], 4);
        }
        byte* const out = &bytes[number * step];
        if (format == Image::Format::DXT3)
            for (std::size_t i = 0; i < 16; ++i)
                out[i / 2] = static_cast<byte>(out[i / 2] | (block[i][3] + 8) / 17 << 4 * (i % 2));
        stb_compress_dxt_block(format == Image::Format::DXT3 ? out + 8 : out, block[0].data(),
                               format == Image::Format::DXT5, STB_DXT_HIGHQUAL);
    });
    return bytes;
}

} // namespace HPS::scene
