#include "tessellation_nurbs.h"
#include "trimming.h"
#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <queue>

namespace HPS::scene
{
namespace
{

using Homogeneous = std::array<double, 4>; // x w, y w, z w, w

Homogeneous mix(Homogeneous const& a, Homogeneous const& b, double t)
{
    Homogeneous out;
    for (std::size_t i = 0; i < 4; ++i) out[i] = a[i] + t * (b[i] - a[i]);
    return out;
}

Homogeneous lifted(Point const& p, double w)
{
    return {p.x * w, p.y * w, p.z * w, w};
}

Point projected(Homogeneous const& h)
{
    return {static_cast<float>(h[0] / h[3]), static_cast<float>(h[1] / h[3]),
            static_cast<float>(h[2] / h[3])};
}

// The values of a curve and of its first derivative, both before division by the weight.
struct Value {
    Homogeneous value;
    Homogeneous derivative;
};

struct Range {
    double low, high;
};
Range rangeOf(std::size_t degree, std::vector<float> const& knots)
{
    return {knots[degree], knots[knots.size() - degree - 1]};
}

// De Boor's algorithm: the control points of the knot span around t are mixed until one is left. The last two
// before that give the derivative. `control(i)` is the i-th control point.
template <class F>
Value deBoor(std::size_t degree, std::vector<float> const& knots, double t, F const& control)
{
    auto const [low, high] = rangeOf(degree, knots);
    t = std::clamp(t, low, high);
    auto const pointCount = knots.size() - degree - 1;
    auto const above = std::upper_bound(knots.begin() + static_cast<std::ptrdiff_t>(degree),
                                        knots.begin() + static_cast<std::ptrdiff_t>(pointCount), t);
    auto span = static_cast<std::size_t>(above - knots.begin()) - 1;
    while (span > degree && knots[span + 1] <= knots[span]) --span; // at the very end of the range
    std::vector<Homogeneous> d(degree + 1);
    for (std::size_t j = 0; j <= degree; ++j) d[j] = control(span - degree + j);
    Value out{d[0], {}};
    for (std::size_t r = 1; r <= degree; ++r) {
        if (r == degree) {
            double const width = double(knots[span + 1]) - knots[span];
            for (std::size_t i = 0; i < 4; ++i)
                out.derivative[i] =
                    width > 0 ? static_cast<double>(degree) * (d[degree][i] - d[degree - 1][i]) / width : 0;
        }
        for (std::size_t j = degree; j >= r; --j) {
            double const from = knots[span - degree + j], to = knots[span + 1 + j - r];
            d[j] = mix(d[j - 1], d[j], to > from ? (t - from) / (to - from) : 0);
        }
    }
    out.value = d[degree];
    return out;
}

struct Vec {
    double x = 0, y = 0, z = 0;
};
Vec between(Point const& a, Point const& b)
{
    return {double(b.x) - a.x, double(b.y) - a.y, double(b.z) - a.z};
}
double length(Vec const& v)
{
    return std::hypot(v.x, v.y, v.z);
}
Vec cross(Vec const& a, Vec const& b)
{
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}
double dot(Vec const& a, Vec const& b)
{
    return a.x * b.x + a.y * b.y + a.z * b.z;
}
double degreesBetween(Vec const& a, Vec const& b)
{
    return std::atan2(length(cross(a, b)), dot(a, b)) * 180 / std::numbers::pi;
}
double distanceFromLine(Point const& a, Point const& b, Point const& p)
{
    Vec const ab = between(a, b), ap = between(a, p);
    double const base = length(ab);
    return base > 0 ? length(cross(ab, ap)) / base : length(ap);
}

// What one piece of a curve is off by, in multiples of the strictest limit; above 1 it is to be halved. It is
// looked at in three places, so that a point of inflection in the middle hides nothing.
struct Piece {
    double from, to;
    Point first, middle, last;
    double excess = 0;
    bool operator<(Piece const& other) const { return excess < other.excess; }
};

Piece makePiece(NURBSCurveData const& curve, CurveLimits const& limits, double from, double to)
{
    auto const at = [&](double share) { return evaluate(curve, from + share * (to - from)); };
    Piece piece{from, to, at(0), at(0.5), at(1)};
    Point const early = at(0.25), late = at(0.75);
    auto const compare = [&](double value, double limit) {
        if (limit > 0) piece.excess = std::max(piece.excess, value / limit);
    };
    for (auto const& p : {early, piece.middle, late})
        compare(distanceFromLine(piece.first, piece.last, p), limits.deviation);
    // The lines that the halves would be meet at half the angle that the curve turns by.
    compare(
        2 * std::max({degreesBetween(between(piece.first, piece.middle), between(piece.middle, piece.last)),
                      degreesBetween(between(piece.first, early), between(early, piece.middle)),
                      degreesBetween(between(piece.middle, late), between(late, piece.last))}),
        limits.angle);
    compare(length(between(piece.first, piece.middle)) + length(between(piece.middle, piece.last)),
            limits.length);
    return piece;
}

// The knots within a range, each once, and its ends.
std::vector<double> breaks(std::vector<float> const& knots, double low, double high)
{
    std::vector<double> places{low};
    for (double const knot : knots)
        if (knot > places.back() && knot < high) places.push_back(knot);
    if (high > places.back()) places.push_back(high);
    return places;
}

// Equal steps within each span between knots: as many as the angle and the width ask for along the isoline
// through the middle, and as the deviation does, which falls with the square of the step.
std::vector<double> parameters(NURBSSurfaceData const& surface, SurfaceLimits const& limits, bool alongU)
{
    auto const own =
        alongU ? rangeOf(surface.uDegree, surface.uKnots) : rangeOf(surface.vDegree, surface.vKnots);
    auto const other =
        alongU ? rangeOf(surface.vDegree, surface.vKnots) : rangeOf(surface.uDegree, surface.uKnots);
    auto const spans = breaks(alongU ? surface.uKnots : surface.vKnots, own.low, own.high);
    auto const degree = alongU ? surface.uDegree : surface.vDegree;
    std::vector<double> places{spans.front()};
    for (std::size_t s = 0; s + 1 < spans.size(); ++s) {
        double steps = 1;
        constexpr int probes = 8;
        for (double const share : {0.0, 0.5, 1.0}) {
            double const fixed = other.low + share * (other.high - other.low);
            auto const at = [&](int i) {
                double const t = spans[s] + (spans[s + 1] - spans[s]) * i / probes;
                return (alongU ? evaluate(surface, t, fixed) : evaluate(surface, fixed, t)).point;
            };
            double turn = 0, path = 0, sagitta = 0;
            Point before = at(0), here = at(1);
            path += length(between(before, here));
            for (int i = 2; i <= probes; ++i) {
                Point const next = at(i);
                turn += degreesBetween(between(before, here), between(here, next));
                path += length(between(here, next));
                sagitta = std::max(sagitta, distanceFromLine(before, next, here));
                before = here;
                here = next;
            }
            turn *= double(probes) / (probes - 1);
            if (limits.angle > 0) steps = std::max(steps, turn / limits.angle);
            if (limits.width > 0) steps = std::max(steps, path / limits.width);
            if (limits.deviation > 0)
                steps = std::max(steps, probes / 2.0 * std::sqrt(sagitta / limits.deviation));
        }
        if (degree == 1 && limits.width <= 0) steps = surface.trims.empty() ? 1 : 8;
        auto const count = static_cast<int>(std::clamp(std::ceil(steps - 1e-6), 1.0, 1000.0));
        for (int i = 1; i <= count; ++i) places.push_back(spans[s] + (spans[s + 1] - spans[s]) * i / count);
    }
    return places;
}

// Every so-manieth place, and both ends, so that the number of steps is no more than `most`.
void thin(std::vector<double>& places, std::size_t most)
{
    auto const steps = places.size() - 1;
    if (steps <= most) return;
    std::vector<double> fewer;
    for (std::size_t i = 0; i <= most; ++i) fewer.push_back(places[i * steps / most]);
    places = std::move(fewer);
}

} // namespace

SurfaceLimits::SurfaceLimits(NURBSSurfaceAttributeData const& attributes)
{
    facets = attributes.budget.value_or(static_cast<unsigned>(facets));
    deviation = attributes.maximumDeviation.value_or(0.0f);
    angle = attributes.maximumAngle.value_or(15.0f);
    width = attributes.maximumWidth.value_or(0.0f);
    trimPoints = attributes.trimBudget.value_or(static_cast<unsigned>(trimPoints));
    trimDeviation = attributes.maximumTrimDeviation.value_or(0.0f);
}

bool areValidKnots(std::size_t degree, std::size_t pointCount, std::vector<float> const& knots)
{
    constexpr std::size_t greatestDegree = 50; // beyond this rounding leaves nothing of the curve
    return degree >= 1 && degree <= greatestDegree && pointCount > degree &&
           knots.size() == pointCount + degree + 1 && std::is_sorted(knots.begin(), knots.end()) &&
           knots[degree] < knots[pointCount];
}

Point evaluate(NURBSCurveData const& curve, double t)
{
    return projected(deBoor(curve.degree, curve.knots, t, [&](std::size_t i) {
                         return lifted(curve.points[i], curve.weights.empty() ? 1 : curve.weights[i]);
                     }).value);
}

std::vector<Point> tessellate(NURBSCurveData const& curve, CurveLimits const& limits)
{
    auto const [low, high] = rangeOf(curve.degree, curve.knots);
    double const from = low + curve.start * (high - low), to = low + curve.end * (high - low);
    auto const places = breaks(curve.knots, from, to);
    std::priority_queue<Piece> open;
    for (std::size_t i = 0; i + 1 < places.size(); ++i)
        open.push(makePiece(curve, limits, places[i], places[i + 1]));
    if (open.empty()) return {evaluate(curve, from)};
    auto const most = limits.points > 1 ? limits.points - 1 : std::size_t(100'000);
    while (open.top().excess > 1 && open.size() < most) {
        auto const piece = open.top();
        auto const middle = (piece.from + piece.to) / 2;
        if (!(middle > piece.from && middle < piece.to)) break; // halved down to the last digit
        open.pop();
        open.push(makePiece(curve, limits, piece.from, middle));
        open.push(makePiece(curve, limits, middle, piece.to));
    }
    std::vector<std::pair<double, Point>> ends;
    ends.reserve(open.size());
    for (; !open.empty(); open.pop()) ends.emplace_back(open.top().to, open.top().last);
    std::sort(ends.begin(), ends.end(), [](auto const& a, auto const& b) { return a.first < b.first; });
    std::vector<Point> points{evaluate(curve, from)};
    for (auto const& [t, point] : ends) points.push_back(point);
    return points;
}

SimpleCuboid extentOf(NURBSCurveData const& curve)
{
    SimpleCuboid box;
    for (auto const& point : curve.points) box.Merge(point);
    return box;
}

SurfacePoint evaluate(NURBSSurfaceData const& surface, double u, double v)
{
    // Along v first: one point for each row of the span of u. Its derivative rides along by the same weights.
    auto const row = [&](std::size_t i) {
        return deBoor(surface.vDegree, surface.vKnots, v, [&](std::size_t j) {
            auto const at = i * surface.vCount + j;
            return lifted(surface.points[at], surface.weights.empty() ? 1 : surface.weights[at]);
        });
    };
    auto const alongU =
        deBoor(surface.uDegree, surface.uKnots, u, [&](std::size_t i) { return row(i).value; });
    auto const derivativeV =
        deBoor(surface.uDegree, surface.uKnots, u, [&](std::size_t i) { return row(i).derivative; }).value;
    auto const& h = alongU.value;
    // The quotient rule.
    auto const tangent = [&](Homogeneous const& d) {
        auto const part = [&](std::size_t i) { return (d[i] - d[3] * h[i] / h[3]) / h[3]; };
        return Vec{part(0), part(1), part(2)};
    };
    Vec const normal = cross(tangent(alongU.derivative), tangent(derivativeV));
    double const size = length(normal);
    SurfacePoint out{projected(h), {}};
    if (size > 0)
        out.normal = {static_cast<float>(normal.x / size), static_cast<float>(normal.y / size),
                      static_cast<float>(normal.z / size)};
    return out;
}

Facets tessellate(NURBSSurfaceData const& surface, SurfaceLimits const& limits)
{
    auto us = parameters(surface, limits, true), vs = parameters(surface, limits, false);
    // Two facets to a cell. Both directions give way alike, as far as they have steps to give.
    auto const most = std::max<std::size_t>(1, limits.facets / 2);
    if (auto const cells = (us.size() - 1) * (vs.size() - 1); limits.facets && cells > most) {
        double const share = std::sqrt(static_cast<double>(most) / static_cast<double>(cells));
        thin(vs,
             std::max<std::size_t>(1, static_cast<std::size_t>(static_cast<double>(vs.size() - 1) * share)));
        thin(us, std::max<std::size_t>(1, most / (vs.size() - 1)));
        thin(vs, most / (us.size() - 1));
    }
    auto const share = [](double at, std::vector<double> const& range) {
        double const all = range.back() - range.front();
        return all > 0 ? float((at - range.front()) / all) : 0.0f;
    };
    Facets facets;
    for (double const u : us)
        for (double const v : vs) {
            auto const place = evaluate(surface, u, v);
            facets.points.push_back(place.point);
            facets.normals.push_back(place.normal);
            facets.parameters.insert(facets.parameters.end(), {share(u, us), share(v, vs)});
        }
    // Fewer facets hold more of an outline each.
    constexpr std::size_t few = 200;
    bool const coarse = (us.size() - 1) * (vs.size() - 1) * 2 < few;
    Trimmer const trimmer(surface.trims, limits.trimPoints, limits.trimDeviation, coarse ? 5 : 4);
    auto const add = [&](std::array<std::size_t, 3> const& corners) {
        std::array<std::uint32_t, 3> indices;
        std::array<std::array<double, 2>, 3> places;
        for (std::size_t i = 0; i < 3; ++i) {
            indices[i] = static_cast<std::uint32_t>(corners[i]);
            places[i] = {us[corners[i] / vs.size()], vs[corners[i] % vs.size()]};
        }
        trimmer.add(facets, indices, places);
    };
    for (std::size_t i = 0; i + 1 < us.size(); ++i)
        for (std::size_t j = 0; j + 1 < vs.size(); ++j) {
            auto const a = i * vs.size() + j, b = a + vs.size();
            add({a, b, b + 1});
            add({a, b + 1, a + 1});
        }
    return facets;
}

SimpleCuboid extentOf(NURBSSurfaceData const& surface)
{
    SimpleCuboid box;
    for (auto const& point : surface.points) box.Merge(point);
    return box;
}

} // namespace HPS::scene
