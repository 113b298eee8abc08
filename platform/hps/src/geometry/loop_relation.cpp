#include "loop_relation.h"

#include "OutlineRows.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace HPS
{

namespace
{

using Numbers = std::array<double, 3>;

// Newell's normal: twice the area of the outline seen along each axis.
Numbers areaVector(std::span<Point const> outline)
{
    Numbers area{};
    for (std::size_t i = 0; i < outline.size(); ++i) {
        Point const& p = outline[i];
        Point const& q = outline[(i + 1) % outline.size()];
        area[0] += (double(p.y) - q.y) * (double(p.z) + q.z);
        area[1] += (double(p.z) - q.z) * (double(p.x) + q.x);
        area[2] += (double(p.x) - q.x) * (double(p.y) + q.y);
    }
    return area;
}

double squaredLength(Numbers const& v)
{
    return v[0] * v[0] + v[1] * v[1] + v[2] * v[2];
}

// Leaving out the axis of the greatest area keeps how outlines of one plane lie to each other.
std::vector<PlanePoint> flatten(std::span<Point const> outline, int leftOut)
{
    std::vector<PlanePoint> flat;
    flat.reserve(outline.size());
    for (Point const& p : outline) {
        Numbers const xyz{p.x, p.y, p.z};
        flat.push_back({xyz[(leftOut + 1) % 3], xyz[(leftOut + 2) % 3]});
    }
    return flat;
}

// How the corners and the middles of the sides of `outline` lie to another one.
struct Sides {
    bool inside = false;
    bool outside = false;
};

Sides sidesOf(std::span<PlanePoint const> outline, OutlineRows const& other)
{
    Sides sides;
    for (std::size_t i = 0; i < outline.size() && !(sides.inside && sides.outside); ++i) {
        PlanePoint const a = outline[i];
        PlanePoint const b = outline[(i + 1) % outline.size()];
        for (PlanePoint const p : {a, PlanePoint{(a.x + b.x) / 2, (a.y + b.y) / 2}}) {
            Side const side = other.sideOf(p);
            sides.inside |= side == Side::Inside;
            sides.outside |= side == Side::Outside;
        }
    }
    return sides;
}

} // namespace

Shell::Relation outlineRelation(std::span<Point const> a, std::span<Point const> b)
{
    using enum Shell::Relation;
    if (a.empty() || b.empty()) return Apart;
    Numbers const areaA = areaVector(a);
    Numbers const areaB = areaVector(b);
    Numbers const& area = squaredLength(areaA) >= squaredLength(areaB) ? areaA : areaB;
    int leftOut = 0;
    for (int axis = 1; axis < 3; ++axis) {
        if (std::abs(area[axis]) > std::abs(area[leftOut])) leftOut = axis;
    }
    std::vector<PlanePoint> const flatA = flatten(a, leftOut);
    std::vector<PlanePoint> const flatB = flatten(b, leftOut);
    PlaneBox const boxA = PlaneBox::of(flatA);
    PlaneBox const boxB = PlaneBox::of(flatB);
    double const near = 1e-6 * std::max(boxA.extent(), boxB.extent());
    if (boxA.isApartFrom(boxB, near)) return Apart;

    OutlineRows const rowsA(flatA, near);
    OutlineRows const rowsB(flatB, near);
    if (rowsA.isCrossedBy(flatB)) return Meeting;
    Sides const bToA = sidesOf(flatB, rowsA);
    Sides const aToB = sidesOf(flatA, rowsB);
    bool const crossesAtCorner = (bToA.inside && bToA.outside) || (aToB.inside && aToB.outside);
    if (crossesAtCorner || (bToA.inside && aToB.inside)) return Meeting;
    if (bToA.inside) return Holds;
    if (aToB.inside) return Within;
    // Nothing lies inside the other: what has all its points on the other's outline lies within it, unless
    // both have, and then they are the same.
    if (bToA.outside && aToB.outside) return rowsA.isTouchedBy(flatB) ? Meeting : Apart;
    if (bToA.outside) return Within;
    if (aToB.outside) return Holds;
    return Meeting;
}

Shell::Relation extentRelation(std::span<Point const> a, std::span<Point const> b)
{
    using enum Shell::Relation;
    if (a.empty() || b.empty()) return Apart;
    auto const range = [](std::span<Point const> points, float Point::*axis) {
        auto const less = [axis](Point const& p, Point const& q) { return p.*axis < q.*axis; };
        auto const [low, high] = std::minmax_element(points.begin(), points.end(), less);
        return std::pair{(*low).*axis, (*high).*axis};
    };
    bool holds = true;
    bool within = true;
    for (float Point::*axis : {&Point::x, &Point::y, &Point::z}) {
        auto const [lowA, highA] = range(a, axis);
        auto const [lowB, highB] = range(b, axis);
        if (highA < lowB || highB < lowA) return Apart;
        holds &= lowA <= lowB && highB <= highA;
        within &= lowB <= lowA && highA <= highB;
    }
    if (holds == within) return Meeting;
    return holds ? Holds : Within;
}

} // namespace HPS
