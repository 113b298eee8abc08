#include "operation.h"
#include <cstdio>
#include <filesystem>
#include <hps/IOException.h>

using namespace HPS;

namespace
{

ImageKit chequer()
{
    ImageKit kit;
    kit.SetSize(2, 2).SetFormat(Image::Format::RGB);
    return kit.SetData({255, 0, 0, 0, 255, 0, 0, 0, 255, 255, 255, 255});
}

} // namespace

OperationRows portfolioOperations()
{
    return {
        {"PortfolioKey::DefineNamedStyle", "styles of a view",
         [](Bench& b) {
             auto source = Database::CreateRootSegment();
             b.portfolio.DefineNamedStyle("highlight_style", source);
             NamedStyleDefinition definition;
             ASSERT_TRUE(b.portfolio.ShowNamedStyleDefinition("highlight_style", definition));
             EXPECT_EQ(definition.GetSource(), source);
             EXPECT_FALSE(b.portfolio.ShowNamedStyleDefinition("other", definition));
             source.Delete();
             EXPECT_TRUE(definition.GetSource().Empty());
         }},
        {"PortfolioKey::DefineLinePattern", "line styles of a model",
         [](Bench& b) {
             for (std::uint32_t i = 0; i < 9; ++i)
                 b.portfolio.DefineLinePattern(std::to_string(i),
                                               LinePatternKit::GetDefault(LinePattern::Default(i)));
             std::vector<LinePatternDefinition> definitions;
             ASSERT_TRUE(b.portfolio.ShowAllLinePatternDefinitions(definitions));
             EXPECT_EQ(definitions.size(), 9u);
             LinePatternKit kit;
             EXPECT_TRUE(definitions[3].Show(kit));
             EXPECT_EQ(kit, LinePatternKit::GetDefault(LinePattern::Default(3)));
         }},
        {"PortfolioKey::DefineMaterialPalette", "materials of a model",
         [](Bench& b) {
             MaterialKitArray kits(2);
             kits[1].SetDiffuseColor(RGBAColor(1, 0, 0, 0.5f));
             b.portfolio.DefineMaterialPalette("zelpalette", kits.size(), kits.data());
             b.top.SetMaterialPalette("zelpalette");
             MaterialPaletteDefinition definition;
             MaterialKitArray shown;
             ASSERT_TRUE(b.shellPath().ShowEffectiveMaterialPaletteDefinition("zelpalette", definition) ||
                         b.portfolio.ShowMaterialPaletteDefinition("zelpalette", definition));
             ASSERT_TRUE(definition.Show(shown));
             EXPECT_EQ(shown, kits);
             UTF8 name;
             EXPECT_TRUE(b.top.ShowMaterialPalette(name));
             EXPECT_TRUE(b.portfolio.UndefineMaterialPalette("zelpalette"));
             EXPECT_FALSE(definition.Show(shown));
         }},
        {"PortfolioKey::DefineTexture", "textures of a model",
         [](Bench& b) {
             auto const image = b.portfolio.DefineImage("image", chequer());
             auto options = TextureOptionsKit::GetDefault();
             options.SetParameterizationSource(Material::Texture::Parameterization::UV);
             auto texture = b.portfolio.DefineTexture("texture", image, options);
             ImageDefinition shown;
             TextureOptionsKit shownOptions;
             ASSERT_TRUE(texture.ShowImage(shown) && texture.ShowOptions(shownOptions));
             EXPECT_EQ(shown, image);
             EXPECT_EQ(shownOptions, options);
             EXPECT_TRUE(b.portfolio.UndefineTexture("texture") && b.portfolio.UndefineImage("image"));
         }},
        {"KeyPath::ShowEffectiveImageDefinition", "scene inspector",
         [](Bench& b) {
             auto const image = b.portfolio.DefineImage("image", chequer());
             b.top.GetPortfolioControl().Push(b.portfolio);
             ImageDefinition found;
             ASSERT_TRUE(b.shellPath().ShowEffectiveImageDefinition("image", found));
             EXPECT_EQ(found, image);
             auto nearer = Database::CreatePortfolio();
             auto const second = nearer.DefineImage("image", chequer());
             b.instance.GetPortfolioControl().Push(nearer);
             ASSERT_TRUE(b.shellPath().ShowEffectiveImageDefinition("image", found));
             EXPECT_EQ(found, second);
             EXPECT_FALSE(b.shellPath().ShowEffectiveImageDefinition("other", found));
             nearer.Delete();
         }},
        {"ImageKit::Convert", "textures of a model",
         [](Bench&) {
             for (auto const format : {Image::Format::Png, Image::Format::Bmp, Image::Format::Targa}) {
                 auto kit = chequer();
                 ASSERT_TRUE(kit.Convert(format) && kit.Convert(Image::Format::RGB));
                 EXPECT_EQ(kit, chequer()) << static_cast<int>(format);
             }
             auto kit = chequer();
             EXPECT_TRUE(kit.Convert(Image::Format::Jpeg));
             EXPECT_FALSE(ImageKit().Convert(Image::Format::Png));
         }},
        {"Image::File::Import and Export", "textures of a model",
         [](Bench&) {
             auto const file = std::filesystem::temp_directory_path() /
                               ("operations" + std::to_string(std::filesystem::hash_value("x")) + ".png");
             auto kit = chequer();
             ASSERT_TRUE(kit.Convert(Image::Format::Png));
             Image::File::Export(UTF8(file.string()), kit);
             Image::ImportOptionsKit options;
             EXPECT_EQ(Image::File::Import(UTF8(file.string()), options.SetFormat(Image::Format::Png)),
                       chequer());
             std::filesystem::remove(file);
             EXPECT_THROW(Image::File::Import(UTF8(file.string())), IOException);
         }},
        {"GlyphKit of a marker's name", "markers of annotations",
         [](Bench& b) {
             for (auto const* const name :
                  {"plus", "times", "splat", "circle", "solid circle", "circle with dot", "box", "solid box",
                   "diamond", "triangle up", "solid triangle up", "triangle down", "solid triangle down",
                   "dot", "slant left", "slant right", "circle with circle", "circle with times"}) {
                 GlyphElementArray elements;
                 EXPECT_TRUE(GlyphKit::GetDefault(name).ShowElements(elements)) << name;
             }
             auto const own = b.portfolio.DefineGlyph("own", GlyphKit::GetDefault("plus"));
             GlyphKit kit;
             EXPECT_TRUE(own.Show(kit));
         }},
        {"Definition::Set", "scene inspector",
         [](Bench& b) {
             auto definition = b.portfolio.DefineGlyph("glyph", GlyphKit::GetDefault("plus"));
             EXPECT_EQ(definition.Name(), UTF8("glyph"));
             EXPECT_TRUE(definition.Set(GlyphKit::GetDefault("times")));
             GlyphKit kit;
             ASSERT_TRUE(definition.Show(kit));
             EXPECT_EQ(kit, GlyphKit::GetDefault("times"));
             b.portfolio.UndefineGlyph("glyph");
             EXPECT_FALSE(definition.Set(kit));
             EXPECT_EQ(definition.Type(), Type::None);
         }},
        {"PortfolioControl::Push", "view widget",
         [](Bench& b) {
             b.view.GetSegmentKey().GetPortfolioControl().Push(b.portfolio);
             PortfolioKey top;
             ASSERT_TRUE(b.view.GetSegmentKey().GetPortfolioControl().ShowTop(top));
             EXPECT_EQ(top, b.portfolio);
             EXPECT_TRUE(b.view.GetSegmentKey().GetPortfolioControl().Pop(top));
             EXPECT_FALSE(b.view.GetSegmentKey().GetPortfolioControl().Pop());
         }},
    };
}
