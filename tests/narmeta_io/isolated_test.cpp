#include "read_support.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>

using namespace ReadSupport;

namespace
{
class IsolatedTest : public testing::TestWithParam<char const*>
{
};
} // namespace

TEST_P(IsolatedTest, GivesTheSameModelAsAReadInThisProcess)
{
    auto const file = modelFolder() / GetParam();
    REQUIRE_MODEL_FILE(file);
    ZelIO here, there;
    there.SetReadIsolated(true);
    ZELProductStructure first, second;
    ASSERT_TRUE(here.Read(file.wstring().c_str(), &first, nullptr));
    ASSERT_TRUE(there.Read(file.wstring().c_str(), &second, nullptr))
        << std::filesystem::path(there.GetErrorMessage()).string();
    EXPECT_EQ(textOf(first), textOf(second));
    EXPECT_EQ(here.IsGraphicalMode(), there.IsGraphicalMode());
    EXPECT_EQ(here.GetWarningMessages(), there.GetWarningMessages());
    EXPECT_TRUE(hasStage(there, L"Hand-over"));
}

INSTANTIATE_TEST_SUITE_P(Files, IsolatedTest, testing::ValuesIn(ComparedFiles), fileTestName);

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
