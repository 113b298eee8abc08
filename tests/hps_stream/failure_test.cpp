#include "support.h"
#include <filesystem>
#include <fstream>

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
};

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
