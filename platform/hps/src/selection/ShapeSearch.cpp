#include "ShapeSearch.h"

namespace HPS::selection
{

using render::FoundEdge;

namespace
{

/// Where a ray goes through a triangle. A little beyond its border counts, so that nothing slips through
/// between neighbours.
std::optional<Vec3> crossing(Ray const& ray, Vec3 const& a, Vec3 const& b, Vec3 const& c)
{
    constexpr double slack = 1e-9;
    Vec3 const u = b - a, v = c - a, h = cross(ray.direction, v);
    double const determinant = dot(u, h);
    if (determinant == 0 || !std::isfinite(determinant)) return std::nullopt;
    Vec3 const from = ray.origin - a;
    double const s = dot(from, h) / determinant;
    if (!(s >= -slack && s <= 1 + slack)) return std::nullopt;
    Vec3 const g = cross(from, u);
    double const t = dot(ray.direction, g) / determinant;
    if (!(t >= -slack && s + t <= 1 + slack)) return std::nullopt;
    if (!ray.bothWays && !(dot(v, g) / determinant >= 0)) return std::nullopt;
    return a + u * s + v * t;
}

} // namespace

double ShapeSearch::bound(Meeting const& meeting) const
{
    bool const frontCounts = !wishes_.elements && !wishes_.nearestToCentre;
    return frontCounts ? meeting.depth : std::numeric_limits<double>::max();
}

template <class Enter, class Use>
void ShapeSearch::forEach(PickShape const& shape, Enter const& enter, Use const& use) const
{
    if (BoxTree const* const tree = shape.tree())
        return tree->visit(~PlaneMask(0), enter, use,
                           [&](Box const& box) { return local_.depth().at(box.centre()); });
    for (std::uint32_t i = 0; i < shape.count(); ++i) use(i, ~PlaneMask(0));
}

bool ShapeSearch::isLeftOut(PickShape const& triangles, std::uint32_t t, FaceCulling const& culling) const
{
    if (!culling.back && !culling.vector) return false;
    Vec3 const a = wide(triangles.corner(t, 0)), b = wide(triangles.corner(t, 1)),
               c = wide(triangles.corner(t, 2));
    Vec3 normal = cross(b - a, c - a);
    if (triangles.isTurned(t)) normal = normal * -1;
    if (culling.back && local_.facing(normal, a) < 0) return true;
    if (!culling.vector) return false;
    // In the world a normal goes by the cofactors.
    Mat4 const& m = local_.toWorld();
    Vec3 const x{m[0], m[1], m[2]}, y{m[4], m[5], m[6]}, z{m[8], m[9], m[10]};
    Vec3 const turned = cross(y, z) * normal.x + cross(z, x) * normal.y + cross(x, y) * normal.z;
    return dot(normalised(turned, {}), culling.vector->direction) >= culling.vector->cosine;
}

bool ShapeSearch::isUnseen(FoundEdge const& edge, Vec3 const& place) const
{
    constexpr std::uint32_t always = ~std::uint32_t(render::SilhouetteEdge | render::NonCulledEdge);
    if ((edge.kinds & always) != 0) return false;
    bool const first = local_.facing(wide(edge.normals[0]), place) > 0;
    bool const second = local_.facing(wide(edge.normals[1]), place) > 0;
    if ((edge.kinds & render::NonCulledEdge) != 0 && (first || second)) return false;
    return first == second;
}

void ShapeSearch::add(Meeting& meeting, std::uint32_t element, std::span<Vec3 const> corners,
                      double reach) const
{
    double const limit = bound(meeting);
    if (std::all_of(corners.begin(), corners.end(),
                    [&](Vec3 const& corner) { return local_.depth().at(corner) >= limit; }))
        return;
    Probe const& probe = local_.probe();
    for (std::size_t i = 0; i < corners.size(); ++i)
        inWorld_[i] = transformPoint(corners[i], local_.toWorld());
    std::span<Vec3 const> const world(inWorld_.data(), corners.size());
    Vec3 const place = probe.placeOn(world);
    double const depth = probe.depth().at(place);
    bool const round = probe.ray().has_value() && reach > 0;
    double const distance = wishes_.nearestToCentre || round ? probe.distanceOf(world) : 0;
    constexpr double rounding = 1e-6;
    if (round && distance > reach + rounding) return;
    if (wishes_.elements) meeting.elements.emplace_back(depth, element);
    bool const better = wishes_.nearestToCentre
                            ? std::tie(distance, depth) < std::tie(meeting.distance, meeting.depth)
                            : depth < meeting.depth;
    if (!meeting.any || better) {
        meeting.place = place;
        meeting.depth = depth;
        meeting.distance = distance;
    }
    meeting.any = true;
}

void ShapeSearch::meet(Meeting& meeting, std::uint32_t element, std::span<Vec3 const> corners,
                       std::vector<CutPlane> const& planes, PlaneMask mask, double reach) const
{
    mask &= allOf(planes);
    if (mask == 0 && local_.sections().empty()) return add(meeting, element, corners, reach);
    Convex piece;
    for (Vec3 const& corner : corners) piece.add(corner);
    for (std::size_t i = 0; mask != 0 && !piece.empty(); ++i, mask >>= 1)
        if ((mask & 1) != 0) piece.clip(planes[i]);
    if (piece.empty()) return;
    forEachKept(piece, local_.sections(),
                [&](Convex const& kept) { add(meeting, element, kept.corners(), reach); });
}

Meeting ShapeSearch::faces(PickShape const& triangles, FaceCulling const& culling) const
{
    Meeting meeting;
    auto const& planes = local_.planes(0);
    auto const& ray = local_.ray();
    if (local_.probe().ray() && !ray) return meeting; // a part without thickness in any direction
    // Of a ray the planes at its sides say nothing; those of what is seen and of its origin do.
    auto enter = [&](Box const& box, PlaneMask& mask) {
        if (leastOf(local_.depth(), box) >= bound(meeting)) return false;
        if (ray) return meets(*ray, box);
        mask &= allOf(planes);
        return reaches(box, planes, mask);
    };
    auto use = [&](std::uint32_t t, PlaneMask mask) {
        Vec3 const a = wide(triangles.corner(t, 0)), b = wide(triangles.corner(t, 1)),
                   c = wide(triangles.corner(t, 2));
        if (!ray) {
            Box box;
            if (mask != 0) {
                box = triangles.boxOf(t);
                mask &= allOf(planes);
                if (!reaches(box, planes, mask)) return;
            }
            if (!isLeftOut(triangles, t, culling)) meet(meeting, t, std::array{a, b, c}, planes, mask, 0);
            return;
        }
        auto const at = crossing(*ray, a, b, c);
        if (!at || isLeftOut(triangles, t, culling) || !isKept(local_.sections(), *at)) return;
        if (!local_.probe().isSeen(transformPoint(*at, local_.toWorld()))) return;
        add(meeting, t, std::array{*at}, 0);
    };
    forEach(triangles, enter, use);
    return meeting;
}

Meeting ShapeSearch::strokes(PickShape const& shape, double reach) const
{
    Meeting meeting;
    auto const& planes = local_.planes(reach);
    auto enter = [&](Box const& box, PlaneMask& mask) {
        mask &= allOf(planes);
        return leastOf(local_.depth(), box) < bound(meeting) && reaches(box, planes, mask);
    };
    auto use = [&](std::uint32_t i, PlaneMask mask) {
        Vec3 const from = wide(shape.corner(i, 0));
        if (shape.cornersEach() == 1) return meet(meeting, i, std::array{from}, planes, mask, reach);
        if (FoundEdge const* const edge = shape.viewEdge(i); edge != nullptr && isUnseen(*edge, from)) return;
        meet(meeting, i, std::array{from, wide(shape.corner(i, 1))}, planes, mask, reach);
    };
    forEach(shape, enter, use);
    return meeting;
}

Meeting ShapeSearch::point(Vec3 const& place, double reach) const
{
    Meeting meeting;
    auto const& planes = local_.planes(reach);
    meet(meeting, 0, std::array{place}, planes, allOf(planes), reach);
    return meeting;
}

Meeting ShapeSearch::endlessLine(Vec3 const& first, Vec3 const& second, bool ray, double reach) const
{
    // What is left of the line after every plane, in multiples of the way from the first point to the second.
    double from = ray ? 0 : std::numeric_limits<double>::lowest(), to = std::numeric_limits<double>::max();
    auto const& planes = local_.planes(reach);
    for (CutPlane const& plane : planes) {
        double const start = plane.at(first), step = dot(plane.normal, second - first);
        if (step > 0)
            from = std::max(from, -start / step);
        else if (step < 0)
            to = std::min(to, -start / step);
        else if (start < 0)
            return {};
    }
    constexpr double farOut = 1e12; // along the sight a line has no end
    from = std::max(from, -farOut);
    to = std::min(to, farOut);
    Meeting meeting;
    if (from <= to)
        meet(meeting, 0, std::array{first + (second - first) * from, first + (second - first) * to}, planes,
             0, reach);
    return meeting;
}

Meeting ShapeSearch::polygon(std::span<Vec3 const> corners) const
{
    Meeting meeting;
    auto const& ray = local_.ray();
    auto const& planes = local_.planes(0);
    if (!ray) {
        meet(meeting, 0, corners, planes, allOf(planes), 0);
        return meeting;
    }
    for (std::size_t i = 1; i + 1 < corners.size(); ++i)
        if (auto const at = crossing(*ray, corners[0], corners[i], corners[i + 1]))
            if (isKept(local_.sections(), *at) && local_.probe().isSeen(*at))
                add(meeting, 0, std::array{*at}, 0);
    return meeting;
}

} // namespace HPS::selection
