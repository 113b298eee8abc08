#include <narmeta/io/ZelIO.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string_view>

#include <sys/wait.h>
#include <unistd.h>

using namespace NarMetaInfra;

namespace
{
constexpr unsigned SecondsPerRead = 20;
constexpr int DefaultMutations = 40;

struct Source {
    std::string_view path; ///< of a real file, or of one of our own, which stands at the root of this project
};
Source const Sources[] = {{"parts/red_cube_blue_cylinder.step"},
                          {"nist/dt4sm_simple_sign.stp"},
                          {"brep/mayo_cube.brep"},
                          {"gltf/car.glb"},
                          {"mesh/cube_with_materials.obj"},
                          {"mesh/low_cost_robot_gripper_static_part.stl"},
                          {"iges/camera_mount.iges"},
                          {"nist/nist_ctc_01_asme1_ap242-e1.stp"},
                          {"tests/narmeta_io/data/plate.stp"},
                          {"tests/narmeta_io/data/rig.stp"},
                          {"tests/narmeta_io/data/rack.stp"}};

std::filesystem::path fileOf(Source const& source)
{
    std::filesystem::path const root = ZEL_SOURCE_DIR;
    return (source.path.starts_with("tests/") ? root : root / "../shared/models") / source.path;
}

std::string bytesOf(std::filesystem::path const& file)
{
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

/// One byte of the file changed, or its end cut off; the same for the same number.
std::string changed(std::string bytes, unsigned number)
{
    std::mt19937 random(number);
    auto const at = random() % bytes.size();
    if (number % 5 == 0)
        bytes.resize(at);
    else
        bytes[at] = static_cast<char>(random());
    return bytes;
}

enum class Ending { Read, Refused, WithoutCause, TooLong, Crashed };

/// Reads in a child, which a fault takes along in place of this process.
Ending readInChild(std::filesystem::path const& file)
{
    auto const child = fork();
    if (child == 0) {
        alarm(SecondsPerRead);
        ZelIO io;
        ZELProductStructure model;
        bool const isRead = io.Read(file.wstring().c_str(), &model, nullptr);
        auto const& cause = io.GetErrorMessage();
        bool const hasCause = !cause.empty() && cause.find(L'\n') == cause.npos;
        _exit(isRead ? 0 : hasCause ? 1 : 2);
    }
    int status = 0;
    waitpid(child, &status, 0);
    if (WIFSIGNALED(status)) return WTERMSIG(status) == SIGALRM ? Ending::TooLong : Ending::Crashed;
    switch (WEXITSTATUS(status)) {
    case 0:
        return Ending::Read;
    case 1:
        return Ending::Refused;
    default:
        return Ending::WithoutCause;
    }
}

class MutationTest : public testing::TestWithParam<Source>
{
};
} // namespace

TEST_P(MutationTest, EndsWithAResult)
{
    auto const file = fileOf(GetParam());
    if (!std::filesystem::exists(file)) GTEST_SKIP() << "no model file " << file;
    auto const good = bytesOf(file);
    auto const folder = std::filesystem::temp_directory_path() / ("mutations-" + std::to_string(getpid()));
    std::filesystem::create_directories(folder);
    auto const target = folder / file.filename();
    if (auto const part = file.parent_path() / "plate.stp"; std::filesystem::exists(part))
        std::filesystem::copy_file(part, folder / "plate.stp"); // to which another one refers
    auto const* const wish = std::getenv("ZEL_MUTATIONS");
    auto const count = wish ? std::atoi(wish) : DefaultMutations;
    int endings[5] = {};
    for (int i = 1; i <= count; ++i) {
        {
            auto const bytes = changed(good, static_cast<unsigned>(i));
            std::ofstream(target, std::ios::binary)
                .write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        }
        auto const ending = readInChild(target);
        ++endings[static_cast<int>(ending)];
        EXPECT_NE(ending, Ending::Crashed) << "change " << i;
        EXPECT_NE(ending, Ending::WithoutCause) << "change " << i;
    }
    std::filesystem::remove_all(folder);
    // The kernel may lose itself in a number; a limit of time is what a caller sets against that.
    EXPECT_LE(endings[static_cast<int>(Ending::TooLong)], count / 20);
    std::cout << GetParam().path << ": " << endings[0] << " read, " << endings[1] << " refused, "
              << endings[3] << " over time\n";
}

INSTANTIATE_TEST_SUITE_P(Files, MutationTest, testing::ValuesIn(Sources), [](auto const& test) {
    auto name = std::filesystem::path(test.param.path).filename().string();
    std::ranges::replace_if(
        name, [](char c) { return !std::isalnum(static_cast<unsigned char>(c)); }, '_');
    return name;
});
