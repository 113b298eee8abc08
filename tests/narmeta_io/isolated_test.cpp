#include "ModelCache.h"
#include "model_block.h"
#include "read_support.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>

using namespace ReadSupport;

namespace
{
/// Everything of a model as text.
std::string textOf(ZELProductStructure const& model, TemporaryFolder const& folder)
{
    ZelIO io;
    auto const path = folder.path() / "compare.zel_xml";
    EXPECT_TRUE(io.WriteXml(path.wstring().c_str(), &model, nullptr));
    return bytesOf(path);
}

char const* const Files[] = {"parts/red_cube_blue_cylinder.step", "nist/nist_ctc_05_asme1_ap242-e1.stp",
                             "asm/ublox_JODY-W4.step", "gltf/car.glb", "mesh/cube_with_materials.obj"};

class IsolatedTest : public testing::TestWithParam<char const*>
{
};

/// A cache folder of the test's own for the time of its life.
class CacheFolder
{
public:
    CacheFolder() { setenv("XDG_CACHE_HOME", Folder.path().c_str(), 1); }
    ~CacheFolder() { unsetenv("XDG_CACHE_HOME"); }
    std::vector<std::filesystem::path> entries() const
    {
        std::vector<std::filesystem::path> found;
        std::error_code error;
        for (auto const& file : std::filesystem::directory_iterator(Folder.path() / "zelview", error))
            found.push_back(file.path());
        return found;
    }

private:
    TemporaryFolder Folder;
};
constexpr std::uintmax_t Plenty = std::uintmax_t{1} << 30;

bool hasStage(ZelIO const& io, std::wstring const& name)
{
    return std::ranges::any_of(io.GetTimings(), [&](StageTiming const& stage) { return stage.name == name; });
}
} // namespace

TEST_P(IsolatedTest, GivesTheSameModelAsAReadInThisProcess)
{
    auto const file = modelFolder() / GetParam();
    REQUIRE_MODEL_FILE(file);
    TemporaryFolder const folder;
    ZelIO here, there;
    there.SetReadIsolated(true);
    ZELProductStructure first, second;
    ASSERT_TRUE(here.Read(file.wstring().c_str(), &first, nullptr));
    ASSERT_TRUE(there.Read(file.wstring().c_str(), &second, nullptr))
        << std::filesystem::path(there.GetErrorMessage()).string();
    EXPECT_EQ(textOf(first, folder), textOf(second, folder));
    EXPECT_EQ(here.IsGraphicalMode(), there.IsGraphicalMode());
    EXPECT_EQ(here.GetWarningMessages(), there.GetWarningMessages());
    EXPECT_TRUE(hasStage(there, L"Hand-over"));
}

TEST_P(IsolatedTest, TheSecondReadComesFromTheCache)
{
    auto const file = modelFolder() / GetParam();
    REQUIRE_MODEL_FILE(file);
    if (file.extension() == ".obj") GTEST_SKIP() << "stands not for itself, and is not kept";
    TemporaryFolder const folder;
    CacheFolder const cache;
    ZelIO io;
    io.SetCacheLimit(Plenty);
    io.SetKeepExactShapes(true);
    ZELProductStructure first, second;
    ASSERT_TRUE(io.Read(file.wstring().c_str(), &first, nullptr));
    ASSERT_EQ(cache.entries().size(), 1u);
    auto const warnings = io.GetWarningMessages();
    ASSERT_TRUE(io.Read(file.wstring().c_str(), &second, nullptr));
    EXPECT_FALSE(hasStage(io, L"Parsing"));
    EXPECT_EQ(io.GetWarningMessages(), warnings);
    EXPECT_EQ(textOf(first, folder), textOf(second, folder));
    for (std::size_t i = 0; i < first.GetReferences().size(); ++i) {
        auto const &a = first.GetReferences()[i]->GetExactShape(),
                   &b = second.GetReferences()[i]->GetExactShape();
        ASSERT_EQ(a == nullptr, b == nullptr);
        EXPECT_TRUE(!a || (a->bytes == b->bytes && a->faces == b->faces));
    }
    // Another way to read is another entry.
    io.RequestGraphicalMode(true);
    ASSERT_TRUE(io.Read(file.wstring().c_str(), &second, nullptr));
    EXPECT_EQ(cache.entries().size(), 2u);
}

INSTANTIATE_TEST_SUITE_P(Files, IsolatedTest, testing::ValuesIn(Files), [](auto const& test) {
    auto name = std::filesystem::path(test.param).stem().string();
    std::ranges::replace_if(
        name, [](char c) { return !std::isalnum(static_cast<unsigned char>(c)); }, '_');
    return name;
});

TEST(Isolated, AFaultOfTheFileIsAnErrorOfThisRead)
{
    auto const folder = modelFolder() / "broken";
    REQUIRE_MODEL_FILE(folder);
    for (auto const& entry : std::filesystem::directory_iterator(folder)) {
        ZelIO here, there;
        there.SetReadIsolated(true);
        ZELProductStructure first, second;
        EXPECT_EQ(here.Read(entry.path().wstring().c_str(), &first, nullptr),
                  there.Read(entry.path().wstring().c_str(), &second, nullptr));
        EXPECT_EQ(here.GetOutcome(), there.GetOutcome()) << entry.path();
        EXPECT_EQ(here.GetErrorMessage(), there.GetErrorMessage()) << entry.path();
    }
}

/// The file that is being read, and how often its reader has told of progress since.
struct {
    std::filesystem::path path;
    int calls = 0;
    int cutAt = 0;
} shrinking;

TEST(Isolated, AFileThatShrinksIsAnErrorOrAModelAndNothingElse)
{
    for (char const* const name : {"asm/ublox_JODY-W4.step", "gltf/christmas_challenge.gltf", "gltf/car.glb",
                                   "mesh/low_cost_robot_gripper_static_part.stl", "brep/mayo_cube.brep"}) {
        auto const file = modelFolder() / name;
        REQUIRE_MODEL_FILE(file);
        TemporaryFolder const folder;
        for (int cutAt : {0, 1, 2, 5, 12}) {
            shrinking = {folder.write(file.filename().string(), bytesOf(file)), 0, cutAt};
            ZelIO io;
            io.SetReadIsolated(true, 60);
            ZELProductStructure model;
            bool const read = io.Read(shrinking.path.wstring().c_str(), &model, [](double, bool&) {
                if (shrinking.calls++ == shrinking.cutAt)
                    std::filesystem::resize_file(shrinking.path,
                                                 std::filesystem::file_size(shrinking.path) / 3);
            });
            EXPECT_NE(read, io.GetErrorMessage().size() > 0) << name << " cut at call " << cutAt;
            EXPECT_EQ(read, io.GetOutcome() == IoOutcome::Done) << name << " cut at call " << cutAt;
            EXPECT_NE(io.GetOutcome(), IoOutcome::Cancelled) << name << " must not run into its limit";
        }
    }
}

TEST(Isolated, LimitsAndCancelEndTheRead)
{
    auto const file = modelFolder() / "asm/low_cost_robot_follower_arm.step";
    REQUIRE_MODEL_FILE(file);
    auto const path = file.wstring();
    ZelIO io;
    ZELProductStructure model;
    using Clock = std::chrono::steady_clock;
    auto const start = Clock::now();
    io.SetReadIsolated(true, 0.2);
    EXPECT_FALSE(io.Read(path.c_str(), &model, nullptr));
    EXPECT_EQ(io.GetOutcome(), IoOutcome::Cancelled);
    EXPECT_NE(io.GetErrorMessage().find(L"longer"), std::wstring::npos);

    io.SetReadIsolated(true);
    EXPECT_FALSE(io.Read(path.c_str(), &model, [](double, bool& cancel) { cancel = true; }));
    EXPECT_EQ(io.GetOutcome(), IoOutcome::Cancelled);
    EXPECT_LT(Clock::now() - start, std::chrono::seconds(3)) << "a cancel has to hold at once";

    io.SetReadIsolated(true, 0, 160u << 20); // less than the kernel's own libraries and this file take
    EXPECT_FALSE(io.Read(path.c_str(), &model, nullptr));
    EXPECT_NE(io.GetOutcome(), IoOutcome::Done);
    EXPECT_FALSE(io.GetErrorMessage().empty());
    EXPECT_EQ(model.GetRootInstancesCount(), 0u);
}

TEST(ModelBlock, IsRefusedUnlessItIsWhole)
{
    auto const file = modelFolder() / "parts/red_cube_blue_cylinder.step";
    REQUIRE_MODEL_FILE(file);
    auto const read = ReadSupport::read(file);
    auto const piece = packModel(read->result, read->model);
    ZELProductStructure again;
    EXPECT_EQ(unpackModel(piece, {}, again).outcome, IoOutcome::Done);
    EXPECT_EQ(identityOf(again), identityOf(read->model));
    for (std::size_t at = 0; at < piece.size(); at += 1 + piece.size() / 97) {
        ZELProductStructure none;
        EXPECT_EQ(unpackModel(std::string_view(piece).substr(0, at), {}, none).outcome, IoOutcome::Damaged)
            << at;
        auto changed = piece;
        changed[at] = static_cast<char>(changed[at] ^ 0x10);
        EXPECT_EQ(unpackModel(changed, {}, none).outcome, IoOutcome::Damaged) << at;
    }
}

TEST(ModelCache, DropsWhatIsDamagedAndTheOldest)
{
    auto const file = modelFolder() / "parts/red_cube_blue_cylinder.step";
    REQUIRE_MODEL_FILE(file);
    auto const read = ReadSupport::read(file);
    auto const size = packModel(read->result, read->model).size();
    TemporaryFolder const folder;
    ModelCache const cache(folder.path() / "kept", 2 * size + size / 2);
    for (auto const* const key : {"a", "b", "c"}) {
        cache.store(key, read->result, read->model);
        std::filesystem::last_write_time(folder.path() / "kept" / (std::string(key) + ".model"),
                                         std::filesystem::file_time_type::clock::now() -
                                             std::chrono::hours(100 - 10 * (key[0] - 'a')));
    }
    cache.store("d", read->result, read->model);
    ZELProductStructure model;
    EXPECT_FALSE(cache.load("a", {}, model));
    EXPECT_TRUE(cache.load("d", {}, model));
    auto const entry = folder.path() / "kept/d.model";
    std::filesystem::resize_file(entry, size / 2);
    EXPECT_FALSE(cache.load("d", {}, model));
    EXPECT_FALSE(std::filesystem::exists(entry));
}
