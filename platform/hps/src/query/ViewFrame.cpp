#include "ViewFrame.h"
#include <algorithm>
#include <cmath>

namespace HPS::scene
{
namespace
{

using Triple = ViewFrame::Triple;

double dot(Triple const& a, Triple const& b)
{
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}
Triple cross(Triple const& a, Triple const& b)
{
    return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}
Triple normalised(Triple const& v, Triple const& otherwise)
{
    double const length = std::sqrt(dot(v, v));
    return length > 0 && std::isfinite(length) ? Triple{v[0] / length, v[1] / length, v[2] / length}
                                               : otherwise;
}
template <class T> Triple triple(T const& v)
{
    return {v.x, v.y, v.z};
}

} // namespace

ViewFrame::ViewFrame(CameraData const& camera, double width, double height)
{
    static CameraData const fallback = CameraKit::GetDefault().data();
    auto const value = [&](auto slot) { return camera.*slot ? *(camera.*slot) : *(fallback.*slot); };
    Triple const position = triple(value(&CameraData::position));
    target_ = triple(value(&CameraData::target));
    Triple const away{position[0] - target_[0], position[1] - target_[1], position[2] - target_[2]};
    back_ = normalised(away, {0, 0, 1});
    Triple const anyUp = std::abs(back_[2]) < 0.9 ? Triple{0, 0, 1} : Triple{0, 1, 0};
    right_ = cross(normalised(triple(value(&CameraData::upVector)), anyUp), back_);
    // An up vector along the sight tells nothing.
    right_ = normalised(dot(right_, right_) < 1e-12 ? cross(anyUp, back_) : right_, {1, 0, 0});
    up_ = cross(back_, right_);
    double const length = std::sqrt(dot(away, away));
    distance_ = length > 0 ? length : 1;
    perspective_ = std::get<0>(value(&CameraData::projection)) != HPS::Camera::Projection::Orthographic;

    auto const [wanted, wantedHeight] = value(&CameraData::field);
    double const fieldWidth = wanted > 0 ? wanted : 1;
    double const fieldHeight = wantedHeight > 0 ? wantedHeight : fieldWidth;
    double const unitsPerPixel = std::max(fieldWidth / width, fieldHeight / height);
    halfWidth_ = unitsPerPixel * width / 2;
    halfHeight_ = unitsPerPixel * height / 2;
}

Triple ViewFrame::toCamera(Triple const& world) const
{
    Triple const from{world[0] - target_[0], world[1] - target_[1], world[2] - target_[2]};
    return {dot(from, right_), dot(from, up_), dot(from, back_)};
}

Triple ViewFrame::toWorld(Triple const& camera) const
{
    Triple world = target_;
    for (std::size_t i = 0; i < 3; ++i)
        world[i] += camera[0] * right_[i] + camera[1] * up_[i] + camera[2] * back_[i];
    return world;
}

bool ViewFrame::toWindow(Triple& p) const
{
    double const depth = distance_ - p[2];
    if (perspective_ && depth <= 1e-9 * distance_) return false;
    double const scale = perspective_ ? distance_ / depth : 1;
    p = {p[0] * scale / halfWidth_, p[1] * scale / halfHeight_, perspective_ ? scale - 1 : p[2] / distance_};
    return true;
}

bool ViewFrame::fromWindow(Triple& p) const
{
    if (perspective_ && p[2] <= -1) return false;
    double const scale = perspective_ ? p[2] + 1 : 1;
    p = {p[0] * halfWidth_ / scale, p[1] * halfHeight_ / scale,
         perspective_ ? distance_ - distance_ / scale : p[2] * distance_};
    return true;
}

} // namespace HPS::scene
