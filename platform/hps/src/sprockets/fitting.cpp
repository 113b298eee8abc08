#include "fitting.h"
#include "linear.h"

namespace HPS
{
namespace
{

using render::Vec3;

constexpr double margin = 1.08;

Vec3 vec(Vector const& v)
{
    return {v.x, v.y, v.z};
}
Vec3 vec(Point const& p)
{
    return {p.x, p.y, p.z};
}
Point point(Vec3 const& v)
{
    return Point(float(v.x), float(v.y), float(v.z));
}

} // namespace

CameraKit defaultCamera(Vector const& up, Vector const& front)
{
    Vec3 const u = normalised(vec(up), {0, 0, 1});
    Vec3 const right = normalised(cross(u, vec(front)), {0, 1, 0});
    Vec3 const ahead = cross(right, u);
    double const distance = 5;
    CameraKit kit;
    kit.SetTarget(Point(0, 0, 0));
    kit.SetPosition(point(normalised(ahead + right + u, {1, 1, 1}) * distance));
    kit.SetUpVector(Vector(float(u.x), float(u.y), float(u.z)));
    kit.SetField(2, 2);
    kit.SetProjection(Camera::Projection::Orthographic);
    return kit;
}

CameraKit fittedCamera(CameraKit const& camera, SimpleCuboid const& box)
{
    CameraKit const fallback = defaultCamera({0, 0, 1}, {1, 0, 0});
    Point position, target;
    Vector up;
    float fieldWidth = 0, fieldHeight = 0;
    Camera::Projection projection = Camera::Projection::Orthographic;
    auto either = [&](auto const& show) {
        if (!show(camera)) show(fallback);
    };
    either([&](CameraKit const& kit) { return kit.ShowPosition(position) && kit.ShowTarget(target); });
    either([&](CameraKit const& kit) { return kit.ShowUpVector(up); });
    either([&](CameraKit const& kit) { return kit.ShowField(fieldWidth, fieldHeight); });
    either([&](CameraKit const& kit) { return kit.ShowProjection(projection); });

    double const oldDistance = render::length(vec(position) - vec(target));
    Vec3 const back = normalised(vec(position) - vec(target), {0, 0, 1});
    Vec3 const someUp = std::abs(back.z) < 0.9 ? Vec3{0, 0, 1} : Vec3{0, 1, 0};
    Vec3 right = cross(vec(up), back);
    right = length(right) > 1e-9 * length(vec(up)) ? normalised(right, {1, 0, 0})
                                                   : normalised(cross(someUp, back), {1, 0, 0});
    Vec3 const above = cross(back, right);

    Vec3 const low = vec(box.min), high = vec(box.max);
    Vec3 const centre = (low + high) * 0.5;
    double const size = length(high - low);
    double const smallest = size > 0 ? 1e-3 * size : 1; // a point or a line is framed as well
    double halfWidth = 0, halfHeight = 0;
    bool const perspective = projection == Camera::Projection::Perspective;
    // Half the larger side of the field, per distance; what is framed fills the larger side.
    double const slope = oldDistance > 0 && fieldWidth > 0 && fieldHeight > 0
                             ? 0.5 * std::max(fieldWidth, fieldHeight) / oldDistance
                             : 0.2;
    double distance = 0;
    auto forCorners = [&](auto const& use) {
        for (int i = 0; i < 8; ++i) {
            Vec3 const corner{(i & 1) != 0 ? high.x : low.x, (i & 2) != 0 ? high.y : low.y,
                              (i & 4) != 0 ? high.z : low.z};
            Vec3 const p = corner - centre;
            use(std::abs(dot(p, right)), std::abs(dot(p, above)), dot(p, back));
        }
    };
    if (perspective) {
        distance = margin * smallest / slope;
        forCorners([&](double x, double y, double z) {
            distance = std::max(distance, z + margin * std::max({x, y, smallest}) / slope);
        });
    } else {
        distance = std::max(2.5 * size, smallest);
    }
    forCorners([&](double x, double y, double z) {
        double const scale = perspective ? distance / (distance - z) : 1;
        halfWidth = std::max(halfWidth, x * scale);
        halfHeight = std::max(halfHeight, y * scale);
    });
    CameraKit fitted = camera;
    fitted.SetTarget(point(centre));
    fitted.SetPosition(point(centre + back * distance));
    fitted.SetUpVector(Vector(float(above.x), float(above.y), float(above.z)));
    fitted.SetField(float(2 * margin * std::max(halfWidth, smallest)),
                    float(2 * margin * std::max(halfHeight, smallest)));
    fitted.SetProjection(projection);
    return fitted;
}

} // namespace HPS
