#include "ViewTest.h"
#include "ZELHighlightOperator.h"

#include <QtTest>

namespace ZelVizBase
{
namespace
{

using Priority = HPS::Operator::Priority;

class OperatorsTest : public ViewTest
{
protected:
    std::vector<std::string> names(Priority priority) const
    {
        std::vector<std::string> found;
        for (auto const& pushed : View.View().GetOperatorControl().Show(priority))
            found.push_back(pushed->GetName().Str());
        return found;
    }
    HPS::KeyPathArray lit() const
    {
        HPS::KeyPathArray paths;
        View.Canvas().GetWindowKey().GetHighlightControl().ShowHighlightedPaths(paths);
        return paths;
    }
    void click(QPoint const& at)
    {
        QTest::mousePress(&View, Qt::LeftButton, {}, at);
        QTest::mouseRelease(&View, Qt::LeftButton, {}, at);
    }
};

TEST_F(OperatorsTest, TheDefaultStack)
{
    EXPECT_EQ(names(Priority::High), std::vector<std::string>{"3DLoom_HighlightOperator"});
    EXPECT_EQ(names(Priority::Default), (std::vector<std::string>{"HPS_PanOperator", "HPS_ZoomOperator"}));
    EXPECT_EQ(names(Priority::Low),
              (std::vector<std::string>{"HPS_OrbitOperator", "HPS_MouseWheelOperator"}));
    View.ToggleHighlightOp();
    EXPECT_TRUE(names(Priority::High).empty());
    View.ToggleHighlightOp();
    EXPECT_EQ(names(Priority::High).size(), 1U);
}

TEST_F(OperatorsTest, AnotherConfiguration)
{
    HPS::NavigationCubeControl cube = View.View().GetNavigationCubeControl();
    cube.SetInteractivity(false);
    View.ConfigureOperators(View.GetOpConfigurator());
    EXPECT_FALSE(cube.GetInteractivity()) << "the one in use changes nothing";

    ZELOpConfigurator other;
    other.Edit(OperatorOrbit, ZELOpConfig(ButtonMiddle, KeyShift, PriorityDefault));
    other.Edit(OperatorHighlight, ZELOpConfig(ButtonRight, KeyNone, PriorityLow));
    View.ConfigureOperators(other);
    EXPECT_TRUE(cube.GetInteractivity());
    EXPECT_TRUE(names(Priority::High).empty());
    EXPECT_EQ(names(Priority::Default),
              (std::vector<std::string>{"HPS_OrbitOperator", "HPS_PanOperator", "HPS_ZoomOperator"}));
    EXPECT_EQ(names(Priority::Low),
              (std::vector<std::string>{"HPS_MouseWheelOperator", "3DLoom_HighlightOperator"}));
    click({50, 100});
    EXPECT_TRUE(Document.Told.empty()) << "the left button does not select any more";
}

TEST(ZELOpConfigTest, SetsOfButtonsAndKeys)
{
    ZELOpConfig config(ButtonNone, KeyNone, PriorityHigh);
    EXPECT_TRUE(config.GetButtons().Empty());
    EXPECT_TRUE(config.GetModifiers().Empty());
    config.AddButton(ButtonWheel);
    EXPECT_TRUE(config.GetButtons().Empty()) << "a wheel is no button";
    config.AddButton(ButtonX2);
    config.AddButton(ButtonLeft);
    EXPECT_EQ(config.GetButtons(), HPS::MouseButtons::ButtonLeft() | HPS::MouseButtons::ButtonX2());
    config.AddModifier(KeyAlt);
    config.AddModifier(KeyLeftShift);
    EXPECT_EQ(config.GetModifiers(), HPS::ModifierKeys::KeyAlt() | HPS::ModifierKeys::KeyLeftShift());
    config.AddModifier(static_cast<KeyModifier>(3));
    EXPECT_EQ(config.GetModifiers(), HPS::ModifierKeys::KeyAlt() | HPS::ModifierKeys::KeyLeftShift());
    EXPECT_EQ(ZELOpConfig().GetPriority(), PriorityDefault);
}

TEST_F(OperatorsTest, AClickLightsUpViewAndTree)
{
    int const before = Document.Cleared;
    click({50, 100});
    ASSERT_EQ(lit().size(), 1U);
    EXPECT_TRUE(lit()[0].Front().HasType(HPS::Type::GeometryKey));
    EXPECT_EQ(Document.Told, (std::vector<unsigned long long>{22, 33}));
    EXPECT_GT(Document.Cleared, before) << "the old mark went first";

    click({150, 100});
    ASSERT_EQ(lit().size(), 1U) << "the new one takes the old one's place";
    EXPECT_EQ(lit()[0].Front(), Document.Pmi) << "the whole of an annotation";
    EXPECT_EQ(Document.Told, (std::vector<unsigned long long>{22, 10010, 44, 55}));

    int const marks = Document.Cleared;
    click({100, 20});
    EXPECT_TRUE(lit().empty());
    EXPECT_GT(Document.Cleared, marks);
}

TEST_F(OperatorsTest, UntaggedThingsLightUpInTheViewAlone)
{
    HPS::SegmentKey plain = Document.GetModel().GetSegmentKey().Subsegment("plain");
    plain.InsertShell({{-2, 1, 1}, {2, 1, 1}, {0, 2, 1}}, {3, 0, 1, 2});
    Document.Told = {1};
    click({100, 40});
    EXPECT_EQ(lit().size(), 1U);
    EXPECT_TRUE(Document.Told.empty()) << "the tree is told of nothing";
}

TEST_F(OperatorsTest, APressThatSelectsAlsoTurns)
{
    HPS::CameraKit before, after;
    View.View().ShowCamera(before);
    QTest::mousePress(&View, Qt::LeftButton, {}, QPoint(50, 100));
    QTest::mouseMove(&View, QPoint(80, 100));
    QTest::mouseRelease(&View, Qt::LeftButton, {}, QPoint(80, 100));
    View.View().ShowCamera(after);
    EXPECT_FALSE(before == after);
    EXPECT_EQ(lit().size(), 1U);
}

TEST_F(OperatorsTest, HighlightsOfTheHost)
{
    View.Highlight(Document.Mesh, false);
    View.Highlight(HPS::KeyPath(HPS::KeyArray{Document.Pmi}), false);
    EXPECT_EQ(lit().size(), 2U);
    View.Highlight(HPS::Key(), true);
    View.Highlight(HPS::KeyPath(), true);
    EXPECT_EQ(lit().size(), 2U) << "nothing to light up, nothing to clear";
    View.UnHighlight(Document.Mesh);
    EXPECT_EQ(lit().size(), 1U);
    View.Highlight(Document.Mesh, true);
    EXPECT_EQ(lit().size(), 1U);
    View.UnHighlight(HPS::KeyPath());
    EXPECT_TRUE(lit().empty());
    int const cleared = Document.Cleared;
    View.UnHighlightAll(false);
    EXPECT_EQ(Document.Cleared, cleared + 1);
}

} // namespace
} // namespace ZelVizBase
