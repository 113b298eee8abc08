#include "CameraPose.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace zelview
{
namespace
{

constexpr float HalfRoot = std::numbers::sqrt2_v<float> / 2;

/// Where the eye stands, seen from the target, and what is up in the picture.
struct Direction {
    Triple eye;
    Triple up;
};

/// With Z up and X to the front.
Direction directionOf(StandardView view)
{
    switch (view) {
    case StandardView::Isometric:
        return {{0.5F, 0.5F, HalfRoot}, {-0.5F, -0.5F, HalfRoot}};
    case StandardView::Front:
        return {{1, 0, 0}, {0, 0, 1}};
    case StandardView::Top:
        return {{0, 0, 1}, {-1, 0, 0}};
    case StandardView::Right:
        return {{0, 1, 0}, {0, 0, 1}};
    case StandardView::Back:
        return {{-1, 0, 0}, {0, 0, 1}};
    case StandardView::Bottom:
        return {{0, 0, -1}, {1, 0, 0}};
    case StandardView::Left:
        return {{0, -1, 0}, {0, 0, 1}};
    }
    return {};
}

/// The axes change places in a ring: front X, right Y, up Z become front Z, right X, up Y.
Triple toYUp(Triple const& zUp)
{
    return {zUp[1], zUp[2], zUp[0]};
}

float length(Triple const& vector)
{
    return std::hypot(vector[0], vector[1], vector[2]);
}

/// `from` plus `times` a vector.
Triple along(Triple const& from, Triple const& vector, float times)
{
    return {from[0] + times * vector[0], from[1] + times * vector[1], from[2] + times * vector[2]};
}

float halfTangent(float degrees)
{
    return std::tan(degrees * std::numbers::pi_v<float> / 360);
}

/// From the centre of a sphere to the eye that sees all of it; in perspective the lines of sight touch the
/// sphere in front of its centre.
float fittingDistance(float radius, float fieldOfView, float aspect, bool orthographic)
{
    float const tangent = halfTangent(fieldOfView) * std::min(1.0F, aspect);
    return radius / (orthographic ? tangent : std::sin(std::atan(tangent)));
}

} // namespace

float CameraPose::fieldHeight() const
{
    return 2 * length(along(position, target, -1)) * halfTangent(fieldOfView);
}

CameraPose cameraPose(ViewChoice const& choice, SceneBounds const& bounds, float aspect, bool yUp)
{
    Direction direction = directionOf(choice.view.value_or(StandardView::Isometric));
    if (yUp) direction = {toYUp(direction.eye), toYUp(direction.up)};

    CameraPose pose;
    pose.fieldOfView = choice.fieldOfView.value_or(DefaultFieldOfView);
    pose.orthographic = choice.orthographic;
    bool const fitting = choice.fit || !choice.position;
    pose.target = choice.target.value_or(bounds.center);
    if (choice.position) {
        Triple const line = along(*choice.position, pose.target, -1);
        if (float const distance = length(line); distance > 0)
            direction.eye = {line[0] / distance, line[1] / distance, line[2] / distance};
    }
    pose.up = choice.up.value_or(direction.up);
    pose.position = fitting
                        ? along(pose.target, direction.eye,
                                fittingDistance(bounds.radius, pose.fieldOfView, aspect, pose.orthographic))
                        : *choice.position;
    return pose;
}

} // namespace zelview
