#include "Exhaustive.h"
#include "drawn_shapes.h"
#include "geometry_records.h"
#include <hps/SelectabilityKit.h>
#include <hps/VisibilityKit.h>
#include <hps/WindowKey.h>

namespace HPS
{

using namespace scene;

namespace
{

/// Pixels by which borders may be off.
constexpr double rounding = 2e-3;

} // namespace

struct Exhaustive::Visit {
    SegmentRecord const& segment;
    NetAttributes above;
    KeyArray path;             ///< of what stands above, the leaf first
    std::vector<Plane> planes; ///< that cut alone, in the world
    NetAttributes net{};
};

Exhaustive::Exhaustive(KeyPath const& toView, CameraKit const& camera, int width, int height)
    : frame_(camera.data(), width, height), width_(width), height_(height)
{
    auto net = fold_.root();
    KeyArray const keys = toView.Keys();
    for (std::size_t i = keys.size(); i-- > 1;)
        if (auto const* const segment = store().resolve<SegmentRecord>(keys[i]))
            net = fold_.step(net, *segment);
    walk({*store().resolve<SegmentRecord>(keys.front()), net, KeyArray(keys.begin() + 1, keys.end()), {}});
}

void Exhaustive::walk(Visit const& from)
{
    Visit visit = from;
    visit.net = fold_.step(visit.above, visit.segment);
    visit.path.insert(visit.path.begin(), Key(store().indexOf(visit.segment.slot)));
    std::vector<Plane> below = visit.planes;
    for (auto const slot : visit.segment.geometry)
        if (auto const* const section = store().at<CuttingSectionRecord>(slot))
            below.push_back(section->data.planes.at(0));
    visit.planes = below; // sections of the tests stand where the world's coordinates hold
    for (auto const slot : visit.segment.geometry) addGeometry(*store().at<GeometryRecord>(slot), visit);
    for (auto const slot : visit.segment.children)
        walk({*store().at<SegmentRecord>(slot), visit.net, visit.path, below});
    for (auto const slot : visit.segment.includes) {
        auto const& include = *store().at<IncludeRecord>(slot);
        KeyArray path = visit.path;
        path.insert(path.begin(), Key(store().indexOf(slot)));
        walk({*store().at<SegmentRecord>(include.target), fold_.through(visit.net, include), path, below});
    }
}

void Exhaustive::addGeometry(GeometryRecord const& geometry, Visit const& visit)
{
    auto const& visibility = visit.net.state->get<VisibilityData>();
    auto const& selectability = visit.net.state->get<SelectabilityData>();
    auto const found = [&](VisibilityKinds::Kind kind, auto slot) {
        using enum Selectability::Value;
        auto const value = selectability.*slot ? *(selectability.*slot) : On;
        return value == ForcedOn || (value == On && visibility.shows(kind, true));
    };
    KeyArray path = visit.path;
    path.insert(path.begin(), Key(store().indexOf(geometry.slot)));
    paths_.push_back(path);
    std::size_t const number = paths_.size() - 1;
    if (auto const* const shell = store().at<ShellRecord>(geometry.slot);
        shell && found(VisibilityKinds::Faces, &SelectabilityData::faces))
        forEachLoop(shell->data.facelist, [&](FaceLoop const& loop) {
            std::vector<Point> corners; // faces of the tests are convex
            for (int const index : loop.indices) corners.push_back(shell->data.points[std::size_t(index)]);
            add(corners, visit, number);
        });
    if (auto const* const line = store().at<LineRecord>(geometry.slot);
        line && found(VisibilityKinds::Lines, &SelectabilityData::lines))
        for (std::size_t i = 0; i + 1 < line->data.points.size(); ++i)
            add({line->data.points[i], line->data.points[i + 1]}, visit, number);
    if (auto const* const marker = store().at<MarkerRecord>(geometry.slot);
        marker && found(VisibilityKinds::Markers, &SelectabilityData::markers))
        add({marker->data.point}, visit, number);
}

void Exhaustive::add(std::vector<Point> const& local, Visit const& visit, std::size_t path)
{
    std::vector<std::array<double, 3>> corners;
    float const* const m = visit.net.matrix.Data();
    for (Point const& p : local) {
        std::array<double, 3> world{};
        for (int i = 0; i < 3; ++i)
            world[std::size_t(i)] =
                double(p.x) * m[i] + double(p.y) * m[4 + i] + double(p.z) * m[8 + i] + m[12 + i];
        corners.push_back(world);
    }
    for (Plane const& plane : visit.planes) {
        auto at = [&](std::array<double, 3> const& p) {
            return plane.a * p[0] + plane.b * p[1] + plane.c * p[2] + plane.d;
        };
        std::vector<std::array<double, 3>> kept;
        for (std::size_t i = 0; i < corners.size(); ++i) {
            auto const &p = corners[i], &q = corners[(i + 1) % corners.size()];
            if (at(p) <= 0) kept.push_back(p);
            bool const last = i + 1 == corners.size() && corners.size() < 3;
            if (last || (at(p) <= 0) == (at(q) <= 0)) continue;
            double const share = at(p) / (at(p) - at(q));
            kept.push_back(
                {p[0] + (q[0] - p[0]) * share, p[1] + (q[1] - p[1]) * share, p[2] + (q[2] - p[2]) * share});
        }
        corners = kept;
    }
    Primitive primitive{path, {}, 0, {1e9, 1e9, -1e9, -1e9}};
    for (auto const& corner : corners) {
        auto p = frame_.toCamera(corner);
        if (!frame_.toWindow(p)) return; // scenes of the tests stand before the eye
        Corner const seen{(p[0] + 1) / 2 * width_, (1 - p[1]) / 2 * height_, p[2]};
        primitive.corners.at(primitive.count++) = seen;
        auto& e = primitive.extent;
        e = {std::min(e.left, seen.x), std::min(e.top, seen.y), std::max(e.right, seen.x),
             std::max(e.bottom, seen.y)};
    }
    if (primitive.count > 0) primitives_.push_back(primitive);
}

// By separating axes: those of the square, and those across the sides of the primitive.
bool Exhaustive::meets(Primitive const& primitive, Square const& square)
{
    auto const& e = primitive.extent;
    if (e.right < square.left || e.left > square.right || e.bottom < square.top || e.top > square.bottom)
        return false;
    std::array<std::array<double, 2>, 4> const box{{{square.left, square.top},
                                                    {square.right, square.top},
                                                    {square.right, square.bottom},
                                                    {square.left, square.bottom}}};
    for (std::size_t i = 0; i < primitive.count && primitive.count > 1; ++i) {
        Corner const &a = primitive.corners[i], &b = primitive.corners[(i + 1) % primitive.count];
        double const x = a.y - b.y, y = b.x - a.x;
        double low = 1e300, high = -1e300, boxLow = 1e300, boxHigh = -1e300;
        for (std::size_t k = 0; k < primitive.count; ++k) {
            double const at = x * primitive.corners[k].x + y * primitive.corners[k].y;
            low = std::min(low, at), high = std::max(high, at);
        }
        for (auto const& corner : box) {
            double const at = x * corner[0] + y * corner[1];
            boxLow = std::min(boxLow, at), boxHigh = std::max(boxHigh, at);
        }
        if (high < boxLow || low > boxHigh) return false;
    }
    return true;
}

Exhaustive::Answer Exhaustive::in(Square const& square) const
{
    Answer answer;
    for (Primitive const& primitive : primitives_) {
        if (meets(primitive, square.grown(-rounding))) answer.certain.insert(paths_[primitive.path]);
        if (meets(primitive, square.grown(rounding))) answer.possible.insert(paths_[primitive.path]);
    }
    return answer;
}

std::optional<double> Exhaustive::heightAt(Primitive const& p, double x, double y, double slack)
{
    for (std::size_t i = 1; i + 1 < p.count; ++i) {
        Corner const &a = p.corners[0], &b = p.corners[i], &c = p.corners[i + 1];
        double const area = (b.x - a.x) * (c.y - a.y) - (c.x - a.x) * (b.y - a.y);
        if (std::abs(area) < 1e-12) continue;
        double const v = ((x - a.x) * (c.y - a.y) - (c.x - a.x) * (y - a.y)) / area;
        double const w = ((b.x - a.x) * (y - a.y) - (x - a.x) * (b.y - a.y)) / area;
        if (v >= -slack && w >= -slack && v + w <= 1 + slack)
            return a.height + v * (b.height - a.height) + w * (c.height - a.height);
    }
    return std::nullopt;
}

Exhaustive::Answer Exhaustive::nearestAt(double x, double y) const
{
    Answer answer;
    double highest = -std::numeric_limits<double>::infinity();
    constexpr double slack = 1e-6, tolerance = 1e-5; // of a triangle; in window space
    std::vector<std::pair<double, std::size_t>> near;
    for (Primitive const& primitive : primitives_) {
        if (!meets(primitive, Square{x, y, x, y}.grown(rounding))) continue;
        if (auto const height = heightAt(primitive, x, y, slack)) near.emplace_back(*height, primitive.path);
        // On a border it may be met or missed.
        auto const inside = heightAt(primitive, x, y, -slack);
        if (inside && *inside > highest) {
            highest = *inside;
            answer.certain = {paths_[primitive.path]};
        }
    }
    for (auto const& [height, path] : near)
        if (height >= highest - tolerance) answer.possible.insert(paths_[path]);
    return answer;
}

} // namespace HPS
