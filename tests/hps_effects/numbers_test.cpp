// The plain numbers behind shadows, mirrors and blurs.
#include "gaussian.h"
#include "mirror.h"
#include "sample_disc.h"
#include "shadow_camera.h"
#include <gtest/gtest.h>

namespace HPS::render
{
namespace
{

Box cube(float half, Vec3 const& centre = {})
{
    Box box;
    box.add(float(centre.x) - half, float(centre.y) - half, float(centre.z) - half);
    box.add(float(centre.x) + half, float(centre.y) + half, float(centre.z) + half);
    return box;
}

struct Homogeneous {
    double x, y, z, w;
};
Homogeneous through(Vec3 const& p, Mat4 const& m)
{
    auto column = [&](std::size_t i) { return p.x * m[i] + p.y * m[4 + i] + p.z * m[8 + i] + m[12 + i]; };
    return {column(0), column(1), column(2), column(3)};
}

TEST(Gaussian, weighsOneInAll)
{
    for (double const deviation : {0.0, 0.3, 1.0, 2.5, 7.0}) {
        double sum = 0;
        for (std::size_t i = 0; auto const& tap : gaussianTaps(deviation))
            sum += tap.weight * (i++ == 0 ? 1 : 2);
        EXPECT_NEAR(sum, 1, 1e-5) << deviation;
    }
}

// What the taps do to a single bright pixel has the variance that was asked for.
TEST(Gaussian, spreadsAsFarAsAsked)
{
    for (double const deviation : {1.0, 2.0, 4.0}) {
        double variance = 0;
        for (auto const& tap : gaussianTaps(deviation)) {
            double const low = std::floor(tap.offset), share = tap.offset - low;
            variance += 2 * tap.weight * ((1 - share) * low * low + share * (low + 1) * (low + 1));
        }
        EXPECT_NEAR(std::sqrt(variance), deviation, 0.05 * deviation);
    }
}

TEST(SampleDisc, fillsTheDiscEvenlyAroundItsMiddle)
{
    for (std::size_t const used : {4u, 16u}) {
        auto const points = sampleDisc<16>(used);
        double x = 0, y = 0;
        for (std::size_t i = 0; i < used; ++i) {
            x += points[i][0] / double(used);
            y += points[i][1] / double(used);
            EXPECT_LE(std::hypot(points[i][0], points[i][1]), 1);
        }
        EXPECT_LT(std::hypot(x, y), 0.25);
        EXPECT_GT(std::hypot(points[0][0], points[0][1]),
                  std::hypot(points[used - 1][0], points[used - 1][1]));
    }
}

TEST(ShadowCamera, seesAllThatTakesShadows)
{
    Box const box = cube(3, {10, -5, 2});
    for (Vec3 const& direction : {Vec3{0, 0, -1}, Vec3{1, 2, -3}, Vec3{-1, 0, 0}}) {
        Viewing const light(shadowCamera(direction, box, nullptr), 512, 512, box);
        for (int i = 0; i < 8; ++i) {
            Homogeneous const p = through(light.toView(box.corner(i)), light.projection);
            EXPECT_LE(std::abs(p.x), 1);
            EXPECT_LE(std::abs(p.y), 1);
            EXPECT_LE(std::abs(p.z), 1);
        }
    }
}

TEST(ShadowCamera, narrowsToWhatIsSeenAndBearsSmallMoves)
{
    Box const box = cube(50);
    Camera camera;
    camera.position = {0, 0, 10};
    camera.fieldWidth = camera.fieldHeight = 4;
    auto fit = [&](double shift) {
        camera.target = {shift, 0, 0};
        camera.position = {shift, 0, 10};
        Viewing const view(camera, 100, 100, box);
        return shadowCamera({0, 0, -1}, box, &view);
    };
    EXPECT_LT(fit(0).fieldWidth, 6);
    EXPECT_EQ(fit(0), fit(0.01));
    EXPECT_NE(fit(0), fit(1));
}

TEST(ShadowCamera, leadsFromViewCoordinatesIntoTheMap)
{
    Box const box = cube(2);
    Camera camera;
    camera.position = {3, 4, 10};
    Viewing const view(camera, 100, 80, box);
    Viewing const light(shadowCamera({1, -1, -2}, box, nullptr), 64, 64, box);
    Vec3 const place{0.3, -0.7, 1.1};
    Homogeneous const map = through(view.toView(place), viewToMap(view, light));
    Homogeneous const clip = through(light.toView(place), light.projection);
    EXPECT_NEAR(map.x / map.w, clip.x / clip.w * 0.5 + 0.5, 1e-9);
    EXPECT_NEAR(map.y / map.w, clip.y / clip.w * 0.5 + 0.5, 1e-9);
    EXPECT_NEAR(map.z / map.w, clip.z / clip.w * 0.5 + 0.5, 1e-9);
}

class Mirrors : public testing::TestWithParam<bool>
{
};

TEST_P(Mirrors, showThingsWhereTheirImagesStandAndCutWhatTheyHide)
{
    Camera camera;
    camera.position = {2, 3, 6};
    camera.fieldWidth = camera.fieldHeight = 4;
    camera.perspective = GetParam();
    Viewing const view(camera, 100, 100, cube(4));
    MirrorPlane const plane{{0, 1, 0}, 1};
    Viewing const image = view.mirrored(plane.normal, plane.offset);
    MirrorPlane const behind{{0, -1, 0}, -1};
    Mat4 const cut = withNearPlane(view.projection, inView(behind, view));

    Vec3 const before{0.5, 0.25, -0.5}, below{0.5, -1.75, -0.5};
    Vec3 const seen = image.toView(before), there = view.toView(mirrored(before, plane));
    EXPECT_NEAR(seen.x, there.x, 1e-9);
    EXPECT_NEAR(seen.y, there.y, 1e-9);
    EXPECT_NEAR(seen.z, there.z, 1e-9);
    auto kept = [&](Vec3 const& p) {
        Homogeneous const c = through(image.toView(p), cut);
        return c.z > -c.w;
    };
    EXPECT_TRUE(kept(before));
    EXPECT_FALSE(kept(below));
    // On the plane itself lies the near plane.
    Homogeneous const on = through(view.toView({0.5, -1, -0.5}), cut);
    EXPECT_NEAR(on.z / on.w, -1, 1e-9);
}

INSTANTIATE_TEST_SUITE_P(Projections, Mirrors, testing::Bool());

} // namespace
} // namespace HPS::render
