// What can be said of materials, textures and lights without a stored picture: colours at places where only
// one answer is right.
#include "painted.h"
#include <functional>
#include <gtest/gtest.h>

using namespace HPS;
using Material::Texture::Parameterization;
using Material::Texture::Tiling;

namespace
{

/// The colour at a place of the world that the stage's first camera looks at.
QColor at(QImage const& picture, float x, float y)
{
    return picture.pixelColor(int(100 + 50 * x), int(75 - 50 * y));
}

/// The letter of the nearest paint.
char letterAt(QImage const& picture, float x, float y)
{
    QColor const c = at(picture, x, y);
    char best = '?';
    double least = 40;
    for (char letter : std::string("rgbycmwk.")) {
        RGBAColor const p = Paints::colourOf(letter);
        double const difference = std::max(
            {std::abs(c.redF() - p.red), std::abs(c.greenF() - p.green), std::abs(c.blueF() - p.blue)});
        if (difference < least) least = difference, best = letter;
    }
    return least < 0.03 ? best : '?';
}

std::vector<std::string> const corners{"rg", "by"}; // red at the top left

struct TilingCase {
    char const* name;
    Tiling tiling;
    std::string row; // colours from u = -0.88 to 1.92 in steps of 0.2 on the line v = 0.75
};
void PrintTo(TilingCase const& c, std::ostream* out)
{
    *out << c.name;
}

class Tilings : public testing::TestWithParam<TilingCase>
{
};

} // namespace

TEST_P(Tilings, decideWhatLiesBesideTheImage)
{
    Stage stage;
    Paints paints(stage);
    paints.texture("corners", corners, Paints::exact().SetTiling(GetParam().tiling));
    stage.root().GetMaterialMappingControl().SetFaceColor(RGBAColor(1, 1, 1)).SetFaceTexture("corners");
    stage.root().InsertShell(parametrised({0, 0, 0}, 3, 3, -1, 2));
    QImage const picture = stage.picture();
    std::string row;
    for (int i = 0; i < 15; ++i) row += letterAt(picture, -1.38f + 0.2f * float(i), 0.25f);
    EXPECT_EQ(row, GetParam().row);
}

INSTANTIATE_TEST_SUITE_P(Textures, Tilings,
                         testing::Values(TilingCase{"Repeat", Tiling::Repeat, "rrgggrrgggrrggg"},
                                         TilingCase{"Clamp", Tiling::Clamp, "rrrrrrrgggggggg"},
                                         TilingCase{"Reflect", Tiling::Reflect, "ggrrrrrgggggrrr"},
                                         TilingCase{"Trim", Tiling::Trim, "wwwwwrrgggwwwww"}),
                         [](auto const& c) { return c.param.name; });

namespace
{

/// A stage with a rectangle of 2 by 2 around the origin that the texture "corners" covers once.
struct Covered : Stage {
    explicit Covered(TextureOptionsKit options = Paints::exact()) : paints(*this)
    {
        paints.texture("corners", corners, std::move(options));
        root().GetMaterialMappingControl().SetFaceColor(RGBAColor(1, 1, 1)).SetFaceTexture("corners");
        shell = root().InsertShell(parametrised({0, 0, 0}, 2, 2, 0, 1));
    }
    /// Top left, top right, bottom left, bottom right.
    std::string letters()
    {
        QImage const seen = picture();
        return {letterAt(seen, -0.5f, 0.5f), letterAt(seen, 0.5f, 0.5f), letterAt(seen, -0.5f, -0.5f),
                letterAt(seen, 0.5f, -0.5f)};
    }
    MaterialMappingControl materials() { return root().GetMaterialMappingControl(); }

    Paints paints;
    ShellKey shell;
};

/// Keeps the warnings of a scope.
class Warnings : public EventHandler
{
public:
    Warnings() { Database::GetEventDispatcher().Subscribe(*this, WarningEvent().GetClassID()); }
    HandleResult Handle(Event const* event) override
    {
        texts.emplace_back(static_cast<WarningEvent const*>(event)->message.GetBytes());
        return HandleResult::Handled;
    }
    std::vector<std::string> texts;
};

} // namespace

TEST(Textures, layImagesUprightWithTheOriginAtTheLowerLeft)
{
    EXPECT_EQ(Covered().letters(), "rgby");
}

TEST(Textures, areMovedByTheirOwnMatrixAndThatOfTheSegment)
{
    MatrixKit right;
    right.Translate(0.5, 0, 0);
    EXPECT_EQ(Covered(Paints::exact().SetTransformMatrix(right)).letters(), "gryb");
    Covered covered;
    covered.root().SetTextureMatrix(right);
    EXPECT_EQ(covered.letters(), "gryb");
    covered.root().SetTextureMatrix(MatrixKit().Translate(0, 0.5, 0));
    EXPECT_EQ(covered.letters(), "byrg");
    covered.root().UnsetTextureMatrix();
    EXPECT_EQ(covered.letters(), "rgby");
}

TEST(Textures, areMultipliedWithTheColourOnlyIfModulated)
{
    Covered plain, modulated(Paints::exact().SetModulation(true));
    for (Covered* each : {&plain, &modulated}) each->materials().SetFaceColor(RGBAColor(1, 0, 0));
    EXPECT_EQ(plain.letters(), "rgby");
    EXPECT_EQ(modulated.letters(), "rkkr");
}

TEST(Textures, coverTheColourAsADecalWhereTheyAreOpaque)
{
    Covered covered;
    covered.paints.texture("corners", {"r_", "_y"}, Paints::exact().SetDecal(true));
    covered.materials().SetFaceColor(RGBAColor(0, 1, 1));
    EXPECT_EQ(covered.letters(), "rccy");
    // Without a decal the holes are holes.
    covered.paints.texture("corners", {"r_", "_y"}, Paints::exact());
    covered.background({0, 0, 1}, {0, 0, 1});
    EXPECT_EQ(covered.letters(), "rbby");
}

TEST(Textures, takeTheColourOfTheirLayerAlong)
{
    Covered covered;
    MaterialKit kit;
    kit.SetDiffuseTexture("corners", RGBAColor(0, 1, 1));
    covered.materials().SetFaceMaterial(kit);
    EXPECT_EQ(covered.letters(), "kgbg");
}

TEST(Textures, readTheParametersThatTheOffsetNames)
{
    Covered covered(Paints::exact().SetParameterOffset(1));
    covered.shell.Delete();
    ShellKit kit = parametrised({0, 0, 0}, 2, 2, 0, 1);
    kit.SetVertexParametersByRange(0, {9, 0, 0, 9, 1, 0, 9, 1, 1, 9, 0, 1}, 3);
    covered.root().InsertShell(kit);
    EXPECT_EQ(covered.letters(), "rgby");
}

TEST(Textures, showANewDefinitionAtTheNextUpdate)
{
    Covered covered;
    EXPECT_EQ(covered.letters(), "rgby");
    covered.paints.image("corners", {"wm", "kc"});
    EXPECT_EQ(covered.letters(), "wmkc");
    ImageDefinition image;
    ASSERT_TRUE(covered.paints.portfolio().ShowImageDefinition("corners", image));
    TextureDefinition texture;
    ASSERT_TRUE(covered.paints.portfolio().ShowTextureDefinition("corners", texture));
    texture.SetOptions(Paints::exact().SetTransformMatrix(MatrixKit().Scale(1, -1, 1)));
    EXPECT_EQ(covered.letters(), "kcwm");
}

TEST(Textures, areLookedUpInTheNearestPortfolio)
{
    Covered covered;
    PortfolioKey outer = Database::CreatePortfolio();
    ImageKit white;
    white.SetSize(1, 1).SetFormat(Image::Format::RGB).SetData(ByteArray{255, 255, 255});
    outer.DefineTexture("corners", outer.DefineImage("white", white), Paints::exact());
    covered.viewSegment().GetPortfolioControl().Push(outer);
    EXPECT_EQ(covered.letters(), "rgby");
    covered.paints.portfolio().UndefineTexture("corners");
    EXPECT_EQ(covered.letters(), "wwww");
}

TEST(Textures, stayVisibleAndWarnWithoutAnImage)
{
    struct {
        char const* what;
        std::function<void(Covered&)> spoil;
    } const cases[] = {
        {"no texture", [](Covered& c) { c.materials().SetFaceTexture("no such texture"); }},
        {"no image", [](Covered& c) { c.paints.portfolio().UndefineImage("corners"); }},
        {"damaged",
         [](Covered& c) {
             ImageKit kit;
             kit.SetFormat(Image::Format::Png).SetData(ByteArray(100, 7));
             c.paints.portfolio().DefineTexture("damaged", c.paints.portfolio().DefineImage("broken", kit),
                                                Paints::exact());
             c.materials().SetFaceTexture("damaged");
         }},
    };
    for (auto const& [what, spoil] : cases) {
        Covered covered;
        EXPECT_EQ(covered.letters(), "rgby");
        Warnings warnings;
        spoil(covered);
        QImage const picture = covered.picture();
        int magenta = 0;
        for (int x = 60; x < 140; ++x) magenta += picture.pixelColor(x, 70) == QColor(255, 0, 255);
        EXPECT_GT(magenta, 20) << what;
        ASSERT_EQ(warnings.texts.size(), 1u) << what;
        covered.root().SetPriority(3); // a new list must not warn again
        covered.picture();
        EXPECT_EQ(warnings.texts.size(), 1u) << what;
    }
}

TEST(Textures, comeFromEveryFormatOfImage)
{
    using enum Image::Format;
    for (Image::Format format :
         {RGB, RGBA, ARGB, Mapped8, Grayscale, Bmp, Jpeg, Png, Targa, DXT1, DXT3, DXT5}) {
        Covered covered;
        // Blocks of one colour, which block formats and Jpeg keep.
        std::vector<std::string> rows;
        for (char const* row : {"rrrrrrrrgggggggg", "bbbbbbbbyyyyyyyy"}) rows.insert(rows.end(), 8, row);
        ImageDefinition definition = covered.paints.image("corners", rows);
        ImageKit kit;
        ASSERT_TRUE(definition.Show(kit));
        kit.SetCompressionQuality(1);
        ASSERT_TRUE(kit.Convert(format));
        ASSERT_TRUE(definition.Set(kit));
        QImage const picture = covered.picture();
        auto expect = [&](float x, float y, QColor const& wanted) {
            QColor const seen = at(picture, x, y);
            int const luma = (299 * wanted.red() + 587 * wanted.green() + 114 * wanted.blue()) / 1000;
            QColor const grey(luma, luma, luma);
            QColor const& right = format == Grayscale ? grey : wanted;
            int const off =
                std::max({std::abs(seen.red() - right.red()), std::abs(seen.green() - right.green()),
                          std::abs(seen.blue() - right.blue())});
            EXPECT_LE(off, 12) << "format " << int(format) << " at " << x << ", " << y << ": "
                               << seen.name().toStdString();
        };
        expect(-0.5f, 0.5f, {255, 0, 0});
        expect(0.5f, 0.5f, {0, 255, 0});
        expect(-0.5f, -0.5f, {0, 0, 255});
        expect(0.5f, -0.5f, {255, 255, 0});
    }
}

TEST(Textures, areBlendedFromTexelToTexelIfBilinear)
{
    Covered covered(TextureOptionsKit{}.SetTiling(Tiling::Clamp));
    QColor const middle = at(covered.picture(), 0, 0.8f); // half way between red and green
    EXPECT_NEAR(middle.red(), 127, 8);
    EXPECT_NEAR(middle.green(), 127, 8);
}

TEST(Textures, fadeToTheirMeanFarAwayIfDecimated)
{
    using Material::Texture::Decimation;
    auto spread = [](Decimation decimation) {
        Covered covered(TextureOptionsKit{}.SetDecimationFilter(decimation));
        covered.paints.image("corners", {"wkwkwkwk", "kwkwkwkw", "wkwkwkwk", "kwkwkwkw", "wkwkwkwk",
                                         "kwkwkwkw", "wkwkwkwk", "kwkwkwkw"});
        covered.root().SetTextureMatrix(MatrixKit().Scale(37, 37, 1));
        QImage const picture = covered.picture();
        int low = 255, high = 0;
        for (int x = 70; x < 130; ++x)
            for (int y = 50; y < 100; ++y) {
                low = std::min(low, picture.pixelColor(x, y).red());
                high = std::max(high, picture.pixelColor(x, y).red());
            }
        return high - low;
    };
    EXPECT_GT(spread(Decimation::None), 120);
    EXPECT_LT(spread(Decimation::Mipmap), 60);
    EXPECT_LT(spread(Decimation::Anisotropic), 60);
}

TEST(Textures, ofManyPixelsAreShownInFewer)
{
    Covered covered;
    ImageKit kit;
    unsigned const side = 5000;
    ByteArray bytes(std::size_t(side) * side, 0);
    for (std::size_t row = 0; row < side / 2; ++row) std::fill_n(&bytes[row * side], side, byte(255));
    kit.SetSize(side, side).SetFormat(Image::Format::Grayscale).SetData(std::move(bytes));
    covered.paints.portfolio().DefineImage("corners", kit);
    EXPECT_EQ(covered.letters(), "wwkk");
}

namespace
{

struct SourceCase {
    char const* name;
    Parameterization source;
    MatrixKit placement; ///< of a rectangle of 2 by 2 without parameters
    std::string letters;
};
void PrintTo(SourceCase const& c, std::ostream* out)
{
    *out << c.name;
}
class Sources : public testing::TestWithParam<SourceCase>
{
};

} // namespace

// The rectangle stands at the right place whatever moved it there.
TEST_P(Sources, findTheirPlaceOnTheImage)
{
    Covered covered(Paints::exact().SetParameterizationSource(GetParam().source));
    covered.shell.Delete();
    SegmentKey inner = covered.root().Subsegment();
    MatrixKit back;
    ASSERT_TRUE(GetParam().placement.ShowInverse(back));
    std::vector<Point> points{{-1, -1, 0}, {1, -1, 0}, {1, 1, 0}, {-1, 1, 0}};
    inner.InsertShell(back.Transform(points), {4, 0, 1, 2, 3});
    inner.SetModellingMatrix(GetParam().placement);
    EXPECT_EQ(covered.letters(), GetParam().letters);
}

INSTANTIATE_TEST_SUITE_P(Textures, Sources,
                         testing::Values(SourceCase{"ObjectMovedAQuarter", Parameterization::Object,
                                                    MatrixKit().Translate(0.25, 0.25, 0), "bbbb"},
                                         SourceCase{"WorldDoesNotMoveAlong", Parameterization::World,
                                                    MatrixKit().Translate(-0.75, 0.3, 0), "yyyy"},
                                         SourceCase{"WithoutParametersTheBoxOfTheMesh", Parameterization::UV,
                                                    MatrixKit(), "rgby"},
                                         SourceCase{"NaturalLikewise", Parameterization::NaturalUV,
                                                    MatrixKit().Translate(0.4, 0.1, 0), "rgby"}),
                         [](auto const& c) { return c.param.name; });

namespace
{

/// Three squares from left to right, a face each, and a palette of blue, cyan, green, yellow and red.
struct Squares : Stage {
    Squares() : paints(*this)
    {
        std::vector<MaterialKit> palette(5);
        for (std::size_t i = 0; i < palette.size(); ++i) palette[i].SetDiffuse(Paints::colourOf("bcgyr"[i]));
        paints.portfolio().DefineMaterialPalette("rainbow", palette);
        root().GetPortfolioControl().SetMaterialPalette("rainbow");
        root().GetMaterialMappingControl().SetFaceColor(RGBAColor(1, 1, 1));
        kit.SetPoints({{-1.5f, -0.5f, 0},
                       {-0.5f, -0.5f, 0},
                       {0.5f, -0.5f, 0},
                       {1.5f, -0.5f, 0},
                       {-1.5f, 0.5f, 0},
                       {-0.5f, 0.5f, 0},
                       {0.5f, 0.5f, 0},
                       {1.5f, 0.5f, 0}});
        kit.SetFacelist({4, 0, 1, 5, 4, 4, 1, 2, 6, 5, 4, 2, 3, 7, 6});
    }
    std::string letters()
    {
        QImage const seen = picture();
        return {letterAt(seen, -1, 0), letterAt(seen, 0, 0), letterAt(seen, 1, 0)};
    }
    Paints paints;
    ShellKit kit;
};

} // namespace

TEST(Palettes, giveFacesTheirMaterialsByIndex)
{
    Squares squares;
    squares.kit.SetFaceIndexColorsByRange(1, {4, 0}); // the first face has none
    ShellKey key = squares.root().InsertShell(squares.kit);
    EXPECT_EQ(squares.letters(), "wrb");
    // The palette decides, also later; a material may bring a texture.
    squares.paints.texture("dots", {"m"}, Paints::exact());
    std::vector<MaterialKit> palette(5);
    palette[0].SetDiffuseTexture("dots");
    palette[4].SetDiffuse(Paints::colourOf('k'));
    squares.paints.portfolio().DefineMaterialPalette("rainbow", palette);
    EXPECT_EQ(squares.letters(), "wkm");
    // A segment that overrides the colours of faces has its way.
    squares.root().GetDrawingAttributeControl().SetOverrideInternalColor(
        VisibilityKit().SetEverything(false).SetFaces(true));
    EXPECT_EQ(squares.letters(), "www");
}

TEST(Palettes, giveVerticesColoursOrIndicesToBlend)
{
    Squares squares;
    squares.kit.SetVertexIndexColorsByRange(0, {0, 4, 2, 2, 0, 4, 2, 2});
    squares.root().InsertShell(squares.kit);
    auto control = [&] { return squares.root().GetColorInterpolationControl(); };
    control().SetFaceColor(true).SetFaceIndex(true); // from blue to red by way of green
    EXPECT_EQ(at(squares.picture(), -1, 0).green(), 255);
    control().SetFaceIndex(false); // straight from blue to red
    QColor const mixed = at(squares.picture(), -1, 0);
    EXPECT_EQ(mixed.green(), 0);
    EXPECT_NEAR(mixed.red(), 127, 5);
    control().SetFaceColor(false).SetFaceIndex(true); // bands
    EXPECT_EQ(letterAt(squares.picture(), -1.3f, 0), 'c');
    control().SetFaceIndex(false); // a face has the colour of its first vertex
    EXPECT_EQ(squares.letters(), "brg");
    EXPECT_EQ(letterAt(squares.picture(), -0.6f, 0.4f), 'b');
}

TEST(Palettes, mixNeighboursForAFraction)
{
    Squares squares;
    squares.root().InsertShell(squares.kit);
    squares.root().GetMaterialMappingControl().SetFaceMaterialByIndex(3.5f); // yellow and red
    QColor const mixed = at(squares.picture(), 0, 0);
    EXPECT_EQ(mixed.red(), 255);
    EXPECT_NEAR(mixed.green(), 127, 1);
}

TEST(Geometry, bringsMaterialsThatGoBeforeTheSegments)
{
    Squares squares;
    squares.root().InsertShell(squares.kit);
    ShellKit other = parametrised({0, 1, 0}, 1, 0.6f, 0, 1);
    other.SetMaterialMapping(MaterialMappingKit().SetFaceMaterialByIndex(2));
    ShellKey key = squares.root().InsertShell(other);
    EXPECT_EQ(squares.letters(), "www");
    EXPECT_EQ(letterAt(squares.picture(), 0, 1), 'g');
    other.UnsetMaterialMapping();
    key.Consume(other);
    EXPECT_EQ(letterAt(squares.picture(), 0, 1), 'w');
}

TEST(Sides, haveMaterialsOfTheirOwn)
{
    Covered covered;
    covered.materials().SetBackFaceColor(RGBAColor(0, 1, 1)).SetFrontFaceColor(RGBAColor(1, 1, 0));
    MaterialKit plain;
    covered.materials().UnsetFrontFaceMaterial().SetFrontFaceColor(RGBAColor(1, 1, 0));
    EXPECT_EQ(covered.letters(), "yyyy");
    covered.root().SetModellingMatrix(MatrixKit().Rotate(0, 180, 0));
    EXPECT_EQ(covered.letters(), "gryb"); // the texture, seen from behind
    covered.root().SetModellingMatrix(MatrixKit().Scale(-1, 1, 1));
    EXPECT_EQ(covered.letters(), "yyyy") << "a mirror keeps the outside out";
}

TEST(Transmission, letsThroughWhatItsTextureSays)
{
    Covered covered;
    covered.background({0, 0, 1}, {0, 0, 1});
    covered.paints.texture("glass", {"wk", "kw"}, Paints::exact());
    MaterialKit kit;
    kit.SetDiffuse(RGBAColor(1, 0, 0)).SetTransmission("glass");
    covered.materials().UnsetFaceMaterial().SetFaceMaterial(kit);
    EXPECT_EQ(covered.letters(), "brrb");
}

TEST(Emission, isSeenWithoutLight)
{
    Covered covered;
    MaterialKit kit;
    kit.SetDiffuse(RGBAColor(0, 0, 0)).SetEmission("corners", RGBAColor(1, 1, 0));
    covered.materials().UnsetFaceMaterial().SetFaceMaterial(kit);
    EXPECT_EQ(covered.letters(), "rgky");
}
