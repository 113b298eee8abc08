// Real models: what is found at random pixels against the long way round.
#include "CadDocument.h"
#include "Exhaustive.h"
#include "Stage.h"
#include <filesystem>
#include <random>

namespace HPS
{
namespace
{

namespace fs = std::filesystem;

class Files : public testing::TestWithParam<char const*>
{
protected:
    static constexpr int width = 640, height = 480;

    /// By the road of a file, as the view sets its models up.
    void open()
    {
        fs::path const file = fs::path(ZEL_SOURCE_DIR "/../shared/models") / GetParam();
        if (!fs::exists(file)) GTEST_SKIP() << "the model files are not here";
        ASSERT_TRUE(document.Open(fs::canonical(file).wstring().c_str()));
        canvas.AttachViewAsLayout(view);
        view.AttachModel(document.GetModel());
        document.GetModel().GetSegmentKey().GetSelectabilityControl().SetEdges(false).SetVertices(false);
        view.FitWorld();
        CameraKit camera;
        view.ShowCamera(camera);
        view.SetCamera(camera.SetProjection(Camera::Projection::Perspective));
    }
    Exhaustive reference() const
    {
        CameraKit camera;
        view.ShowCamera(camera);
        return {SprocketPath(canvas, canvas.GetAttachedLayout(), view).GetKeyPath(), camera, width, height};
    }
    ~Files() override
    {
        canvas.Delete();
        view.Delete();
    }

    MoraCore::AViewTree tree;
    ZelCad::CadDocument document{&tree};
    Canvas canvas = Factory::CreateOffScreenCanvas(width, height);
    View view = Factory::CreateView();
};

TEST_P(Files, AreSelectedAsTheyStand)
{
    open();
    if (IsSkipped() || HasFatalFailure()) return;
    Exhaustive const exact = reference();
    ASSERT_GT(exact.primitiveCount(), 0u);
    SelectionOptionsKit options, nearest;
    options.SetLevel(Selection::Level::Entity)
        .SetRelatedLimit(2147483647)
        .SetSorting(Selection::Sorting::Off);
    options.SetProximity(0);
    nearest.SetLevel(Selection::Level::Entity).SetSorting(Selection::Sorting::ZSorting).SetProximity(0);
    std::mt19937 random(7);
    std::uniform_real_distribution<float> across(-1, 1);
    SelectionControl const control = canvas.GetWindowKey().GetSelectionControl();
    SelectionResults results;
    auto isText = [](Key const& key) { return key.HasType(Type::TextKey); };
    int hits = 0, faces = 0;
    for (int i = 0; i < 1000; ++i) {
        float const x = across(random), y = across(random);
        double const px = (double(x) + 1) / 2 * width, py = (1 - double(y)) / 2 * height;
        float const half = i % 20 == 0 ? 40 : 4;
        control.SelectByArea(
            {x - 2 * half / width, x + 2 * half / width, y - 2 * half / height, y + 2 * half / height},
            options, results);
        std::set<KeyArray> found;
        for (auto at = results.GetIterator(); at.IsValid(); at.Next())
            if (KeyPath path; at.GetItem().ShowPath(path) && !isText(path.Front())) found.insert(path.Keys());
        Exhaustive::Square const square{std::max(px - half, 0.0), std::max(py - half, 0.0),
                                        std::min(px + half, double(width)),
                                        std::min(py + half, double(height))};
        auto const answer = exact.in(square);
        // Lines are found as wide as they are drawn.
        auto const possible = exact.in(square.grown(8)).possible;
        hits += found.empty() ? 0 : 1;
        for (KeyArray const& path : answer.certain)
            ASSERT_TRUE(found.contains(path)) << "missed at " << px << ", " << py;
        for (KeyArray const& path : found) {
            bool const isFace = path.front().HasType(Type::ShellKey);
            ASSERT_TRUE((isFace ? answer.possible : possible).contains(path))
                << "made up at " << px << ", " << py;
        }

        control.SelectByPoint({x, y, 0}, nearest, results);
        KeyPath path;
        results.GetIterator().GetItem().ShowPath(path);
        if (!path.Empty() && !path.Front().HasType(Type::ShellKey)) continue; // in front of the faces
        auto const first = exact.nearestAt(px, py);
        if (path.Empty())
            ASSERT_TRUE(first.certain.empty()) << "missed at " << px << ", " << py;
        else
            ASSERT_TRUE(first.possible.contains(path.Keys())) << "not the nearest at " << px << ", " << py;
        faces += path.Empty() ? 0 : 1;
    }
    EXPECT_GT(hits, 50);
    EXPECT_GT(faces, 20);
}

INSTANTIATE_TEST_SUITE_P(Shared, Files,
                         testing::Values("parts/red_cube_blue_cylinder.step", "asm/ublox_JODY-W4.step",
                                         "gltf/car.glb", "mesh/low_cost_robot_gripper_static_part.stl",
                                         "nist/nist_ctc_01_asme1_ap242-e1.stp"));

} // namespace
} // namespace HPS
