#include "support.h"
#include <filesystem>
#include <fstream>
#include <hps/IOException.h>

using namespace HPS;
using Image::Format;
using testing::HasSubstr;

namespace
{

constexpr unsigned int width = 9, height = 6; // no multiple of a block's four

// Colours that every format can tell apart, and alpha that is none, half and full.
ImageKit picture(bool withAlpha)
{
    ByteArray pixels;
    for (unsigned int y = 0; y < height; ++y)
        for (unsigned int x = 0; x < width; ++x) {
            pixels.insert(pixels.end(), {byte(x < 4 ? 255 : 0), byte(y < 4 ? 255 : 0), byte(255)});
            if (withAlpha) pixels.push_back(x < 4 ? 255 : 128);
        }
    return ImageKit()
        .SetSize(width, height)
        .SetFormat(withAlpha ? Format::RGBA : Format::RGB)
        .SetData(std::move(pixels));
}

ByteArray bytesOf(ImageKit const& kit)
{
    ByteArray bytes;
    kit.ShowData(bytes);
    return bytes;
}

// The largest difference between two pictures, byte by byte.
int difference(ImageKit const& a, ImageKit const& b)
{
    auto const left = bytesOf(a), right = bytesOf(b);
    if (left.size() != right.size()) return 256;
    int largest = 0;
    for (std::size_t i = 0; i < left.size(); ++i) largest = std::max(largest, std::abs(left[i] - right[i]));
    return largest;
}

struct RoundTrip {
    Format format;
    bool keepsAlpha;
    int tolerance;
};
class ImageFormats : public testing::TestWithParam<RoundTrip>
{
};

TEST_P(ImageFormats, GoThereAndBack)
{
    auto const [format, keepsAlpha, tolerance] = GetParam();
    for (bool const withAlpha : {false, true}) {
        auto const original = picture(withAlpha);
        auto kit = original;
        kit.SetCompressionQuality(1);
        ASSERT_TRUE(kit.Convert(format));
        Format now{};
        unsigned int w = 0, h = 0;
        ASSERT_TRUE(kit.ShowFormat(now) && kit.ShowSize(w, h));
        EXPECT_EQ(now, format);
        EXPECT_EQ(w, width);
        EXPECT_EQ(h, height);
        bool const alpha = withAlpha && keepsAlpha;
        ASSERT_TRUE(kit.Convert(alpha ? Format::RGBA : Format::RGB));
        auto expected = original;
        ASSERT_TRUE(expected.Convert(alpha ? Format::RGBA : Format::RGB));
        EXPECT_LE(difference(kit, expected), tolerance);
    }
}
INSTANTIATE_TEST_SUITE_P(All, ImageFormats,
                         testing::Values(RoundTrip{Format::RGB, false, 0}, RoundTrip{Format::RGBA, true, 0},
                                         RoundTrip{Format::ARGB, true, 0},
                                         RoundTrip{Format::Mapped8, false, 0},
                                         RoundTrip{Format::Bmp, false, 0}, RoundTrip{Format::Png, true, 0},
                                         RoundTrip{Format::Targa, true, 0},
                                         RoundTrip{Format::Jpeg, false, 40},
                                         RoundTrip{Format::DXT1, false, 8}, RoundTrip{Format::DXT3, true, 9},
                                         RoundTrip{Format::DXT5, true, 8}));

TEST(ImageKit, GreyIsAsBrightAsTheColor)
{
    auto kit = ImageKit().SetSize(3, 1).SetFormat(Format::RGB).SetData({255, 255, 255, 0, 255, 0, 0, 0, 0});
    ASSERT_TRUE(kit.Convert(Format::Grayscale));
    EXPECT_EQ(bytesOf(kit), (ByteArray{255, 150, 0}));
    ASSERT_TRUE(kit.Convert(Format::Png));
    ASSERT_TRUE(kit.Convert(Format::ARGB));
    EXPECT_EQ(bytesOf(kit), (ByteArray{255, 255, 255, 255, 255, 150, 150, 150, 255, 0, 0, 0}));
}

TEST(ImageKit, RefusesWhatDoesNotFitTogether)
{
    EXPECT_FALSE(ImageKit().Convert(Format::Png));
    auto const good = picture(false);
    for (auto kit : {ImageKit(good).SetSize(width, height + 1), ImageKit(good).SetSize(0, 0),
                     ImageKit(good).SetSize(1u << 31, 1u << 31), ImageKit(good).SetFormat(Format::Png),
                     ImageKit(good).SetFormat(Format::DXT5), ImageKit(good).UnsetData()}) {
        auto const before = kit;
        EXPECT_FALSE(kit.Convert(Format::RGBA));
        EXPECT_EQ(kit, before);
    }
}

class ImageFiles : public testing::Test
{
protected:
    std::filesystem::path const folder =
        std::filesystem::temp_directory_path() /
        ("hps_image_" + std::string(testing::UnitTest::GetInstance()->current_test_info()->name()));
    ImageFiles() { std::filesystem::create_directories(folder); }
    ~ImageFiles() override { std::filesystem::remove_all(folder); }

    UTF8 path(char const* name) const { return UTF8((folder / name).string()); }
    static std::string causeOf(UTF8 const& file, Image::ImportOptionsKit const& options = {})
    {
        try {
            Image::File::Import(file, options);
        } catch (IOException const& error) {
            return error.what();
        }
        return "imported";
    }
    void write(char const* name, ByteArray const& bytes) const
    {
        std::ofstream(folder / name, std::ios::binary)
            .write(reinterpret_cast<char const*>(bytes.data()), std::streamsize(bytes.size()));
    }
};

TEST_F(ImageFiles, ComeBackAsTheyWere)
{
    for (auto const format : {Format::Png, Format::Bmp, Format::Targa}) {
        auto kit = picture(format != Format::Bmp);
        auto const original = kit;
        ASSERT_TRUE(kit.Convert(format));
        Image::File::Export(path("picture"), kit);
        EXPECT_EQ(Image::File::Import(path("picture"), Image::ImportOptionsKit().SetFormat(format)),
                  original);
        EXPECT_EQ(Image::File::Import(path("picture")), original) << "the file itself tells";
    }
    Image::File::Export(path("plain"), picture(true));
    EXPECT_EQ(Image::File::Import(path("plain"), Image::ImportOptionsKit().SetFormat(Format::Png)),
              picture(true));
}

TEST_F(ImageFiles, ThatAreNoneHaveACause)
{
    auto png = picture(true);
    ASSERT_TRUE(png.Convert(Format::Png));
    auto const whole = bytesOf(png);
    auto const asPng = Image::ImportOptionsKit().SetFormat(Format::Png);
    EXPECT_THAT(causeOf(""), HasSubstr("no file name"));
    EXPECT_THAT(causeOf(path("none.png")), HasSubstr("No such file"));
    EXPECT_THAT(causeOf(UTF8(folder.string())), HasSubstr("not imported"));
    write("empty", {});
    EXPECT_THAT(causeOf(path("empty"), asPng), HasSubstr("no data"));
    write("whole", whole);
    EXPECT_THAT(causeOf(path("whole"), Image::ImportOptionsKit().SetFormat(Format::Jpeg)),
                HasSubstr("not of the format"));
    EXPECT_THAT(causeOf(path("whole"), Image::ImportOptionsKit().SetFormat(Format::RGB)), HasSubstr("only"));
    for (std::size_t length = 1; length < whole.size() - 12; ++length) { // all but the end mark
        write("cut", ByteArray(whole.begin(), whole.begin() + std::ptrdiff_t(length)));
        EXPECT_THAT(causeOf(path("cut"), asPng), HasSubstr("not imported")) << length;
    }
    auto huge = whole; // a header that promises 2^24 by 2^24 pixels
    huge[16] = huge[20] = 1;
    write("huge", huge);
    EXPECT_THAT(causeOf(path("huge"), asPng), HasSubstr("not imported"));
    for (unsigned int i = 0; i < 300; ++i) { // nothing may crash, whatever the bytes are
        auto noisy = whole;
        noisy[8 + i * 7919 % (noisy.size() - 8)] ^= byte(1 + i % 255);
        write("noisy", noisy);
        causeOf(path("noisy"), asPng);
    }
    EXPECT_THROW(Image::File::Export(path("no/folder/x"), picture(false)), IOException);
    EXPECT_THROW(Image::File::Export("", picture(false)), IOException);
    EXPECT_THROW(Image::File::Export(path("x"), ImageKit()), IOException);
}

} // namespace
