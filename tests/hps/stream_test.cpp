#include "support.h"
#include <filesystem>
#include <fstream>
#include <sstream>

using namespace HPS;
namespace fs = std::filesystem;

namespace
{

class Export : public Scene
{
protected:
    fs::path folder = fs::temp_directory_path() / ("hps export " + std::to_string(::getpid()));
    Export() { fs::create_directories(folder); }
    ~Export() override { fs::remove_all(folder); }

    std::string write(Stream::ExportOptionsKit const& options = {})
    {
        auto const file = folder / "scene.hsf";
        Stream::File::Export(UTF8(file.string()), root, options).Wait();
        std::ostringstream text;
        text << std::ifstream(file).rdbuf();
        return text.str();
    }
};

TEST_F(Export, HoldsEverythingThatIsReached)
{
    auto shared = Database::CreateRootSegment(), source = Database::CreateRootSegment();
    source.GetVisibilityControl().SetFaces(false);
    auto portfolio = Database::CreatePortfolio();
    portfolio.DefineNamedStyle("hid\"den", source);
    portfolio.DefineLinePattern("dashed", LinePatternKit::GetDefault(LinePattern::Default::Dashed));
    portfolio.DefineMaterialPalette("palette", {MaterialKit().SetDiffuse(RGBColor(1, 0, 0)).SetGloss(2)});
    shared.SetName("shared");
    insertTriangle(shared).SetUserData(0, {0xAB, 0x01});
    shared.GetStyleControl().PushNamed("hid\"den", "hide");
    auto child = root.Subsegment("child");
    child.IncludeSegment(shared);
    child.SetCondition("hide").SetMaterialPalette("palette").GetPortfolioControl().Push(portfolio);
    child.GetModellingMatrixControl().Translate(0.1, 0, 0);
    child.GetLineAttributeControl().SetWeight(2.5f, Line::SizeUnits::Pixels);
    child.InsertText({1, 2, 3}, "two\nlines");

    EXPECT_EQ(write(), R"(scene 1
segment 1 0 ""
segment 2 1 "child"
matrix 1 0 0 0 0 1 0 0 0 0 1 0 0.1 0 0 1
kit LineAttribute
Weight 2.5 6
condition "hide"
uses-portfolio 1
palette "palette"
include 3
text 1 2 3 "two\nlines"
segment 3 0 "shared"
style "hid\"den" "hide"
shell 3 4
points 0 0 0 1 0 0 0 1 0
facelist 3 0 1 2
data 0 ab01
segment 4 0 ""
kit Visibility
Faces 0
portfolio 1
named-style "hid\"den" 4
line-pattern "dashed" 1 0 2 0 6 1 3
material-palette "palette" 1
material
DiffuseColor 1 0 0
Gloss 2
end
)");
    portfolio.Delete();
    shared.Delete();
    source.Delete();
}

TEST_F(Export, ColoursInsideGeometryAreCompressedIfAskedFor)
{
    auto kit = ShellKit().SetPoints({{0, 0, 0}, {1, 0, 0}, {0, 1, 0}}).SetFacelist({3, 0, 1, 2});
    root.InsertShell(kit.SetFaceRGBColorsByRange(0, {RGBColor(0.3f, 0.6f, 1)}));
    EXPECT_THAT(write(), testing::HasSubstr("face-colors 1 * 0.3 0.6 1 1"));
    EXPECT_THAT(write(Stream::ExportOptionsKit().SetColorCompression(true, 1)),
                testing::HasSubstr("face-colors 1 * 0 1 1 1"));
}

TEST_F(Export, FailureNamesACauseAndLeavesWhatStoodThere)
{
    auto const missing = UTF8((folder / "no such folder" / "scene.hsf").string());
    try {
        Stream::File::Export(missing, root, {});
        FAIL() << "the folder does not exist";
    } catch (IOException const& error) {
        EXPECT_THAT(error.what(),
                    testing::AllOf(testing::HasSubstr("scene.hsf"), testing::HasSubstr("No such file")));
    }
    auto const file = folder / "old.hsf";
    std::ofstream(file) << "old";
    EXPECT_THROW(Stream::File::Export(UTF8(file.string()), SegmentKey(), {}), IOException);
    EXPECT_THROW(Stream::File::Export(UTF8(), root, {}), IOException);
    EXPECT_EQ(fs::file_size(file), 3u);
    fs::create_directory(folder / "taken.hsf");
    EXPECT_THROW(Stream::File::Export(UTF8((folder / "taken.hsf").string()), root, {}), IOException);
    auto const left = std::distance(fs::directory_iterator(folder), fs::directory_iterator());
    EXPECT_EQ(left, 2) << "no half-written file stays";
}

TEST_F(Export, ADiskThatIsFullIsAFailure)
{
    if (!fs::exists("/dev/full")) GTEST_SKIP() << "no device that is always full";
    fs::create_symlink("/dev/full", folder / "scene.hsf.part");
    EXPECT_THROW(Stream::File::Export(UTF8((folder / "scene.hsf").string()), root, {}), IOException);
    EXPECT_FALSE(fs::exists(folder / "scene.hsf"));
}

} // namespace
