// Scenes that are deep, wide or long: everything ends, in time that does not grow with the square of the
// size, and without a stack as deep as the scene.
#include "bounding.h"
#include "net_attributes.h"
#include "structure.h"
#include "support.h"
#include <random>

using namespace HPS;

namespace
{

using Large = Scene;
constexpr std::size_t deep = 100'000;
constexpr std::size_t wide = 1'000'000;

std::size_t count(SegmentKey const& top, Search::Type type)
{
    SearchResults results;
    return top.Find(type, Search::Space::Subsegments, results);
}

TEST_F(Large, DeepTreesAreMadeFoldedMeasuredAndDeleted)
{
    auto part = root.Subsegment("part");
    insertTriangle(part);
    auto const top = root.Subsegment("top");
    std::vector<Key> path{top};
    for (std::size_t i = 0; i < deep; ++i) {
        auto segment = SegmentKey(path.back()).Subsegment("down");
        segment.GetModellingMatrixControl().Translate(1, 0, 0);
        if (i % 2 == 0) segment.GetVisibilityControl().SetFaces(i % 4 == 0);
        segment.IncludeSegment(part);
        path.push_back(segment);
    }
    scene::NetFold fold;
    auto net = fold.root();
    for (auto const& key : path) net = fold.step(net, *scene::store().resolve<scene::SegmentRecord>(key));
    EXPECT_EQ(net.matrix.Data()[12], float(deep));
    EXPECT_EQ(fold.stateCount(), 3u) << "nothing set, faces on, faces off";

    SimpleSphere sphere;
    SimpleCuboid box;
    ASSERT_TRUE(SegmentKey(top).GetBoundingControl().ShowVolume(sphere, box));
    EXPECT_EQ(box, SimpleCuboid({1, 0, 0}, {deep + 1, 1, 0}));
    EXPECT_EQ(count(top, Search::Type::Includes), deep);
    EXPECT_EQ(count(top, Search::Type::Subsegments), deep);

    SegmentKey(path[deep / 2]).Delete();
    EXPECT_EQ(count(top, Search::Type::Subsegments), deep / 2 - 1);
    ASSERT_TRUE(SegmentKey(top).GetBoundingControl().ShowVolume(sphere, box));
    EXPECT_EQ(box.max.x, float(deep / 2));
    SegmentKeyArray none;
    SegmentKey(top).Flush(Search::Type::Everything, Search::Space::Subsegments);
    EXPECT_FALSE(top.ShowSubsegments(none));
    IncludeKeyArray includers;
    EXPECT_FALSE(part.ShowIncluders(includers)) << "they went with their owners";
}

TEST_F(Large, WideTreesLoseAndFindChildrenInAnyOrder)
{
    auto part = root.Subsegment("part");
    auto top = root.Subsegment("top");
    std::vector<SegmentKey> children;
    children.reserve(wide);
    for (std::size_t i = 0; i < wide; ++i) {
        children.push_back(top.Subsegment(("a child with a long name " + std::to_string(i)).c_str()));
        children.back().IncludeSegment(part);
    }
    EXPECT_EQ(count(top, Search::Type::Includes), wide);

    // All but every tenth, here and there.
    std::vector<std::size_t> order(wide);
    for (std::size_t i = 0; i < wide; ++i) order[i] = i;
    std::shuffle(order.begin(), order.end(), std::minstd_rand(1));
    for (auto const i : order)
        if (i % 10 != 0) children[i].Delete();

    SegmentKeyArray left;
    top.ShowSubsegments(left);
    ASSERT_EQ(left.size(), wide / 10);
    IncludeKeyArray includers;
    part.ShowIncluders(includers);
    ASSERT_EQ(includers.size(), left.size());
    for (std::size_t i = 0; i < left.size(); ++i) {
        ASSERT_EQ(left[i], children[10 * i]) << "in the old order";
        ASSERT_EQ(includers[i].Owner(), left[i]);
    }
    EXPECT_EQ(top.Subsegment("a child with a long name 990", false), children[990]);
    EXPECT_TRUE(top.Subsegment("a child with a long name 991", false).Empty());
    auto const late = top.Subsegment("a child with a long name 991");
    top.ShowSubsegments(left);
    EXPECT_EQ(left.back(), late);

    part.Delete();
    EXPECT_EQ(count(top, Search::Type::Includes), 0u);
    EXPECT_EQ(count(top, Search::Type::Subsegments), wide / 10 + 1);
}

// A chain of includes, made from either end.
class Chains : public Scene, public testing::WithParamInterface<bool>
{
};

TEST_P(Chains, AreFoldedMeasuredAndNeverClosed)
{
    std::vector<SegmentKey> links;
    for (std::size_t i = 0; i < deep; ++i) {
        links.push_back(root.Subsegment(""));
        links.back().GetModellingMatrixControl().Translate(0, 1, 0);
    }
    insertTriangle(links.back());
    for (std::size_t i = 1; i < deep; ++i) {
        auto const from = GetParam() ? i - 1 : deep - 1 - i;
        EXPECT_FALSE(links[from].IncludeSegment(links[from + 1]).Empty());
    }
    std::vector<std::size_t> const ends{0, 1, deep / 2, deep - 1};
    for (auto const target : ends)
        for (auto const owner : ends)
            if (owner >= target) {
                EXPECT_TRUE(links[owner].IncludeSegment(links[target]).Empty()) << owner << ' ' << target;
            }

    SimpleSphere sphere;
    SimpleCuboid box;
    ASSERT_TRUE(links.front().GetBoundingControl().ShowVolume(sphere, box));
    EXPECT_EQ(box.min.y, float(deep - 1));
    links.back().GetModellingMatrixControl().Translate(0, 5, 0);
    ASSERT_TRUE(links.front().GetBoundingControl().ShowVolume(sphere, box));
    EXPECT_EQ(box.min.y, float(deep + 4));

    links[deep / 2].Delete();
    EXPECT_FALSE(links.back().IncludeSegment(links.front()).Empty()) << "the chain is open now";
    EXPECT_TRUE(links.front().IncludeSegment(links.back()).Empty());
}
INSTANTIATE_TEST_SUITE_P(FromEitherEnd, Chains, testing::Bool());

TEST_F(Large, ANodeWithManyWaysThroughIsMetOnce)
{
    // Twice as many ways with each floor.
    std::vector<SegmentKey> floors{root.Subsegment("")};
    insertTriangle(floors.back());
    for (int i = 0; i < 60; ++i) {
        floors.push_back(root.Subsegment(""));
        floors.back().IncludeSegment(floors[floors.size() - 2]);
        floors.back().Subsegment("again").IncludeSegment(floors[floors.size() - 2]);
    }
    EXPECT_TRUE(floors.front().IncludeSegment(floors.back()).Empty());
    SimpleSphere sphere;
    SimpleCuboid box;
    EXPECT_TRUE(floors.back().GetBoundingControl().ShowVolume(sphere, box));
    floors.front().Delete();
    EXPECT_FALSE(floors.back().GetBoundingControl().ShowVolume(sphere, box));
}

TEST_F(Large, WhoLagsBehindStartsAfreshAndNobodyElse)
{
    scene::ChangeCursor diligent, late;
    std::vector<scene::ChangeMark> marks;
    diligent.read(marks);
    late.read(marks);
    for (int i = 0; i < 3'000'000; ++i) {
        root.SetPriority(i);
        ASSERT_TRUE(diligent.read(marks)) << i;
        ASSERT_EQ(marks.size(), 1u);
    }
    EXPECT_TRUE(late.pending());
    EXPECT_FALSE(late.read(marks));
    EXPECT_TRUE(marks.empty());
    root.SetPriority(1);
    EXPECT_TRUE(late.read(marks));
    ASSERT_EQ(marks.size(), 1u);
    EXPECT_EQ(marks[0].slot, root.Index().slot);
}

} // namespace
