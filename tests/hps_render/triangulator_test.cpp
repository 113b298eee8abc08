#include "Triangulator.h"
#include <climits>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace HPS::render
{
namespace
{

double area(Triangulator const& triangulator, std::vector<Point> const& points)
{
    auto at = [&](std::uint32_t i) {
        return i < points.size() ? points[i] : triangulator.blended()[i - points.size()].at;
    };
    double sum = 0;
    auto const t = triangulator.triangles();
    for (std::size_t i = 0; i < t.size(); i += 3) {
        Point const a = at(t[i]), b = at(t[i + 1]), c = at(t[i + 2]);
        sum +=
            std::abs((double(b.x) - a.x) * (double(c.y) - a.y) - (double(b.y) - a.y) * (double(c.x) - a.x)) /
            2;
    }
    return sum;
}

struct Case {
    char const* name;
    std::vector<Point> points;
    std::vector<int> facelist;
    double area;
    std::size_t triangles;
};
std::ostream& operator<<(std::ostream& out, Case const& c)
{
    return out << c.name;
}

std::vector<Point> const frame{{0, 0, 0}, {4, 0, 0}, {4, 4, 0}, {0, 4, 0},
                               {1, 1, 0}, {3, 1, 0}, {3, 3, 0}, {1, 3, 0}};

Case const cases[] = {
    {"triangle", frame, {3, 0, 1, 2}, 8, 1},
    {"square", frame, {4, 0, 1, 2, 3}, 16, 2},
    {"two faces", frame, {3, 0, 1, 2, 3, 0, 2, 3}, 16, 2},
    {"concave", {{0, 0, 0}, {4, 0, 0}, {4, 4, 0}, {3, 1, 0}}, {4, 0, 1, 2, 3}, 4, 2},
    {"concave at the first corner", {{3, 1, 0}, {0, 0, 0}, {4, 0, 0}, {4, 4, 0}}, {4, 0, 1, 2, 3}, 4, 2},
    {"hole", frame, {4, 0, 1, 2, 3, -4, 4, 5, 6, 7}, 12, 8},
    {"hole of the same sense", frame, {4, 0, 1, 2, 3, -4, 7, 6, 5, 4}, 12, 8},
    {"hole at the rim",
     {{0, 0, 0}, {4, 0, 0}, {4, 4, 0}, {0, 4, 0}, {0, 0, 0}, {2, 1, 0}, {1, 2, 0}},
     {4, 0, 1, 2, 3, -3, 4, 5, 6},
     14.5,
     5},
    {"bow tie", {{0, 0, 0}, {2, 2, 0}, {2, 0, 0}, {0, 2, 0}}, {4, 0, 1, 2, 3}, 2, 2},
    {"line", {{0, 0, 0}, {1, 0, 0}, {2, 0, 0}}, {3, 0, 1, 2}, 0, 1},
    {"two corners", frame, {2, 0, 1, 3, 0, 1, 2}, 8, 1},
    {"nothing", frame, {}, 0, 0},
};

class Triangles : public testing::TestWithParam<Case>
{
};
INSTANTIATE_TEST_SUITE_P(All, Triangles, testing::ValuesIn(cases));

TEST_P(Triangles, FillTheFace)
{
    Triangulator triangulator;
    ASSERT_TRUE(triangulator.run(GetParam().points, GetParam().facelist));
    EXPECT_NEAR(area(triangulator, GetParam().points), GetParam().area, 1e-6);
    EXPECT_EQ(triangulator.triangles().size() / 3, GetParam().triangles);
    EXPECT_EQ(triangulator.faces().size(), GetParam().triangles);
}

TEST(Triangulator, SaysWhichFaceATriangleIsPartOf)
{
    Triangulator triangulator;
    ASSERT_TRUE(triangulator.run(frame, std::vector{4, 0, 1, 2, 3, -4, 4, 5, 6, 7, 3, 4, 5, 6}));
    ASSERT_EQ(triangulator.faces().size(), 9u);
    EXPECT_EQ(triangulator.faces()[7], 0u);
    EXPECT_EQ(triangulator.faces()[8], 1u);
}

TEST(Triangulator, KeepsWhatStandsBeforeAFault)
{
    float const none = std::numeric_limits<float>::quiet_NaN();
    std::vector<Point> points = frame;
    points.push_back({none, 0, 0});
    std::vector<std::vector<int>> const faults{
        {3, 0, 1, 2, 3, 0, 1},       {3, 0, 1, 2, 3, 0, 1, 99},    {3, 0, 1, 2, 3, 0, 1, -1},
        {3, 0, 1, 2, INT_MAX},       {3, 0, 1, 2, -INT_MAX, 1, 2}, {3, 0, 1, 2, INT_MIN},
        {3, 0, 1, 2, 4, 0, 1, 2, 8},
    };
    for (auto const& facelist : faults) {
        Triangulator triangulator;
        EXPECT_FALSE(triangulator.run(points, facelist));
        EXPECT_LE(triangulator.triangles().size(), 3u);
    }
    Triangulator triangulator;
    EXPECT_FALSE(triangulator.run(points, std::vector{-3, 0, 1, 2}));
}

} // namespace
} // namespace HPS::render
