#include "shadow_camera.h"

namespace HPS::render
{
namespace
{

/// A rectangle across the light, empty when made.
struct Extent {
    double low[2] = {std::numeric_limits<double>::max(), std::numeric_limits<double>::max()};
    double high[2] = {std::numeric_limits<double>::lowest(), std::numeric_limits<double>::lowest()};

    void add(double x, double y)
    {
        low[0] = std::min(low[0], x), low[1] = std::min(low[1], y);
        high[0] = std::max(high[0], x), high[1] = std::max(high[1], y);
    }
    void clip(Extent const& other)
    {
        for (int i = 0; i < 2; ++i) {
            low[i] = std::max(low[i], other.low[i]);
            high[i] = std::min(high[i], other.high[i]);
        }
    }
    bool empty() const { return !(low[0] < high[0] && low[1] < high[1]); }
};

/// The corners of what a view shows between two distances from its eye.
template <class Visit> void frustumCorners(Viewing const& view, Visit&& visit)
{
    for (double const depth : {view.nearest, view.farthest}) {
        double const scale = view.perspective ? depth / view.distance : 1;
        Vec3 const middle = view.target + view.back * (view.distance - depth);
        for (double const x : {-scale, scale})
            for (double const y : {-scale, scale})
                visit(middle + view.right * (x * view.halfWidth) + view.up * (y * view.halfHeight));
    }
}

} // namespace

Camera shadowCamera(Vec3 const& direction, Box const& receivers, Viewing const* view)
{
    Camera camera;
    Vec3 const way = normalised(direction, {0, 0, -1});
    Vec3 const anyUp = std::abs(way.z) < 0.9 ? Vec3{0, 0, 1} : Vec3{0, 1, 0};
    Vec3 const right = normalised(cross(way, anyUp), {1, 0, 0});
    Vec3 const up = cross(right, way);

    Extent extent;
    for (int i = 0; i < 8; ++i) extent.add(dot(receivers.corner(i), right), dot(receivers.corner(i), up));
    if (view != nullptr) {
        Extent seen;
        frustumCorners(*view, [&](Vec3 const& p) { seen.add(dot(p, right), dot(p, up)); });
        Extent both = extent;
        both.clip(seen);
        if (!both.empty()) extent = both;
    }
    double const wanted = std::max({extent.high[0] - extent.low[0], extent.high[1] - extent.low[1], 1e-12});
    // Four sizes between one and its double; the middle moves by a 32nd, for which there is room to spare.
    double const size = std::exp2(std::ceil(4 * std::log2(wanted * 1.04)) / 4);
    double const step = size / 32, room = size + step;
    auto snapped = [&](int i) { return std::round(0.5 * (extent.low[i] + extent.high[i]) / step) * step; };
    Vec3 const centre = receivers.centre();
    camera.target = right * snapped(0) + up * snapped(1) + way * dot(centre, way);
    camera.position = camera.target - way * std::max(receivers.diagonal(), 1e-12);
    camera.up = up;
    camera.fieldWidth = camera.fieldHeight = room;
    return camera;
}

Mat4 worldToView(Viewing const& view)
{
    Mat4 m = identity;
    std::array const axes{view.right, view.up, view.back};
    for (std::size_t i = 0; i < 3; ++i) {
        m[i] = axes[i].x;
        m[4 + i] = axes[i].y;
        m[8 + i] = axes[i].z;
        m[12 + i] = -dot(view.target, axes[i]);
    }
    return m;
}

Mat4 viewToWorld(Viewing const& view)
{
    auto row = [](Vec3 const& v, double w) { return std::array{v.x, v.y, v.z, w}; };
    Mat4 m{};
    std::array const rows{row(view.right, 0), row(view.up, 0), row(view.back, 0), row(view.target, 1)};
    for (std::size_t i = 0; i < 4; ++i)
        std::copy(rows[i].begin(), rows[i].end(), m.begin() + std::ptrdiff_t(4 * i));
    return m;
}

Mat4 viewToMap(Viewing const& view, Viewing const& light)
{
    Mat4 const halved{0.5, 0, 0, 0, 0, 0.5, 0, 0, 0, 0, 0.5, 0, 0.5, 0.5, 0.5, 1};
    return viewToWorld(view) * worldToView(light) * light.projection * halved;
}

} // namespace HPS::render
