#include "Viewing.h"

namespace HPS::render
{
namespace
{

/// False if a number is none, or so large that nothing could be seen.
bool usable(Camera const& camera)
{
    constexpr double limit = 1e15;
    for (double number : {length(camera.position), length(camera.target), length(camera.up),
                          camera.fieldWidth, camera.fieldHeight})
        if (!(std::abs(number) <= limit)) return false;
    return true;
}

} // namespace

Viewing::Viewing(Camera const& wanted, int width, int height, Box const& bounds)
{
    Camera const camera = usable(wanted) ? wanted : Camera{};
    target = camera.target;
    perspective = camera.perspective;
    back = normalised(camera.position - camera.target, {0, 0, 1});
    Vec3 const anyUp = std::abs(back.z) < 0.9 ? Vec3{0, 0, 1} : Vec3{0, 1, 0};
    right = normalised(cross(normalised(camera.up, anyUp), back), {0, 0, 0});
    if (right == Vec3{}) right = normalised(cross(anyUp, back), {1, 0, 0});
    up = cross(back, right);
    double const away = length(camera.position - camera.target);
    distance = away > 0 ? away : 1;

    // The window keeps the scale equal in both directions and shows the whole field.
    double const fieldWidth = camera.fieldWidth > 0 ? camera.fieldWidth : 1;
    double const fieldHeight = camera.fieldHeight > 0 ? camera.fieldHeight : fieldWidth;
    double const unitsPerPixel = std::max(fieldWidth / width, fieldHeight / height);
    halfWidth = 0.5 * unitsPerPixel * width;
    halfHeight = 0.5 * unitsPerPixel * height;
    scale = 1 / unitsPerPixel;

    double front = -1, rear = 1;
    if (!bounds.empty()) {
        front = std::numeric_limits<double>::max();
        rear = -front;
        for (int i = 0; i < 8; ++i) {
            double const depth = distance - toView(bounds.corner(i)).z;
            front = std::min(front, depth);
            rear = std::max(rear, depth);
        }
    } else {
        front += distance;
        rear += distance;
    }
    // Markers and wide lines stand out of the box a little, and nothing may touch the limits.
    double const margin = std::max({0.01 * (rear - front), 1e-5 * distance, 1e-12});
    nearest = front - margin;
    farthest = rear + margin;
    projection = {};
    projection[0] = 1 / halfWidth;
    projection[5] = 1 / halfHeight;
    if (perspective) {
        // 24 bits of depth bear no more than this ratio.
        farthest = std::max(farthest, 1e-3 * distance);
        nearest = std::max(nearest, 1e-4 * std::min(farthest, 10 * distance));
        nearest = std::min(nearest, 0.5 * farthest);
        double const range = farthest - nearest;
        projection[0] *= distance;
        projection[5] *= distance;
        projection[10] = -(farthest + nearest) / range;
        projection[11] = -1;
        projection[14] = distance * (farthest + nearest) / range - 2 * farthest * nearest / range;
        projection[15] = distance;
    } else {
        double const range = farthest - nearest;
        projection[10] = -2 / range;
        projection[14] = (2 * distance - farthest - nearest) / range;
        projection[15] = 1;
    }

    auto side = [&](Vec3 const& across, double half) {
        // Through the eye in a perspective, parallel to the sight otherwise.
        Vec3 const normal = perspective ? normalised(across * distance - back * half, across) : across;
        Vec3 const at = perspective ? target + back * distance : target - across * half;
        return Plane{normal, -dot(normal, at)};
    };
    sides_ = {side(right, halfWidth), side(right * -1, halfWidth), side(up, halfHeight),
              side(up * -1, halfHeight)};
}

Vec3 Viewing::toView(Vec3 const& world) const
{
    Vec3 const p = world - target;
    return {dot(p, right), dot(p, up), dot(p, back)};
}

Viewing Viewing::mirrored(Vec3 const& normal, double offset) const
{
    Viewing image = *this;
    auto turn = [&](Vec3 const& way) { return way - normal * (2 * dot(way, normal)); };
    image.right = turn(right);
    image.up = turn(up);
    image.back = turn(back);
    image.target = target - normal * (2 * (dot(target, normal) + offset));
    for (Plane& side : image.sides_)
        side = {turn(side.normal), side.offset - 2 * offset * dot(side.normal, normal)};
    return image;
}

Viewing::Sight Viewing::sight(Box const& world, double margin) const
{
    bool whole = true;
    for (Plane const& side : sides_) {
        Vec3 inner, outer;
        auto put = [&](double Vec3::*c, std::size_t axis) {
            bool const positive = side.normal.*c > 0;
            inner.*c = positive ? world.high[axis] : world.low[axis];
            outer.*c = positive ? world.low[axis] : world.high[axis];
        };
        put(&Vec3::x, 0);
        put(&Vec3::y, 1);
        put(&Vec3::z, 2);
        if (dot(side.normal, inner) + side.offset < -margin) return Sight::None;
        whole = whole && dot(side.normal, outer) + side.offset >= 0;
    }
    return whole ? Sight::Whole : Sight::Part;
}

double Viewing::pixelsPerUnit(Box const& world) const
{
    if (!perspective) return scale;
    Vec3 const closest = {back.x > 0 ? world.high[0] : world.low[0],
                          back.y > 0 ? world.high[1] : world.low[1],
                          back.z > 0 ? world.high[2] : world.low[2]};
    return scale * distance / std::max(distance - toView(closest).z, 1e-9 * distance);
}

} // namespace HPS::render
