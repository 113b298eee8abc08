#include "texture_images.h"

#include <QBuffer>
#include <QFile>
#include <QImageReader>

namespace NarMetaInfra
{
namespace
{
using NarMetaVisu::ImagePixelFormat;
using NarMetaVisu::TextureImage;

constexpr qint64 MostPixels = qint64{1} << 26;
constexpr qint64 LargestImage = qint64{1} << 28; // bytes
} // namespace

QByteArray imageBytes(std::filesystem::path const& path, qint64 offset, qint64 length)
{
    std::error_code error;
    if (!std::filesystem::is_regular_file(path, error))
        return {}; // opening a pipe would wait for its other end
    QFile file(QFile::decodeName(path.c_str()));
    if (!file.open(QIODevice::ReadOnly) || !file.seek(offset)) return {};
    if (length == 0) length = file.size();
    return length > LargestImage ? QByteArray() : file.read(length);
}

std::shared_ptr<TextureImage> decodeImage(QByteArray const& encoded)
{
    QBuffer buffer;
    buffer.setData(encoded);
    QImageReader reader(&buffer);
    auto const size = reader.size();
    if (size.isEmpty() || qint64(size.width()) * size.height() > MostPixels) return nullptr;
    auto const image = reader.read().convertToFormat(QImage::Format_RGBA8888);
    if (image.isNull()) return nullptr;
    auto const row = std::size_t{4} * static_cast<std::size_t>(image.width());
    std::vector<unsigned char> pixels;
    pixels.reserve(row * static_cast<std::size_t>(image.height()));
    for (int y = 0; y < image.height(); ++y)
        pixels.insert(pixels.end(), image.constScanLine(y), image.constScanLine(y) + row);
    auto made = std::make_shared<TextureImage>(static_cast<unsigned>(image.width()),
                                               static_cast<unsigned>(image.height()), ImagePixelFormat::RGBA);
    made->AddMipmap(std::move(pixels));
    return made;
}

std::shared_ptr<TextureImage> withOpacity(TextureImage const& image, TextureImage const& opacity)
{
    unsigned char const *colours = nullptr, *mask = nullptr;
    std::size_t size = 0, maskSize = 0;
    if (image.GetWidth() != opacity.GetWidth() || !image.GetMipmap(0, colours, size) ||
        !opacity.GetMipmap(0, mask, maskSize) || size != maskSize)
        return nullptr;
    std::vector<unsigned char> pixels(colours, colours + size);
    for (std::size_t i = 0; i + 3 < size; i += 4) pixels[i + 3] = mask[i];
    auto made = std::make_shared<TextureImage>(image.GetWidth(), image.GetHeight(), ImagePixelFormat::RGBA);
    made->AddMipmap(std::move(pixels));
    return made;
}

std::shared_ptr<TextureImage> channelOf(TextureImage const& image, int channel, bool inverted)
{
    unsigned char const* data = nullptr;
    std::size_t size = 0;
    if (image.GetPixelFormat() != ImagePixelFormat::RGBA || !image.GetMipmap(0, data, size)) return nullptr;
    std::vector<unsigned char> grey;
    grey.reserve(size / 4);
    for (auto i = static_cast<std::size_t>(channel); i < size; i += 4)
        grey.push_back(inverted ? static_cast<unsigned char>(255 - data[i]) : data[i]);
    auto made =
        std::make_shared<TextureImage>(image.GetWidth(), image.GetHeight(), ImagePixelFormat::Luminance);
    made->AddMipmap(std::move(grey));
    return made;
}
} // namespace NarMetaInfra
