#include "bounding.h"
#include "store.h"
#include "support.h"

using namespace HPS;

namespace
{

class Bounds : public Scene
{
protected:
    std::optional<SimpleCuboid> of(SegmentKey const& segment)
    {
        SimpleSphere sphere;
        SimpleCuboid box;
        return segment.GetBoundingControl().ShowVolume(sphere, box) ? std::optional(box) : std::nullopt;
    }
    SegmentKey part = root.Subsegment("part");
    Bounds() { part.InsertLine({1, 2, 3}, {4, 6, 8}); }
};

SimpleCuboid const partBox({1, 2, 3}, {4, 6, 8});

TEST_F(Bounds, GrowAndShrinkWithTheContents)
{
    EXPECT_EQ(of(root), partBox);
    auto far = root.Subsegment("far");
    EXPECT_EQ(of(far), std::nullopt);
    auto marker = far.InsertMarker({10, 0, 0});
    EXPECT_EQ(of(root), SimpleCuboid({1, 0, 0}, {10, 6, 8}));
    marker.Delete();
    EXPECT_EQ(of(root), partBox);
    far.InsertDistantLight(Vector(1, 0, 0));
    EXPECT_EQ(of(root), partBox);
    part.Delete();
    EXPECT_EQ(of(root), std::nullopt);
}

TEST_F(Bounds, AnInnerChangeReachesThoseAboveByOwnersAndIncludes)
{
    auto deep = part.Subsegment("a").Subsegment("b"), user = root.Subsegment("user").Subsegment("inner");
    user.IncludeSegment(part);
    user.GetModellingMatrixControl().Translate(100, 0, 0);
    EXPECT_EQ(of(root), SimpleCuboid({1, 2, 3}, {104, 6, 8}));
    deep.InsertMarker({1, 2, 50});
    EXPECT_EQ(of(root), SimpleCuboid({1, 2, 3}, {104, 6, 50}));
    EXPECT_EQ(of(user), SimpleCuboid({1, 2, 3}, {4, 6, 50})) << "before its own matrix";
    part.Flush(Search::Type::Line);
    EXPECT_EQ(of(root), SimpleCuboid({1, 2, 50}, {101, 2, 50}));
}

TEST_F(Bounds, MatricesMayMirrorScaleAndTurn)
{
    part.SetModellingMatrix(MatrixKit().Scale(-1, 2, 1));
    EXPECT_EQ(of(root), SimpleCuboid({-4, 4, 3}, {-1, 12, 8}));
    EXPECT_EQ(of(part), partBox);
    part.SetModellingMatrix(MatrixKit().Rotate(0, 0, 90).Translate(0, 0, 1));
    EXPECT_EQ(of(root), SimpleCuboid({-6, 1, 4}, {-2, 4, 9}));
    part.UnsetModellingMatrix();
    EXPECT_EQ(of(root), partBox);
}

// However parts move, what is kept must be what a scene built the same way from the start has.
TEST_F(Bounds, OfPartsThatMoveAreThoseOfASceneMadeAnew)
{
    std::array<SegmentKey, 6> segments;
    auto const build = [](SegmentKey top, std::array<SegmentKey, 6>& made) {
        made = {top.Subsegment("a"), top.Subsegment("b"), {}, {}, {}, {}};
        made[2] = made[0].Subsegment("c");
        made[3] = made[0].Subsegment("d");
        made[4] = made[1].Subsegment("e");
        made[5] = top.Subsegment("f");
        for (int i = 2; i < 6; ++i) made[std::size_t(i)].InsertLine({0, 0, 0}, {float(i), 1, float(i % 3)});
        made[4].IncludeSegment(made[0]); // reaches the top two ways
        made[5].GetBoundingControl().SetExclusion(true);
    };
    build(root, segments);
    unsigned int number = 1;
    auto const next = [&](int below) { return int((number = number * 1664525 + 1013904223) >> 16) % below; };
    for (int turn = 0; turn < 500; ++turn) {
        auto& moved = segments[std::size_t(next(6))];
        if (next(8) == 0)
            moved.UnsetModellingMatrix();
        else
            moved.SetModellingMatrix(
                MatrixKit().Rotate(0, 0, 90 * next(4)).Translate(next(9) - 4, next(9) - 4, next(3)));
        if (next(3) == 0) of(segments[std::size_t(next(6))]); // some extents are asked for, others not
        auto const kept = of(root);

        auto fresh = Database::CreateRootSegment();
        std::array<SegmentKey, 6> copies;
        build(fresh, copies);
        fresh.Subsegment("part").InsertLine({1, 2, 3}, {4, 6, 8});
        for (std::size_t i = 0; i < copies.size(); ++i)
            if (MatrixKit matrix; segments[i].ShowModellingMatrix(matrix))
                copies[i].SetModellingMatrix(matrix);
        ASSERT_EQ(kept, of(fresh)) << "turn " << turn;
        fresh.Delete();
    }
}

TEST_F(Bounds, WhatIsExcludedCountsForItselfAlone)
{
    auto far = root.Subsegment("far");
    far.InsertMarker({10, 10, 10});
    EXPECT_EQ(of(root), SimpleCuboid({1, 2, 3}, {10, 10, 10}));
    far.GetBoundingControl().SetExclusion(true);
    EXPECT_EQ(of(root), partBox);
    EXPECT_EQ(of(far), SimpleCuboid({10, 10, 10}, {10, 10, 10}));
    far.InsertMarker({20, 20, 20});
    EXPECT_EQ(of(root), partBox);
    far.GetBoundingControl().UnsetExclusion();
    EXPECT_EQ(of(root), SimpleCuboid({1, 2, 3}, {20, 20, 20}));
}

TEST_F(Bounds, AGivenVolumeStandsForTheContents)
{
    part.GetBoundingControl().SetVolume(SimpleCuboid({0, 0, 0}, {1, 1, 1}));
    EXPECT_EQ(of(root), SimpleCuboid({0, 0, 0}, {1, 1, 1}));
    part.GetBoundingControl().SetVolume(SimpleSphere({0, 0, 0}, 2));
    EXPECT_EQ(of(root), SimpleCuboid({-2, -2, -2}, {2, 2, 2}));
    part.InsertMarker({9, 9, 9});
    EXPECT_EQ(of(root), SimpleCuboid({-2, -2, -2}, {2, 2, 2}));
    part.UnsetBounding();
    EXPECT_EQ(of(root), SimpleCuboid({1, 2, 3}, {9, 9, 9}));
}

TEST_F(Bounds, ASphereGoesRoundTheBox)
{
    SimpleSphere sphere;
    SimpleCuboid box;
    ASSERT_TRUE(part.GetBoundingControl().ShowVolume(sphere, box));
    EXPECT_EQ(sphere.center, Point(2.5f, 4, 5.5f));
    EXPECT_FLOAT_EQ(sphere.radius, std::sqrt(50.0f) / 2);
}

TEST_F(Bounds, OfAPathGoThroughEveryMatrix)
{
    auto instance = root.Subsegment("instance");
    instance.GetModellingMatrixControl().Scale(2, 2, 2).Translate(1, 0, 0);
    part.GetModellingMatrixControl().Translate(0, 1, 0);
    auto const include = instance.IncludeSegment(part);
    auto const line = part.InsertLine({0, 0, 0}, {1, 1, 1});

    auto const boxOf = [](KeyPath const& path) -> std::optional<SimpleCuboid> {
        BoundingKit kit;
        SimpleSphere sphere;
        SimpleCuboid box;
        return path.ShowNetBounding(kit) && kit.ShowVolume(sphere, box) ? std::optional(box) : std::nullopt;
    };
    KeyPath path;
    path.Append(part).Append(include).Append(instance).Append(root);
    EXPECT_EQ(boxOf(path), SimpleCuboid({1, 2, 0}, {9, 14, 16}));
    EXPECT_EQ(boxOf(KeyPath(path).PopFront()), SimpleCuboid({1, 2, 0}, {9, 14, 16}))
        << "an include at the front";
    EXPECT_EQ(boxOf(KeyPath(path).PushFront(line)), SimpleCuboid({1, 2, 0}, {3, 4, 2}))
        << "the geometry alone";
    EXPECT_EQ(boxOf(KeyPath()), std::nullopt);
    EXPECT_EQ(boxOf(KeyPath(path).PushFront(part.Subsegment("empty"))), std::nullopt);
    part.Delete();
    EXPECT_EQ(boxOf(path), std::nullopt) << "a stale key";
}

} // namespace
