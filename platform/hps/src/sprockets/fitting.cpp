#include "fitting.h"
#include "VisibleExtent.h"
#include "linear.h"

namespace HPS
{
namespace
{

using render::as;
using render::vec;
using render::Vec3;
using render::VisibleExtent;

constexpr double margin = 1.08;

/// The axes of a camera, and what stays of it when it moves.
struct CameraAxes {
    Vec3 right, above, back;
    bool perspective;
    double slope; ///< half the larger side of the field, per distance

    explicit CameraAxes(CameraKit const& camera)
    {
        CameraKit const fallback = defaultCamera({0, 0, 1}, {1, 0, 0});
        Point position, target;
        Vector up;
        float width = 0, height = 0;
        Camera::Projection projection = Camera::Projection::Orthographic;
        auto either = [&](auto const& show) {
            if (!show(camera)) show(fallback);
        };
        either([&](CameraKit const& kit) { return kit.ShowPosition(position) && kit.ShowTarget(target); });
        either([&](CameraKit const& kit) { return kit.ShowUpVector(up); });
        either([&](CameraKit const& kit) { return kit.ShowField(width, height); });
        either([&](CameraKit const& kit) { return kit.ShowProjection(projection); });

        Vec3 const away = vec(position) - vec(target);
        back = normalised(away, {0, 0, 1});
        Vec3 const someUp = std::abs(back.z) < 0.9 ? Vec3{0, 0, 1} : Vec3{0, 1, 0};
        right = cross(vec(up), back);
        right = normalised(length(right) > 1e-9 * length(vec(up)) ? right : cross(someUp, back), {1, 0, 0});
        above = cross(back, right);
        perspective = projection != Camera::Projection::Orthographic;
        double const side = std::max(width, height);
        slope = length(away) > 0 && side > 0 ? 0.5 * side / length(away) : 0.2;
    }
};

struct Framing {
    double x, y;                  ///< of the middle, in the axes of the view
    double halfWidth, halfHeight; ///< at the target
    double distance;
};

// The eye sees a point if x - eye.x <= slope (eye.z - z), and likewise for the other three sides of its
// pyramid: all of them bounds on sums of coordinates, of which the extent knows the largest.
Framing inPerspective(VisibleExtent const& extent, CameraAxes const& view, double depth, double smallest)
{
    struct Side {
        double middle; ///< where the eye stands across
        double reach;  ///< how far back it stands
    };
    auto side = [&](Vec3 const& across, double slope) {
        double const high = extent.support(across + view.back * slope);
        double const low = extent.support(across * -1 + view.back * slope);
        return Side{0.5 * (high - low), 0.5 * (high + low) / slope};
    };
    double const slope = view.slope / margin;
    double const eye = std::max({side(view.right, slope).reach, side(view.above, slope).reach,
                                 depth + smallest / slope, extent.support(view.back) + smallest});
    // One side of the field fills; the other takes the smallest slope that still shows all.
    auto fit = [&](Vec3 const& across) {
        double low = 0, high = slope;
        for (int i = 0; i < 20; ++i) {
            double const middle = 0.5 * (low + high);
            (side(across, middle).reach <= eye ? high : low) = middle;
        }
        return std::pair(side(across, high).middle, std::max(high * (eye - depth), smallest));
    };
    auto const [x, halfWidth] = fit(view.right);
    auto const [y, halfHeight] = fit(view.above);
    return {x, y, halfWidth, halfHeight, eye - depth};
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
    kit.SetPosition(as<Point>(normalised(ahead + right + u, {1, 1, 1}) * distance));
    kit.SetUpVector(Vector(float(u.x), float(u.y), float(u.z)));
    kit.SetField(2, 2);
    kit.SetProjection(Camera::Projection::Orthographic);
    return kit;
}

CameraKit fittedCamera(CameraKit const& camera, VisibleExtent const& extent)
{
    CameraAxes const view(camera);
    // Along an axis of the view: the middle, and half the size.
    auto range = [&](Vec3 const& axis) {
        double const high = extent.support(axis), low = -extent.support(axis * -1);
        return std::pair(0.5 * (high + low), 0.5 * (high - low));
    };
    auto const [depth, halfDepth] = range(view.back);
    auto const [x, halfX] = range(view.right);
    auto const [y, halfY] = range(view.above);
    double const size = std::max({halfX, halfY, halfDepth});
    double const smallest = size > 0 ? 1e-3 * size : 1; // a point or a line is framed as well
    Framing const framing = view.perspective
                                ? inPerspective(extent, view, depth, smallest)
                                : Framing{x, y, std::max(halfX, smallest), std::max(halfY, smallest),
                                          std::max(5 * size, smallest)};

    Vec3 const target = view.right * framing.x + view.above * framing.y + view.back * depth;
    CameraKit fitted = camera;
    fitted.SetTarget(as<Point>(target));
    fitted.SetPosition(as<Point>(target + view.back * framing.distance));
    fitted.SetUpVector(Vector(float(view.above.x), float(view.above.y), float(view.above.z)));
    fitted.SetField(float(2 * margin * framing.halfWidth), float(2 * margin * framing.halfHeight));
    fitted.SetProjection(view.perspective ? Camera::Projection::Perspective
                                          : Camera::Projection::Orthographic);
    return fitted;
}

} // namespace HPS
