// The only place that sees the library of image files.
#include "image_codec.h"
#include <algorithm>
#include <array>
#include <limits>
#include <memory>
#include <stb_image.h>
#include <stb_image_write.h>

namespace HPS::scene
{
namespace
{

void append(void* bytes, void* data, int count)
{
    auto const* const first = static_cast<byte const*>(data);
    static_cast<ByteArray*>(bytes)->insert(static_cast<ByteArray*>(bytes)->end(), first, first + count);
}

bool startsWith(std::span<byte const> file, std::string_view magic)
{
    return file.size() >= magic.size() &&
           std::equal(magic.begin(), magic.end(), file.begin(),
                      [](char a, byte b) { return static_cast<byte>(a) == b; });
}

} // namespace

Image::Format formatOf(std::span<byte const> file)
{
    if (startsWith(file, "\x89PNG")) return Image::Format::Png;
    if (startsWith(file, "\xFF\xD8")) return Image::Format::Jpeg;
    if (startsWith(file, "BM")) return Image::Format::Bmp;
    return Image::Format::Targa;
}

bool decodeFile(std::span<byte const> file, Raster& raster, std::string& cause)
{
    if (file.size() > static_cast<std::size_t>(std::numeric_limits<int>::max())) {
        cause = "the file is larger than 2 GiB";
        return false;
    }
    auto const size = static_cast<int>(file.size());
    int width = 0, height = 0, channels = 0;
    // The sizes first: a few bytes may promise a picture that no memory holds.
    bool known = stbi_info_from_memory(file.data(), size, &width, &height, &channels) != 0;
    if (known &&
        (width < 1 || height < 1 || width > int(largestImageSide) || height > int(largestImageSide))) {
        cause = "the picture has " + std::to_string(width) + " by " + std::to_string(height) + " pixels";
        return false;
    }
    std::unique_ptr<stbi_uc, decltype(&stbi_image_free)> const pixels(
        known ? stbi_load_from_memory(file.data(), size, &width, &height, &channels, 0) : nullptr,
        stbi_image_free);
    if (!pixels) {
        auto const* const reason = stbi_failure_reason();
        cause = reason ? reason : "no picture that can be read";
        return false;
    }
    raster.width = static_cast<unsigned int>(width);
    raster.height = static_cast<unsigned int>(height);
    raster.channels = static_cast<unsigned int>(channels);
    raster.pixels.assign(pixels.get(),
                         pixels.get() + std::size_t(raster.width) * raster.height * raster.channels);
    return true;
}

ByteArray encodeFile(Raster const& raster, Image::Format format, float quality)
{
    ByteArray file;
    if (raster.pixels.empty()) return file;
    auto const width = static_cast<int>(raster.width), height = static_cast<int>(raster.height);
    auto const channels = static_cast<int>(raster.channels);
    auto const* const pixels = raster.pixels.data();
    bool done = false;
    if (format == Image::Format::Png)
        done = stbi_write_png_to_func(append, &file, width, height, channels, pixels, 0);
    else if (format == Image::Format::Jpeg)
        done = stbi_write_jpg_to_func(append, &file, width, height, channels, pixels,
                                      std::clamp(static_cast<int>(quality * 100), 1, 100));
    else if (format == Image::Format::Bmp)
        done = stbi_write_bmp_to_func(append, &file, width, height, channels, pixels);
    else if (format == Image::Format::Targa)
        done = stbi_write_tga_to_func(append, &file, width, height, channels, pixels);
    if (!done) file.clear();
    return file;
}

} // namespace HPS::scene
