#pragma once
#include <hps/Kit.h>

namespace HPS
{

namespace Image
{
// How an image's bytes are to be read. The first five are pixels, rows from the top down without gaps; the
// next four are files; the last three are blocks of four by four pixels.
enum class Format : std::uint32_t {
    RGB = 0,
    RGBA = 1,
    ARGB = 2,
    Mapped8 = 3, // a byte a pixel: three bits of red, three of green, two of blue, from the top bit down
    Grayscale = 4,
    Bmp = 5,
    Jpeg = 6,
    Png = 7,
    Targa = 8,
    DXT1 = 9,
    DXT3 = 10,
    DXT5 = 11
};
} // namespace Image

struct ImageData {
    std::optional<std::tuple<unsigned int, unsigned int>> size; // pixels
    std::optional<ByteArray> bytes;
    std::optional<Image::Format> format;
    std::optional<bool> downSampling;
    std::optional<float> compressionQuality;

    bool operator==(ImageData const&) const = default;
    static constexpr auto aspects()
    {
        return std::tuple{Aspect{1, "Size", &ImageData::size}, Aspect{2, "Data", &ImageData::bytes},
                          Aspect{3, "Format", &ImageData::format},
                          Aspect{4, "DownSampling", &ImageData::downSampling},
                          Aspect{5, "CompressionQuality", &ImageData::compressionQuality}};
    }
};
static_assert(CompleteKit<ImageData>);

template <class Self> class ImageOperations : public Operations<Self>
{
public:
    using Data = ImageData;

    Self& SetSize(unsigned int width, unsigned int height)
    {
        return detail::set<&Data::size>(this->self(), std::tuple{width, height});
    }
    Self& UnsetSize() { return detail::unset<&Data::size>(this->self()); }
    bool ShowSize(unsigned int& width, unsigned int& height) const
    {
        return detail::show<&Data::size>(this->self(), width, height);
    }
    Self& SetData(ByteArray const& bytes) { return detail::set<&Data::bytes>(this->self(), bytes); }
    Self& SetData(ByteArray&& bytes) { return detail::set<&Data::bytes>(this->self(), std::move(bytes)); }
    Self& SetData(std::size_t count, byte const bytes[])
    {
        return SetData(count ? ByteArray(bytes, bytes + count) : ByteArray());
    }
    Self& UnsetData() { return detail::unset<&Data::bytes>(this->self()); }
    bool ShowData(ByteArray& bytes) const { return detail::show<&Data::bytes>(this->self(), bytes); }
    HPS_ASPECT(Format, Image::Format, format)
    // The renderer may show the image in fewer pixels.
    HPS_ASPECT(DownSampling, bool, downSampling)
    // Of what Convert makes of it, from 0 to 1; for Jpeg.
    HPS_ASPECT(CompressionQuality, float, compressionQuality)
};

// A picture: its bytes, and how to read them.
class ImageKit : public Kit<ImageKit, ImageOperations>
{
public:
    // Puts the bytes into another format. Files take their size along; pixels need it set. What a format
    // cannot hold is lost: alpha in RGB and Jpeg, colours in Grayscale. False, changing nothing, for bytes
    // that are not what the format says, and for more than 16384 pixels in a row or a column.
    bool Convert(Image::Format format);
};

namespace Image
{

struct ImportOptionsData {
    std::optional<Format> format;
    bool operator==(ImportOptionsData const&) const = default;
    static constexpr auto aspects() { return std::tuple{Aspect{1, "Format", &ImportOptionsData::format}}; }
};
static_assert(CompleteKit<ImportOptionsData>);

template <class Self> class ImportOptionsOperations : public Operations<Self>
{
public:
    using Data = ImportOptionsData;
    HPS_ASPECT(Format, Image::Format, format)
};

// What a file is taken for; without it the file itself tells.
class ImportOptionsKit : public Kit<ImportOptionsKit, ImportOptionsOperations>
{
};

class File
{
public:
    // The picture in a file as RGBA, RGB or Grayscale pixels, whichever holds all of it. IOException if there
    // is no such file, or no such picture in it.
    static ImageKit Import(UTF8 const& file, ImportOptionsKit const& options = {});
    // Writes the kit's bytes if they are a file, and else what they are as Png. IOException if the kit has no
    // picture, or the file cannot be written.
    static void Export(UTF8 const& file, ImageKit const& kit);
};

} // namespace Image
} // namespace HPS
