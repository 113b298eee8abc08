#include "SceneDefaults.h"

#include <gmock/gmock.h>

namespace ZelVizBase
{
namespace
{

class SceneDefaultsTest : public testing::Test
{
protected:
    ZELVizCore::RenderingOptions Options;
    HPS::Canvas Canvas = HPS::Factory::CreateOffScreenCanvas(64, 48);
    HPS::View View = HPS::Factory::CreateView();

    SceneDefaultsTest()
    {
        Options.SetDefaultFaceColor({255, 0, 0, 255});
        Options.SetDefaultEdgeColor({0, 255, 0, 255});
        Options.SetHighlightColor({0, 0, 255, 51});
        Canvas.AttachViewAsLayout(View);
    }
    ~SceneDefaultsTest() override
    {
        Canvas.Delete();
        View.Delete();
    }

    static HPS::SegmentKey source(HPS::PortfolioKey const& portfolio, char const* name)
    {
        HPS::NamedStyleDefinition style;
        EXPECT_TRUE(portfolio.ShowNamedStyleDefinition(name, style)) << name;
        return style.GetSource();
    }
    static HPS::RGBAColor lineColor(HPS::SegmentKey const& segment)
    {
        HPS::Material::Type type{};
        HPS::RGBAColor color;
        float index = 0;
        EXPECT_TRUE(segment.GetMaterialMappingControl().ShowLineColor(type, color, index));
        return color;
    }
};

TEST_F(SceneDefaultsTest, EightStylesInAPortfolioOfTheView)
{
    SceneDefaults::Scene const scene = SceneDefaults::Setup(Canvas, View, Options);
    HPS::PortfolioKey top;
    ASSERT_TRUE(View.GetSegmentKey().GetPortfolioControl().ShowTop(top));
    EXPECT_EQ(top, scene.Portfolio);
    std::vector<HPS::NamedStyleDefinition> styles;
    scene.Portfolio.ShowAllNamedStyleDefinitions(styles);
    std::vector<std::string> names;
    for (auto const& style : styles) names.push_back(style.Name().Str());
    EXPECT_THAT(names, testing::UnorderedElementsAre("highlight_style", "hidden_brep", "hidden_visu",
                                                     "default_style", "hidden_pmi", "pmi_style", "hidden_drw",
                                                     "drawing_style"));
}

TEST_F(SceneDefaultsTest, HiddenStylesHideForGood)
{
    SceneDefaults::Scene const scene = SceneDefaults::Setup(Canvas, View, Options);
    for (char const* name : {"hidden_brep", "hidden_visu", "hidden_pmi", "hidden_drw"}) {
        HPS::SegmentKey const hidden = source(scene.Portfolio, name);
        bool state = true;
        EXPECT_TRUE(hidden.GetVisibilityControl().ShowEverything(state) && !state) << name;
        EXPECT_TRUE(hidden.GetAttributeLockControl().ShowLock(HPS::AttributeLock::Type::Visibility, state) &&
                    state)
            << name;
    }
}

TEST_F(SceneDefaultsTest, AChangeOfTheOptionsReachesTheStyles)
{
    SceneDefaults::Scene scene = SceneDefaults::Setup(Canvas, View, Options);
    EXPECT_EQ(lineColor(source(scene.Portfolio, "highlight_style")), HPS::RGBAColor(0, 0, 1, 0.2F));
    for (char const* name : {"default_style", "pmi_style", "drawing_style"})
        EXPECT_EQ(lineColor(source(scene.Portfolio, name)), HPS::RGBAColor(0, 1, 0, 1)) << name;

    Options.SetDefaultEdgeColor({0, 0, 0, 255});
    Options.SetHighlightColor({255, 255, 255, 255});
    SceneDefaults::UpdateStyles(scene.Portfolio, Options);
    EXPECT_EQ(lineColor(source(scene.Portfolio, "highlight_style")), HPS::RGBAColor::White());
    for (char const* name : {"default_style", "pmi_style", "drawing_style"})
        EXPECT_EQ(lineColor(source(scene.Portfolio, name)), HPS::RGBAColor::Black()) << name;
    float weight = 0;
    HPS::Line::SizeUnits units{};
    EXPECT_TRUE(
        source(scene.Portfolio, "highlight_style").GetLineAttributeControl().ShowWeight(weight, units));
    EXPECT_EQ(weight, 2.0F);

    HPS::PortfolioKey empty = HPS::Database::CreatePortfolio();
    SceneDefaults::UpdateStyles(empty, Options); // nothing is defined there, nothing happens
    empty.Delete();
}

TEST_F(SceneDefaultsTest, AnnotationsStandInFrontOfWhatTheyLieOn)
{
    SceneDefaults::Scene const scene = SceneDefaults::Setup(Canvas, View, Options);
    bool state = false;
    int buckets = 0;
    source(scene.Portfolio, "default_style")
        .GetDrawingAttributeControl()
        .ShowFaceDisplacement(state, buckets);
    EXPECT_TRUE(state);
    EXPECT_EQ(buckets, 16);
    for (char const* name : {"pmi_style", "drawing_style"}) {
        HPS::SegmentKey const style = source(scene.Portfolio, name);
        style.GetDrawingAttributeControl().ShowFaceDisplacement(state, buckets);
        EXPECT_EQ(buckets, -24) << name;
        EXPECT_EQ(style.GetVisibilityControl().ShowHardEdges(state), std::string(name) == "drawing_style");
    }
}

TEST_F(SceneDefaultsTest, TheViewShowsWhatTheOptionsSay)
{
    Options.SetDisplayVertices(true);
    Options.SetDisplayFaces(false);
    SceneDefaults::Scene const scene = SceneDefaults::Setup(Canvas, View, Options);
    HPS::VisibilityControl const visibility = View.GetSegmentKey().GetVisibilityControl();
    bool state = true;
    EXPECT_TRUE(visibility.ShowFaces(state) && !state);
    EXPECT_TRUE(visibility.ShowMarkers(state) && state);
    EXPECT_TRUE(visibility.ShowLines(state) && state);
    EXPECT_TRUE(visibility.ShowEdges(state) && !state);
    EXPECT_TRUE(visibility.ShowShadows(state) && state);
    EXPECT_EQ(scene.Light.Owner(), View.GetSegmentKey());
    HPS::Drawing::Handedness handedness{};
    EXPECT_TRUE(Canvas.GetWindowKey().GetDrawingAttributeControl().ShowWorldHandedness(handedness));
    EXPECT_EQ(handedness, HPS::Drawing::Handedness::Right);
    HPS::Material::Type type{};
    HPS::RGBAColor color;
    float index = 0;
    EXPECT_TRUE(Canvas.GetWindowKey().GetMaterialMappingControl().ShowWindowColor(type, color, index));
    EXPECT_EQ(color, SceneDefaults::ToHps(ZELVizCore::Settings::Default().BackgroundTopColor));
}

} // namespace
} // namespace ZelVizBase
