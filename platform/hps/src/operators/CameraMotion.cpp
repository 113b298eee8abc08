#include "CameraMotion.h"
#include "ViewFrame.h"
#include <cmath>
#include <numbers>

namespace HPS
{
namespace
{

using Triple = CameraMotion::Triple;

template <class From> Triple triple(From const& from)
{
    return {from.x, from.y, from.z};
}
template <class To> To as(Triple const& from)
{
    return {float(from[0]), float(from[1]), float(from[2])};
}

Triple sum(Triple const& a, Triple const& b, double factor = 1)
{
    return {a[0] + factor * b[0], a[1] + factor * b[1], a[2] + factor * b[2]};
}
double dot(Triple const& a, Triple const& b)
{
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}
Triple cross(Triple const& a, Triple const& b)
{
    return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}
Triple normalised(Triple const& a, Triple const& fallback)
{
    double const length = std::sqrt(dot(a, a));
    return length > 0 && std::isfinite(length) ? sum({}, a, 1 / length) : fallback;
}

/// Rodrigues' formula.
Triple turned(Triple const& v, Triple const& axis, double radians)
{
    double const c = std::cos(radians), s = std::sin(radians);
    return sum(sum(sum({}, v, c), cross(axis, v), s), axis, dot(axis, v) * (1 - c));
}

} // namespace

CameraMotion::CameraMotion(CameraKit const& camera) : kit_(camera)
{
    CameraData const data = camera.data();
    CameraData const fallback = CameraKit::GetDefault().data();
    auto const value = [&](auto slot) { return data.*slot ? *(data.*slot) : *(fallback.*slot); };
    position_ = triple(value(&CameraData::position));
    target_ = triple(value(&CameraData::target));
    std::tie(fieldWidth_, fieldHeight_) = value(&CameraData::field);
    // Upright on the line of sight, whatever was set.
    up_ = triple(value(&CameraData::upVector));
    Triple const line = back();
    Triple const level = normalised(cross(up_, line), normalised(cross({0.3, 0.5, 0.8}, line), {1, 0, 0}));
    up_ = cross(line, level);
}

CameraKit CameraMotion::result() const
{
    CameraKit moved = kit_;
    moved.SetPosition(as<Point>(position_)).SetTarget(as<Point>(target_)).SetUpVector(as<Vector>(up_));
    return moved.SetField(float(fieldWidth_), float(fieldHeight_));
}

Triple CameraMotion::back() const
{
    return normalised(sum(position_, target_, -1), {0, 0, 1});
}

Triple CameraMotion::right() const
{
    return cross(up_, back());
}

void CameraMotion::turn(Triple const& center, Triple const& axis, double degrees)
{
    Triple const unit = normalised(axis, {0, 0, 1});
    double const radians = degrees * std::numbers::pi / 180;
    for (Triple* const point : {&position_, &target_})
        *point = sum(center, turned(sum(*point, center, -1), unit, radians));
    up_ = turned(up_, unit, radians);
}

void CameraMotion::shift(Triple const& by)
{
    position_ = sum(position_, by);
    target_ = sum(target_, by);
}

void CameraMotion::zoom(Triple const& center, double factor)
{
    // So far that single precision still tells eye and target apart, and they stay on the numbers' map.
    constexpr double nearest = 1e-5, farthest = 1e15;
    double const distance = std::sqrt(dot(sum(position_, target_, -1), sum(position_, target_, -1))) / factor;
    double const size = std::sqrt(std::max(dot(target_, target_), 1e-12));
    if (!(factor > 0) || distance < nearest * size || distance > farthest) return;
    for (Triple* const point : {&position_, &target_})
        *point = sum(center, sum(*point, center, -1), 1 / factor);
    fieldWidth_ /= factor;
    fieldHeight_ /= factor;
}

Triple CameraMotion::pointAt(double x, double y, double width, double height) const
{
    scene::ViewFrame const frame(result().data(), width, height);
    scene::ViewFrame::Triple place{x, y, 0};
    return frame.fromWindow(place) ? frame.toWorld(place) : target_;
}

} // namespace HPS
