// The hand in a view as a host reaches it, on the sample: clicks mark nodes of the tree, nodes light up in
// the view, and recorded streams of a wheel and a touchpad move the camera by numbers.

#include "Host.h"

#include <QCoreApplication>
#include <QWheelEvent>
#include <cmath>
#include <gtest/gtest.h>
#include <mora/IViewInteraction.h>
#include <mora/SessionMgr.h>
#include <set>

namespace
{

using MoraCore::TreeBuilder;
using ZELVizCore::EntityType;
using ZELVizCore::RenderId;

class HandTest : public testing::Test
{
protected:
    HandTest()
    {
        MoraCore::SessionMgr::Instance().CurrentSession().SetView3DEvo(&Shown.view());
        Shown.view().GetRenderingOptions()->SetDisplayNavigationCube(false);
        Shown.camera().Isometric();
        Shown.camera().ZoomAll();
    }
    ~HandTest() override { MoraCore::SessionMgr::Instance().CurrentSession().SetView3DEvo(nullptr); }

    void click(QPointF const& at)
    {
        Shown.press(Qt::LeftButton, at);
        Shown.release(Qt::LeftButton, at);
    }
    TreeBuilder const& builder() const { return Shown.tree().GetTreeBuilder(); }
    static RenderId shortened(RenderId id)
    {
        id.SetLength(id.Length() - 1);
        return id;
    }
    static int differing(QImage const& a, QImage const& b)
    {
        int count = 0;
        for (int y = 0; y < a.height(); ++y)
            for (int x = 0; x < a.width(); ++x) count += a.pixel(x, y) != b.pixel(x, y) ? 1 : 0;
        return count;
    }

    Window Shown{sampleFile()};
    MoraCore::IViewInteraction& Hand = *Shown.view().GetInteraction();
};

// What stands in an id: the root, the model, instances down to a part, and then a body, 80000 before it.
TEST_F(HandTest, ClicksMarkTheNodesOfWhatTheyMeet)
{
    std::set<RenderId> met;
    for (int y = 20; y < Window::height; y += 40)
        for (int x = 20; x < Window::width; x += 40) {
            click(QPointF(x, y));
            if (Hand.GetSelection().empty()) {
                EXPECT_FALSE(Shown.tree().GetHighlighted()) << "a click on nothing leaves no mark";
                continue;
            }
            ASSERT_EQ(Hand.GetSelection().size(), 1U);
            RenderId id = Hand.GetSelection().front();
            EXPECT_EQ(Shown.tree().GetHighlighted(), id);
            ASSERT_GE(id.Length(), 5);
            EXPECT_EQ(id[id.Length() - 2], ToValue(EntityType::Brep));
            std::int32_t const part = builder().Find(shortened(shortened(id)));
            ASSERT_NE(part, TreeBuilder::NoItem);
            EXPECT_EQ(builder().Items()[static_cast<std::size_t>(part)].kind, TreeBuilder::Kind::Part);
            met.insert(id);
        }
    EXPECT_GT(met.size(), 5U) << "the sample fills the window and has many parts";
}

TEST_F(HandTest, NodesLightUpAndAreFoundAgain)
{
    QImage const dark = Shown.picture();
    int parts = 0, seen = 0;
    for (std::size_t i = 0; i < builder().Items().size(); ++i) {
        if (builder().Items()[i].kind != TreeBuilder::Kind::Part) continue;
        RenderId const id = builder().GetPath(static_cast<std::int32_t>(i));
        Hand.Select({id});
        EXPECT_EQ(Hand.GetSelection(), std::vector<RenderId>{id});
        EXPECT_FALSE(Shown.tree().GetHighlighted()) << "the tree knows already";
        ++parts;
        seen += differing(dark, Shown.picture()) > 10 ? 1 : 0;
    }
    EXPECT_GT(parts, 10);
    EXPECT_GT(seen, parts / 2) << "some stand behind others";
    Hand.ClearSelection();
    EXPECT_EQ(differing(dark, Shown.picture()), 0);

    RenderId nowhere = builder().GetPath(1);
    nowhere.AddValue(12345);
    Hand.Select({nowhere});
    EXPECT_TRUE(Hand.GetSelection().empty());
}

TEST_F(HandTest, TheDocumentLightsUpAndZoomsByTheSameIds)
{
    std::size_t part = 0;
    while (builder().Items()[part].kind != TreeBuilder::Kind::Part) ++part;
    RenderId const id = builder().GetPath(static_cast<std::int32_t>(part));
    QImage const dark = Shown.picture();
    Shown.document().Highlight(id, &Shown.view());
    EXPECT_GT(differing(dark, Shown.picture()), 10);
    Shown.document().UnHighlight(&Shown.view());
    Shown.view().Update(MoraCore::UpdateType::Default);
    EXPECT_EQ(differing(dark, Shown.picture()), 0);

    Shown.document().Select(id, &Shown.view());
    EXPECT_TRUE(Shown.view().GetSelectionHolder()->Contains(id));
    Shown.document().UnSelect(&Shown.view());
    EXPECT_FALSE(Shown.view().GetSelectionHolder()->Contains(id));

    Triple const back = Pose(Shown.camera()).back();
    EXPECT_TRUE(Shown.document().ZoomTo(id, &Shown.view()));
    Pose const near(Shown.camera());
    for (int i = 0; i < 3; ++i) EXPECT_NEAR(near.back()[i], back[i], 1e-3) << "seen from the same side";
    QImage const close = Shown.picture();
    Hand.Select({id});
    EXPECT_GT(differing(close, Shown.picture()), close.width() * close.height() / 50) << "it fills the view";

    Hand.ZoomToSelection();
    EXPECT_GT(differing(close, Shown.picture()), 0);
}

/// As a wheel or a touchpad sends it: angles in eighths of a degree, and pixels where it has them.
struct Turn {
    int angle, pixels;
    Qt::ScrollPhase phase;
};

// Recorded: one notch of a wheel, and the same way on a touchpad, in steps as a finger makes them.
std::vector<Turn> const Notch{{120, 0, Qt::NoScrollPhase}};
std::vector<Turn> const Swipe{
    {0, 0, Qt::ScrollBegin},     {3, 1, Qt::ScrollUpdate},    {9, 4, Qt::ScrollUpdate},
    {18, 8, Qt::ScrollUpdate},   {27, 12, Qt::ScrollUpdate},  {24, 11, Qt::ScrollUpdate},
    {18, 8, Qt::ScrollMomentum}, {12, 5, Qt::ScrollMomentum}, {6, 3, Qt::ScrollMomentum},
    {3, 1, Qt::ScrollMomentum},  {0, 0, Qt::ScrollEnd}};

TEST_F(HandTest, StreamsOfWheelAndTouchpad)
{
    for (bool const parallel : {false, true}) {
        SCOPED_TRACE(parallel);
        Shown.camera().SetOrthographic(parallel);
        QPointF const at(150, 330);
        std::vector<float> reached;
        for (std::vector<Turn> const& stream : {Notch, Swipe}) {
            Shown.camera().ZoomAll();
            Pose const before(Shown.camera());
            ZELVizCore::Ray const under = Shown.camera().Make3DRay(150, 330, 1);
            float last = before.distance();
            for (Turn const& turn : stream) {
                QWheelEvent event(at, Shown.widget().mapToGlobal(at), {0, turn.pixels}, {0, turn.angle},
                                  Qt::NoButton, Qt::NoModifier, turn.phase, false);
                QCoreApplication::sendEvent(&Shown.widget(), &event);
                float const now = Pose(Shown.camera()).distance();
                EXPECT_LE(now, last) << "no step goes back";
                EXPECT_GE(now, last / std::pow(1.2F, std::max(turn.angle, 1) / 110.0F)) << "and none jumps";
                last = now;
            }
            reached.push_back(last / before.distance());
            ZELVizCore::Ray const still = Shown.camera().Make3DRay(150, 330, 1);
            // The place under the mouse in the plane of the target: on the old ray still.
            float away = 0;
            for (int i = 0; i < 3; ++i) away += std::abs(still.origin[i] - under.origin[i]);
            EXPECT_LT(away, 5e-3F * before.distance());
        }
        EXPECT_NEAR(reached[0], 1 / 1.2F, 1e-3);
        EXPECT_NEAR(reached[1], reached[0], 1e-3) << "many small steps come to the one";
    }
}

} // namespace
