// Real models as stream files: what is read back is what was written.
#include "CadDocument.h"
#include "tree_comparison.h"

#include <gtest/gtest.h>

#include <cctype>
#include <filesystem>
#include <string_view>
#include <unistd.h>

namespace fs = std::filesystem;

namespace
{

class StreamFile : public testing::TestWithParam<char const*>
{
};

TEST_P(StreamFile, readsBackAsItWasWritten)
{
    fs::path const model = fs::path(ZEL_SOURCE_DIR "/../shared/models") / GetParam();
    if (!fs::exists(model)) GTEST_SKIP() << "no file " << model;
    MoraCore::AViewTree tree;
    ZelCad::CadDocument document(&tree);
    ASSERT_TRUE(document.Open(model.wstring().c_str()));
    ASSERT_TRUE(document.Render(true));
    auto const scene = document.GetModel().GetSegmentKey();
    fs::path const file = fs::temp_directory_path() / ("stream test " + std::to_string(::getpid()) + ".hsf");
    HPS::Stream::File::Export(HPS::UTF8(file.string()), scene,
                              HPS::Stream::ExportOptionsKit().SetColorCompression(true, 16))
        .Wait();
    auto target = HPS::Database::CreateRootSegment(), library = HPS::Database::CreateRootSegment();
    HPS::Stream::File::Import(HPS::UTF8(file.string()),
                              HPS::Stream::ImportOptionsKit().SetSegment(target).SetAlternateRoot(library))
        .Wait();
    EXPECT_EQ(HPS::scene::firstDifference(scene, target), "");
    RecordProperty("bytes", std::to_string(fs::file_size(file)));
    fs::remove(file);
    target.Delete();
    library.Delete();
}

INSTANTIATE_TEST_SUITE_P(Models, StreamFile,
                         testing::Values("asm/ublox_JODY-W4.step", "parts/red_cube_blue_cylinder.step",
                                         "iges/camera_mount.iges", "gltf/car.glb",
                                         "mesh/low_cost_robot_gripper_static_part.stl"),
                         [](auto const& model) {
                             std::string name;
                             for (char const c : std::string_view(model.param))
                                 name += std::isalnum(static_cast<unsigned char>(c)) ? c : '_';
                             return name;
                         });

} // namespace
