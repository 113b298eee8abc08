#pragma once

#include <cstddef>
#include <vector>

namespace NarMetaVisu
{

enum class ImagePixelFormat {
    Unknown = 0,
    RGB = 1,
    RGBA = 2,
    BGR = 3,
    BGRA = 4,
    ColourIndex = 5,
    Red = 6,
    Green = 7,
    Blue = 8,
    Alpha = 9,
    Luminance = 10,
    CompressedRGB = 11,
    CompressedRGBA = 12,
    CompressedIndex = 13
};

enum class ImagePixelDataType {
    Unknown = 0,
    Byte = 1,
    Float = 2,
    UnsignedByte = 3,
    Bitmap = 4,
    Short = 5,
    UnsignedShort = 6,
    Int = 7,
    UnsignedInt = 8,
    Fixed = 9
};

/// Pixels in memory, the largest level first, rows without padding.
class TextureImage
{
public:
    TextureImage(unsigned width, unsigned height, ImagePixelFormat format,
                 ImagePixelDataType type = ImagePixelDataType::UnsignedByte)
        : width_(width), height_(height), format_(format), type_(type)
    {
    }

    unsigned GetWidth() const { return width_; }
    unsigned GetHeight() const { return height_; }
    ImagePixelFormat GetPixelFormat() const { return format_; }
    ImagePixelDataType GetPixelDataType() const { return type_; }

    void AddMipmap(std::vector<unsigned char> bytes) { mipmaps_.push_back(std::move(bytes)); }
    unsigned GetMipmapsCount() const { return static_cast<unsigned>(mipmaps_.size()); }
    /// The bytes stay with the image. False for a level that is not there.
    bool GetMipmap(unsigned level, unsigned char const*& data, std::size_t& size) const;

private:
    unsigned width_;
    unsigned height_;
    ImagePixelFormat format_;
    ImagePixelDataType type_;
    std::vector<std::vector<unsigned char>> mipmaps_;
};

} // namespace NarMetaVisu
