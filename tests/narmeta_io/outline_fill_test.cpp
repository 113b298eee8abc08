#include "outline_fill.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

using namespace NarMetaInfra;

namespace
{
double areaOf(PlaneMesh const& mesh, std::function<Point3(Point2 const&)> const& toSpace)
{
    double sum = 0.0;
    for (auto const& [a, b, c] : mesh.triangles) {
        auto const p = toSpace(mesh.points[a]), q = toSpace(mesh.points[b]), r = toSpace(mesh.points[c]);
        Point3 cross;
        for (std::size_t k = 0; k < 3; ++k) {
            auto const i = (k + 1) % 3, j = (k + 2) % 3;
            cross[k] = (q[i] - p[i]) * (r[j] - p[j]) - (q[j] - p[j]) * (r[i] - p[i]);
        }
        sum += std::hypot(cross[0], cross[1], cross[2]) / 2;
    }
    return sum;
}

Point3 flat(Point2 const& at)
{
    return {at[0], at[1], 0.0};
}
Point3 onCylinder(Point2 const& at)
{
    return {std::cos(at[0]), std::sin(at[0]), at[1]};
}
} // namespace

TEST(OutlineFill, AreasFollowTheOddRule)
{
    std::vector<Point2> const square = {{0, 0}, {4, 0}, {4, 4}, {0, 4}};
    std::vector<Point2> const hole = {{1, 1}, {2, 1}, {2, 2}, {1, 2}};
    std::vector<Point2> const bowTie = {{0, 0}, {2, 2}, {2, 0}, {0, 2}};
    EXPECT_NEAR(areaOf(fillOutlines({square}), flat), 16.0, 1e-9);
    EXPECT_NEAR(areaOf(fillOutlines({square, hole}), flat), 15.0, 1e-9);
    EXPECT_NEAR(areaOf(fillOutlines({bowTie}), flat), 2.0, 1e-9);
    EXPECT_TRUE(fillOutlines({{{0, 0}, {1, 1}}}).triangles.empty());
    EXPECT_TRUE(fillOutlines({}).triangles.empty());
}

TEST(OutlineFill, RefinementFollowsTheSurface)
{
    double const turn = std::numbers::pi;
    auto mesh = fillOutlines({{{0, 0}, {turn, 0}, {turn, 2}, {0, 2}}});
    ASSERT_EQ(mesh.triangles.size(), 2u);
    refine(mesh, onCylinder, 0.001);
    EXPECT_NEAR(areaOf(mesh, onCylinder), 2 * turn, 0.01 * 2 * turn);
    for (auto const& [a, b, c] : mesh.triangles) {
        auto const &p = mesh.points[a], &q = mesh.points[b], &r = mesh.points[c];
        EXPECT_GT((q[0] - p[0]) * (r[1] - p[1]) - (q[1] - p[1]) * (r[0] - p[0]), 0.0);
    }
}

TEST(OutlineFill, RefinementOfAnEndlessSurfaceEnds)
{
    auto mesh = fillOutlines({{{0, 0}, {1, 0}, {1, 1}, {0, 1}}});
    refine(
        mesh,
        [](Point2 const& at) {
            return Point3{std::sin(1e6 * at[0]), std::sin(1e6 * at[1]), 0.0};
        },
        1e-9);
    EXPECT_LT(mesh.triangles.size(), 2'000'000u);
}
