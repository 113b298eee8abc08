#include "StepGeometry.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace NarMetaInfra
{
namespace
{
constexpr int DeepestCurve = 8;
constexpr double TurnStep = 2 * std::numbers::pi / 48;
constexpr std::size_t MostSplinePoints = 4096;
} // namespace

StepPoint operator+(StepPoint const& a, StepPoint const& b)
{
    return {a[0] + b[0], a[1] + b[1], a[2] + b[2]};
}
StepPoint operator-(StepPoint const& a, StepPoint const& b)
{
    return {a[0] - b[0], a[1] - b[1], a[2] - b[2]};
}
StepPoint operator*(double factor, StepPoint const& a)
{
    return {factor * a[0], factor * a[1], factor * a[2]};
}
double dot(StepPoint const& a, StepPoint const& b)
{
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}
StepPoint cross(StepPoint const& a, StepPoint const& b)
{
    return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}
StepPoint normalised(StepPoint const& a)
{
    auto const length = std::sqrt(dot(a, a));
    return length > 0.0 && std::isfinite(length) ? (1.0 / length) * a : a;
}

StepPoint StepFrame::place(StepPoint const& point) const
{
    return origin + turn(point);
}
StepPoint StepFrame::turn(StepPoint const& direction) const
{
    return direction[0] * x + direction[1] * y + direction[2] * z;
}
StepFrame StepFrame::operator*(StepFrame const& inner) const
{
    return {place(inner.origin), turn(inner.x), turn(inner.y), turn(inner.z)};
}
StepFrame StepFrame::inverse() const
{
    StepFrame const turned{{}, {x[0], y[0], z[0]}, {x[1], y[1], z[1]}, {x[2], y[2], z[2]}};
    return {turned.turn(-1.0 * origin), turned.x, turned.y, turned.z};
}

StepGeometry::StepGeometry(StepEntities const& entities, int context) : Entities(entities)
{
    for (int const unit : entities.argument(context, 0, "GLOBAL_UNIT_ASSIGNED_CONTEXT", 0).entities()) {
        if (entities.isKind(unit, "LENGTH_UNIT")) Factor = stepUnit(entities, unit);
        if (entities.isKind(unit, "PLANE_ANGLE_UNIT"))
            Radians = stepUnit(entities, unit) * std::numbers::pi / 180;
    }
}

StepPoint StepGeometry::scaled(StepValue const& coordinates) const
{
    StepPoint made{};
    for (std::size_t i = 0; i < std::min<std::size_t>(3, coordinates.items.size()); ++i)
        made[i] = Factor * coordinates.items[i].value().value_or(0.0);
    return made;
}

StepPoint StepGeometry::point(int entity) const
{
    return scaled(Entities.argument(entity, 1, "CARTESIAN_POINT", 0));
}

StepPoint StepGeometry::direction(int entity, StepPoint const& otherwise) const
{
    auto const& ratios = Entities.argument(entity, 1, "DIRECTION", 0);
    if (ratios.items.size() != 3) return otherwise;
    StepPoint made{};
    for (std::size_t i = 0; i < 3; ++i) made[i] = ratios.items[i].value().value_or(0.0);
    return dot(made, made) > 0.0 ? normalised(made) : otherwise;
}

StepFrame StepGeometry::frame(int entity) const
{
    StepFrame made;
    auto const kind = Entities.keywordOf(entity);
    bool const isOperator = kind == "CARTESIAN_TRANSFORMATION_OPERATOR_3D";
    if (kind != "AXIS2_PLACEMENT_3D" && !isOperator) return made;
    made.origin = point(Entities.argument(entity, isOperator ? 5 : 1).entity());
    made.z = direction(Entities.argument(entity, isOperator ? 7 : 2).entity(), made.z);
    auto const wish = direction(Entities.argument(entity, 3).entity(), {1, 0, 0});
    auto side = wish - dot(wish, made.z) * made.z;
    if (dot(side, side) < 1e-12)
        side = cross(made.z, std::abs(made.z[0]) < 0.9 ? StepPoint{1, 0, 0} : StepPoint{0, 1, 0});
    made.x = normalised(side);
    made.y = cross(made.z, made.x);
    return made;
}

StepFrame StepGeometry::mapping(int item) const
{
    auto const map = Entities.argument(item, 1, "MAPPED_ITEM", 0).entity();
    auto const mapped = Entities.argument(map, 1).entity();
    StepGeometry const inside(Entities, Entities.argument(mapped, 2, "REPRESENTATION", 2).entity());
    auto const target = frame(Entities.argument(item, 2, "MAPPED_ITEM", 1).entity());
    return target * inside.frame(Entities.argument(map, 0).entity()).inverse();
}

std::vector<StepPoint> StepGeometry::coordinates(int entity) const
{
    auto const& list = Entities.argument(entity, 2, "COORDINATES_LIST", 1);
    std::vector<StepPoint> points;
    points.reserve(list.items.size());
    for (auto const& item : list.items) points.push_back(scaled(item));
    return points;
}

StepPolyline StepGeometry::curve(int entity, int depth) const
{
    if (depth > DeepestCurve) return {};
    auto const kind = Entities.keywordOf(entity);
    if (kind == "POLYLINE") {
        StepPolyline line;
        for (int const corner : Entities.argument(entity, 1).entities()) line.push_back(point(corner));
        return line;
    }
    if (kind == "CIRCLE" || kind == "ELLIPSE") return conic(entity, 0.0, 2 * std::numbers::pi);
    if (kind == "TRIMMED_CURVE") return trimmed(entity, depth);
    if (Entities.isKind(entity, "COMPOSITE_CURVE")) return composite(entity, depth);
    if (kind == "B_SPLINE_CURVE_WITH_KNOTS" || Entities.isKind(entity, "B_SPLINE_CURVE"))
        return spline(entity);
    return {};
}

StepPolyline StepGeometry::conic(int entity, double from, double to) const
{
    auto const axes = frame(Entities.argument(entity, 1).entity());
    auto const major = Factor * Entities.argument(entity, 2).value().value_or(0.0);
    auto const minor = Entities.keywordOf(entity) == "CIRCLE"
                           ? major
                           : Factor * Entities.argument(entity, 3).value().value_or(0.0);
    auto const count = std::clamp(static_cast<int>(std::ceil(std::abs(to - from) / TurnStep)), 2, 96);
    StepPolyline line;
    for (int i = 0; i <= count; ++i) {
        auto const angle = from + (to - from) * i / count;
        line.push_back(axes.place({major * std::cos(angle), minor * std::sin(angle), 0.0}));
    }
    return line;
}

// An end of a trimmed curve is a parameter, a point on the curve, or both.
StepPolyline StepGeometry::trimmed(int entity, int depth) const
{
    auto const basis = Entities.argument(entity, 1).entity();
    auto const kind = Entities.keywordOf(basis);
    bool const forwards = Entities.argument(entity, 4).text != "F";
    std::optional<double> parameters[2];
    std::optional<StepPoint> points[2];
    for (std::size_t end = 0; end < 2; ++end) {
        for (auto const& item : Entities.argument(entity, 2 + end).items) {
            if (item.entity()) points[end] = point(item.entity());
            if (auto const number = item.value()) parameters[end] = *number;
        }
    }
    if (kind == "LINE") {
        auto const start = point(Entities.argument(basis, 1).entity());
        auto const vector = Entities.argument(basis, 2).entity();
        auto const along = direction(Entities.argument(vector, 1).entity(), {1, 0, 0});
        auto const length = Factor * Entities.argument(vector, 2).value().value_or(1.0);
        for (std::size_t end = 0; end < 2; ++end)
            if (!points[end]) points[end] = start + (length * parameters[end].value_or(double(end))) * along;
        return {*points[0], *points[1]};
    }
    if (kind != "CIRCLE" && kind != "ELLIPSE") return curve(basis, depth + 1);
    auto const axes = frame(Entities.argument(basis, 1).entity()).inverse();
    auto const ratio = kind == "CIRCLE" ? 1.0
                                        : Entities.argument(basis, 2).value().value_or(1.0) /
                                              Entities.argument(basis, 3).value().value_or(1.0);
    double angles[2]{};
    for (std::size_t end = 0; end < 2; ++end) {
        if (points[end]) {
            auto const local = axes.place(*points[end]);
            angles[end] = std::atan2(ratio * local[1], local[0]);
        } else {
            angles[end] = Radians * parameters[end].value_or(0.0);
        }
    }
    constexpr auto Turn = 2 * std::numbers::pi;
    auto span = std::fmod(forwards ? angles[1] - angles[0] : angles[0] - angles[1], Turn);
    if (span <= 1e-9) span += Turn;
    return conic(basis, angles[0], angles[0] + (forwards ? span : -span));
}

StepPolyline StepGeometry::composite(int entity, int depth) const
{
    StepPolyline line;
    for (int const segment : Entities.argument(entity, 1, "COMPOSITE_CURVE", 0).entities()) {
        auto piece = curve(Entities.argument(segment, 2).entity(), depth + 1);
        if (Entities.argument(segment, 1).text == "F") std::ranges::reverse(piece);
        bool const joins = !line.empty() && !piece.empty() && line.back() == piece.front();
        line.insert(line.end(), piece.begin() + (joins ? 1 : 0), piece.end());
    }
    return line;
}

// De Boor's recursion on the control points, each with its weight as fourth coordinate.
StepPolyline StepGeometry::spline(int entity) const
{
    auto const at = [&](std::size_t simple, std::string_view part, std::size_t position) -> StepValue const& {
        return Entities.argument(entity, simple, part, position);
    };
    auto const degree = static_cast<std::size_t>(at(1, "B_SPLINE_CURVE", 0).value().value_or(0.0));
    std::vector<std::array<double, 4>> controls;
    for (int const control : at(2, "B_SPLINE_CURVE", 1).entities()) {
        auto const& weights = at(99, "RATIONAL_B_SPLINE_CURVE", 0).items;
        auto const weight =
            controls.size() < weights.size() ? weights[controls.size()].value().value_or(1.0) : 1.0;
        auto const place = weight * point(control);
        controls.push_back({place[0], place[1], place[2], weight});
    }
    std::vector<double> knots;
    auto const& repeats = at(6, "B_SPLINE_CURVE_WITH_KNOTS", 0).items;
    auto const& values = at(7, "B_SPLINE_CURVE_WITH_KNOTS", 1).items;
    for (std::size_t i = 0; i < std::min(repeats.size(), values.size()); ++i) {
        auto const repeat = std::clamp(repeats[i].value().value_or(0.0), 0.0, 64.0);
        knots.insert(knots.end(), static_cast<std::size_t>(repeat), values[i].value().value_or(0.0));
    }
    if (degree < 1 || degree > 24 || controls.size() <= degree ||
        knots.size() != controls.size() + degree + 1 || !std::ranges::is_sorted(knots))
        return {};
    StepPolyline line;
    auto const perSpan = std::clamp<std::size_t>(MostSplinePoints / controls.size(), 1, degree == 1 ? 1 : 8);
    for (std::size_t span = degree; span < controls.size(); ++span) {
        if (knots[span + 1] <= knots[span]) continue;
        for (std::size_t step = line.empty() ? 0 : 1; step <= perSpan; ++step) {
            auto const u = knots[span] + (knots[span + 1] - knots[span]) * double(step) / double(perSpan);
            std::vector<std::array<double, 4>> blend(
                controls.begin() + static_cast<std::ptrdiff_t>(span - degree),
                controls.begin() + static_cast<std::ptrdiff_t>(span + 1));
            for (std::size_t level = 1; level <= degree; ++level) {
                for (auto j = degree; j >= level; --j) {
                    auto const left = knots[span - degree + j], right = knots[span + 1 + j - level];
                    auto const share = right > left ? (u - left) / (right - left) : 0.0;
                    for (std::size_t k = 0; k < 4; ++k)
                        blend[j][k] = (1 - share) * blend[j - 1][k] + share * blend[j][k];
                }
            }
            auto const& [x, y, z, weight] = blend[degree];
            if (weight != 0.0) line.push_back({x / weight, y / weight, z / weight});
        }
    }
    return line;
}
} // namespace NarMetaInfra
