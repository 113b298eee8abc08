// Order of triangles that are seen through.
#include "SplitTriangles.h"
#include <gtest/gtest.h>
#include <map>
#include <random>

namespace HPS::render
{
namespace
{

Corners placeOf(SplitTriangles::Piece const& piece, std::vector<Corners> const& triangles)
{
    Corners const& whole = triangles[piece.source];
    Corners result;
    for (std::size_t i = 0; i < 3; ++i)
        result[i] =
            whole[0] * piece.shares[i][0] + whole[1] * piece.shares[i][1] + whole[2] * piece.shares[i][2];
    return result;
}

double area(Corners const& t)
{
    return 0.5 * length(cross(t[1] - t[0], t[2] - t[0]));
}

std::vector<Corners> scattered(unsigned count)
{
    std::mt19937 random(7);
    auto number = [&] { return double(random()) / double(random.max()) * 2 - 1; };
    std::vector<Corners> triangles(count);
    for (Corners& t : triangles)
        for (Vec3& p : t) p = {number(), number(), number()};
    return triangles;
}

/// Height along the ray through (x, y) down the z axis; false beside the triangle.
bool hit(Corners const& t, double x, double y, double& z)
{
    double const d = (t[1].x - t[0].x) * (t[2].y - t[0].y) - (t[2].x - t[0].x) * (t[1].y - t[0].y);
    if (std::abs(d) < 1e-9) return false;
    double const u = ((x - t[0].x) * (t[2].y - t[0].y) - (t[2].x - t[0].x) * (y - t[0].y)) / d;
    double const v = ((t[1].x - t[0].x) * (y - t[0].y) - (x - t[0].x) * (t[1].y - t[0].y)) / d;
    if (u < 0 || v < 0 || u + v > 1) return false;
    z = t[0].z + u * (t[1].z - t[0].z) + v * (t[2].z - t[0].z);
    return true;
}

TEST(SplitTriangles, piecesCoverTheirSourcesExactly)
{
    std::vector<Corners> const triangles = scattered(40);
    SplitTriangles const tree(triangles);
    EXPECT_GT(tree.pieces().size(), triangles.size());
    std::map<std::uint32_t, double> sums;
    for (auto const& piece : tree.pieces()) sums[piece.source] += area(placeOf(piece, triangles));
    for (std::uint32_t i = 0; i < triangles.size(); ++i) EXPECT_NEAR(sums[i], area(triangles[i]), 1e-4);
}

// Along any ray, what comes later lies nearer: also for triangles that pass through each other, which no
// order of whole triangles achieves.
TEST(SplitTriangles, orderIsRightAlongEveryRay)
{
    std::vector<Corners> const triangles = scattered(40);
    SplitTriangles const tree(triangles);
    std::vector<std::uint32_t> order;
    tree.order({{0, 0, 10}, {0, 0, 1}, false}, order);
    ASSERT_EQ(order.size(), tree.pieces().size());
    for (double x = -0.95; x < 1; x += 0.1)
        for (double y = -0.95; y < 1; y += 0.1) {
            double last = -10;
            for (std::uint32_t const i : order)
                if (double z = 0; hit(placeOf(tree.pieces()[i], triangles), x, y, z)) {
                    EXPECT_GE(z, last - 1e-4) << "at " << x << ", " << y;
                    last = z;
                }
        }
}

TEST(SplitTriangles, threeThatOverlapInARingAreUntangled)
{
    // Each lies above the next at one end and below it at the other.
    std::vector<Corners> const ring{{Vec3{-2, 0, -1}, Vec3{2, 0, 1}, Vec3{2, 0.3, 1}},
                                    {Vec3{1, -2, -1}, Vec3{-1, 2, 1}, Vec3{-0.7, 2, 1}},
                                    {Vec3{1, 2, -1}, Vec3{-1, -2, 1}, Vec3{-1, -1.7, 1}}};
    SplitTriangles const tree(ring);
    std::vector<std::uint32_t> order;
    for (double const side : {1.0, -1.0}) {
        tree.order({{0, 0, 10 * side}, {0, 0, side}, false}, order);
        for (double x = -2; x < 2; x += 0.05)
            for (double y = -2; y < 2; y += 0.05) {
                double last = -10;
                for (std::uint32_t const i : order)
                    if (double z = 0; hit(placeOf(tree.pieces()[i], ring), x, y, z)) {
                        EXPECT_GE(z * side, last - 1e-4);
                        last = z * side;
                    }
            }
    }
}

TEST(SplitTriangles, manyAndDegenerateOnesEndInTime)
{
    std::vector<Corners> triangles = scattered(3000);
    for (std::size_t i = 0; i < triangles.size(); i += 7) triangles[i][2] = triangles[i][1];
    SplitTriangles const tree(triangles);
    std::vector<std::uint32_t> order;
    tree.order({{3, 2, 10}, {0, 0, 1}, true}, order);
    EXPECT_EQ(order.size(), tree.pieces().size());
    std::sort(order.begin(), order.end());
    EXPECT_EQ(std::adjacent_find(order.begin(), order.end()), order.end());
}

TEST(OrderByMiddles, putsFarOnesFirst)
{
    std::vector<Corners> triangles;
    for (double const z : {3.0, -1.0, 2.0})
        triangles.push_back({Vec3{0, 0, z}, Vec3{1, 0, z}, Vec3{0, 1, z}});
    std::vector<std::uint32_t> order;
    orderByMiddles(triangles, {{0, 0, 10}, {0, 0, 1}, false}, order);
    EXPECT_EQ(order, (std::vector<std::uint32_t>{1, 2, 0}));
    orderByMiddles(triangles, {{0, 0, -10}, {0, 0, -1}, true}, order);
    EXPECT_EQ(order, (std::vector<std::uint32_t>{0, 2, 1}));
}

} // namespace
} // namespace HPS::render
