#include "block_codec.h"
#include <array>
#include <cerrno>
#include <cmath>
#include <cstring>
#include <fstream>
#include <hps/IOException.h>

namespace HPS
{
using namespace scene;

namespace
{

using Format = Image::Format;
using Pixel = std::array<byte, 4>; // RGBA

byte grey(Pixel const& p)
{
    // Rec. 601 luma.
    return static_cast<byte>((299 * p[0] + 587 * p[1] + 114 * p[2] + 500) / 1000);
}

std::size_t bytesPerPixel(Format format)
{
    switch (format) {
    case Format::RGB:
        return 3;
    case Format::RGBA:
    case Format::ARGB:
        return 4;
    case Format::Mapped8:
    case Format::Grayscale:
        return 1;
    case Format::Bmp:
    case Format::Jpeg:
    case Format::Png:
    case Format::Targa:
    case Format::DXT1:
    case Format::DXT3:
    case Format::DXT5:
        break;
    }
    return 0;
}

Pixel readPixel(byte const* from, Format format)
{
    if (format == Format::RGBA) return {from[0], from[1], from[2], from[3]};
    if (format == Format::ARGB) return {from[1], from[2], from[3], from[0]};
    if (format == Format::RGB) return {from[0], from[1], from[2], 255};
    if (format == Format::Grayscale) return {from[0], from[0], from[0], 255};
    auto const level = [](int value, int top) { return static_cast<byte>(value * 255 / top); };
    return {level(from[0] >> 5, 7), level(from[0] >> 2 & 7, 7), level(from[0] & 3, 3), 255};
}

void writePixel(Pixel const& p, Format format, byte* to)
{
    if (format == Format::Grayscale) {
        to[0] = grey(p);
    } else if (format == Format::Mapped8) {
        auto const level = [](byte value, int top) { return (value * top + 127) / 255; };
        to[0] = static_cast<byte>(level(p[0], 7) << 5 | level(p[1], 7) << 2 | level(p[2], 3));
    } else if (format == Format::ARGB) {
        to[0] = p[3];
        std::memcpy(to + 1, p.data(), 3);
    } else {
        std::memcpy(to, p.data(), bytesPerPixel(format));
    }
}

ByteArray repacked(std::span<byte const> pixels, Format from, Format to)
{
    auto const step = bytesPerPixel(from), stride = bytesPerPixel(to);
    auto const count = pixels.size() / step;
    ByteArray packed(count * stride);
    for (std::size_t i = 0; i < count; ++i)
        writePixel(readPixel(&pixels[i * step], from), to, &packed[i * stride]);
    return packed;
}

// What a kit shows, as one of the pixel formats; false if its bytes are not what it says.
bool readPixels(ImageData const& data, Raster& raster, Format& format, std::string& cause)
{
    cause = "the image has no data";
    if (!data.bytes || data.bytes->empty()) return false;
    format = data.format.value_or(Format::RGB);
    auto const [width, height] = data.size.value_or(std::tuple{0u, 0u});
    if (isFile(format)) {
        if (formatOf(*data.bytes) != format) {
            cause = "the data is not of the format it is said to be";
            return false;
        }
        if (!decodeFile(*data.bytes, raster, cause)) return false;
        if (raster.channels == 2) { // grey with alpha
            Raster wide{raster.width, raster.height, 4, {}};
            wide.pixels.reserve(raster.pixels.size() * 2);
            for (std::size_t i = 0; i < raster.pixels.size(); i += 2)
                wide.pixels.insert(wide.pixels.end(), {raster.pixels[i], raster.pixels[i], raster.pixels[i],
                                                       raster.pixels[i + 1]});
            raster = std::move(wide);
        }
        format = raster.channels == 1 ? Format::Grayscale : raster.channels == 3 ? Format::RGB : Format::RGBA;
        return true;
    }
    cause = "the data does not fit the size of the image";
    if (width < 1 || height < 1 || width > largestImageSide || height > largestImageSide) return false;
    if (isBlocks(format)) {
        if (!decodeBlocks(*data.bytes, format, width, height, raster)) return false;
        format = Format::RGBA;
        return true;
    }
    if (data.bytes->size() != std::size_t(width) * height * bytesPerPixel(format)) return false;
    raster = {width, height, static_cast<unsigned int>(bytesPerPixel(format)), *data.bytes};
    return true;
}

// The channels that a file keeps of what is there.
Format forFile(Format pixels, Format file)
{
    if (pixels == Format::Grayscale) return pixels;
    bool const hasAlpha = pixels == Format::RGBA || pixels == Format::ARGB;
    return hasAlpha && file != Format::Jpeg ? Format::RGBA : Format::RGB;
}

bool converted(ImageData& data, Format wanted, std::string& cause)
{
    Raster raster;
    Format format{};
    if (!readPixels(data, raster, format, cause)) return false;
    auto const target = isBlocks(wanted) ? Format::RGBA : isFile(wanted) ? forFile(format, wanted) : wanted;
    if (target != format) raster.pixels = repacked(raster.pixels, format, target);
    raster.channels = static_cast<unsigned int>(bytesPerPixel(target));
    if (isFile(wanted))
        raster.pixels = encodeFile(raster, wanted, data.compressionQuality.value_or(0.75f));
    else if (isBlocks(wanted))
        raster.pixels = encodeBlocks(raster, wanted);
    cause = "the image cannot be put into that format";
    if (raster.pixels.empty()) return false;
    data.size = std::tuple{raster.width, raster.height};
    data.bytes = std::move(raster.pixels);
    data.format = wanted;
    return true;
}

std::string reasonOf(int error)
{
    return error ? std::strerror(error) : "unknown error";
}

} // namespace

bool ImageKit::Convert(Image::Format format)
{
    bool done = false;
    std::string cause;
    edit([&](ImageData& data) { done = converted(data, format, cause); });
    return done;
}

ImageKit Image::File::Import(UTF8 const& file, ImportOptionsKit const& options)
{
    auto const fail = [&](std::string const& cause) {
        throw IOException("Image \"" + file.Str() + "\" not imported: " + cause);
    };
    if (file.Empty()) fail("no file name");
    errno = 0;
    std::ifstream in(file.Str(), std::ios::binary);
    if (!in) fail(reasonOf(errno));
    ImageData data;
    auto& bytes = data.bytes.emplace();
    for (std::array<char, 65536> piece; in;) {
        in.read(piece.data(), piece.size());
        bytes.insert(bytes.end(), piece.begin(), piece.begin() + in.gcount());
    }
    if (in.bad()) fail(reasonOf(errno));

    Format wanted = formatOf(*data.bytes);
    options.ShowFormat(wanted);
    if (!isFile(wanted)) fail("only Png, Jpeg, Bmp and Targa files can be imported");
    data.format = wanted;
    Raster raster;
    Format format{};
    if (std::string cause; !readPixels(data, raster, format, cause)) fail(cause);
    ImageKit kit;
    kit.SetSize(raster.width, raster.height).SetFormat(format).SetData(std::move(raster.pixels));
    return kit;
}

void Image::File::Export(UTF8 const& file, ImageKit const& kit)
{
    auto const fail = [&](std::string const& cause) {
        throw IOException("Image \"" + file.Str() + "\" not exported: " + cause);
    };
    if (file.Empty()) fail("no file name");
    auto data = kit.data();
    std::string cause = "the image has no data";
    bool const isReady = data.bytes && !data.bytes->empty() && data.format && isFile(*data.format);
    if (!isReady && !converted(data, Format::Png, cause)) fail(cause);
    errno = 0;
    std::ofstream out(file.Str(), std::ios::binary);
    if (!out) fail(reasonOf(errno));
    out.write(reinterpret_cast<char const*>(data.bytes->data()),
              static_cast<std::streamsize>(data.bytes->size()));
    out.close();
    if (!out) fail(reasonOf(errno));
}

} // namespace HPS
