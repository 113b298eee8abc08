#include "cut_planes.h"

namespace HPS::render
{
namespace
{

/// Least and largest value of a plane over a box.
std::pair<double, double> rangeOf(CutPlane const& plane, Box const& box)
{
    double low = plane.offset, high = plane.offset;
    double const n[3] = {plane.normal.x, plane.normal.y, plane.normal.z};
    for (int i = 0; i < 3; ++i) {
        double const a = n[i] * box.low[i], b = n[i] * box.high[i];
        low += std::min(a, b);
        high += std::max(a, b);
    }
    return {low, high};
}

CutReach reachOf(CutSection const& section, Box const& box)
{
    bool gone = !section.empty();
    for (CutPlane const& plane : section) {
        auto const [low, high] = rangeOf(plane, box);
        if (high <= 0) return CutReach::Whole;
        gone = gone && low > 0;
    }
    if (section.empty()) return CutReach::Whole;
    return gone ? CutReach::Gone : CutReach::Cut;
}

} // namespace

std::vector<CutSection> pulledBack(std::span<CutSection const> sections, Mat4 const& matrix)
{
    std::vector<CutSection> result(sections.begin(), sections.end());
    for (CutSection& section : result)
        for (CutPlane& plane : section) plane = pulledBack(plane, matrix);
    return result;
}

CutPlane pushedForward(CutPlane const& plane, Mat4 const& m)
{
    double const determinant = determinant3(m);
    if (!(std::abs(determinant) > 0)) return plane;
    // A normal goes by the cofactors over the determinant, which keeps its side in a mirror.
    Vec3 const x{m[0], m[1], m[2]}, y{m[4], m[5], m[6]}, z{m[8], m[9], m[10]};
    Vec3 const& n = plane.normal;
    Vec3 const normal = (cross(y, z) * n.x + cross(z, x) * n.y + cross(x, y) * n.z) * (1 / determinant);
    return {normal, plane.offset - dot(normal, {m[12], m[13], m[14]})};
}

CutReach reachOf(std::span<CutSection const> sections, Box const& box)
{
    CutReach reach = CutReach::Whole;
    for (CutSection const& section : sections) {
        CutReach const one = reachOf(section, box);
        if (one == CutReach::Gone) return one;
        if (one == CutReach::Cut) reach = one;
    }
    return reach;
}

bool isKept(std::span<CutSection const> sections, Vec3 const& point)
{
    for (CutSection const& section : sections) {
        bool inside = !section.empty();
        for (CutPlane const& plane : section) inside = inside && plane.at(point) > 0;
        if (inside) return false;
    }
    return true;
}

} // namespace HPS::render
