#include "stream_files.h"
#include <cmath>
#include <functional>

using namespace HPS;

namespace
{

Key first(SegmentKey const& segment, Search::Type type)
{
    SearchResults found;
    segment.Find(type, Search::Space::Subsegments, found);
    return found.GetIterator().GetItem();
}

// A scene with links of every kind, most of them to segments that stand elsewhere.
class RoundTrip : public StreamFiles
{
protected:
    SegmentKey shared = Database::CreateRootSegment();
    SegmentKey source = Database::CreateRootSegment();
    PortfolioKey portfolio = Database::CreatePortfolio();
    SegmentKey child = root.Subsegment("child");
    IncludeKey include;

    RoundTrip()
    {
        source.GetVisibilityControl().SetFaces(false);
        portfolio.DefineNamedStyle("hidden", source);
        auto const image = portfolio.DefineImage("image", ImageKit().SetSize(1, 1).SetData({1, 2, 3, 4}));
        portfolio.DefineTexture("texture", image, TextureOptionsKit().SetDecal(true));
        portfolio.DefineMaterialPalette("palette", {MaterialKit().SetDiffuse(RGBColor(1, 0, 0)).SetGloss(2)});
        shared.SetName("shared");
        auto const triangle = insertTriangle(shared);
        shared.GetStyleControl().PushNamed("hidden", "hide");
        root.GetStyleControl().PushSegment(source).SetFilter(AttributeLock::Type::Camera);
        include = child.IncludeSegment(shared);
        include.SetFilter(AttributeLock::Type::Visibility);
        child.IncludeSegment(root.Subsegment("other"));
        child.ReferenceGeometry(triangle);
        child.SetCondition("hide").SetMaterialPalette("palette").GetPortfolioControl().Push(portfolio);
        child.GetModellingMatrixControl().Translate(0.1, 0, 0);
        child.GetMaterialMappingControl().SetFaceColor(RGBAColor(0.1f, 0.2f, 0.3f, 0.4f));
        child.GetAttributeLockControl().SetLock(AttributeLock::Type::Camera);
        child.SetPriority(4).SetUserData(7, {1, 2, 3});
        child.SetUserData(-2, {});
        child.Subsegment("").InsertText({1, 2, 3}, "two\nlines");
        for (int i = 0; i < 20; ++i) child.Subsegment(UTF8("part " + std::to_string(i)));
    }
    ~RoundTrip() override
    {
        for (auto key : {shared, source}) key.Delete();
        portfolio.Delete();
    }
};

TEST_F(RoundTrip, NothingIsLost)
{
    EXPECT_EQ(changed(root), "");
    EXPECT_FALSE(library.Subsegment("shared", false).Empty()) << "included from outside";
    auto const read = write(target);
    EXPECT_EQ(read.size(), write(root).size());
}

// Each edit must be seen by the comparison, which the other tests go by.
TEST_F(RoundTrip, TheComparisonSeesEveryKindOfChange)
{
    TextKit kit(Point(9, 9, 9), "two\nlines");
    auto copy = [&] { return target.Subsegment("child", false); };
    struct Edit {
        char const* difference;
        std::function<void()> edit;
    };
    std::vector<Edit> const edits{
        {"matrix", [&] { copy().GetModellingMatrixControl().Scale(2, 1, 1); }},
        {"FrontFaceMaterial",
         [&] { copy().GetMaterialMappingControl().SetFaceColor(RGBAColor(1, 0, 0, 1)); }},
        {"user data",
         [&] {
             copy().SetUserData(7, {1, 2, 4});
         }},
        {"conditions", [&] { copy().SetCondition("other"); }},
        {"number of children", [&] { copy().Subsegment("more"); }},
        {"number of geometries",
         [&] {
             copy().InsertMarker({0, 0, 0});
         }},
        {"name of child", [&] { copy().Subsegment("part 3").SetName("part x"); }},
        {"filter", [&] { include.UnsetFilter(); }},
        {"priority", [&] { copy().SetPriority(5); }},
        {"Text field 1", [&] { TextKey(first(target, Search::Type::Text)).Consume(kit); }},
        {"TwoLevelsDown", [&] { copy().Subsegment("part 4").GetVisibilityControl().SetFaces(true); }},
    };
    for (auto const& [difference, edit] : edits) {
        SCOPED_TRACE(difference);
        target.Delete(), target = Database::CreateRootSegment();
        library.Delete(), library = Database::CreateRootSegment();
        ASSERT_EQ(changed(root), "");
        edit();
        auto const found = scene::firstDifference(root, target);
        EXPECT_NE(found, "");
        if (difference != std::string_view("TwoLevelsDown"))
            EXPECT_THAT(found, testing::HasSubstr(difference));
        else
            EXPECT_THAT(found,
                        testing::AllOf(testing::HasSubstr("child/part 4"), testing::HasSubstr("Faces")));
    }
}

TEST_F(RoundTrip, PortfolioAndAttributesJoinWhatIsThere)
{
    auto mine = Database::CreatePortfolio();
    mine.DefineMaterialPalette("own", {MaterialKit()});
    target.GetVisibilityControl().SetLines(false);
    target.Subsegment("child").InsertMarker({0, 0, 0});
    auto const bytes = write(root);
    Stream::File::Import(path("scene.hsf"), options().SetPortfolio(mine)).Wait();
    MaterialPaletteDefinition palette;
    EXPECT_TRUE(mine.ShowMaterialPaletteDefinition("own", palette));
    EXPECT_TRUE(mine.ShowMaterialPaletteDefinition("palette", palette));
    TextureDefinition texture;
    ImageDefinition image;
    ASSERT_TRUE(mine.ShowTextureDefinition("texture", texture) && texture.ShowImage(image));
    EXPECT_EQ(image.Portfolio(), mine);
    bool lines = true;
    EXPECT_TRUE(target.GetVisibilityControl().ShowLines(lines));
    EXPECT_FALSE(lines);
    EXPECT_FALSE(target.Subsegment("child (2)", false).Empty()) << "the name was taken";
    mine.Delete();
}

TEST_F(RoundTrip, ColoursLoseWhatCompressionTakesAndNoMore)
{
    RGBAColor const bytes(51 / 255.0f, 1, 0, 1), others(0.123456f, 0.7f, 0, 1);
    auto kit = ShellKit().SetPoints({{0, 0, 0}, {1, 0, 0}, {0, 1, 0}}).SetFacelist({3, 0, 1, 2});
    root.Subsegment("child").InsertShell(kit.SetVertexRGBAColorsByRange(0, {bytes, others}));
    EXPECT_EQ(changed(root), "") << "without compression";
    for (auto const bits : {16u, 4u}) {
        target.Delete(), target = Database::CreateRootSegment();
        load(write(root, Stream::ExportOptionsKit().SetColorCompression(true, bits)));
        std::vector<bool> isSet;
        std::vector<RGBAColor> colors;
        ASSERT_TRUE(ShellKey(first(target, Search::Type::Shell)).Show(kit) &&
                    kit.ShowVertexColors(ShellKit::Component::Faces, isSet, colors));
        auto const step = 1.0f / static_cast<float>((1u << bits) - 1);
        EXPECT_EQ(colors[0] == bytes, true);
        EXPECT_NEAR(colors[1].red, others.red, step / 2 + 1e-6f);
        EXPECT_NE(colors[1].red, others.red);
    }
}

TEST_F(RoundTrip, NormalsTurnByLessThanATwentiethOfADegreeIfAskedFor)
{
    std::vector<Point> points;
    std::vector<Vector> normals;
    for (int i = 0; i < 1000; ++i) {
        auto const z = std::cos(static_cast<float>(i) * 0.00314f), r = std::sqrt(1 - z * z);
        normals.emplace_back(r * std::cos(static_cast<float>(i)), r * std::sin(static_cast<float>(i)), z);
        points.emplace_back(static_cast<float>(i), 0, 0);
    }
    auto kit = ShellKit().SetPoints(points).SetFacelist({3, 0, 1, 2}).SetVertexNormalsByRange(0, normals);
    auto alone = root.Subsegment("alone");
    alone.InsertShell(kit);
    EXPECT_EQ(changed(alone), "") << "exact unless asked";
    target.Delete(), target = Database::CreateRootSegment();
    EXPECT_THAT(changed(alone, Stream::ExportOptionsKit().SetNormalCompression(true)),
                testing::HasSubstr("Shell"));
    std::vector<bool> isSet;
    std::vector<Vector> read;
    ASSERT_TRUE(ShellKey(first(target, Search::Type::Shell)).Show(kit) && kit.ShowVertexNormals(isSet, read));
    for (std::size_t i = 0; i < normals.size(); ++i)
        ASSERT_LT(std::hypot(read[i].x - normals[i].x, read[i].y - normals[i].y, read[i].z - normals[i].z),
                  0.05f * 3.14159f / 180);
}

} // namespace
