// What a text becomes before anything is drawn: fonts, glyphs and their places.
#include "TextLayout.h"
#include <cmath>
#include <filesystem>
#include <fstream>
#include <gmock/gmock.h>
#include <numeric>

using namespace HPS;
using namespace HPS::render;
namespace fs = std::filesystem;

namespace
{

double areaOf(FlatMesh const& mesh)
{
    double area = 0;
    for (std::size_t i = 0; i + 2 < mesh.indices.size(); i += 3) {
        auto const &a = mesh.corners[mesh.indices[i]], &b = mesh.corners[mesh.indices[i + 1]],
                   &c = mesh.corners[mesh.indices[i + 2]];
        area += std::abs((b.x - a.x) * (c.y - a.y) - (c.x - a.x) * (b.y - a.y)) / 2;
    }
    return area;
}

Font& dejaVu()
{
    return FontLibrary::instance().find({"DejaVu Sans", false, false});
}

TextStyle style(Text::Alignment alignment = Text::Alignment::BottomLeft)
{
    TextStyle result;
    result.font.name = "DejaVu Sans";
    result.alignment = alignment;
    return result;
}

std::vector<std::uint32_t> glyphsOf(TextLayout const& layout)
{
    std::vector<std::uint32_t> glyphs;
    for (auto const& glyph : layout.glyphs) glyphs.push_back(glyph.glyph);
    return glyphs;
}

double widthOf(char const* text, TextStyle const& with = style())
{
    return layOut(text, with).extent.width();
}

/// A font directory of this test's own.
struct Directory {
    fs::path path = fs::temp_directory_path() / ("zel_fonts_" + std::to_string(::getpid()));
    Directory() { fs::create_directories(path); }
    ~Directory()
    {
        FontLibrary::instance().setDirectories({});
        fs::remove_all(path);
    }
    void use() const { FontLibrary::instance().setDirectories({path.string()}); }
};

TEST(Glyphs, HaveHoles)
{
    Font& font = dejaVu();
    auto const area = [&](char const* text) {
        TextLayout const layout = layOut(text, style());
        return areaOf(font.mesh(layout.glyphs.at(0).glyph, Font::Weight::Own, Font::Detail::Fine));
    };
    EXPECT_LT(area("O"), 0.3); // the whole ellipse would have 0.44
    EXPECT_GT(area("O"), 0.1);
    EXPECT_EQ(area(" "), 0);
    EXPECT_LT(area("i"), area("I") + 0.02);
}

TEST(Glyphs, FineOutlinesHaveMoreCornersAndTheSameArea)
{
    Font& font = dejaVu();
    std::uint32_t const glyph = layOut("S", style()).glyphs.at(0).glyph;
    auto const& coarse = font.mesh(glyph, Font::Weight::Own, Font::Detail::Coarse);
    auto const& fine = font.mesh(glyph, Font::Weight::Own, Font::Detail::Fine);
    EXPECT_GT(fine.corners.size(), coarse.corners.size() * 3 / 2);
    EXPECT_NEAR(areaOf(fine), areaOf(coarse), 0.01);
    EXPECT_GT(areaOf(font.mesh(glyph, Font::Weight::Emboldened, Font::Detail::Fine)), areaOf(fine) * 1.15);
}

TEST(Glyphs, OfEveryFontCanBeMade)
{
    for (char const* family : {"DejaVu Sans", "DejaVu Serif", "Symbola"}) {
        Font& font = FontLibrary::instance().find({family, false, false});
        double area = 0;
        for (std::uint32_t glyph = 0; glyph < 3000; ++glyph) {
            FlatMesh const& mesh = font.mesh(glyph, Font::Weight::Own, Font::Detail::Coarse);
            for (std::uint32_t index : mesh.indices) ASSERT_LT(index, mesh.corners.size());
            area += areaOf(mesh);
        }
        EXPECT_GT(area, 100) << family;
    }
}

TEST(Layout, WidthIsTheSumOfAdvancesWithKerning)
{
    EXPECT_NEAR(widthOf("nn"), 2 * widthOf("n"), 1e-6);
    EXPECT_LT(widthOf("AV"), widthOf("A") + widthOf("V") - 0.02);
    TextStyle wide = style();
    wide.spacing = 2;
    EXPECT_NEAR(widthOf("nnn", wide), 2 * widthOf("nnn"), 1e-6);
    TextStyle spaced = style();
    spaced.extraSpace = 0.5;
    EXPECT_NEAR(widthOf("nnn", spaced), widthOf("nnn") + 2 * 0.5, 1e-6);
    TextStyle narrow = style();
    narrow.widthScale = 0.5;
    EXPECT_NEAR(widthOf("nnn", narrow), widthOf("nnn") / 2, 1e-6);
}

TEST(Layout, LigaturesAndJoinedLettersAreOneGlyphOrOthers)
{
    EXPECT_EQ(layOut("fi", style()).glyphs.size(), 1u);
    auto const alone = glyphsOf(layOut("\u0628", style()));
    auto const joined = glyphsOf(layOut("\u0628\u0628\u0628", style()));
    ASSERT_EQ(joined.size(), 3u);
    EXPECT_NE(joined[0], alone.at(0)); // final, medial, initial from left to right
    EXPECT_NE(joined[1], joined[0]);
    EXPECT_NE(joined[2], joined[1]);
}

TEST(Layout, HebrewRunsFromTheRightWithinLatin)
{
    auto const mixed = glyphsOf(layOut("a\u05D0\u05D1b", style()));
    auto const parts = [](char const* text) { return glyphsOf(layOut(text, style())).at(0); };
    EXPECT_THAT(mixed, testing::ElementsAre(parts("a"), parts("\u05D1"), parts("\u05D0"), parts("b")));
    // Numbers keep their order within it.
    auto const numbers = glyphsOf(layOut("\u05D0 12", style()));
    EXPECT_THAT(numbers, testing::ElementsAre(parts("1"), parts("2"), parts(" "), parts("\u05D0")));
}

TEST(Layout, DrawingSymbolsComeFromAnotherFont)
{
    for (char const* symbol : {"\u2316", "\u23E5", "\u232D", "\u24C2", "\u24C1", "\u2334", "\u21A7", "\u2300",
                               "\u2313", "\u2312", "\u25B1", "\u2332", "\u2293", "\u25FA", "\u2322"}) {
        TextLayout const layout = layOut(symbol, style());
        ASSERT_EQ(layout.glyphs.size(), 1u) << symbol;
        EXPECT_NE(layout.glyphs[0].glyph, Font::boxGlyph) << symbol;
        EXPECT_GT(areaOf(layout.glyphs[0].font->mesh(layout.glyphs[0].glyph, Font::Weight::Own,
                                                     Font::Detail::Coarse)),
                  0.01)
            << symbol;
    }
}

TEST(Layout, WhatNoFontHasIsABox)
{
    TextLayout const layout = layOut("a\U000F1234b", style());
    ASSERT_EQ(layout.glyphs.size(), 3u);
    EXPECT_EQ(layout.glyphs[1].glyph, Font::boxGlyph);
    EXPECT_NEAR(layout.extent.width(), widthOf("a") + widthOf("b") + Font::boxAdvance, 1e-5);
    EXPECT_GT(areaOf(dejaVu().mesh(Font::boxGlyph, Font::Weight::Own, Font::Detail::Coarse)), 0.05);
}

TEST(Layout, BadTextDoesNoHarm)
{
    for (std::string const& text :
         {std::string("\xFF\xFE\x80", 3), std::string("\xF0\x9F", 2), std::string("\0a", 2),
          std::string("\u202E\u202E\u0301\u200D"), std::string(100'000, 'x')})
        EXPECT_TRUE(std::isfinite(layOut(text, style()).extent.width()));
    EXPECT_TRUE(layOut("", style()).glyphs.empty());
}

struct AlignmentCase {
    Text::Alignment alignment;
    double across, up; // share of the text's width to the left of its position, of its height below
};

class Alignments : public testing::TestWithParam<AlignmentCase>
{
};

TEST_P(Alignments, PutThePositionOnThatPlaceOfTheText)
{
    TextStyle const with = style(GetParam().alignment);
    FontMetrics const& metrics = dejaVu().metrics();
    TextLayout const layout = layOut("three\nlines here\nof text", with);
    Extent const& e = layout.extent;
    EXPECT_NEAR(-e.left, GetParam().across * e.width(), 1e-5);
    // From the last baseline to the capitals of the first line.
    double const bottom = e.bottom - metrics.descender;
    double const top = e.top - metrics.ascender + metrics.capHeight;
    EXPECT_NEAR(-bottom, GetParam().up * (top - bottom), 1e-5);
    EXPECT_NEAR(top - bottom, 2 * metrics.lineHeight + metrics.capHeight, 1e-5);
}

using enum Text::Alignment;
INSTANTIATE_TEST_SUITE_P(All, Alignments,
                         testing::Values(AlignmentCase{TopLeft, 0, 1}, AlignmentCase{CenterLeft, 0, 0.5},
                                         AlignmentCase{BottomLeft, 0, 0}, AlignmentCase{TopCenter, 0.5, 1},
                                         AlignmentCase{Center, 0.5, 0.5}, AlignmentCase{BottomCenter, 0.5, 0},
                                         AlignmentCase{TopRight, 1, 1}, AlignmentCase{CenterRight, 1, 0.5},
                                         AlignmentCase{BottomRight, 1, 0}));

TEST(Layout, JustificationMovesShortLinesWithinTheBlock)
{
    for (auto const& [justification, share] :
         {std::pair{Text::Justification::Left, 0.0}, std::pair{Text::Justification::Center, 0.5},
          std::pair{Text::Justification::Right, 1.0}}) {
        TextStyle with = style();
        with.justification = justification;
        TextLayout const layout = layOut("n\nnnnnn", with);
        EXPECT_NEAR(layout.lines.at(0).corners[0].x, share * (widthOf("nnnnn") - widthOf("n")), 1e-5);
        EXPECT_NEAR(layout.lines.at(1).corners[0].x, 0, 1e-5);
    }
}

TEST(Layout, FollowsAPathOrStepsAlongIt)
{
    TextStyle up = style();
    up.pathX = 0;
    up.pathY = 3;
    up.rotation = Text::Rotation::FollowPath;
    TextLayout const turned = layOut("nnnn", up);
    EXPECT_NEAR(turned.extent.height(), widthOf("nnnn"), 1e-5);
    EXPECT_NEAR(turned.glyphs[0].place.b, 1, 1e-9); // lies on its side

    up.rotation = Text::Rotation::None;
    TextLayout const stacked = layOut("nnnn", up);
    EXPECT_NEAR(stacked.extent.width(), widthOf("n"), 1e-5);
    EXPECT_NEAR(stacked.glyphs[0].place.b, 0, 1e-9);
    EXPECT_NEAR(stacked.glyphs[1].place.f - stacked.glyphs[0].place.f, dejaVu().metrics().lineHeight, 1e-5);

    TextStyle rotated = style();
    rotated.rotation = Text::Rotation::Rotate;
    rotated.angle = 90;
    TextLayout const letters = layOut("nn", rotated);
    EXPECT_NEAR(letters.glyphs[1].place.b, 1, 1e-9);
    EXPECT_NEAR(letters.glyphs[1].place.f, letters.glyphs[0].place.f, 1e-9);
}

TEST(Layout, RulesRunAlongEachLine)
{
    TextStyle with = style();
    with.underline = with.overline = with.strikethrough = true;
    TextLayout const layout = layOut("one\ntwo", with);
    ASSERT_EQ(layout.bars.size(), 6u);
    EXPECT_NEAR(layout.bars[0].corners[1].x, widthOf("one"), 1e-5);
    TextLayout const single = layOut("one", with);
    EXPECT_LT(single.bars[0].corners[2].y, 0); // below the baseline
    EXPECT_GT(single.bars[1].corners[0].y, 0.1);
    EXPECT_GT(single.bars[2].corners[0].y, 0.7);
}

TEST(Fonts, AreFoundByFileInWhateverSpelling)
{
    fs::path const original = dejaVu().file();
    Directory const fonts;
    fs::create_directories(fonts.path / "below");
    fs::copy_file(original, fonts.path / "below" / "MyFace.TTF");
    fonts.use();
    for (char const* name : {"MyFace.TTF", "myface.ttf", "MYFACE", "/elsewhere/myface"})
        EXPECT_EQ(fs::path(FontLibrary::instance().find({name, false, false}).file()).filename(),
                  "MyFace.TTF")
            << name;
    EXPECT_TRUE(FontLibrary::instance().takeWarnings().empty());
}

TEST(Fonts, ThatAreMissingOrDamagedAreReplacedWithOneWarningEach)
{
    std::string const original = dejaVu().file();
    Directory const fonts;
    std::ofstream(fonts.path / "empty.ttf").close();
    std::ofstream(fonts.path / "noise.otf") << std::string(5000, 'z');
    {
        std::ifstream in(original, std::ios::binary);
        std::string half(60'000, '\0');
        in.read(half.data(), std::streamsize(half.size()));
        for (std::size_t i = 300; i < half.size(); i += 7) half[i] = char(half[i] ^ 0x5A);
        std::ofstream(fonts.path / "half.ttf", std::ios::binary) << half;
    }
    fonts.use();
    FontLibrary::instance().takeWarnings();
    for (char const* name : {"empty.ttf", "noise.otf", "half.ttf", "no such font"}) {
        TextStyle with = style();
        with.font.name = name;
        TextLayout const layout = layOut("Text", with);
        EXPECT_EQ(layout.glyphs.size(), 4u) << name;
        for (auto const& g : layout.glyphs) g.font->mesh(g.glyph, g.weight, Font::Detail::Coarse);
        auto const warnings = FontLibrary::instance().takeWarnings();
        if (std::string_view(name) != "half.ttf") { // some of it may be of use
            EXPECT_THAT(warnings, testing::Contains(testing::HasSubstr(name))) << name;
        }
        layOut("Text", with);
        EXPECT_TRUE(FontLibrary::instance().takeWarnings().empty()) << name;
    }
}

TEST(Fonts, OfTypeOneAndOfCollectionsServeToo)
{
    for (char const* family : {"Nimbus Sans", "C059", "Droid Sans Fallback"}) {
        Font& font = FontLibrary::instance().find({family, false, false});
        auto const warnings = FontLibrary::instance().takeWarnings();
        if (!warnings.empty()) continue; // not installed here
        TextStyle with = style();
        with.font.name = family;
        TextLayout const layout = layOut("Ag", with);
        EXPECT_GT(layout.extent.width(), 0.5) << font.file();
        EXPECT_LT(layout.extent.width(), 2) << font.file();
    }
}

} // namespace
