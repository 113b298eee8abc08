#include "tessellation_surfaces.h"
#include <algorithm>
#include <cmath>
#include <numbers>

namespace HPS::scene
{
namespace
{

constexpr double fullTurn = 2 * std::numbers::pi;

Vector cross(Vector const& a, Vector const& b)
{
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}
float dot(Vector const& a, Vector const& b)
{
    return a.x * b.x + a.y * b.y + a.z * b.z;
}
Vector scaled(Vector const& v, double s)
{
    return {static_cast<float>(v.x * s), static_cast<float>(v.y * s), static_cast<float>(v.z * s)};
}
Vector sum(Vector const& a, Vector const& b)
{
    return {a.x + b.x, a.y + b.y, a.z + b.z};
}
Vector unit(Vector const& v)
{
    double const length = std::hypot(double(v.x), double(v.y), double(v.z));
    return length > 0 ? scaled(v, 1 / length) : Vector();
}
Vector squareTo(Vector const& axis)
{
    Vector const seed = std::abs(axis.x) < 0.6f ? Vector(1, 0, 0) : Vector(0, 1, 0);
    return unit(sum(seed, scaled(axis, -dot(seed, axis))));
}

void addQuad(Facets& facets, std::size_t a, std::size_t b, std::size_t c, std::size_t d)
{
    for (auto const i : {a, b, c, a, c, d}) facets.triangles.push_back(static_cast<std::uint32_t>(i));
}

// The direction of the chain at one of its points.
Vector directionAt(std::vector<Point> const& points, std::size_t i)
{
    auto const before = i > 0 ? unit(points[i] - points[i - 1]) : Vector();
    auto const after = i + 1 < points.size() ? unit(points[i + 1] - points[i]) : Vector();
    auto const both = unit(sum(before, after));
    return both == Vector() ? (after == Vector() ? Vector(0, 0, 1) : after) : both;
}

// How far along a chain each of its points lies, from 0 to 1.
std::vector<float> sharesOfLength(std::vector<Point> const& points)
{
    std::vector<double> lengths(points.size(), 0);
    for (std::size_t i = 1; i < points.size(); ++i) {
        Vector const step = points[i] - points[i - 1];
        lengths[i] = lengths[i - 1] + std::hypot(double(step.x), double(step.y), double(step.z));
    }
    double const all = lengths.empty() || !(lengths.back() > 0) ? 1 : lengths.back();
    std::vector<float> shares;
    for (double const length : lengths) shares.push_back(float(length / all));
    return shares;
}

float radiusAt(CylinderData const& cylinder, std::size_t i)
{
    return cylinder.radii.size() == 1 ? cylinder.radii[0] : cylinder.radii[i];
}

} // namespace

Facets tessellate(SphereData const& sphere, unsigned around)
{
    around = std::max(around, 3u);
    auto const down = std::max(around / 2, 2u);
    Vector const pole = unit(sphere.vertical);
    Vector first = unit(sum(sphere.horizontal, scaled(pole, -dot(sphere.horizontal, pole))));
    if (first == Vector()) first = squareTo(pole);
    Vector const side = cross(pole, first);
    Facets facets;
    for (unsigned row = 0; row <= down; ++row) {
        double const polar = std::numbers::pi * row / down;
        double const across = row == down ? 0 : std::sin(polar); // one point at either pole
        for (unsigned column = 0; column <= around; ++column) {
            double const turn = column == around ? 0 : fullTurn * column / around;
            Vector const flat = sum(scaled(first, std::cos(turn)), scaled(side, std::sin(turn)));
            Vector const normal = sum(scaled(pole, std::cos(polar)), scaled(flat, across));
            facets.normals.push_back(normal);
            facets.points.push_back(sphere.center + scaled(normal, sphere.radius));
            facets.parameters.insert(facets.parameters.end(),
                                     {float(column) / float(around), 1 - float(row) / float(down)});
        }
    }
    auto const width = std::size_t(around) + 1;
    for (std::size_t row = 0; row < down; ++row)
        for (std::size_t column = 0; column < around; ++column) {
            auto const a = row * width + column, b = a + width;
            // One triangle alone at the poles.
            if (row > 0)
                facets.triangles.insert(facets.triangles.end(), {unsigned(a), unsigned(b), unsigned(a + 1)});
            if (row + 1 < down)
                facets.triangles.insert(facets.triangles.end(),
                                        {unsigned(a + 1), unsigned(b), unsigned(b + 1)});
        }
    return facets;
}

SimpleCuboid extentOf(SphereData const& sphere)
{
    Vector const half(sphere.radius, sphere.radius, sphere.radius);
    return {sphere.center - half, sphere.center + half};
}

Facets tessellate(CylinderData const& cylinder, unsigned around)
{
    around = std::max(around, 3u);
    auto const& points = cylinder.points;
    auto const width = std::size_t(around) + 1;
    Facets facets;
    Vector across = squareTo(directionAt(points, 0));
    std::vector<float> const along = sharesOfLength(points);
    auto const addRing = [&](std::size_t i, Vector const& axis, std::optional<Vector> const& normal) {
        Vector const side = cross(axis, across);
        for (unsigned column = 0; column <= around; ++column) {
            double const turn = column == around ? 0 : fullTurn * column / around;
            Vector const out = sum(scaled(across, std::cos(turn)), scaled(side, std::sin(turn)));
            facets.points.push_back(points[i] + scaled(out, radiusAt(cylinder, i)));
            facets.normals.push_back(normal.value_or(out));
            // A cap shows the disc of a texture, the wall its whole.
            if (normal)
                facets.parameters.insert(facets.parameters.end(), {0.5f + 0.5f * float(std::cos(turn)),
                                                                   0.5f + 0.5f * float(std::sin(turn))});
            else
                facets.parameters.insert(facets.parameters.end(), {float(column) / float(around), along[i]});
        }
    };
    for (std::size_t i = 0; i < points.size(); ++i) {
        Vector const axis = directionAt(points, i);
        // Carried along the chain, so that rings do not turn against each other.
        Vector const carried = unit(sum(across, scaled(axis, -dot(across, axis))));
        across = carried == Vector() ? squareTo(axis) : carried;
        addRing(i, axis, std::nullopt);
        if (i == 0) continue;
        for (std::size_t column = 0; column < around; ++column) {
            auto const b = i * width + column, a = b - width;
            addQuad(facets, a, a + 1, b + 1, b);
        }
    }
    auto const addCap = [&](std::size_t i, bool outwards) {
        Vector const axis = directionAt(points, i);
        if (!outwards) across = squareTo(axis);
        Vector const normal = outwards ? axis : scaled(axis, -1);
        auto const center = facets.points.size();
        facets.points.push_back(points[i]);
        facets.normals.push_back(normal);
        facets.parameters.insert(facets.parameters.end(), {0.5f, 0.5f});
        addRing(i, axis, normal);
        for (std::size_t column = 1; column <= around; ++column) {
            auto const a = unsigned(center + column), b = a + 1;
            facets.triangles.insert(facets.triangles.end(),
                                    {unsigned(center), outwards ? a : b, outwards ? b : a});
        }
    };
    using Cylinder::Capping;
    if (cylinder.caps == Capping::Second || cylinder.caps == Capping::Both) addCap(points.size() - 1, true);
    if (cylinder.caps == Capping::First || cylinder.caps == Capping::Both) addCap(0, false);
    return facets;
}

// A disc reaches along each axis as far as its radius times the sine of the angle to its own axis.
SimpleCuboid extentOf(CylinderData const& cylinder)
{
    SimpleCuboid box;
    for (std::size_t i = 0; i < cylinder.points.size(); ++i) {
        Vector const axis = directionAt(cylinder.points, i);
        auto const reach = [&](float part) {
            return radiusAt(cylinder, i) * std::sqrt(std::max(0.0f, 1 - part * part));
        };
        Vector const half(reach(axis.x), reach(axis.y), reach(axis.z));
        box.Merge(cylinder.points[i] - half);
        box.Merge(cylinder.points[i] + half);
    }
    return box;
}

Facets tessellate(MeshData const& mesh)
{
    Facets facets;
    facets.points = mesh.points;
    facets.normals.resize(mesh.points.size());
    for (std::size_t i = 0; i < mesh.points.size(); ++i) {
        auto const share = [](std::size_t at, std::size_t count) {
            return count > 1 ? float(at) / float(count - 1) : 0;
        };
        facets.parameters.insert(facets.parameters.end(),
                                 {share(i % mesh.columns, mesh.columns), share(i / mesh.columns, mesh.rows)});
    }
    for (std::size_t row = 0; row + 1 < mesh.rows; ++row)
        for (std::size_t column = 0; column + 1 < mesh.columns; ++column) {
            auto const a = row * mesh.columns + column, d = a + mesh.columns;
            addQuad(facets, a, a + 1, d + 1, d);
        }
    for (std::size_t i = 0; i < facets.triangles.size(); i += 3) {
        auto const* const t = &facets.triangles[i];
        auto const& p = facets.points;
        // Not brought to length one: larger triangles count for more.
        Vector const normal = cross(p[t[1]] - p[t[0]], p[t[2]] - p[t[0]]);
        for (int corner = 0; corner < 3; ++corner)
            facets.normals[t[corner]] = sum(facets.normals[t[corner]], normal);
    }
    for (std::size_t i = 0; i < facets.normals.size(); ++i)
        facets.normals[i] =
            mesh.vertexNormals.IsSet(i) ? mesh.vertexNormals.values[i] : unit(facets.normals[i]);
    return facets;
}

} // namespace HPS::scene
