#include "TestRenderer.h"
#include "scene_dump.h"

#include <functional>
#include <gtest/gtest.h>

namespace ZelVizBase
{
namespace
{

class ColorSegmentTest : public testing::Test
{
protected:
    TestRenderer Renderer;
    HPS::SegmentKey Root = HPS::Database::CreateRootSegment();

    ~ColorSegmentTest() override { Root.Delete(); }

    static HPS::RGBAColor faceColor(HPS::SegmentKey const& segment)
    {
        HPS::Material::Type type{};
        HPS::MaterialKit material;
        float index = 0;
        HPS::RGBAColor color;
        segment.GetMaterialMappingControl().ShowFrontFaceMaterial(type, material, index);
        material.ShowDiffuseColor(color);
        return color;
    }
};

TEST_F(ColorSegmentTest, NamesColorsAndOverrides)
{
    double const rgba[] = {1.0, 0.5, 0.0, 1.0};
    auto const only = [](auto set) {
        HPS::VisibilityKit kit;
        kit.SetEverything(false);
        set(kit);
        return kit;
    };
    HPS::VisibilityKit const faces = only([](auto& kit) { kit.SetFaces(true); });
    HPS::VisibilityKit const lines = only([](auto& kit) { kit.SetLines(true); });
    HPS::VisibilityKit const markers = only([](auto& kit) { kit.SetMarkers(true); });
    HPS::VisibilityKit const none = only([](auto&) {});
    struct Case {
        HPS::SegmentKey Segment;
        char const* Name;
        HPS::VisibilityKit Override;
    };
    Case const cases[] = {
        {Renderer.getBodyColorSegment(Root, 255, 0, 0, 255), "b25500255", faces},
        {Renderer.getFaceColorSegment(Root, 255, 0, 0, 255), "f25500255", faces},
        {Renderer.getEdgeColorSegment(Root, 1, 2, 3, 4), "e1234", lines},
        {Renderer.getVertexColorSegment(Root, 0, 0, 0, 0), "v0000", markers},
        {Renderer.getFaceMaterialSegment(Root, 7), "Fa_7", faces},
        {Renderer.getColorSegment(Root, "face", rgba), "f100500100", faces},
        {Renderer.getColorSegment(Root, "edge", rgba), "e100500100", lines},
        {Renderer.getColorSegment(Root, "vertex", rgba), "v100500100", markers},
        {Renderer.getColorSegment(Root, "surface", rgba), "100500100", none},
    };
    for (Case const& made : cases) {
        EXPECT_EQ(made.Segment.Name().Str(), made.Name);
        HPS::VisibilityKit override;
        ASSERT_TRUE(made.Segment.GetDrawingAttributeControl().ShowOverrideInternalColor(override))
            << made.Name;
        EXPECT_TRUE(override == made.Override) << made.Name;
    }
    EXPECT_EQ(faceColor(cases[1].Segment), HPS::RGBAColor(1, 0, 0, 1));
    EXPECT_EQ(faceColor(cases[5].Segment), HPS::RGBAColor(1, 0.5F, 0, 1));
    HPS::MaterialMappingKit mapping;
    EXPECT_FALSE(cases[8].Segment.ShowMaterialMapping(mapping));
    EXPECT_EQ(Root.GetSubsegmentCount(), std::size(cases));
}

TEST_F(ColorSegmentTest, MaterialSegmentsPointIntoThePalette)
{
    HPS::Material::Type type{};
    HPS::MaterialKit material;
    float index = 0;
    HPS::SegmentKey const segment = Renderer.getFaceMaterialSegment(Root, 7);
    ASSERT_TRUE(segment.GetMaterialMappingControl().ShowFrontFaceMaterial(type, material, index));
    EXPECT_EQ(type, HPS::Material::Type::MaterialIndex);
    EXPECT_EQ(index, 7.0F);
}

TEST_F(ColorSegmentTest, FoundAgainTheyKeepTheirFirstColor)
{
    HPS::SegmentKey const first = Renderer.getFaceColorSegment(Root, 1, 11, 0, 255);
    HPS::SegmentKey const alike = Renderer.getFaceColorSegment(Root, 11, 1, 0, 255);
    EXPECT_EQ(first, alike);
    EXPECT_EQ(faceColor(first), HPS::RGBAColor(1 / 255.0F, 11 / 255.0F, 0, 1));
    EXPECT_EQ(Renderer.getNoColorSegment(Root), Renderer.getNoColorSegment(Root));
    EXPECT_EQ(Renderer.getPIDSegment(Root, 18446744073709551615ULL),
              Renderer.getPIDSegment(Root, 18446744073709551615ULL));
    EXPECT_EQ(dump(Root), "-\n  f1110255\n  nocolor\n  18446744073709551615\n");
}

TEST(FontNameTest, UsableNamesStayOthersFallBack)
{
    struct Case {
        std::wstring Text;
        std::wstring Font;
        char const* Expected;
    };
    Case const cases[] = {
        {L"x", L"Arial", "Arial"},          {L"x", L"Arial.ttf", "Arial.ttf"},
        {L"x", L"Arial.PFB", "Arial.PFB"},  {L"x", L"Arial.xyz", "MRISO1.otf"},
        {L"x", L"Arial.Ttf", "MRISO1.otf"}, {L"x", L".ttf", "MRISO1.otf"},
        {L"x", L"a.b.ttf", "MRISO1.otf"},   {L"x", L"Arial.", "MRISO1.otf"},
        {L"x", L"", "MRISO1.otf"},          {L"\u2293", L"", "SEGUISYM.ttf"},
        {L"\u25FA", L".", "SEGUISYM.ttf"},  {L"\u2A4B", L"", "SEGUISYM.ttf"},
        {L"\u2322", L"", "ARIALUNI.ttf"},   {L"\u2323", L"", "ARIALUNI.ttf"},
        {L"\u2293", L"Arial", "Arial"},     {L"\u2293\u2293", L"", "MRISO1.otf"},
    };
    TestRenderer const renderer;
    for (Case const& wanted : cases) {
        HPS::UTF8 name;
        renderer.prepareFontName(wanted.Text, wanted.Font, name);
        EXPECT_STREQ(name.GetBytes(), wanted.Expected) << HPS::UTF8(wanted.Font).GetBytes();
    }
}

TEST(MarkerGlyphTest, OneOfEachRowAndUnknownNumbers)
{
    std::pair<int, char const*> const glyphs[] = {{1, "times"},
                                                  {31, "times"},
                                                  {2, "plus"},
                                                  {3, "circle with circle"},
                                                  {4, "circle with dot"},
                                                  {36, "circle"},
                                                  {2008, "box"},
                                                  {22, "Box"},
                                                  {7, "splat"},
                                                  {8, "dot"},
                                                  {2013, "triangle up"},
                                                  {25, "solid triangle up"},
                                                  {2010, "triangle down"},
                                                  {2012, "solid triangle down"},
                                                  {20, "solid circle"},
                                                  {21, "circle with times"},
                                                  {34, "solid box"},
                                                  {35, "diamond"},
                                                  {2003, "slant right"},
                                                  {2004, "slant left"},
                                                  {0, "dot"},
                                                  {-5, "dot"},
                                                  {99, "dot"}};
    TestRenderer const renderer;
    for (auto const& [style, glyph] : glyphs)
        EXPECT_EQ(renderer.mapMarkerStyleToGlyphName(static_cast<NarMetaVisu::VisuMarkerStyle>(style)), glyph)
            << style;
}

} // namespace
} // namespace ZelVizBase
