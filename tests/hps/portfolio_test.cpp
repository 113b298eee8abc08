#include "support.h"

using namespace HPS;
using testing::ElementsAre;
using testing::IsSupersetOf;

namespace
{

class Portfolio : public Scene
{
protected:
    PortfolioKey portfolio = Database::CreatePortfolio();
    ~Portfolio() override { portfolio.Delete(); }
    ImageKit const image = ImageKit().SetSize(1, 1).SetFormat(Image::Format::RGB).SetData({1, 2, 3});
};

TEST_F(Portfolio, AValueIsFoundByItsNameAndGoesWithIt)
{
    auto definition = portfolio.DefineImage("wood", image);
    ImageDefinition other;
    ASSERT_TRUE(portfolio.ShowImageDefinition("wood", other));
    EXPECT_EQ(other, definition);
    ImageKit shown;
    ASSERT_TRUE(other.Show(shown));
    EXPECT_EQ(shown, image);
    auto const bigger = ImageKit(image).SetCompressionQuality(0.5f);
    EXPECT_TRUE(definition.Set(bigger));
    EXPECT_TRUE(other.Show(shown));
    EXPECT_EQ(shown, bigger);

    EXPECT_TRUE(portfolio.UndefineImage("wood"));
    EXPECT_FALSE(portfolio.UndefineImage("wood"));
    EXPECT_TRUE(definition.Empty());
    EXPECT_FALSE(definition.Set(image)) << "a handle does not bring back what is gone";
    EXPECT_FALSE(portfolio.ShowImageDefinition("wood", other));
    EXPECT_TRUE(portfolio.DefineImage("", image).Empty());
}

TEST_F(Portfolio, KindsAreKeptApart)
{
    portfolio.DefineGlyph("x", GlyphKit().SetRadius(3));
    portfolio.DefineShape("x", ShapeKit());
    portfolio.DefineLegacyShader("x", LegacyShaderKit().SetSource("void main() {}"));
    portfolio.DefineLinePattern("x", LinePatternKit::GetDefault());
    portfolio.DefineMaterialPalette("x", {MaterialKit()});
    portfolio.DefineNamedStyle("x", root);
    auto const texture = portfolio.DefineTexture("x", portfolio.DefineImage("x", image), {});
    EXPECT_EQ(texture.Type(), Type::TextureDefinition);
    portfolio.UndefineGlyph("x");
    GlyphDefinition glyph;
    ShapeDefinition shape;
    LegacyShaderDefinition shader;
    EXPECT_FALSE(portfolio.ShowGlyphDefinition("x", glyph));
    EXPECT_TRUE(portfolio.ShowShapeDefinition("x", shape));
    ASSERT_TRUE(portfolio.ShowLegacyShaderDefinition("x", shader));
    LegacyShaderKit kit;
    UTF8 source;
    ASSERT_TRUE(shader.Show(kit) && kit.ShowSource(source));
    EXPECT_EQ(source, "void main() {}");
    portfolio.UndefineEverything();
    EXPECT_TRUE(texture.Empty());
    EXPECT_TRUE(shader.Empty());
    EXPECT_FALSE(portfolio.Empty()) << "the portfolio itself stays";
}

TEST_F(Portfolio, ListsByName)
{
    for (auto const* name : {"b", "a", "c"}) portfolio.DefineGlyph(name, {});
    std::vector<GlyphDefinition> all;
    ASSERT_TRUE(portfolio.ShowAllGlyphDefinitions(all));
    std::vector<UTF8> names;
    for (auto const& glyph : all) names.push_back(glyph.Name());
    EXPECT_THAT(names, ElementsAre(UTF8("a"), UTF8("b"), UTF8("c")));
    std::vector<TextureDefinition> none;
    EXPECT_FALSE(portfolio.ShowAllTextureDefinitions(none));
}

TEST_F(Portfolio, ATextureShowsTheImageOfTheName)
{
    auto const definition = portfolio.DefineImage("wood", image);
    auto texture = portfolio.DefineTexture("wood", definition, TextureOptionsKit::GetDefault());
    ImageDefinition shown;
    ASSERT_TRUE(texture.ShowImage(shown));
    EXPECT_EQ(shown, definition);
    TextureOptionsKit options;
    ASSERT_TRUE(texture.ShowOptions(options));
    EXPECT_TRUE(texture.SetOptions(options.SetTiling(Material::Texture::Tiling::Trim)));
    Material::Texture::Tiling tiling{};
    ASSERT_TRUE(texture.ShowOptions(options) && options.ShowTiling(tiling));
    EXPECT_EQ(tiling, Material::Texture::Tiling::Trim);
    portfolio.UndefineImage("wood");
    EXPECT_FALSE(texture.ShowImage(shown));
    portfolio.DefineImage("wood", image);
    EXPECT_TRUE(texture.ShowImage(shown));

    auto const map = portfolio.DefineCubeMap("sky", {definition, definition}, {});
    CubeMapImages sides;
    ASSERT_TRUE(map.ShowImages(sides));
    EXPECT_FALSE(sides[1].Empty());
    EXPECT_TRUE(sides[2].Empty());
}

TEST_F(Portfolio, WhatIsInForceIsTheNearestOnThePath)
{
    auto below = root.Subsegment("a"), library = Database::CreateRootSegment();
    auto other = Database::CreatePortfolio();
    auto const far = portfolio.DefineImage("wood", image);
    root.GetPortfolioControl().Push(portfolio);
    KeyPath const path(KeyArray{below, root});
    ImageDefinition found;
    ASSERT_TRUE(path.ShowEffectiveImageDefinition("wood", found));
    EXPECT_EQ(found, far);
    auto const near = other.DefineImage("wood", image);
    below.GetPortfolioControl().Push(other);
    ASSERT_TRUE(path.ShowEffectiveImageDefinition("wood", found));
    EXPECT_EQ(found, near);
    below.GetPortfolioControl().Push(portfolio);
    ASSERT_TRUE(path.ShowEffectiveImageDefinition("wood", found));
    EXPECT_EQ(found, far) << "the last one pushed first";
    EXPECT_FALSE(path.ShowEffectiveImageDefinition("steel", found));
    portfolio.Delete();
    ASSERT_TRUE(path.ShowEffectiveImageDefinition("wood", found));
    EXPECT_EQ(found, near) << "one that is gone defines nothing";
    library.Delete();
    other.Delete();
}

TEST(LinePatterns, OfEachDefaultDiffer)
{
    std::vector<LinePatternKit> seen;
    for (unsigned i = 0; i <= unsigned(LinePattern::Default::Phantom); ++i) {
        auto const kit = LinePatternKit::GetDefault(static_cast<LinePattern::Default>(i));
        ASSERT_EQ(kit.GetParallelCount(), 1u);
        float length = 0;
        for (auto const& element : kit.parallels()[0].elements) length += element.length;
        EXPECT_EQ(i == 0, length == 0) << i;
        for (auto const& other : seen) EXPECT_FALSE(kit == other) << i;
        seen.push_back(kit);
    }
}

// What the name of a glyph promises: areas for solid ones and dots, and where its strokes reach.
struct GlyphCase {
    char const* name;
    std::size_t elements;
    bool isFilled;
};
class Glyphs : public testing::TestWithParam<GlyphCase>
{
};

TEST_P(Glyphs, AreDrawnAsTheyAreCalled)
{
    auto const [name, count, isFilled] = GetParam();
    auto const kit = GlyphKit::GetDefault(name);
    GlyphElementArray elements;
    std::uint8_t radius = 0;
    ASSERT_TRUE(kit.ShowElements(elements) && kit.ShowRadius(radius)) << name;
    EXPECT_EQ(elements.size(), count);
    for (auto const& element : elements) {
        using Kind = GlyphElement::Kind;
        bool const round = element.kind == Kind::Circle || element.kind == Kind::Disc;
        bool const area = element.kind == Kind::Polygon || element.kind == Kind::Disc;
        EXPECT_TRUE(area || !isFilled);
        EXPECT_GE(element.points.size(), round ? 1u : area ? 3u : 2u);
        EXPECT_LE(element.radius, radius);
        for (auto const point : element.points) {
            EXPECT_LE(std::abs(point.x), radius);
            EXPECT_LE(std::abs(point.y), radius);
        }
    }
}
INSTANTIATE_TEST_SUITE_P(
    BuiltIn, Glyphs,
    testing::Values(GlyphCase{"times", 2, false}, GlyphCase{"plus", 2, false},
                    GlyphCase{"circle with circle", 2, false}, GlyphCase{"circle with dot", 2, false},
                    GlyphCase{"circle", 1, false}, GlyphCase{"box", 1, false}, GlyphCase{"Box", 1, false},
                    GlyphCase{"splat", 4, false}, GlyphCase{"dot", 1, true},
                    GlyphCase{"triangle up", 1, false}, GlyphCase{"solid triangle up", 1, true},
                    GlyphCase{"triangle down", 1, false}, GlyphCase{"solid triangle down", 1, true},
                    GlyphCase{"solid circle", 1, true}, GlyphCase{"circle with times", 3, false},
                    GlyphCase{"solid box", 1, true}, GlyphCase{"diamond", 1, false},
                    GlyphCase{"slant right", 1, false}, GlyphCase{"slant left", 1, false}));

TEST(Glyphs, OfOtherNamesAreUnset)
{
    EXPECT_TRUE(GlyphKit::GetDefault("BOX").Empty());
    EXPECT_EQ(GlyphKit::GetDefaultNames().size(), 19u);
    EXPECT_FALSE(GlyphKit::GetDefault("slant left") == GlyphKit::GetDefault("slant right"));
    EXPECT_FALSE(GlyphKit::GetDefault("triangle up") == GlyphKit::GetDefault("triangle down"));
    EXPECT_FALSE(GlyphKit::GetDefault("box") == GlyphKit::GetDefault("Box"));
}

} // namespace
