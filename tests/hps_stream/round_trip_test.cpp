#include "geometry_codec.h"
#include "support.h"
#include <filesystem>
#include <fstream>
#include <random>
#include <sstream>

using namespace HPS;
namespace fs = std::filesystem;

namespace
{

class RoundTrip : public Scene
{
protected:
    fs::path folder = fs::temp_directory_path() / ("hps stream " + std::to_string(::getpid()));
    SegmentKey target = Database::CreateRootSegment();
    SegmentKey library = Database::CreateRootSegment();
    SegmentKey shared = Database::CreateRootSegment();
    SegmentKey source = Database::CreateRootSegment();
    PortfolioKey portfolio = Database::CreatePortfolio();

    RoundTrip()
    {
        fs::create_directories(folder);
        source.GetVisibilityControl().SetFaces(false);
        portfolio.DefineNamedStyle("hidden", source);
        portfolio.DefineLinePattern("dashed", LinePatternKit::GetDefault(LinePattern::Default::Dashed));
        portfolio.DefineMaterialPalette("palette", {MaterialKit().SetDiffuse(RGBColor(1, 0, 0)).SetGloss(2)});
        shared.SetName("shared");
        insertTriangle(shared).SetUserData(0, {0xAB, 0x01});
        shared.GetStyleControl().PushNamed("hidden", "hide");
        auto child = root.Subsegment("child");
        child.IncludeSegment(shared);
        child.SetCondition("hide").SetMaterialPalette("palette").GetPortfolioControl().Push(portfolio);
        child.GetModellingMatrixControl().Translate(0.1, 0, 0);
        child.GetLineAttributeControl().SetWeight(2.5f, Line::SizeUnits::Pixels);
        child.GetMaterialMappingControl().SetFaceColor(RGBAColor(0.1f, 0.2f, 0.3f, 0.4f));
        child.SetUserData(7, {1, 2, 3});
        child.InsertText(TextKit({1, 2, 3}, "two\nlines").SetPriority(5));
        child.InsertLine({{0, 0, 0}, {1, 2, 3}});
        child.InsertMarker({4, 5, 6});
        child.InsertDistantLight({0, 1, 0});
        auto kit = ShellKit().SetPoints({{0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {1, 1, 0.3f}});
        kit.SetFacelist({3, 0, 1, 2, 4, 0, 1, 3, 2}).SetVertexNormalsByRange(1, {Vector(0, 0, 1)});
        root.InsertShell(kit.SetFaceRGBColorsByRange(1, {RGBColor(0.3f, 0.6f, 1)}));
    }
    ~RoundTrip() override
    {
        for (auto key : {target, library, shared, source}) key.Delete();
        portfolio.Delete();
        fs::remove_all(folder);
    }
    static std::string read(fs::path const& file)
    {
        std::ostringstream text;
        text << std::ifstream(file, std::ios::binary).rdbuf();
        return text.str();
    }
    std::string write(SegmentKey const& segment, Stream::ExportOptionsKit const& options = {})
    {
        auto const file = folder / "scene.hsf";
        Stream::File::Export(UTF8(file.string()), segment, options).Wait();
        return read(file);
    }
    void load(std::string const& bytes)
    {
        auto const file = folder / "load.hsf";
        std::ofstream(file, std::ios::binary) << bytes;
        Stream::File::Import(UTF8(file.string()),
                             Stream::ImportOptionsKit().SetSegment(target).SetAlternateRoot(library));
    }
};

TEST_F(RoundTrip, WhatIsReadIsWrittenAsTheSameBytes)
{
    auto const bytes = write(root);
    load(bytes);
    EXPECT_EQ(write(target), bytes);
    EXPECT_FALSE(library.Subsegment("shared", false).Empty());
    SearchResults found;
    EXPECT_EQ(target.Find(Search::Type::Text, Search::Space::Subsegments, found), 1u);
    auto child = target.Subsegment("child", false);
    LineAttributeKit kit, expected;
    ASSERT_TRUE(child.ShowLineAttribute(kit));
    EXPECT_EQ(kit, expected.SetWeight(2.5f, Line::SizeUnits::Pixels));
    ByteArray data;
    ASSERT_TRUE(child.ShowUserData(7, data));
    EXPECT_EQ(data, (ByteArray{1, 2, 3}));
}

TEST_F(RoundTrip, ColoursLoseWhatCompressionTakesAndNoMore)
{
    load(write(root, Stream::ExportOptionsKit().SetColorCompression(true, 1)));
    EXPECT_NE(write(target), write(root));
    EXPECT_EQ(write(target, Stream::ExportOptionsKit().SetColorCompression(true, 1)),
              write(root, Stream::ExportOptionsKit().SetColorCompression(true, 1)));
}

TEST_F(RoundTrip, ADamagedFileIsRefusedAndNothingChanges)
{
    auto const bytes = write(root);
    auto const before = write(target);
    std::mt19937 random(1);
    auto const refused = [&](std::string const& damaged) {
        try {
            load(damaged);
            return false;
        } catch (IOException const& error) {
            return std::string_view(error.what()).find('\n') == std::string_view::npos;
        }
    };
    for (std::size_t size = 0; size < bytes.size(); ++size)
        ASSERT_TRUE(refused(bytes.substr(0, size))) << "cut off at " << size;
    for (int i = 0; i < 1000; ++i) {
        auto damaged = bytes;
        damaged[random() % damaged.size()] ^= static_cast<char>(1 << random() % 8);
        ASSERT_TRUE(refused(damaged));
    }
    EXPECT_EQ(write(target), before);
}

TEST(GeometryCodecs, EveryKindOfGeometryHasOne)
{
    for (auto type = 0x10100001u; type < 0x10100040u; ++type) {
        scene::GeometryRecord record;
        record.type = static_cast<Type>(type);
        scene::visitGeometry(record, [&]<class R>(R const&) {
            EXPECT_TRUE(scene::hasGeometryCodec(R::family)) << std::hex << type;
        });
    }
}

} // namespace
