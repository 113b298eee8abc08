#include "CameraTransition.h"

namespace HPS
{
namespace
{

using render::as;
using render::vec;
using render::Vec3;

double mixed(double a, double b, double t)
{
    return a + (b - a) * t;
}

/// Equal factors in equal times, where both have a size.
double scaled(double a, double b, double t)
{
    return a > 0 && b > 0 ? a * std::pow(b / a, t) : mixed(a, b, t);
}

/// The turn that takes x, y and z to three vectors at right angles to each other.
Turn turnTo(Vec3 const& x, Vec3 const& y, Vec3 const& z)
{
    // Of the four components the largest is found first, for the others are divided by it.
    double const w = 1 + x.x + y.y + z.z, a = 1 + x.x - y.y - z.z, b = 1 - x.x + y.y - z.z,
                 c = 1 - x.x - y.y + z.z;
    double const most = std::max({w, a, b, c});
    Turn const turn = most == w   ? Turn{w, {y.z - z.y, z.x - x.z, x.y - y.x}}
                      : most == a ? Turn{y.z - z.y, {a, x.y + y.x, z.x + x.z}}
                      : most == b ? Turn{z.x - x.z, {x.y + y.x, b, y.z + z.y}}
                                  : Turn{x.y - y.x, {z.x + x.z, y.z + z.y, c}};
    double const factor = 0.5 / std::sqrt(most);
    return {turn.w * factor, turn.v * factor};
}

Vec3 turned(Vec3 const& point, Turn const& turn)
{
    Vec3 const twice = cross(turn.v, point) * 2;
    return point + twice * turn.w + cross(turn.v, twice);
}

/// Along the shorter of the two great circles.
Turn between(Turn const& from, Turn to, double t)
{
    double cosine = from.w * to.w + dot(from.v, to.v);
    if (cosine < 0) {
        to = {-to.w, to.v * -1};
        cosine = -cosine;
    }
    double const angle = std::acos(std::min(cosine, 1.0)), sine = std::sin(angle);
    double const a = sine > 1e-6 ? std::sin((1 - t) * angle) / sine : 1 - t;
    double const b = sine > 1e-6 ? std::sin(t * angle) / sine : t;
    return {from.w * a + to.w * b, from.v * a + to.v * b};
}

} // namespace

CameraTransition::CameraTransition(CameraKit const& from, CameraKit const& to, double start, double seconds)
    : to_(to), begin_(stanceOf(from)), start_(start), seconds_(seconds)
{
    CameraKit whole = from;
    CameraData const& wanted = to.data();
    if (wanted.position) whole.SetPosition(*wanted.position);
    if (wanted.target) whole.SetTarget(*wanted.target);
    if (wanted.upVector) whole.SetUpVector(*wanted.upVector);
    if (wanted.field) whole.SetField(std::get<0>(*wanted.field), std::get<1>(*wanted.field));
    end_ = stanceOf(whole);
}

CameraTransition::Stance CameraTransition::stanceOf(CameraKit const& camera)
{
    CameraData const data = camera.data(), fallback = CameraKit::GetDefault().data();
    auto const value = [&](auto slot) { return data.*slot ? *(data.*slot) : *(fallback.*slot); };
    Stance stance;
    stance.target = vec(value(&CameraData::target));
    std::tie(stance.width, stance.height) = value(&CameraData::field);
    Vec3 const away = vec(value(&CameraData::position)) - stance.target;
    stance.distance = length(away);
    Vec3 const back = normalised(away, {0, 0, 1});
    Vec3 const level = std::abs(back.x) < 0.9 ? Vec3{1, 0, 0} : Vec3{0, 1, 0};
    Vec3 const right =
        normalised(cross(vec(value(&CameraData::upVector)), back), normalised(cross(back, level), {1, 0, 0}));
    stance.turn = turnTo(right, cross(back, right), back);
    return stance;
}

CameraKit CameraTransition::at(double now) const
{
    double const share = seconds_ > 0 ? std::clamp((now - start_) / seconds_, 0.0, 1.0) : 1;
    if (share == 1) return to_;
    double const t = share * share * (3 - 2 * share); // no speed at either end
    Vec3 const target = begin_.target + (end_.target - begin_.target) * t;
    Turn const turn = between(begin_.turn, end_.turn, t);
    CameraKit camera = to_;
    camera.SetTarget(as<Point>(target));
    camera.SetPosition(
        as<Point>(target + turned({0, 0, 1}, turn) * scaled(begin_.distance, end_.distance, t)));
    camera.SetUpVector(as<Vector>(turned({0, 1, 0}, turn)));
    return camera.SetField(float(scaled(begin_.width, end_.width, t)),
                           float(scaled(begin_.height, end_.height, t)));
}

} // namespace HPS
