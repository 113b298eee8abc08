// What the records of the database are made of, against the plain containers that they stand in for.
#include "net_attributes.h"
#include "shared_kits.h"
#include "structure.h"
#include "support.h"
#include <map>
#include <random>

using namespace HPS;
using namespace HPS::scene;

namespace
{

std::vector<SlotIndex> contents(SlotList const& list)
{
    return {list.begin(), list.end()};
}

using Lists = Scene;

TEST(SlotLists, AreVectorsThatForgetInAnyOrder)
{
    for (unsigned seed = 0; seed < 20; ++seed) {
        std::minstd_rand random(seed);
        SlotList list;
        std::vector<SlotIndex> expected;
        std::map<SlotIndex, SlotList::Place> places;
        // First it grows on the whole, then it shrinks.
        for (SlotIndex turn = 1; turn <= 400; ++turn) {
            if (expected.empty() || random() % 10 < (turn < 200 ? 7u : 3u)) {
                places[turn] = list.push_back(turn);
                expected.push_back(turn);
            } else {
                auto const at = expected.begin() + std::ptrdiff_t(random() % expected.size());
                list.remove(
                    *at, places[*at], [&](SlotIndex slot) -> auto& { return places[slot]; });
                expected.erase(at);
            }
            ASSERT_EQ(contents(list), expected) << seed << ' ' << turn;
            ASSERT_EQ(list.size(), expected.size());
            ASSERT_EQ(list.empty(), expected.empty());
            ASSERT_TRUE(expected.empty() || list.back() == expected.back());
            std::vector<SlotIndex> backwards;
            for (auto at = list.end(); at != list.begin();) backwards.push_back(*--at);
            std::reverse(backwards.begin(), backwards.end());
            ASSERT_EQ(backwards, expected);
        }
        SlotList const moved = std::move(list);
        EXPECT_EQ(contents(moved), expected);
    }
}

// Places must stay true whatever rebuilds a list.
TEST_F(Lists, OfGeometryForgetAfterAFlushThatFoundNothing)
{
    std::vector<ShellKey> shells;
    for (int i = 0; i < 10; ++i) shells.push_back(insertTriangle(root));
    for (int const i : {1, 4}) shells[static_cast<std::size_t>(i)].Delete();
    root.Flush(Search::Type::Text, Search::Space::SegmentOnly);
    for (int const i : {5, 9, 0, 7}) shells[static_cast<std::size_t>(i)].Delete();
    SearchResults results;
    EXPECT_EQ(root.Find(Search::Type::Shell, Search::Space::SegmentOnly, results), 4u);
}

TEST(ShortTexts, HoldTextOfAnyLength)
{
    ShortText text;
    EXPECT_TRUE(text.empty());
    for (std::size_t const length : {1u, 15u, 16u, 0u, 100'000u, 14u, 17u, 255u, 256u}) {
        std::string const wanted(length, static_cast<char>('a' + length % 26));
        text = wanted;
        EXPECT_EQ(std::string_view(text), wanted);
        EXPECT_EQ(text.empty(), length == 0);
    }
}

using Shared = Scene;

KitBlock const* colorBlock(SegmentKey const& segment)
{
    return store().resolve<SegmentRecord>(segment)->kit(KitKind::MaterialMapping);
}

TEST_F(Shared, EqualKitsAreOneAndAnEditOfOneLeavesTheOther)
{
    auto a = root.Subsegment("a"), b = root.Subsegment("b");
    for (auto* const segment : {&a, &b})
        segment->GetMaterialMappingControl()
            .SetFaceColor(RGBAColor(1, 0, 0))
            .SetLineColor(RGBAColor(0, 0, 1));
    EXPECT_EQ(colorBlock(a), colorBlock(b));

    MaterialMappingKit before, after;
    a.ShowMaterialMapping(before);
    b.GetMaterialMappingControl().SetFaceColor(RGBAColor(0, 1, 0));
    EXPECT_NE(colorBlock(a), colorBlock(b));
    a.ShowMaterialMapping(after);
    EXPECT_EQ(after, before);
    b.GetMaterialMappingControl().SetFaceColor(RGBAColor(1, 0, 0));
    EXPECT_EQ(colorBlock(a), colorBlock(b)) << "equal again, one again";
}

TEST_F(Shared, KitsThatNobodyUsesAnyMoreGo)
{
    auto segment = root.Subsegment("a");
    std::vector<std::weak_ptr<KitBlock const>> seen;
    for (int i = 0; i < 10'000; ++i) {
        segment.GetMaterialMappingControl().SetFaceColor(RGBAColor(float(i) / 10'000, 0, 0));
        seen.push_back(*store().resolve<SegmentRecord>(segment)->kits.begin());
    }
    auto const living =
        std::count_if(seen.begin(), seen.end(), [](auto const& kit) { return !kit.expired(); });
    EXPECT_LT(living, 3000);
    EXPECT_FALSE(seen.back().expired());
}

TEST_F(Shared, SegmentsOfTheSameKitsHaveTheSameState)
{
    NetFold fold;
    auto const stateOf = [&](SegmentKey const& segment) {
        return fold.state(fold.root().state, *store().resolve<SegmentRecord>(segment));
    };
    auto a = root.Subsegment("a"), b = root.Subsegment("b");
    for (auto* const segment : {&a, &b}) {
        segment->GetVisibilityControl().SetFaces(false);
        segment->GetMaterialMappingControl().SetFaceColor(RGBAColor(1, 0, 0));
    }
    EXPECT_EQ(stateOf(a), stateOf(b));
    // The same values, one kit later: with a lock between nothing may come through.
    b.GetAttributeLockControl().SetLock(AttributeLock::Type::Visibility, true);
    EXPECT_NE(stateOf(a), stateOf(b));
    auto below = b.Subsegment("below");
    below.GetVisibilityControl().SetFaces(true);
    EXPECT_EQ(fold.state(stateOf(b), *store().resolve<SegmentRecord>(below)), stateOf(b));
    b.GetAttributeLockControl().UnsetEverything();
    EXPECT_EQ(stateOf(a), stateOf(b));
}

} // namespace
