#include "TestDocument.h"

#include "document_model.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace ZelVizBase
{
namespace
{

using namespace NarMetaVisu;
using testing::ElementsAre;
using testing::IsEmpty;
using Fill = void (*)(Material::Settings&);

std::shared_ptr<Texture> image(wchar_t const* name, Texture::Settings settings = {})
{
    settings.image = std::make_shared<TextureImage>(1, 1, ImagePixelFormat::RGBA);
    settings.image->AddMipmap({10, 20, 30, 40});
    return std::make_shared<Texture>(name, settings);
}

class Materials : public testing::Test
{
protected:
    TestDocument Document;
    MaterialContainer& Container = MaterialContainer::Instance();

    Materials() { Container.Clear(); }
    ~Materials() override { Document.SceneRenderer.Flush(); }

    /// Of a structure without parts, which is no scene; the materials stand all the same.
    void build() { Document.SceneRenderer.BuildSceneGraphVisu(&Document.Structure); }
    HPS::PortfolioKey const& portfolio() { return Document.SceneRenderer.GetPortfolioKey(); }

    HPS::MaterialKitArray palette()
    {
        HPS::MaterialPaletteDefinition definition;
        HPS::MaterialKitArray kits;
        if (portfolio().ShowMaterialPaletteDefinition("zelpalette", definition)) definition.Show(kits);
        return kits;
    }

    /// The kit of the one material set up like this; its textures are known to the container, too.
    HPS::MaterialKit kitOf(Fill setup)
    {
        Material::Settings settings;
        setup(settings);
        for (auto const* list :
             {&settings.diffuseColorTextures, &settings.diffuseCoeffTextures, &settings.ambientCoeffTextures,
              &settings.bumpColorTextures, &settings.normalTextures})
            for (auto const& texture : *list) Container.Add(texture);
        Container.Add(std::make_shared<Material>(L"only", settings));
        build();
        HPS::MaterialKitArray const kits = palette();
        return kits.size() == 1 ? kits.front() : HPS::MaterialKit();
    }

    HPS::TextureOptionsKit optionsOf(Texture::Settings const& settings)
    {
        Container.Add(image(L"image", settings));
        build();
        HPS::TextureDefinition definition;
        HPS::TextureOptionsKit options;
        if (portfolio().ShowTextureDefinition("image", definition)) definition.ShowOptions(options);
        return options;
    }
};

std::vector<std::string> layersOf(HPS::MaterialKit const& kit)
{
    HPS::MaterialKit::TypeArray types;
    std::vector<HPS::RGBAColor> colors;
    std::vector<HPS::UTF8> names;
    kit.ShowDiffuseTexture(types, colors, names);
    std::vector<std::string> layers;
    for (HPS::UTF8 const& name : names) layers.push_back(name.GetBytes());
    return layers;
}

TEST_F(Materials, propertiesBecomeChannels)
{
    HPS::MaterialKit const kit = kitOf([](Material::Settings& s) {
        s.diffuse.colour = {51, 102, 255};
        s.diffuse.coefficient = 0.9F; // the colour comes first
        s.transparency.colour = {255, 0, 0};
        s.specular.coefficient = 0.5F;
        s.reflection.colour = {0, 255, 0};
        s.shininess = 1.0F;
    });
    HPS::RGBAColor diffuse, specular, mirror;
    HPS::Material::Type type{};
    HPS::UTF8 name;
    float gloss = 0;
    ASSERT_TRUE(kit.ShowDiffuseColor(diffuse));
    EXPECT_EQ(diffuse, HPS::RGBAColor(0.2F, 0.4F, 1, 85 / 255.0F));
    ASSERT_TRUE(kit.ShowSpecular(type, specular, name));
    EXPECT_EQ(specular, HPS::RGBAColor(0.5F, 0.5F, 0.5F, 85 / 255.0F));
    ASSERT_TRUE(kit.ShowMirror(type, mirror, name));
    EXPECT_EQ(mirror, HPS::RGBAColor(0, 1, 0, 85 / 255.0F));
    ASSERT_TRUE(kit.ShowGloss(gloss));
    EXPECT_EQ(gloss, 30.0F);
}

TEST_F(Materials, whatIsNotGivenIsLeftOut)
{
    HPS::MaterialKit const kit = kitOf([](Material::Settings& s) { s.shininess = 0.0F; });
    HPS::RGBColor color;
    float value = 0;
    EXPECT_FALSE(kit.ShowDiffuseColor(color));
    EXPECT_FALSE(kit.ShowDiffuseAlpha(value));
    EXPECT_TRUE(kit.ShowGloss(value) && value == 1.0F);
}

TEST_F(Materials, texturesTakeLayersAndChannels)
{
    struct Case {
        char const* what;
        Fill setup;
        std::vector<std::string> layers;
    };
    Case const cases[] = {
        {"a colour and a texture: both",
         [](Material::Settings& s) {
             s.diffuse.colour = {255, 255, 255};
             s.diffuseColorTextures = {image(L"a"), image(L"b")};
         },
         {"a", "b"}},
        {"coefficients take the layers of colours",
         [](Material::Settings& s) {
             s.diffuseColorTextures = {image(L"a")};
             s.diffuseCoeffTextures = {image(L"c"), image(L"d")};
             s.ambientCoeffTextures = {image(L"e")};
         },
         {"c", "d", "e"}},
        {"surroundings are no layer",
         [](Material::Settings& s) {
             Texture::Settings mirrored;
             mirrored.mapping = Texture::TextureMappingMode::Environment;
             s.diffuseColorTextures = {image(L"sky", mirrored), image(L"a")};
         },
         {"a"}},
    };
    for (Case const& c : cases) {
        HPS::MaterialKit const kit = kitOf(c.setup);
        EXPECT_EQ(layersOf(kit), c.layers) << c.what;
        HPS::RGBColor color;
        Material::Settings settings;
        c.setup(settings);
        EXPECT_EQ(kit.ShowDiffuseColor(color), settings.diffuse.colour.has_value()) << c.what;
        Document.SceneRenderer.Flush();
    }
}

TEST_F(Materials, theLastListOfBumpsWins)
{
    HPS::MaterialKit const kit = kitOf([](Material::Settings& s) {
        s.bumpColorTextures = {image(L"bump")};
        s.normalTextures = {image(L"normal"), image(L"second")};
    });
    HPS::UTF8 name;
    ASSERT_TRUE(kit.ShowBump(name));
    EXPECT_EQ(name, HPS::UTF8("normal"));
}

TEST_F(Materials, wrappingIsDecidedByTheFirstRowThatFits)
{
    using Wrap = Texture::TextureWrapMode;
    using HPS::Material::Texture::Tiling;
    struct Case {
        Wrap u, v;
        Tiling tiling;
    };
    Case const cases[] = {{Wrap::Clamp, Wrap::Repeat, Tiling::Repeat},
                          {Wrap::Clamp, Wrap::MirroredRepeat, Tiling::Clamp},
                          {Wrap::ClampToBorder, Wrap::ClampToBorder, Tiling::Trim},
                          {Wrap::MirroredRepeat, Wrap::ClampToEdge, Tiling::Trim},
                          {Wrap::MirroredRepeat, Wrap::MirroredRepeat, Tiling::Reflect},
                          {Wrap::Unknown, Wrap::Unknown, Tiling::Repeat}};
    for (Case const& c : cases) {
        Texture::Settings settings;
        settings.wrap = {c.u, c.v};
        HPS::TextureOptionsKit const options = optionsOf(settings);
        Tiling tiling{};
        ASSERT_TRUE(options.ShowTiling(tiling));
        EXPECT_EQ(tiling, c.tiling) << static_cast<int>(c.u) << ' ' << static_cast<int>(c.v);
    }
}

TEST_F(Materials, aTextureIsMovedOnlyWhereItSaysSo)
{
    Texture::Settings still;
    still.rotation = {0, 0, 0};
    HPS::MatrixKit matrix;
    EXPECT_FALSE(optionsOf(still).ShowTransformMatrix(matrix));
    Texture::Settings moved;
    moved.rotation = {0, 0, 1.5707963F};
    moved.translation = {2, 0};
    ASSERT_TRUE(optionsOf(moved).ShowTransformMatrix(matrix));
    HPS::Point const corner = matrix.Transform(HPS::Point(1, 0, 0));
    EXPECT_NEAR(corner.x, 2, 1e-5);
    EXPECT_NEAR(corner.y, 1, 1e-5);
}

TEST_F(Materials, anImageKeepsItsPixels)
{
    Container.Add(image(L"pixels"));
    Texture::Settings elsewhere;
    elsewhere.filePath = L"/no/such/image.png";
    Container.Add(std::make_shared<Texture>(L"lost", elsewhere));
    build();
    HPS::ImageDefinition definition;
    HPS::ImageKit kit;
    HPS::ByteArray bytes;
    ASSERT_TRUE(portfolio().ShowImageDefinition("pixels", definition) && definition.Show(kit));
    ASSERT_TRUE(kit.ShowData(bytes));
    EXPECT_THAT(bytes, ElementsAre(10, 20, 30, 40));
    HPS::TextureDefinition texture;
    EXPECT_TRUE(portfolio().ShowTextureDefinition("lost", texture)) << "defined all the same";
    ASSERT_TRUE(portfolio().ShowImageDefinition("lost", definition) && definition.Show(kit));
    EXPECT_FALSE(kit.ShowData(bytes));
}

TEST_F(Materials, thePaletteStandsUntilTheFlush)
{
    for (wchar_t const* name : {L"wood", L"glass"}) Container.Add(std::make_shared<Material>(name));
    build();
    EXPECT_EQ(palette().size(), 2U);
    HPS::UTF8 active;
    HPS::SegmentKey const model = documentModel(Document).GetSegmentKey();
    EXPECT_TRUE(model.GetPortfolioControl().ShowMaterialPalette(active) && active == HPS::UTF8("zelpalette"));
    Container.Add(std::make_shared<Material>(L"late"));
    build();
    EXPECT_EQ(palette().size(), 2U) << "defined once";
    Document.SceneRenderer.Flush();
    EXPECT_THAT(palette(), IsEmpty());
    EXPECT_THAT(Container.GetMaterials(), IsEmpty());
    Container.Add(std::make_shared<Material>(L"next"));
    build();
    EXPECT_EQ(palette().size(), 1U);
}

} // namespace
} // namespace ZelVizBase
