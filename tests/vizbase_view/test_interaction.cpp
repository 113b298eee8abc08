#include "View3DEvo.h"
#include "ViewInteraction.h"
#include "ViewTest.h"

#include <QtTest>

#include <cmath>

namespace ZelVizBase
{
namespace
{

using Ids = std::vector<unsigned long long>;

/// Every node that the tree is told to mark since it was last cleared.
class MarkedDocument : public TaggedDocument
{
public:
    using TaggedDocument::UnHighlight;
    void DefineRenderIds(Ids& ids) override { Marked.push_back(ids); }
    void UnHighlight() override { Marked.clear(); }

    std::vector<Ids> Marked;
};

struct Hearer : MoraCore::IInteractionListener {
    void OnPointed(MoraCore::PointedAt const& at) override { Pointed.push_back(at); }
    void OnSelectionChanged() override { ++Changes; }
    void OnMenuWanted(int x, int y) override { Menus.emplace_back(x, y); }

    std::vector<MoraCore::PointedAt> Pointed;
    int Changes = 0;
    std::vector<QPoint> Menus;
};

/// As ViewTest, with a hand. A body of one face, without a mesh's tag, in the instance 66 at the upper
/// border: from (20, 0) to (80, 20) in pixels.
class InteractionTest : public ViewTest
{
protected:
    InteractionTest()
    {
        View.AttachDocument(&Marking);
        View.View().GetNavigationCubeControl().SetVisibility(false);
        Part = Marking.GetModel().GetSegmentKey().Subsegment("part");
        ZELSegmentTagger::Tag(Part, 66ULL, ZELSegmentTagger::TAG_INSTANCE);
        Body = Part.Subsegment("body");
        ZELSegmentTagger::Tag(Body, 77ULL, static_cast<ZELSegmentTagger::TAG_TYPE>(33));
        Face = Body.Subsegment("colour").InsertShell(
            {{-1.6F, 1.6F, 0}, {-0.4F, 1.6F, 0}, {-0.4F, 2, 0}, {-1.6F, 2, 0}}, {4, 0, 1, 2, 3});
        ZELSegmentTagger::Tag(Face, 88ULL, ZELSegmentTagger::TAG_FACE);
        Hand.SetInteractionListener(&Heard);
        View.Update(MoraCore::UpdateType::Default);
    }
    ~InteractionTest() override
    {
        Hand.SetInteractionListener(nullptr);
        View.AttachDocument(&Document);
    }

    HPS::KeyPathArray lit() const
    {
        HPS::KeyPathArray paths;
        View.Canvas().GetWindowKey().GetHighlightControl().ShowHighlightedPaths(paths);
        return paths;
    }
    std::vector<HPS::Key> litFronts() const
    {
        std::vector<HPS::Key> fronts;
        for (HPS::KeyPath const& path : lit()) fronts.push_back(path.Front());
        return fronts;
    }
    HPS::CameraKit camera() const
    {
        HPS::CameraKit kit;
        View.View().ShowCamera(kit);
        return kit;
    }
    void drag(Qt::MouseButton button, Qt::KeyboardModifiers held, QPoint const& from, QPoint const& to)
    {
        QTest::mousePress(&View, button, held, from);
        QTest::mouseMove(&View, (from + to) / 2);
        QTest::mouseMove(&View, to);
        QTest::mouseRelease(&View, button, held, to);
    }
    void click(QPoint const& at, Qt::KeyboardModifiers held = {})
    {
        QTest::mousePress(&View, Qt::LeftButton, held, at);
        QTest::mouseRelease(&View, Qt::LeftButton, held, at);
    }

    QPoint const OnMesh{50, 100}, OnPmi{150, 100}, OnFace{50, 10}, OnNothing{100, 190};
    MarkedDocument Marking;
    HPS::SegmentKey Part, Body;
    HPS::ShellKey Face;
    Hearer Heard;
    ViewInteraction& Hand = *View.GetInteraction();
};

TEST_F(InteractionTest, AClickSelectsWhenItIsReleasedWhereItBegan)
{
    HPS::CameraKit const before = camera();
    QTest::mousePress(&View, Qt::LeftButton, {}, OnMesh);
    EXPECT_TRUE(lit().empty()) << "it may become a drag";
    QTest::mouseMove(&View, OnMesh + QPoint(2, 2));
    QTest::mouseRelease(&View, Qt::LeftButton, {}, OnMesh + QPoint(2, 2));
    EXPECT_EQ(lit().size(), 1U) << "a hand trembles";
    EXPECT_TRUE(camera() == before);
    EXPECT_EQ(Marking.Marked, (std::vector<Ids>{{22, 33}}));

    drag(Qt::LeftButton, {}, OnPmi, OnPmi + QPoint(30, 0));
    EXPECT_FALSE(camera() == before) << "it turns";
    EXPECT_EQ(Marking.Marked, (std::vector<Ids>{{22, 33}})) << "and does not select";
}

TEST_F(InteractionTest, ControlAddsAndTakesAway)
{
    click(OnMesh);
    click(OnPmi, Qt::ControlModifier);
    EXPECT_EQ(lit().size(), 2U);
    EXPECT_EQ(Marking.Marked, (std::vector<Ids>{{22, 33}, {22, 10010, 44, 55}}));
    click(OnNothing, Qt::ControlModifier);
    EXPECT_EQ(lit().size(), 2U) << "a miss loses nothing";
    click(OnMesh, Qt::ControlModifier);
    EXPECT_EQ(litFronts(), std::vector<HPS::Key>{Marking.Pmi});
    EXPECT_EQ(Marking.Marked, (std::vector<Ids>{{22, 10010, 44, 55}}));
    EXPECT_EQ(View.GetActiveSelection().GetCount(), 1U);
    click(OnNothing);
    EXPECT_TRUE(lit().empty());
    EXPECT_TRUE(Marking.Marked.empty());
    EXPECT_TRUE(View.GetActiveSelection().Empty());
    EXPECT_EQ(Heard.Changes, 4);
}

TEST_F(InteractionTest, AFaceOfABodyMarksTheBodysNode)
{
    click(OnFace);
    EXPECT_EQ(litFronts(), std::vector<HPS::Key>{Face});
    EXPECT_EQ(Marking.Marked, (std::vector<Ids>{{66, 77}}));
}

TEST_F(InteractionTest, WhoeverTakesHighlightsOffEndsTheSelection)
{
    click(OnMesh);
    View.UnHighlightAll(true);
    EXPECT_EQ(Heard.Changes, 2);
    EXPECT_TRUE(View.GetActiveSelection().Empty());
    click(OnPmi, Qt::ControlModifier);
    EXPECT_EQ(lit().size(), 1U) << "what was selected before does not come back";
    Hand.ClearSelection();
    EXPECT_TRUE(lit().empty());
}

TEST_F(InteractionTest, ParentsUpToTheTop)
{
    click(OnFace);
    for (HPS::SegmentKey const& parent : {Body, Part}) {
        EXPECT_TRUE(Hand.SelectParents());
        EXPECT_EQ(litFronts(), std::vector<HPS::Key>{parent});
    }
    EXPECT_EQ(Marking.Marked, (std::vector<Ids>{{66}}));
    EXPECT_FALSE(Hand.SelectParents());
    EXPECT_EQ(litFronts(), std::vector<HPS::Key>{Part}) << "at the top all stays";
}

TEST_F(InteractionTest, ZoomFitsWhatIsSelected)
{
    View3DEvo evo(&View); // behind which the camera reaches the view
    EXPECT_FALSE(Hand.ZoomToSelection());
    click(OnFace);
    click(OnMesh, Qt::ControlModifier);
    ASSERT_TRUE(Hand.ZoomToSelection());
    HPS::Point target;
    camera().ShowTarget(target);
    EXPECT_NEAR(target.x, -1, 1e-4) << "the middle of both";
    EXPECT_NEAR(target.y, 0.55, 1e-4);
}

TEST_F(InteractionTest, HoveringLightsUpOneThingAndTellsOfIt)
{
    QTest::mouseMove(&View, OnMesh);
    EXPECT_TRUE(lit().empty() && Heard.Pointed.empty()) << "it is off";
    Hand.SetHovering(true);
    QTest::mouseMove(&View, OnMesh + QPoint(1, 0));
    ASSERT_EQ(lit().size(), 1U);
    EXPECT_NEAR(Heard.Pointed.back().place[0], -0.97, 0.02);
    EXPECT_NEAR(Heard.Pointed.back().place[1], 0, 0.02);
    HPS::Key const first = lit()[0].Front();
    QTest::mouseMove(&View, OnFace);
    EXPECT_EQ(litFronts(), std::vector<HPS::Key>{Face});
    EXPECT_NE(first, HPS::Key(Face));
    QTest::mouseMove(&View, OnNothing);
    EXPECT_TRUE(lit().empty());
    QTest::mouseMove(&View, OnFace);
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(&View, &leave);
    EXPECT_TRUE(lit().empty()) << "nothing stays behind";
    EXPECT_EQ(Heard.Pointed.back().id.Length(), 0);

    QTest::mouseMove(&View, OnMesh);
    click(OnMesh);
    ASSERT_EQ(lit().size(), 1U) << "the selection alone";
    QTest::mouseMove(&View, OnMesh + QPoint(1, 1));
    EXPECT_EQ(lit().size(), 1U) << "what is selected stays as it is";
    QTest::mouseMove(&View, OnFace);
    EXPECT_EQ(lit().size(), 2U);
    Hand.SetHovering(false);
    EXPECT_EQ(lit().size(), 1U);
}

TEST_F(InteractionTest, HoveringDrawsNothingOfTheScene)
{
    View.View().GetAxisTriadControl().SetVisibility(false);
    Hand.SetHovering(true);
    auto const reportAt = [&](QPoint const& at) {
        QTest::mouseMove(&View, at);
        HPS::UpdateReport report;
        View.Canvas().ShowUpdateReport(report); // which waits for the picture
        return report;
    };
    // The first highlight finds a changed scene, the second one that such changes come alone.
    reportAt(OnMesh);
    reportAt(OnFace);
    for (QPoint const& at : {OnMesh, OnFace, OnMesh}) {
        HPS::UpdateReport const report = reportAt(at);
        EXPECT_LE(report.triangles, 2U) << "that of the thing under the mouse";
        EXPECT_LE(report.records, 1U);
    }
}

TEST_F(InteractionTest, ABoxSelectsInstances)
{
    HPS::CameraKit const before = camera();
    auto const bars = [&] {
        int shown = 0;
        for (QWidget* const bar : View.findChildren<QWidget*>("rubber band")) shown += bar->isVisible();
        return shown;
    };
    struct {
        char const* what;
        Qt::KeyboardModifiers held;
        QPoint from, to;
        std::vector<HPS::Key> selected;
    } const cases[] = {
        {"wholly inside", Qt::ShiftModifier, {10, 0}, {90, 30}, {Part}},
        {"not wholly inside", Qt::ShiftModifier, {10, 0}, {70, 120}, {}},
        {"touched", Qt::ShiftModifier, {70, 120}, {10, 10}, {Marking.Instance, Part}},
        {"nothing there", Qt::ShiftModifier, {190, 199}, {120, 180}, {}},
        {"all", Qt::ShiftModifier, {1, 199}, {199, 0}, {Marking.Instance, Part}},
        {"one", Qt::ShiftModifier, {90, 15}, {70, 5}, {Part}},
        {"and another",
         Qt::ShiftModifier | Qt::ControlModifier,
         {60, 110},
         {50, 90},
         {Marking.Instance, Part}},
    };
    for (auto const& [what, held, from, to, selected] : cases) {
        SCOPED_TRACE(what);
        QTest::mousePress(&View, Qt::LeftButton, held, from);
        EXPECT_EQ(bars(), 0);
        QTest::mouseMove(&View, to);
        EXPECT_EQ(bars(), 4);
        QTest::mouseRelease(&View, Qt::LeftButton, held, to);
        EXPECT_EQ(bars(), 0);
        EXPECT_THAT(litFronts(), testing::UnorderedElementsAreArray(selected));
        EXPECT_EQ(Marking.Marked.size(), selected.size());
    }
    EXPECT_TRUE(camera() == before);
    QTest::mousePress(&View, Qt::LeftButton, Qt::ShiftModifier, QPoint(10, 10));
    QTest::mouseMove(&View, QPoint(60, 60));
    QFocusEvent lost(QEvent::FocusOut);
    QCoreApplication::sendEvent(&View, &lost);
    EXPECT_EQ(bars(), 0) << "a lost focus ends it";
}

TEST_F(InteractionTest, ARightClickWantsAMenuAndARightDragPans)
{
    QTest::mousePress(&View, Qt::RightButton, {}, OnMesh);
    EXPECT_TRUE(Heard.Menus.empty());
    QTest::mouseRelease(&View, Qt::RightButton, {}, OnMesh + QPoint(1, 1));
    EXPECT_EQ(Heard.Menus, std::vector<QPoint>{OnMesh});
    EXPECT_EQ(Marking.Marked, (std::vector<Ids>{{22, 33}})) << "it is about what lies there";
    click(OnFace);
    Hand.SelectParents();
    QTest::mouseClick(&View, Qt::RightButton, {}, OnFace);
    EXPECT_EQ(litFronts(), std::vector<HPS::Key>{Body}) << "or about what is selected around it";
    QTest::mouseClick(&View, Qt::RightButton, {}, OnNothing);
    EXPECT_EQ(litFronts(), std::vector<HPS::Key>{Body});
    Heard.Menus.resize(1);
    HPS::CameraKit const before = camera();
    drag(Qt::RightButton, {}, OnMesh, OnMesh + QPoint(20, 0));
    EXPECT_EQ(Heard.Menus.size(), 1U);
    EXPECT_FALSE(camera() == before);
}

TEST_F(InteractionTest, RaysEndWhatTheHandDoes)
{
    Hand.SetHovering(true);
    QTest::mouseMove(&View, OnMesh);
    View.TogglePickRayOp();
    EXPECT_TRUE(lit().empty());
    QTest::mouseMove(&View, OnFace);
    EXPECT_TRUE(lit().empty());
    View.TogglePickRayOp();
    QTest::mouseMove(&View, OnFace + QPoint(1, 0));
    EXPECT_EQ(lit().size(), 1U);
}

/// Each gesture of each style does to the camera what it says.
class MouseStyles : public InteractionTest, public testing::WithParamInterface<MoraCore::MouseStyle>
{
protected:
    struct Moved {
        bool direction, target, field;
        bool operator==(Moved const&) const = default;
    };
    Moved byGesture(MoraCore::MouseGesture const& gesture)
    {
        using Button = MoraCore::MouseGesture::Button;
        Qt::KeyboardModifiers held;
        held.setFlag(Qt::ShiftModifier, gesture.shift);
        held.setFlag(Qt::ControlModifier, gesture.control);
        Qt::MouseButton const button = gesture.button == Button::Left     ? Qt::LeftButton
                                       : gesture.button == Button::Middle ? Qt::MiddleButton
                                                                          : Qt::RightButton;
        View.View().SetCamera(Start);
        HPS::CameraKit const before = camera();
        drag(button, held, {100, 150}, {120, 170});
        HPS::CameraKit const after = camera();
        HPS::Point e0, e1, t0, t1;
        float w0 = 0, w1 = 0, h0 = 0, h1 = 0;
        before.ShowPosition(e0);
        after.ShowPosition(e1);
        before.ShowTarget(t0);
        after.ShowTarget(t1);
        before.ShowField(w0, h0);
        after.ShowField(w1, h1);
        HPS::Vector const a = (e0 - t0).Normalize(), b = (e1 - t1).Normalize();
        return {(a - b).Length() > 1e-3, (t1 - t0).Length() > 1e-3, std::abs(w1 - w0) > 1e-3};
    }
    HPS::CameraKit Start = camera();
};

INSTANTIATE_TEST_SUITE_P(All, MouseStyles, testing::ValuesIn(MoraCore::MouseStyles),
                         [](auto const& style) { return "style" + std::to_string(style.index); });

TEST_P(MouseStyles, EveryGestureDoesWhatTheStyleSays)
{
    Hand.SetMouseStyle(GetParam());
    EXPECT_EQ(byGesture(GetParam().orbit), (Moved{true, false, false}));
    EXPECT_EQ(byGesture(GetParam().pan), (Moved{false, true, false}));
    EXPECT_EQ(byGesture(GetParam().zoom), (Moved{false, false, true}));
    View.View().SetCamera(Start);
    click(OnMesh);
    EXPECT_EQ(lit().size(), 1U);
    drag(Qt::LeftButton, Qt::ShiftModifier, {10, 0}, {90, 30});
    EXPECT_EQ(litFronts(), std::vector<HPS::Key>{Part});
    QTest::mouseClick(&View, Qt::RightButton, {}, OnMesh);
    EXPECT_EQ(Heard.Menus.size(), 1U);
}

} // namespace
} // namespace ZelVizBase
