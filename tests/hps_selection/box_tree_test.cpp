#include "BoxTree.h"
#include <gtest/gtest.h>
#include <random>

namespace HPS::selection
{
namespace
{

class BoxTrees : public testing::TestWithParam<std::uint32_t>
{
protected:
    std::mt19937 random{GetParam()};
    std::vector<Box> boxes;

    void scatter()
    {
        std::uniform_real_distribution<float> place(-100, 100), size(0, 5);
        boxes.clear();
        for (std::uint32_t i = 0; i < GetParam(); ++i) {
            Box box;
            float const x = place(random), y = place(random), z = place(random);
            box.add(x, y, z);
            if (i % 3 != 0)
                box.add(x + size(random), y + size(random), z + size(random)); // the rest are points
            boxes.push_back(i % 17 == 16 ? Box() : box);                       // and some empty
        }
    }
    std::vector<std::uint32_t> found(BoxTree const& tree, Box const& wanted) const
    {
        std::vector<std::uint32_t> items;
        tree.visit(
            0, [&](Box const& box, int) { return overlap(box, wanted); },
            [&](std::uint32_t item, int) {
                if (overlap(boxes[item], wanted)) items.push_back(item);
            });
        std::sort(items.begin(), items.end());
        return items;
    }
    std::vector<std::uint32_t> foundOneByOne(Box const& wanted) const
    {
        std::vector<std::uint32_t> items;
        for (std::uint32_t i = 0; i < boxes.size(); ++i)
            if (overlap(boxes[i], wanted)) items.push_back(i);
        return items;
    }
    static bool overlap(Box const& a, Box const& b)
    {
        bool all = !a.empty() && !b.empty();
        for (std::size_t i = 0; i < 3; ++i) all = all && a.low[i] <= b.high[i] && b.low[i] <= a.high[i];
        return all;
    }
    void expectAllFound(BoxTree const& tree)
    {
        std::uniform_real_distribution<float> place(-110, 110), size(0, 60);
        for (int i = 0; i < 50; ++i) {
            Box wanted;
            float const x = place(random), y = place(random), z = place(random), half = size(random);
            wanted.add(x - half, y - half, z - half);
            wanted.add(x + half, y + half, z + half);
            EXPECT_TRUE(found(tree, wanted) == foundOneByOne(wanted)) << "of " << boxes.size();
        }
    }
};

TEST_P(BoxTrees, FindWhatALookAtEachFinds)
{
    scatter();
    auto boxOf = [this](std::uint32_t item) { return boxes[item]; };
    BoxTree tree;
    tree.build(GetParam(), boxOf);
    EXPECT_EQ(tree.size(), GetParam());
    expectAllFound(tree);
    scatter();
    tree.refit(boxOf);
    expectAllFound(tree);
}

// Around the sizes at which another level begins, where counting sorts, and where threads share the work.
INSTANTIATE_TEST_SUITE_P(Sizes, BoxTrees, testing::Values(0u, 1u, 8u, 9u, 32u, 33u, 129u, 5000u, 140'000u));

TEST(BoxTree, TakesEqualPlacesAndEndlessBoxes)
{
    Box same, endless;
    same.add(1, 1, 1);
    endless.add(-std::numeric_limits<float>::max(), 0, 0);
    endless.add(std::numeric_limits<float>::max(), 0, 0);
    for (Box const& box : {same, endless}) {
        BoxTree tree;
        tree.build(1000, [&](std::uint32_t) { return box; });
        std::vector<std::uint32_t> items;
        tree.visit(
            0, [](Box const&, int) { return true; }, [&](std::uint32_t item, int) { items.push_back(item); });
        std::sort(items.begin(), items.end());
        EXPECT_EQ(items.size(), 1000u);
        EXPECT_EQ(std::unique(items.begin(), items.end()), items.end()) << "each once";
    }
}

} // namespace
} // namespace HPS::selection
