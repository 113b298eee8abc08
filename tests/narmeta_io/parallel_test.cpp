// Reads side by side must not show: the same file gives the same model whatever the number of threads.
#include "read_support.h"

#include "ZelXmlFormat.h"

#include <gtest/gtest.h>

#include <algorithm>

using namespace ReadSupport;

namespace
{
/// The whole model as text, triangles and exact shapes among them.
std::string textWith(std::filesystem::path const& file, unsigned processors)
{
    ZelIO io;
    ZELProductStructure model;
    io.SetNumProcessors(processors);
    io.SetKeepExactShapes(true);
    if (!io.Read(file.wstring().c_str(), &model, nullptr)) return {};
    return ZelXmlText(model, nullptr).value_or(std::string());
}

class ParallelReadTest : public testing::TestWithParam<char const*>
{
};
} // namespace

TEST_P(ParallelReadTest, GivesTheSameModelAsOneThread)
{
    auto const file = modelFolder() / GetParam();
    REQUIRE_MODEL_FILE(file);
    auto const alone = textWith(file, 1);
    ASSERT_FALSE(alone.empty());
    for (unsigned const processors : {2u, 5u})
        EXPECT_TRUE(textWith(file, processors) == alone) << processors << " threads";
}

INSTANTIATE_TEST_SUITE_P(Files, ParallelReadTest,
                         testing::Values("nist/nist_ctc_05_asme1_ap242-e1.stp",
                                         "asm/koch_leader/Leader_Arm.STEP",
                                         "asm/low_cost_robot_follower_arm.step", "asm/ublox_JODY-W4.step",
                                         "parts/red_cube_blue_cylinder.step", "parts/sofle_SOLENOID.STEP",
                                         "iges/camera_mount.iges"),
                         [](auto const& test) {
                             auto name = std::filesystem::path(test.param).stem().string();
                             std::ranges::replace(name, '-', '_');
                             return name;
                         });
