#include "plane_shapes.h"
#include <numbers>

namespace HPS::render
{

std::vector<Vec3> planeShape(CutPlane const& plane, Vec3 const& centre, double radius, bool round)
{
    double const size = length(plane.normal);
    Vec3 const n = normalised(plane.normal, {0, 0, 1});
    Vec3 const some = std::abs(n.x) < 0.6 ? Vec3{1, 0, 0} : Vec3{0, 1, 0};
    Vec3 const u = normalised(cross(some, n), {1, 0, 0}), v = cross(n, u);
    Vec3 const middle = centre - n * (size > 0 ? plane.at(centre) / size : 0);
    int const sides = round ? 64 : 4;
    double const reach = round ? radius : radius * std::numbers::sqrt2;
    auto corner = [&](int i) {
        double const angle = 2 * std::numbers::pi * (i + 0.5) / sides;
        return middle + u * (reach * std::cos(angle)) + v * (reach * std::sin(angle));
    };
    std::vector<Vec3> triangles;
    for (int i = 0; i < sides; ++i) triangles.insert(triangles.end(), {middle, corner(i), corner(i + 1)});
    return triangles;
}

} // namespace HPS::render
