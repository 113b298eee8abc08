#include "TestRenderer.h"
#include "scene_dump.h"

#include <gmock/gmock.h>

namespace ZelVizBase
{
namespace
{

using NarMetaVisu::EdgeRep;
using NarMetaVisu::PolygonLoopRep;
using testing::ElementsAre;
using enum NarMetaVisu::VisuPolygonLoopType;

PolygonLoopRep square(float low, float high, NarMetaVisu::VisuPolygonLoopType type = Unclassified)
{
    auto const edge =
        std::make_shared<EdgeRep>(std::vector<float>{low, low, 3, high, low, 3, high, high, 3, low, high, 3});
    return PolygonLoopRep({edge}, type);
}

class PolygonLoopsTest : public testing::Test
{
protected:
    TestRenderer Renderer;
    HPS::SegmentKey Root = HPS::Database::CreateRootSegment();

    ~PolygonLoopsTest() override { Root.Delete(); }

    static std::vector<NarMetaVisu::VisuPolygonLoopType> types(std::vector<PolygonLoopRep> const& loops)
    {
        std::vector<NarMetaVisu::VisuPolygonLoopType> found;
        for (PolygonLoopRep const& loop : loops) found.push_back(loop.GetType());
        return found;
    }
};

TEST_F(PolygonLoopsTest, ALoopInsideAnotherIsAHoleWhicheverComesFirst)
{
    std::vector<PolygonLoopRep> loops{square(0, 10), square(2, 4), square(6, 8)};
    Renderer.classifyPolygonLoops(loops);
    EXPECT_THAT(types(loops), ElementsAre(Outer, Inner, Inner));
    loops = {square(2, 4), square(0, 10), square(6, 8)};
    Renderer.classifyPolygonLoops(loops);
    EXPECT_THAT(types(loops), ElementsAre(Inner, Outer, Inner));
}

TEST_F(PolygonLoopsTest, LoopsApartAreBothOuterAndTheFirstIsDrawn)
{
    std::vector<PolygonLoopRep> loops{square(0, 1), square(5, 6)};
    Renderer.insertPolygonLoops(Root, loops);
    EXPECT_THAT(types(loops), ElementsAre(Outer, Outer));
    EXPECT_EQ(dump(Root), "-\n  shell 4 0 1 2 3\n");
}

TEST_F(PolygonLoopsTest, OneLoopIsOuter)
{
    std::vector<PolygonLoopRep> loops{square(0, 1)};
    Renderer.classifyPolygonLoops(loops);
    EXPECT_THAT(types(loops), ElementsAre(Outer));
}

TEST_F(PolygonLoopsTest, TheShellIsTheOuterLoopWithItsHoles)
{
    std::vector<PolygonLoopRep> loops{square(2, 4), square(0, 10)};
    Renderer.insertPolygonLoops(Root, loops);
    EXPECT_EQ(dump(Root), "-\n  shell 4 0 1 2 3 -4 4 5 6 7\n");
}

TEST_F(PolygonLoopsTest, KnownTypesAreNotAskedAgain)
{
    std::vector<PolygonLoopRep> loops{square(0, 10, Inner), square(2, 4, Outer)};
    Renderer.insertPolygonLoops(Root, loops);
    EXPECT_THAT(types(loops), ElementsAre(Inner, Outer));
    EXPECT_EQ(dump(Root), "-\n  shell 4 0 1 2 3 -4 4 5 6 7\n");
}

TEST_F(PolygonLoopsTest, NothingFromNothing)
{
    std::vector<PolygonLoopRep> loops;
    Renderer.insertPolygonLoops(Root, loops);
    loops = {PolygonLoopRep({std::make_shared<EdgeRep>()}), PolygonLoopRep()};
    Renderer.insertPolygonLoops(Root, loops);
    EXPECT_EQ(dump(Root), "-\n");
}

} // namespace
} // namespace ZelVizBase
