// Where the camera stands that the command line asks for.

#include "CameraPose.h"

#include <cmath>
#include <numbers>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace zelview;

namespace
{

constexpr float HalfRoot = 0.70710678F;

auto near(Triple const& expected)
{
    return testing::Pointwise(testing::FloatNear(1e-4F), expected);
}

Triple unit(Triple const& from, Triple const& to)
{
    Triple line{to[0] - from[0], to[1] - from[1], to[2] - from[2]};
    float const length = std::hypot(line[0], line[1], line[2]);
    for (float& coordinate : line) coordinate /= length;
    return line;
}

struct Seen {
    StandardView view;
    bool yUp;
    Triple eye; ///< from the target, of length 1
    Triple up;
};

} // namespace

TEST(CameraPose, standardViewsLieWhereTheHostsCamerasPutThem)
{
    using enum StandardView;
    Seen const cases[] = {
        {Front, false, {1, 0, 0}, {0, 0, 1}},
        {Front, true, {0, 0, 1}, {0, 1, 0}},
        {Back, false, {-1, 0, 0}, {0, 0, 1}},
        {Back, true, {0, 0, -1}, {0, 1, 0}},
        {Right, false, {0, 1, 0}, {0, 0, 1}},
        {Right, true, {1, 0, 0}, {0, 1, 0}},
        {Left, false, {0, -1, 0}, {0, 0, 1}},
        {Left, true, {-1, 0, 0}, {0, 1, 0}},
        {Top, false, {0, 0, 1}, {-1, 0, 0}},
        {Top, true, {0, 1, 0}, {0, 0, -1}},
        {Bottom, false, {0, 0, -1}, {1, 0, 0}},
        {Bottom, true, {0, -1, 0}, {0, 0, 1}},
        {Isometric, false, {0.5F, 0.5F, HalfRoot}, {-0.5F, -0.5F, HalfRoot}},
        {Isometric, true, {0.5F, HalfRoot, 0.5F}, {-0.5F, HalfRoot, -0.5F}},
    };
    SceneBounds const bounds{{10, -20, 30}, 7};
    for (Seen const& seen : cases) {
        SCOPED_TRACE(static_cast<int>(seen.view));
        ViewChoice choice;
        choice.view = seen.view;
        CameraPose const pose = cameraPose(choice, bounds, 1.5F, seen.yUp);
        EXPECT_THAT(pose.target, near(bounds.center));
        EXPECT_THAT(unit(pose.target, pose.position), near(seen.eye));
        EXPECT_THAT(pose.up, near(seen.up));
    }
}

TEST(CameraPose, theSphereTouchesTheEdgesOfThePicture)
{
    SceneBounds const bounds{{0, 0, 0}, 10};
    for (float const aspect : {2.0F, 1.0F, 0.5F})
        for (bool const parallel : {false, true}) {
            ViewChoice choice;
            choice.orthographic = parallel;
            choice.fieldOfView = 30;
            CameraPose const pose = cameraPose(choice, bounds, aspect, false);
            float const distance = std::hypot(pose.position[0], pose.position[1], pose.position[2]);
            // The narrower side of what is seen at the target, or the angle to a line that touches the
            // sphere.
            float const half = pose.fieldHeight() / 2 * std::min(1.0F, aspect);
            if (parallel)
                EXPECT_NEAR(half, bounds.radius, 1e-3);
            else
                EXPECT_NEAR(std::asin(bounds.radius / distance), std::atan(half / distance), 1e-4);
        }
}

TEST(CameraPose, aPositionHoldsUnlessAFitIsAskedFor)
{
    ViewChoice choice;
    choice.position = {0, -50, 0};
    choice.up = {0, 0, 1};
    SceneBounds const bounds{{0, 100, 0}, 10};
    EXPECT_THAT(cameraPose(choice, bounds, 1, false).position, near({0, -50, 0}));
    EXPECT_THAT(cameraPose(choice, bounds, 1, false).target, near(bounds.center));
    choice.fit = true;
    CameraPose const fitted = cameraPose(choice, bounds, 1, false);
    EXPECT_THAT(unit(fitted.target, fitted.position), near({0, -1, 0}));
    EXPECT_NEAR(bounds.radius / (100 - fitted.position[1]), std::sin(std::numbers::pi / 8), 1e-4);
}
