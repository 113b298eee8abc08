#include "loop_relation.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <numbers>
#include <ostream>
#include <vector>

namespace HPS
{
namespace
{

using enum Shell::Relation;
using Outline = std::vector<Point>;

/// x, y pairs on a plane that leans in all three directions.
Outline leaning(std::vector<float> const& xy)
{
    Outline outline;
    for (std::size_t i = 0; i + 1 < xy.size(); i += 2)
        outline.emplace_back(xy[i], xy[i] * 0.5F + xy[i + 1], 7 - xy[i + 1] * 0.25F);
    return outline;
}

Outline box(float x0, float y0, float x1, float y1)
{
    return leaning({x0, y0, x1, y0, x1, y1, x0, y1});
}

Shell::Relation reversed(Shell::Relation relation)
{
    return relation == Holds ? Within : relation == Within ? Holds : relation;
}

struct RelationCase {
    char const* Name;
    Outline A;
    Outline B;
    Shell::Relation Expected;
};

class OutlineRelationTest : public testing::TestWithParam<RelationCase>
{
};

TEST_P(OutlineRelationTest, InBothOrdersAndDirections)
{
    auto const& [name, a, b, expected] = GetParam();
    Outline backwards = b;
    std::reverse(backwards.begin(), backwards.end());
    Outline closed = b;
    closed.push_back(b.front());
    EXPECT_EQ(outlineRelation(a, b), expected);
    EXPECT_EQ(outlineRelation(b, a), reversed(expected));
    EXPECT_EQ(outlineRelation(a, backwards), expected);
    EXPECT_EQ(outlineRelation(a, closed), expected);
}

Outline const cShape = leaning({0, 0, 10, 0, 10, 2, 2, 2, 2, 8, 10, 8, 10, 10, 0, 10});

INSTANTIATE_TEST_SUITE_P(
    Outlines, OutlineRelationTest,
    testing::Values(RelationCase{"Hole", box(0, 0, 10, 10), box(2, 2, 4, 4), Holds},
                    RelationCase{"HoleAtTheBorder", box(0, 0, 10, 10), box(0, 2, 4, 4), Holds},
                    RelationCase{"HoleAtACorner", box(0, 0, 10, 10), leaning({0, 0, 4, 2, 2, 4}), Holds},
                    RelationCase{"Apart", box(0, 0, 1, 1), box(5, 5, 6, 6), Apart},
                    RelationCase{"InTheNotch", cShape, box(4, 4, 6, 6), Apart},
                    RelationCase{"SharedSide", box(0, 0, 1, 1), box(1, 0, 2, 1), Meeting},
                    RelationCase{"TouchingCorner", box(0, 0, 1, 1), box(1, 1, 2, 2), Meeting},
                    RelationCase{"Crossing", box(0, 0, 4, 4), box(2, 2, 6, 6), Meeting},
                    RelationCase{"CrossingWithoutACornerInside", box(0, 4, 10, 6), box(4, 0, 6, 10), Meeting},
                    RelationCase{"CrossingThroughCorners", box(0, 0, 4, 4), leaning({0, 0, 4, 4, 8, 0}),
                                 Meeting},
                    RelationCase{"Same", box(0, 0, 4, 4), box(0, 0, 4, 4), Meeting},
                    RelationCase{"NearlyTheBorder", box(0, 0, 10, 10), box(-1e-6F, 2, 4, 4), Holds}),
    [](auto const& tested) { return tested.param.Name; });

TEST(OutlineRelation, DegenerateOutlines)
{
    Outline const whole = box(0, 0, 10, 10);
    EXPECT_EQ(outlineRelation({}, whole), Apart);
    EXPECT_EQ(outlineRelation(whole, {}), Apart);
    EXPECT_EQ(outlineRelation(whole, leaning({2, 2, 5, 5})), Holds);
    EXPECT_EQ(outlineRelation(whole, leaning({20, 20})), Apart);
    EXPECT_EQ(outlineRelation(leaning({1, 1}), leaning({1, 1})), Meeting);
}

Outline ring(int corners, float radius, float everySecond)
{
    std::vector<float> xy;
    for (int i = 0; i < corners; ++i) {
        float const angle =
            2 * std::numbers::pi_v<float> * static_cast<float>(i) / static_cast<float>(corners);
        float const at = i % 2 ? everySecond : radius;
        xy.insert(xy.end(), {at * std::cos(angle), at * std::sin(angle)});
    }
    return leaning(xy);
}

TEST(OutlineRelation, LargeOutlines)
{
    EXPECT_EQ(outlineRelation(ring(100'000, 10, 10), ring(100'000, 9, 9)), Holds);
    EXPECT_EQ(outlineRelation(ring(2'000, 4, 4), ring(2'000, 10, 5)), Within);
}

TEST(OutlineRelation, AnOutlineTooIntricateToCompareEndsUndecided)
{
    EXPECT_EQ(outlineRelation(ring(100'000, 4, 4), ring(100'000, 10, 5)), Meeting);
}

TEST(ExtentRelation, ComparesBoxes)
{
    EXPECT_EQ(extentRelation(box(0, 0, 10, 10), box(2, 2, 4, 4)), Holds);
    EXPECT_EQ(extentRelation(box(2, 2, 4, 4), box(0, 0, 10, 10)), Within);
    EXPECT_EQ(extentRelation(box(0, 0, 1, 1), box(5, 0, 6, 1)), Apart);
    EXPECT_EQ(extentRelation(box(0, 0, 1, 1), box(0, 0, 1, 1)), Meeting);
    EXPECT_EQ(extentRelation({}, box(0, 0, 1, 1)), Apart);
}

} // namespace
} // namespace HPS
