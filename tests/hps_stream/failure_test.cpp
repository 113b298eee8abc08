#include "SceneImporter.h"
#include "stream_files.h"
#include "unpacked.h"
#include <random>

using namespace HPS;
namespace fs = std::filesystem;

namespace
{

class Failures : public StreamFiles
{
protected:
    Failures()
    {
        auto child = root.Subsegment("child");
        insertTriangle(child).SetUserData(1, {1, 2});
        child.InsertText(TextKit({1, 2, 3}, "text").SetBold(true));
        child.GetMaterialMappingControl().SetFaceColor(RGBAColor(1, 0, 0, 1));
        auto portfolio = Database::CreatePortfolio();
        portfolio.DefineLinePattern("dashed", LinePatternKit::GetDefault(LinePattern::Default::Dashed));
        child.GetPortfolioControl().Push(portfolio);
        for (auto segment : {target, untouched}) segment.InsertMarker({1, 2, 3});
    }
    ~Failures() override { untouched.Delete(); }
    // Reads what may be damaged: true if it was refused, in one line, with nothing changed.
    bool refused(std::string const& damaged)
    {
        auto const roots = Database::GetRootSegments().size();
        try {
            std::istringstream in(damaged);
            scene::SceneImporter importer(target.Index(), {});
            for (auto steps = importer.read(in); steps.next();) {
            }
            importer.attach(library.Index());
            return false;
        } catch (IOException const& error) {
            std::string_view const cause = error.what();
            EXPECT_EQ(cause.find('\n'), std::string_view::npos) << cause;
        }
        EXPECT_EQ(Database::GetRootSegments().size(), roots);
        EXPECT_EQ(scene::firstDifference(target, untouched), "");
        return true;
    }
    // Adds a chunk before the last one.
    static std::string withChunk(std::string const& file, char const (&type)[5], std::uint32_t version,
                                 scene::Bytes const& content)
    {
        auto bytes = scene::unpacked(file);
        scene::Writer chunk;
        chunk.scalar(scene::chunkType(type));
        chunk.scalar(version);
        chunk.scalar(static_cast<std::uint32_t>(content.size()));
        chunk.raw(content);
        constexpr std::ptrdiff_t endChunk = 13;
        bytes.insert(bytes.end() - endChunk, chunk.bytes().begin(), chunk.bytes().end());
        return scene::packed(bytes);
    }

    SegmentKey untouched = Database::CreateRootSegment(); // as the target is before anything is read
};

TEST_F(Failures, ExportNamesACauseAndLeavesWhatStoodThere)
{
    try {
        Stream::File::Export(path("no such folder/scene.hsf"), root, {});
        FAIL() << "the folder does not exist";
    } catch (IOException const& error) {
        EXPECT_THAT(error.what(),
                    testing::AllOf(testing::HasSubstr("scene.hsf"), testing::HasSubstr("No such file")));
    }
    std::ofstream(folder / "old.hsf") << "old";
    EXPECT_THROW(Stream::File::Export(path("old.hsf"), SegmentKey(), {}), IOException);
    EXPECT_THROW(Stream::File::Export(UTF8(), root, {}), IOException);
    EXPECT_EQ(read(folder / "old.hsf"), "old");
    fs::create_directory(folder / "taken.hsf");
    EXPECT_THROW(Stream::File::Export(path("taken.hsf"), root, {}).Wait(), IOException);
    auto const left = std::distance(fs::directory_iterator(folder), fs::directory_iterator());
    EXPECT_EQ(left, 2) << "no half-written file stays";
}

TEST_F(Failures, ADiskThatIsFullLeavesTheOldFile)
{
    if (!fs::exists("/dev/full")) GTEST_SKIP() << "no device that is always full";
    std::ofstream(folder / "scene.hsf") << "old";
    fs::create_symlink("/dev/full", folder / "scene.hsf.part");
    EXPECT_THROW(Stream::File::Export(path("scene.hsf"), root, {}).Wait(), IOException);
    EXPECT_EQ(read(folder / "scene.hsf"), "old");
}

TEST_F(Failures, ImportNeedsAFileAndASegment)
{
    EXPECT_THROW(Stream::File::Import(path("missing.hsf"), options()), IOException);
    EXPECT_THROW(Stream::File::Import(UTF8(folder.string()), options()), IOException);
    write(root);
    EXPECT_THROW(Stream::File::Import(path("scene.hsf"), Stream::ImportOptionsKit()), IOException);
    EXPECT_TRUE(refused(""));
    EXPECT_TRUE(refused("solid cube\nfacet normal 0 0 1"));
}

TEST_F(Failures, DamageIsFoundWhereverItIs)
{
    auto const bytes = write(root);
    for (std::size_t size = 0; size < bytes.size(); ++size)
        ASSERT_TRUE(refused(bytes.substr(0, size))) << "cut off at " << size;
    std::mt19937 random(1);
    for (int i = 0; i < 500; ++i) {
        auto damaged = bytes;
        auto const at = random() % damaged.size();
        damaged[at] = static_cast<char>(damaged[at] ^ (1 << random() % 8));
        ASSERT_TRUE(refused(damaged)) << "bit at " << at;
    }
    EXPECT_TRUE(refused(bytes + bytes));
}

// Contents that were made to harm, with check sums that are right.
TEST_F(Failures, HostileContentsAreRefusedOrHarmless)
{
    auto const bytes = scene::unpacked(write(root));
    std::mt19937 random(2);
    int refusals = 0;
    for (int i = 0; i < 3000; ++i) {
        auto damaged = bytes;
        auto const at = random() % damaged.size();
        switch (random() % 4) {
        case 0: // a bit
            damaged[at] ^= static_cast<std::byte>(1 << random() % 8);
            break;
        case 1: // a size that is huge
            for (auto k = at; k < std::min(at + 4, damaged.size()); ++k) damaged[k] = std::byte(0xFF);
            break;
        case 2: // something missing
            damaged.erase(damaged.begin() + static_cast<std::ptrdiff_t>(at),
                          damaged.begin() +
                              static_cast<std::ptrdiff_t>(std::min(at + 1 + random() % 8, damaged.size())));
            break;
        case 3: // something twice
            damaged.insert(damaged.begin() + static_cast<std::ptrdiff_t>(at),
                           bytes.begin() + static_cast<std::ptrdiff_t>(at / 2),
                           bytes.begin() + static_cast<std::ptrdiff_t>(at));
            break;
        }
        if (refused(scene::packed(damaged))) {
            ++refusals;
            continue;
        }
        target.Delete(), target = Database::CreateRootSegment();
        target.InsertMarker({1, 2, 3});
    }
    EXPECT_GT(refusals, 1500);
}

TEST_F(Failures, WhatIsNotKnownIsPassedOver)
{
    auto const bytes = write(root);
    auto const item = [](auto&& write) {
        scene::Writer out;
        out.sized([&] { write(out); });
        return out.bytes();
    };
    load(withChunk(bytes, "MORE", 9, scene::Bytes(100)));
    EXPECT_EQ(scene::firstDifference(root.Subsegment("child"), target.Subsegment("child")), "");
    load(withChunk(bytes, "DEFN", 1, item([](auto& out) {
                       out.text("Melody");
                       out.scalar(scene::FileNumber(1));
                       out.text("name");
                       out.scalar(1.0);
                   })));
    EXPECT_EQ(scene::firstDifference(root.Subsegment("child"), target.Subsegment("child (2)")), "");
    EXPECT_THROW(load(withChunk(bytes, "GEOM", 2, scene::Bytes(100))), IOException)
        << "a newer form of what is known";
}

TEST_F(Failures, AFileMayNotUnfoldWithoutBounds)
{
    // A gigabyte of segments without names, in a few kilobytes.
    std::ostringstream out;
    scene::ChunkWriter writer(out);
    scene::Writer head, branches;
    head.scalar(std::uint64_t(1) << 30), head.scalar(std::uint64_t(0)), head.scalar(std::uint64_t(0));
    writer.write(scene::chunkType("HEAD"), 1, head.bytes());
    while (branches.bytes().size() < (1 << 20))
        branches.sized([&] { branches.scalar(scene::FileNumber(0)), branches.text(""); });
    for (int i = 0; i < 100; ++i) writer.write(scene::chunkType("TREE"), 1, branches.bytes());
    EXPECT_TRUE(refused(out.str()));
}

} // namespace
