#include "tessellation_curves.h"
#include <algorithm>
#include <cmath>
#include <numbers>

namespace HPS::scene
{
namespace
{

constexpr double fullTurn = 2 * std::numbers::pi;

struct Vec {
    double x = 0, y = 0, z = 0;
    explicit Vec(Point const& p) : x(p.x), y(p.y), z(p.z) {}
    explicit Vec(HPS::Vector const& v) : x(v.x), y(v.y), z(v.z) {}
    Vec(double xIn, double yIn, double zIn) : x(xIn), y(yIn), z(zIn) {}
    friend Vec operator+(Vec const& a, Vec const& b) { return {a.x + b.x, a.y + b.y, a.z + b.z}; }
    friend Vec operator-(Vec const& a, Vec const& b) { return {a.x - b.x, a.y - b.y, a.z - b.z}; }
    friend Vec operator*(Vec const& a, double s) { return {a.x * s, a.y * s, a.z * s}; }
    double dot(Vec const& b) const { return x * b.x + y * b.y + z * b.z; }
    Vec cross(Vec const& b) const { return {y * b.z - z * b.y, z * b.x - x * b.z, x * b.y - y * b.x}; }
    double length() const { return std::sqrt(dot(*this)); }
    Vec unit() const { return *this * (1 / length()); }
};

Sweep makeSweep(Vec const& center, Vec const& major, Vec const& minor, double start, double end)
{
    return {
        {center.x, center.y, center.z}, {major.x, major.y, major.z}, {minor.x, minor.y, minor.z}, start, end};
}

std::size_t lineCount(Sweep const& sweep, CurveLimits const& limits)
{
    auto const length = [](double const(&v)[3]) { return std::hypot(v[0], v[1], v[2]); };
    double const radius = std::max(length(sweep.major), length(sweep.minor));
    double const turn = std::abs(sweep.end - sweep.start);
    double count = turn / (fullTurn / 6); // a whole one is never less than a hexagon
    if (limits.angle > 0) count = std::max(count, turn / (limits.angle * fullTurn / 360));
    if (limits.deviation > 0 && limits.deviation < radius)
        count = std::max(count, turn / (2 * std::acos(1 - limits.deviation / radius)));
    if (limits.length > 0) count = std::max(count, turn * radius / limits.length);
    // A whole turn less a rounding error is still a whole number of lines.
    double const lines = std::ceil(count - 1e-6);
    double const most = limits.points > 1 ? static_cast<double>(limits.points - 1) : 1e6;
    return static_cast<std::size_t>(std::clamp(lines, 1.0, most));
}

} // namespace

CurveLimits::CurveLimits(CurveAttributeData const& attributes)
{
    points = attributes.budget.value_or(static_cast<unsigned>(points));
    deviation = attributes.maximumDeviation.value_or(0.0f);
    angle = attributes.maximumAngle.value_or(5.0f);
    length = attributes.maximumLength.value_or(0.0f);
}

Point Sweep::at(double t) const
{
    double const c = std::cos(t), s = std::sin(t);
    auto const part = [&](int i) { return static_cast<float>(center[i] + c * major[i] + s * minor[i]); };
    return {part(0), part(1), part(2)};
}

bool Sweep::isWhole() const
{
    return std::abs(end - start) >= fullTurn * (1 - 1e-9);
}

Sweep sweepOf(CircleData const& circle)
{
    Vec const normal = Vec(circle.normal).unit();
    // The axis that the normal has least of gives a well-conditioned cross product.
    Vec const seed = std::abs(normal.x) < 0.6 ? Vec(1, 0, 0) : Vec(0, 1, 0);
    Vec const major = (seed - normal * normal.dot(seed)).unit() * circle.radius;
    return makeSweep(Vec(circle.center), major, normal.cross(major), 0, fullTurn);
}

Sweep sweepOf(EllipseData const& ellipse)
{
    Vec const center(ellipse.center);
    return makeSweep(center, Vec(ellipse.major) - center, Vec(ellipse.minor) - center, 0, fullTurn);
}

Sweep sweepOf(EllipticalArcData const& arc)
{
    Vec const center(arc.center);
    return makeSweep(center, Vec(arc.major) - center, Vec(arc.minor) - center, arc.start * fullTurn,
                     arc.end * fullTurn);
}

// The centre of the circle through three points: Ericson, Real-Time Collision Detection, on the circumscribed
// circle of a triangle.
std::optional<Sweep> sweepOf(ArcPointsData const& arc)
{
    Vec const a(arc.start), ab = Vec(arc.middle) - a, ac = Vec(arc.end) - a;
    Vec const normal = ab.cross(ac);
    double const squared = normal.dot(normal);
    if (!(squared > 1e-14 * ab.dot(ab) * ac.dot(ac))) return std::nullopt;
    Vec const center =
        a + (normal.cross(ab) * ac.dot(ac) + ac.cross(normal) * ab.dot(ab)) * (1 / (2 * squared));
    Vec const major = a - center;
    Vec const minor = normal.unit().cross(major);
    // Seen from the normal the three points run counter-clockwise, so the arc ends at a positive angle.
    Vec const last = Vec(arc.end) - center;
    double end = std::atan2(last.dot(minor), last.dot(major));
    if (end <= 0) end += fullTurn;
    return makeSweep(center, major, minor, 0, end);
}

std::vector<Point> tessellate(Sweep const& sweep, CurveLimits const& limits)
{
    auto const count = lineCount(sweep, limits);
    std::vector<Point> points;
    points.reserve(count + 1);
    for (std::size_t i = 0; i <= count; ++i)
        points.push_back(sweep.at(sweep.start + (sweep.end - sweep.start) * static_cast<double>(i) /
                                                    static_cast<double>(count)));
    if (sweep.isWhole()) points.back() = points.front();
    return points;
}

std::vector<Point> tessellate(ArcPointsData const& arc, CurveLimits const& limits)
{
    auto const sweep = sweepOf(arc);
    if (!sweep) return {arc.start, arc.middle, arc.end};
    auto points = tessellate(*sweep, limits);
    points.front() = arc.start;
    points.back() = arc.end;
    return points;
}

// Each coordinate is a cosine of t and greatest where t meets its phase.
SimpleCuboid extentOf(Sweep const& sweep)
{
    SimpleCuboid box;
    box.Merge(sweep.at(sweep.start));
    box.Merge(sweep.at(sweep.end));
    auto const [low, high] = std::minmax(sweep.start, sweep.end);
    for (int axis = 0; axis < 3; ++axis) {
        double const phase = std::atan2(sweep.minor[axis], sweep.major[axis]);
        for (double t = phase + std::ceil((low - phase) / std::numbers::pi) * std::numbers::pi; t <= high;
             t += std::numbers::pi) {
            box.Merge(sweep.at(t));
            if (t - low > fullTurn) break;
        }
    }
    return box;
}

SimpleCuboid extentOf(ArcPointsData const& arc)
{
    SimpleCuboid box;
    if (auto const sweep = sweepOf(arc)) box = extentOf(*sweep);
    for (auto const& point : {arc.start, arc.middle, arc.end}) box.Merge(point);
    return box;
}

SimpleCuboid wedgeExtentOf(ArcPointsData const& arc)
{
    auto box = extentOf(arc);
    if (auto const sweep = sweepOf(arc))
        box.Merge(Point(static_cast<float>(sweep->center[0]), static_cast<float>(sweep->center[1]),
                        static_cast<float>(sweep->center[2])));
    return box;
}

std::vector<std::vector<Point>> tessellate(GridData const& grid, CurveLimits const& limits)
{
    std::vector<std::vector<Point>> lines;
    auto const first = grid.firstPoint - grid.origin, second = grid.secondPoint - grid.origin;
    auto const place = [&](double u, double v) {
        auto const part = [&](float o, float a, float b) { return static_cast<float>(o + u * a + v * b); };
        return Point(part(grid.origin.x, first.x, second.x), part(grid.origin.y, first.y, second.y),
                     part(grid.origin.z, first.z, second.z));
    };
    if (grid.type == Grid::Type::Quadrilateral) {
        for (int i = 0; i <= grid.firstCount; ++i) lines.push_back({place(i, 0), place(i, grid.secondCount)});
        for (int i = 0; i <= grid.secondCount; ++i) lines.push_back({place(0, i), place(grid.firstCount, i)});
        return lines;
    }
    EllipseData ring{grid.origin, grid.firstPoint, grid.secondPoint};
    for (int i = 1; i <= grid.firstCount; ++i) {
        ring.major = place(i, 0);
        ring.minor = place(0, i);
        lines.push_back(tessellate(sweepOf(ring), limits));
    }
    for (int i = 0; i < grid.secondCount; ++i) {
        double const t = fullTurn * i / grid.secondCount;
        lines.push_back({grid.origin, place(std::cos(t) * grid.firstCount, std::sin(t) * grid.firstCount)});
    }
    return lines;
}

SimpleCuboid extentOf(GridData const& grid)
{
    auto const first = Vec(grid.firstPoint) - Vec(grid.origin),
               second = Vec(grid.secondPoint) - Vec(grid.origin);
    if (grid.type == Grid::Type::Radial)
        return extentOf(
            makeSweep(Vec(grid.origin), first * grid.firstCount, second * grid.firstCount, 0, fullTurn));
    SimpleCuboid box;
    for (double const u : {0.0, double(grid.firstCount)})
        for (double const v : {0.0, double(grid.secondCount)}) {
            Vec const p = Vec(grid.origin) + first * u + second * v;
            box.Merge(Point(float(p.x), float(p.y), float(p.z)));
        }
    return box;
}

} // namespace HPS::scene
