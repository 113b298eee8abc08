#include "View3DEvo.h"
#include "ViewTest.h"
#include "font_directories.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace ZelVizBase
{
namespace
{

TEST_F(ViewTest, CornersOfTheWindow)
{
    HPS::AxisTriadControl const triad = View.View().GetAxisTriadControl();
    EXPECT_TRUE(triad.GetVisibility());
    EXPECT_FALSE(triad.GetInteractivity());
    EXPECT_FLOAT_EQ(triad.GetSize(), 0.1F);
    HPS::NavigationCubeControl const cube = View.View().GetNavigationCubeControl();
    EXPECT_TRUE(cube.GetVisibility());
    EXPECT_TRUE(cube.GetInteractivity());
    EXPECT_FLOAT_EQ(cube.GetSize(), 0.15F);
    HPS::UTF8 name;
    EXPECT_TRUE(triad.ShowMaterialPalette(name) && name == "AxisTriadColors");
    EXPECT_TRUE(cube.ShowMaterialPalette(name) && name == "NavCubeColors");
}

std::vector<std::string> conditionsOf(ZELView3D const& view)
{
    HPS::UTF8Array conditions;
    view.View().GetSegmentKey().ShowConditions(conditions);
    std::vector<std::string> names;
    for (HPS::UTF8 const& condition : conditions) names.push_back(condition.Str());
    return names;
}

TEST_F(ViewTest, ConditionsHideBodiesAndPmi)
{
    using Names = std::vector<std::string>;
    View.HideBody(7);
    View.HideBody(18446744073709551615ULL);
    View.HideBody(7);
    EXPECT_EQ(conditionsOf(View), (Names{"hide_#7", "hide_#18446744073709551615"}));
    View.UnhideBody(7);
    EXPECT_EQ(conditionsOf(View), Names{"hide_#18446744073709551615"});
    View.GetRenderingOptions()->SetDisplayPMI(false);
    EXPECT_THAT(conditionsOf(View), testing::Contains("hide_pmi"));
    View.GetRenderingOptions()->SetDisplayPMI(true);
    EXPECT_TRUE(conditionsOf(View).empty()) << "those of bodies go with it";
    View.HideBody(3);
    EXPECT_EQ(conditionsOf(View), (Names{"hide_#18446744073709551615", "hide_#3"})) << "and come back";

    ZELVizCore::RenderingOptions options = *View.GetRenderingOptions();
    options.SetDisplayPMI(false);
    View.SetRenderingOptions(options);
    EXPECT_EQ(conditionsOf(View).size(), 2U) << "this way in touches no condition";
}

TEST_F(ViewTest, OptionsReachCornersAndVisibility)
{
    ZELVizCore::RenderingOptions& options = *View.GetRenderingOptions();
    options.SetDisplayAxes(false);
    options.SetDisplayNavigationCube(false);
    options.SetDisplayTessellation(true);
    EXPECT_FALSE(View.View().GetAxisTriadControl().GetVisibility());
    EXPECT_FALSE(View.View().GetNavigationCubeControl().GetVisibility());
}

TEST_F(ViewTest, AttachingTellsTheDocument)
{
    EXPECT_TRUE(Document.GetCanvas() == View.Canvas());
    EXPECT_TRUE(Document.GetView() == View.View());
    HPS::UTF8 style;
    EXPECT_TRUE(Document.GetHighlightOptionsKit().ShowStyleName(style) && style == "highlight_style");
    HPS::KeyPath const path = View.GetModelKeyPath();
    EXPECT_EQ(path.Front(), Document.GetModel().GetLibraryKey());
    EXPECT_EQ(path.Back(), View.Canvas().GetWindowKey());
    HPS::PortfolioKey top;
    EXPECT_TRUE(View.View().GetSegmentKey().GetPortfolioControl().ShowTop(top));
    EXPECT_EQ(top, Document.GetModel().GetPortfolioKey()) << "above the view's own";

    TaggedDocument other;
    View.AttachDocument(&other);
    EXPECT_TRUE(View.View().GetAttachedModel() == other.GetModel());
    View.AttachDocument(nullptr);
    EXPECT_TRUE(View.View().GetAttachedModel() == other.GetModel());
    View.AttachDocument(&Document);
}

TEST_F(ViewTest, TheOrientationSettingTakesEffectAtTheNextUpdate)
{
    ZELVizCore::Settings::Current().ClassicalOrientation = true;
    EXPECT_STREQ(View.GetCamera()->GetName(), "HPSCameraZUp");
    View.Update(MoraCore::UpdateType::Refresh);
    EXPECT_STREQ(View.GetCamera()->GetName(), "HPSCameraYUp");
    HPS::Vector up, front;
    ASSERT_TRUE(Document.GetModel().ShowOrientation(up, front));
    EXPECT_EQ(up, HPS::Vector(0, 1, 0));
    EXPECT_EQ(front, HPS::Vector(0, 0, 1));
}

TEST_F(ViewTest, ModesAndEffects)
{
    using HPS::Rendering::Mode;
    struct {
        void (ZELView3D::*slot)();
        Mode mode;
    } const cases[] = {{&ZELView3D::OnModeFlat, Mode::Flat},
                       {&ZELView3D::OnModeSmooth, Mode::Phong},
                       {&ZELView3D::OnModeHiddenLine, Mode::HiddenLine},
                       {&ZELView3D::OnModeWires, Mode::Wireframe},
                       {&ZELView3D::OnModeGouraud, Mode::Gouraud}};
    for (auto const& [slot, mode] : cases) {
        (View.*slot)();
        EXPECT_EQ(View.View().GetRenderingMode(), mode);
    }
    HPS::SegmentKey const segment = View.View().GetSegmentKey();
    bool shadows = false;
    EXPECT_TRUE(segment.GetVisibilityControl().ShowShadows(shadows) && shadows) << "on from the start";
    View.OnModeShadowMap();
    EXPECT_TRUE(segment.GetVisibilityControl().ShowShadows(shadows) && !shadows);

    bool state = false, ignored = false;
    unsigned resolution = 0, blurring = 0;
    View.OnModeSimpleShadow();
    segment.GetVisualEffectsControl().ShowSimpleShadow(state, resolution, blurring, ignored);
    EXPECT_TRUE(state);
    EXPECT_EQ(resolution, 512U);
    EXPECT_EQ(blurring, 20U);
    HPS::Plane plane;
    EXPECT_TRUE(segment.GetVisualEffectsControl().ShowSimpleShadowPlane(plane));
    EXPECT_GT(plane.d, 0) << "below the model, whose up is z and which lies in the plane of x and y";
    View.OnModeSimpleShadow();
    segment.GetVisualEffectsControl().ShowSimpleShadow(state, resolution, blurring, ignored);
    EXPECT_FALSE(state);
}

TEST(View3DEvoTest, NothingBehindIt)
{
    View3DEvo evo;
    EXPECT_EQ(evo.GetWidget(), nullptr);
    EXPECT_EQ(evo.GetCamera(), nullptr);
    EXPECT_EQ(evo.GetRenderingOptions(), nullptr);
    EXPECT_EQ(evo.GetSelectionHolder(), nullptr);
    EXPECT_FALSE(evo.SelectionIsSticky());
    EXPECT_FALSE(evo.TogglePickRayOp());
    evo.AttachDocument(nullptr);
    evo.Update(MoraCore::UpdateType::Complete);
    evo.UpdateBackgroundColors();
    evo.SetRenderingOptions({});
    evo.SelectionSetIsSticky(true);
    evo.UnHighlightAll();
    evo.HideBody(1);
    evo.UnhideBody(1);
    evo.MakeSegmentAndPropertyBrowser(nullptr, nullptr);
}

TEST(FontDirectoriesTest, LastNamedFirst)
{
    namespace fs = std::filesystem;
    fs::path const root = fs::path(testing::TempDir()) / "zel_fonts";
    fs::remove_all(root);
    for (char const* folder : {"windows/fonts", "a/resources/fonts/OpenType", "a/resources/fonts/PostScript",
                               "a/resources/fonts/TrueType", "b/resources/fonts/OpenType",
                               "b/resources/fonts/PostScript", "b/resources/fonts/TrueType"})
        fs::create_directories(root / folder);
    unsetenv("windir");
    unsetenv("LUMInstallPath");
    EXPECT_TRUE(fontDirectories().empty());
    setenv("windir", (root / "windows").c_str(), 1);
    setenv("LUMInstallPath", ((root / "a").string() + ";" + (root / "b").string() + ";/nowhere").c_str(), 1);
    std::vector<std::string> found;
    for (HPS::UTF8 const& directory : fontDirectories())
        found.push_back(fs::relative(directory.Str(), root).string());
    EXPECT_EQ(found, (std::vector<std::string>{"b/resources/fonts/TrueType", "b/resources/fonts/PostScript",
                                               "b/resources/fonts/OpenType", "a/resources/fonts/TrueType",
                                               "a/resources/fonts/PostScript", "a/resources/fonts/OpenType",
                                               "windows/fonts"}));
    unsetenv("windir");
    unsetenv("LUMInstallPath");
    fs::remove_all(root);
}

} // namespace
} // namespace ZelVizBase
