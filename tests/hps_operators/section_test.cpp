#include "view_fixture.h"
#include <hps/CuttingSectionOperator.h>

namespace HPS
{

/// A cube of side 2 around (5, 0, 0), seen along -z.
class SectionTest : public OperatorTest
{
protected:
    SectionTest()
    {
        SegmentKey segment = model.GetSegmentKey();
        std::vector<Point> corners;
        for (int i = 0; i < 8; ++i)
            corners.emplace_back(i & 1 ? 6.F : 4.F, i & 2 ? 1.F : -1.F, i & 4 ? 1.F : -1.F);
        ShellKit shell;
        shell.SetPoints(corners).SetFacelist(
            {4, 0, 2, 3, 1, 4, 4, 5, 7, 6, 4, 0, 1, 5, 4, 4, 2, 6, 7, 3, 4, 0, 4, 6, 2, 4, 1, 3, 7, 5});
        segment.InsertShell(shell);
    }

    std::size_t sections()
    {
        SearchResults found;
        return model.GetSegmentKey().Find(Search::Type::CuttingSection, Search::Space::Subsegments, found);
    }

    std::shared_ptr<CuttingSectionOperator> cut =
        std::make_shared<CuttingSectionOperator>(MouseButtons::ButtonLeft());
};

TEST_F(SectionTest, cutsWhileItIsOnAStack)
{
    EXPECT_EQ(cut->GetName(), "HPS_CuttingSectionOperator");
    cut->SetPlanes({Plane(0, 1, 0, 0)});
    cut->SetSectioning(true);
    EXPECT_EQ(sections(), 0u);
    view.GetOperatorControl().Push(cut);
    EXPECT_EQ(sections(), 1u);
    cut->SetSectioning(false);
    EXPECT_EQ(sections(), 0u);
    cut->SetSectioning(true);
    EXPECT_EQ(sections(), 1u);
    view.GetOperatorControl().Pop();
    EXPECT_EQ(sections(), 0u);
    EXPECT_EQ(cut->GetPlanes(), std::vector{Plane(0, 1, 0, 0)});
}

TEST_F(SectionTest, aPlaneThatMissesTheModelIsMovedIntoIt)
{
    view.GetOperatorControl().Push(cut);
    cut->SetPlanes({Plane(2, 0, 0, 0), Plane(0, 0, 1, -0.5F)});
    EXPECT_EQ(cut->GetPlanes()[0], Plane(1, 0, 0, -5));
    EXPECT_EQ(cut->GetPlanes()[1], Plane(0, 0, 1, -0.5F));
}

TEST_F(SectionTest, aDragMovesThePlaneAlongItsNormalAsFarAsTheModelReaches)
{
    view.GetOperatorControl().Push(cut);
    cut->SetPlanes({Plane(1, 0, 0, -5)});
    cut->SetSectioning(true);
    EXPECT_FALSE(press(0, 0, MouseButtons::ButtonRight()));
    release(0, 0, MouseButtons::ButtonRight());
    ASSERT_TRUE(press(0, 0));
    EXPECT_TRUE(moveTo(0.1F, 0.3F)); // a tenth of half the field of 6; the way up does not count
    EXPECT_NEAR(cut->GetPlanes()[0].d, -5.3F, 1e-4);
    EXPECT_TRUE(moveTo(0.9F, 0));
    EXPECT_NEAR(cut->GetPlanes()[0].d, -6, 1e-4);
    EXPECT_TRUE(release(0.9F, 0));
    EXPECT_FALSE(moveTo(0, 0));

    // Seen from its front the plane goes with the mouse's way up.
    cut->SetPlanes({Plane(0, 0, 1, 0)});
    press(0, 0);
    moveTo(0.3F, 0.1F);
    EXPECT_NEAR(cut->GetPlanes()[0].d, -0.2F, 1e-4);
}

TEST_F(SectionTest, comesBackIntoASegmentThatWasEmptied)
{
    view.GetOperatorControl().Push(cut);
    cut->SetPlanes({Plane(0, 1, 0, 0)});
    cut->SetSectioning(true);
    SearchResults found;
    model.GetSegmentKey().Find(Search::Type::CuttingSection, Search::Space::SegmentOnly, found);
    found.GetIterator().GetItem().Delete();
    ASSERT_EQ(sections(), 0u);
    cut->SetIndicatorVisibility(false);
    EXPECT_EQ(sections(), 1u);
}

} // namespace HPS
