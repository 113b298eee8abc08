// Reading beside the thread that shows: what the guard lets through, and what of it the process learns when.

#include "CadDocument.h"

#include <narmeta/visu/MaterialContainer.h>

#include <mora/AViewTree.h>
#include <mora/Settings.h>

#include <cstring>
#include <filesystem>
#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

namespace
{

using NarMetaVisu::MaterialContainer;

std::wstring const Machine = std::filesystem::path(ZEL_SOURCE_DIR "/samples/machine.zel_xml").wstring();

struct Opened {
    Opened(std::wstring const& path, ReadGuard const& guard)
    {
        read = document.ReadAhead(path.c_str(), guard, nullptr);
        document.GetErrorAndWarnings(&error, nullptr);
        document.GetContentCounts(parts, bodies);
    }

    MoraCore::AViewTree tree;
    ZelCad::CadDocument document{&tree};
    bool read = false;
    std::wstring error;
    unsigned long long parts = 0, bodies = 0;
};

TEST(ReadAhead, aProcessOfItsOwnGivesTheSameModel)
{
    Opened const here(Machine, {false, 0}), there(Machine, {true, 0});
    ASSERT_TRUE(here.read && there.read);
    EXPECT_GT(here.parts, 0U);
    EXPECT_EQ(here.parts, there.parts);
    EXPECT_EQ(here.bodies, there.bodies);
}

/// A file of many triangles, far above what a process has at its start.
std::filesystem::path writeMesh(std::filesystem::path const& folder)
{
    constexpr std::uint32_t Count = 300'000;
    std::string bytes(84 + 50 * Count, '\0');
    std::memcpy(&bytes[80], &Count, sizeof Count);
    for (std::uint32_t i = 0; i < Count; ++i) {
        float const x = static_cast<float>(i);
        float const corners[] = {x, 0, 0, x + 1, 0, 0, x, 1, 0};
        std::memcpy(&bytes[84 + 50 * i + 12], corners, sizeof corners);
    }
    std::ofstream(folder / "many.stl", std::ios::binary) << bytes;
    return folder / "many.stl";
}

TEST(ReadAhead, aLimitEndsTheReadAndNothingElse)
{
    std::filesystem::path const folder =
        std::filesystem::temp_directory_path() / ("read_ahead_" + std::to_string(getpid()));
    std::filesystem::create_directory(folder);
    std::wstring const mesh = writeMesh(folder).wstring();
    struct Case {
        char const* what;
        double seconds;
        int memory; // MiB
        std::wstring cause;
    };
    Case const cases[] = {{"time", 1e-6, 0, L"longer than it may"}, {"memory", 0, 200, L"needs more memory"}};
    ZELVizCore::Settings& settings = ZELVizCore::Settings::Current();
    for (Case const& c : cases) {
        settings.ReadMemoryLimit = c.memory;
        settings.CacheSize = 0;
        Opened const stopped(mesh, {true, c.seconds});
        settings = ZELVizCore::Settings::Default();
        EXPECT_FALSE(stopped.read) << c.what;
        EXPECT_THAT(stopped.error, testing::HasSubstr(c.cause)) << c.what;
        EXPECT_EQ(stopped.document.GetIO().GetOutcome(), NarMetaInfra::IoOutcome::Cancelled) << c.what;
        Opened const after(Machine, {true, 0});
        EXPECT_TRUE(after.read) << c.what;
    }
    std::filesystem::remove_all(folder);
}

TEST(ReadAhead, materialsAreKnownOnceTheDocumentIsOpened)
{
    std::filesystem::path const cube = ZEL_SOURCE_DIR "/../shared/models/mesh/cube_with_materials.obj";
    if (!std::filesystem::exists(cube)) GTEST_SKIP() << "no model at " << cube;
    auto const& materials = MaterialContainer::Instance().GetMaterials();
    MaterialContainer::Instance().Clear();
    HPS::World const world;
    Opened ahead(cube.wstring(), {true, 0});
    ASSERT_TRUE(ahead.read);
    EXPECT_TRUE(materials.empty()) << "another thread may be using them";
    ASSERT_TRUE(ahead.document.Open(cube.wstring().c_str()));
    EXPECT_EQ(materials.count(L"Texture"), 1U);
    ahead.document.Reset();
    EXPECT_TRUE(materials.empty()) << "they belong to the model";
}

} // namespace
