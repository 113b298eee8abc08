// Properties of what curves and surfaces are broken into.
#include "support.h"
#include "tessellation_nurbs.h"
#include <cmath>
#include <numbers>

using namespace HPS;
using namespace HPS::scene;

namespace
{

double distance(Point const& a, Point const& b)
{
    return std::hypot(double(a.x) - b.x, double(a.y) - b.y, double(a.z) - b.z);
}

// A full circle of radius 2 about (1, 1, 3) as a rational curve of nine points.
NURBSCurveData rationalCircle()
{
    auto const w = static_cast<float>(std::numbers::sqrt2 / 2);
    std::vector<Point> points;
    for (auto const& [x, y] :
         {std::pair(1, 0), {1, 1}, {0, 1}, {-1, 1}, {-1, 0}, {-1, -1}, {0, -1}, {1, -1}, {1, 0}})
        points.emplace_back(1 + 2.0f * float(x), 1 + 2.0f * float(y), 3.0f);
    return {2, points, {1, w, 1, w, 1, w, 1, w, 1}, {0, 0, 0, 1, 1, 2, 2, 3, 3, 4, 4, 4}};
}

TEST(NURBSCurve, ARationalCircleLiesOnTheCircle)
{
    auto const curve = rationalCircle();
    for (int i = 0; i <= 400; ++i) EXPECT_NEAR(distance(evaluate(curve, i / 100.0), {1, 1, 3}), 2, 1e-6) << i;
    EXPECT_NEAR(distance(evaluate(curve, 1), {1, 3, 3}), 0, 1e-6);
    EXPECT_NEAR(distance(evaluate(curve, 4), {3, 1, 3}), 0, 1e-6) << "the end of the range belongs to it";
    EXPECT_NEAR(distance(evaluate(curve, 99), {3, 1, 3}), 0, 1e-6);
}

TEST(NURBSCurve, WithoutKnotsInsideItIsABezierCurve)
{
    NURBSCurveData const curve{3, {{0, 0, 0}, {0, 1, 0}, {1, 1, 0}, {1, 0, 2}}, {}, {0, 0, 0, 0, 1, 1, 1, 1}};
    for (double t : {0.0, 0.1, 0.5, 0.77, 1.0}) {
        double const s = 1 - t, b1 = 3 * s * s * t, b2 = 3 * s * t * t, b3 = t * t * t;
        Point const expected{float(b2 + b3), float(b1 + b2), float(2 * b3)};
        EXPECT_NEAR(distance(evaluate(curve, t), expected), 0, 1e-6) << t;
    }
}

struct LimitCase {
    char const* what;
    CurveLimits limits;
    std::size_t least, most;
};
CurveLimits limitsOf(std::size_t points, double deviation, double angle, double length)
{
    CurveLimits limits;
    limits.points = points;
    limits.deviation = deviation;
    limits.angle = angle;
    limits.length = length;
    return limits;
}

TEST(NURBSCurve, IsBrokenIntoLinesWithinItsLimits)
{
    auto const curve = rationalCircle();
    LimitCase const cases[] = {
        {"angle", limitsOf(1000, 0, 5, 0), 73, 300},
        {"deviation", limitsOf(1000, 0.01, 0, 0), 32, 130},
        {"length", limitsOf(1000, 0, 0, 0.1), 126, 300},
        {"budget", limitsOf(20, 1e-6, 0, 0), 20, 20},
    };
    for (auto const& test : cases) {
        auto const points = tessellate(curve, test.limits);
        EXPECT_GE(points.size(), test.least) << test.what;
        EXPECT_LE(points.size(), test.most) << test.what;
        EXPECT_NEAR(distance(points.front(), points.back()), 0, 1e-6);
        for (std::size_t i = 0; i + 1 < points.size(); ++i) {
            Point const middle{(points[i].x + points[i + 1].x) / 2, (points[i].y + points[i + 1].y) / 2, 3};
            EXPECT_NEAR(distance(points[i], {1, 1, 3}), 2, 1e-5) << test.what;
            if (test.limits.deviation > 1e-3) {
                EXPECT_LE(2 - distance(middle, {1, 1, 3}), test.limits.deviation);
            }
            if (test.limits.length > 0) {
                EXPECT_LE(distance(points[i], points[i + 1]), test.limits.length);
            }
        }
    }
}

TEST(NURBSCurve, ParametersChooseAPart)
{
    auto curve = rationalCircle();
    curve.start = 0.25f;
    curve.end = 0.5f;
    auto const points = tessellate(curve, CurveLimits());
    EXPECT_NEAR(distance(points.front(), {1, 3, 3}), 0, 1e-5);
    EXPECT_NEAR(distance(points.back(), {-1, 1, 3}), 0, 1e-5);
    for (auto const& p : points) EXPECT_LE(p.x, 1 + 1e-5);
    curve.end = curve.start;
    EXPECT_EQ(tessellate(curve, CurveLimits()).size(), 1u);
}

// A quarter turn of a line: a quarter of the mantle of a cylinder of radius 1 and height 2.
NURBSSurfaceData quarterCylinder()
{
    auto const w = static_cast<float>(std::numbers::sqrt2 / 2);
    NURBSSurfaceData surface;
    surface.uDegree = 2, surface.vDegree = 1, surface.uCount = 3, surface.vCount = 2;
    surface.points = {{1, 0, 0}, {1, 0, 2}, {1, 1, 0}, {1, 1, 2}, {0, 1, 0}, {0, 1, 2}};
    surface.weights = {1, 1, w, w, 1, 1};
    surface.uKnots = {0, 0, 0, 1, 1, 1};
    surface.vKnots = {0, 0, 1, 1};
    return surface;
}

double areaOf(Facets const& facets)
{
    double area = 0;
    for (std::size_t i = 0; i < facets.triangles.size(); i += 3) {
        auto const& p = facets.points;
        auto const a = distance(p[facets.triangles[i]], p[facets.triangles[i + 1]]);
        auto const b = distance(p[facets.triangles[i + 1]], p[facets.triangles[i + 2]]);
        auto const c = distance(p[facets.triangles[i + 2]], p[facets.triangles[i]]);
        auto const s = (a + b + c) / 2;
        area += std::sqrt(std::max(0.0, s * (s - a) * (s - b) * (s - c)));
    }
    return area;
}

// Each triangle turns the way that the normals of its corners look.
void expectNormalsOutside(Facets const& facets, char const* what)
{
    ASSERT_EQ(facets.normals.size(), facets.points.size());
    for (std::size_t i = 0; i < facets.triangles.size(); i += 3) {
        auto const &a = facets.points[facets.triangles[i]], &b = facets.points[facets.triangles[i + 1]],
                   &c = facets.points[facets.triangles[i + 2]];
        auto const u = b - a, v = c - a;
        Vector const face(u.y * v.z - u.z * v.y, u.z * v.x - u.x * v.z, u.x * v.y - u.y * v.x);
        for (int corner = 0; corner < 3; ++corner) {
            auto const& n = facets.normals[facets.triangles[i + std::size_t(corner)]];
            EXPECT_GT(face.x * n.x + face.y * n.y + face.z * n.z, 0) << what << ' ' << i / 3;
        }
    }
}

TEST(NURBSSurface, PointsAndNormalsOfACylinder)
{
    auto const surface = quarterCylinder();
    for (double u : {0.0, 0.2, 0.5, 0.9, 1.0})
        for (double v : {0.0, 0.3, 1.0}) {
            auto const [p, n] = evaluate(surface, u, v);
            EXPECT_NEAR(std::hypot(p.x, p.y), 1, 1e-6);
            EXPECT_NEAR(p.z, 2 * v, 1e-6);
            EXPECT_NEAR(n.x, p.x, 1e-6);
            EXPECT_NEAR(n.y, p.y, 1e-6);
        }
}

TEST(NURBSSurface, FacetsCoverItWithinTheBudget)
{
    SurfaceLimits limits;
    limits.angle = 2;
    auto const fine = tessellate(quarterCylinder(), limits);
    EXPECT_NEAR(areaOf(fine), std::numbers::pi, 1e-3);
    expectNormalsOutside(fine, "surface");
    limits.facets = 10;
    EXPECT_LE(tessellate(quarterCylinder(), limits).triangles.size() / 3, 10u);
    limits = SurfaceLimits();
    limits.angle = 0;
    limits.deviation = 1e-4;
    for (auto const& facets = tessellate(quarterCylinder(), limits); auto const& p : facets.points)
        EXPECT_NEAR(std::hypot(p.x, p.y), 1, 1e-6);
    EXPECT_NEAR(areaOf(tessellate(quarterCylinder(), limits)), std::numbers::pi, 2e-3);
}

TEST(NURBSSurface, TrimsKeepAndRemove)
{
    auto surface = quarterCylinder();
    std::vector<Point> const half{{0, 0, 0}, {1, 0, 0}, {1, 0.5f, 0}, {0, 0.5f, 0}};
    SurfaceLimits limits;
    limits.width = 0.02;
    limits.facets = 0;
    surface.trims = {TrimKit().SetPoints(half)};
    EXPECT_NEAR(areaOf(tessellate(surface, limits)), std::numbers::pi / 2, 0.05);
    surface.trims = {TrimKit().SetPoints(half).SetOperation(Trim::Operation::Remove)};
    EXPECT_NEAR(areaOf(tessellate(surface, limits)), std::numbers::pi / 2, 0.05);
    surface.trims.push_back(TrimKit().SetPoints(half));
    EXPECT_EQ(areaOf(tessellate(surface, limits)), 0);
}

TEST(NURBSSurface, TrimsCutFacetsAlongTheirOutline)
{
    auto surface = quarterCylinder();
    std::vector<Point> disc; // in parameters: 0.3 around the middle
    for (int i = 0; i < 100; ++i) {
        double const angle = i * 2 * std::numbers::pi / 100;
        disc.emplace_back(float(0.5 + 0.3 * std::cos(angle)), float(0.5 + 0.3 * std::sin(angle)), 0.0f);
    }
    SurfaceLimits coarse; // few facets, which the outline crosses
    coarse.facets = 40;
    surface.trims = {TrimKit().SetPoints(disc)};
    auto const kept = tessellate(surface, coarse);
    surface.trims = {TrimKit().SetPoints(disc).SetOperation(Trim::Operation::Remove)};
    auto const rest = tessellate(surface, coarse);
    surface.trims.clear();
    EXPECT_NEAR(areaOf(kept) + areaOf(rest), areaOf(tessellate(surface, coarse)), 0.03);
    SurfaceLimits fine;
    fine.width = 0.01;
    fine.facets = 0;
    surface.trims = {TrimKit().SetPoints(disc)};
    EXPECT_NEAR(areaOf(kept), areaOf(tessellate(surface, fine)), 0.02);
    ASSERT_EQ(kept.points.size(), kept.normals.size());
    for (auto const& p : kept.points) EXPECT_LE(std::hypot(p.x, p.y), 1 + 1e-5);
    surface.trims = {TrimKit().SetPoints(disc)};
    coarse.trimPoints = 8; // an octagon instead
    EXPECT_LT(areaOf(tessellate(surface, coarse)), 0.95 * areaOf(kept));
}

TEST(Curves, CirclesAndArcsLieWhereTheyShould)
{
    for (Vector const normal : {Vector(0, 0, 1), Vector(1, 0, 0), Vector(1, 2, -3), Vector(0, 0, -5)}) {
        CircleData const circle{{1, 2, 3}, 5, normal};
        auto const points = tessellate(sweepOf(circle), CurveLimits());
        EXPECT_EQ(points.size(), 73u) << "five degrees each, and the first point again";
        EXPECT_EQ(points.front(), points.back());
        auto const box = extentOf(sweepOf(circle));
        for (auto const& p : points) {
            EXPECT_NEAR(distance(p, {1, 2, 3}), 5, 1e-5);
            auto const out = p - Point(1, 2, 3);
            EXPECT_NEAR(out.x * normal.x + out.y * normal.y + out.z * normal.z, 0, 1e-4);
            EXPECT_TRUE(p.x >= box.min.x - 1e-5f && p.x <= box.max.x + 1e-5f && p.z <= box.max.z + 1e-5f);
        }
    }
    ArcPointsData const arc{{2, 0, 0}, {-2, 0, 0}, {0, -2, 0}}; // three quarters of a circle
    auto const points = tessellate(arc, CurveLimits());
    EXPECT_EQ(points.front(), arc.start);
    EXPECT_EQ(points.back(), arc.end);
    EXPECT_EQ(points.size(), 55u);
    for (auto const& p : points) EXPECT_NEAR(distance(p, {}), 2, 1e-5);
    EXPECT_NEAR(extentOf(arc).max.y, 2, 1e-6);
    ArcPointsData const straight{{0, 0, 0}, {1, 1, 1}, {3, 3, 3}};
    EXPECT_EQ(tessellate(straight, CurveLimits()).size(), 3u);
}

TEST(Curves, GridsHaveTheirLines)
{
    GridData grid{Grid::Type::Quadrilateral, {0, 0, 0}, {1, 0, 0}, {0, 2, 0}, 3, 2};
    EXPECT_EQ(tessellate(grid, CurveLimits()).size(), 4u + 3u);
    grid.type = Grid::Type::Radial;
    auto const lines = tessellate(grid, CurveLimits());
    EXPECT_EQ(lines.size(), 3u + 2u);
    EXPECT_EQ(extentOf(grid), SimpleCuboid({-3, -6, 0}, {3, 6, 0}));
}

TEST(Surfaces, SpheresCylindersAndMeshes)
{
    SphereData const sphere{{1, 2, 3}, 2, {0, 1, 1}, {1, 0, 0}};
    auto const ball = tessellate(sphere, 64);
    EXPECT_NEAR(areaOf(ball), 16 * std::numbers::pi, 0.2);
    expectNormalsOutside(ball, "sphere");
    EXPECT_FALSE(tessellate(sphere, 0).triangles.empty()) << "never less than a body";

    CylinderData cylinder{{{0, 0, 0}, {0, 0, 4}}, {1}, Cylinder::Capping::Both, {}, {}};
    auto const closed = tessellate(cylinder, 64);
    EXPECT_NEAR(areaOf(closed), 10 * std::numbers::pi, 0.1);
    expectNormalsOutside(closed, "cylinder");
    cylinder.caps = Cylinder::Capping::None;
    EXPECT_NEAR(areaOf(tessellate(cylinder, 64)), 8 * std::numbers::pi, 0.1);
    cylinder.points = {{0, 0, 0}, {0, 0, 4}, {4, 0, 4}};
    auto const bent = tessellate(cylinder, 16);
    auto const box = extentOf(cylinder);
    for (auto const& p : bent.points) {
        EXPECT_TRUE(p.x >= box.min.x - 1e-5f && p.x <= box.max.x + 1e-5f);
        EXPECT_TRUE(p.y >= box.min.y - 1e-5f && p.y <= box.max.y + 1e-5f);
        EXPECT_TRUE(p.z >= box.min.z - 1e-5f && p.z <= box.max.z + 1e-5f);
    }
    MeshKit const mesh =
        MeshKit().SetPoints(2, 3, {{0, 0, 0}, {1, 0, 0}, {2, 0, 0}, {0, 1, 0}, {1, 1, 0}, {2, 1, 0}});
    auto const flat = tessellate(mesh.data());
    EXPECT_NEAR(areaOf(flat), 2, 1e-6);
    expectNormalsOutside(flat, "mesh");
}

void expectOwnCoordinates(Facets const& facets, char const* what)
{
    ASSERT_EQ(facets.parameters.size(), 2 * facets.points.size()) << what;
    for (float p : facets.parameters) {
        EXPECT_GE(p, -1e-6f) << what;
        EXPECT_LE(p, 1 + 1e-6f) << what;
    }
    // No triangle reaches over the place where the coordinates begin anew.
    for (std::size_t t = 0; t + 2 < facets.triangles.size(); t += 3)
        for (std::size_t i = 0; i < 3; ++i) {
            std::uint32_t const a = facets.triangles[t + i], b = facets.triangles[t + (i + 1) % 3];
            EXPECT_LT(std::abs(facets.parameters[2 * a] - facets.parameters[2 * b]), 0.6f) << what;
        }
}

TEST(Facets, HaveCoordinatesOfTheirOwnAtEveryPoint)
{
    Facets const ball = tessellate(SphereData(), 12);
    expectOwnCoordinates(ball, "sphere");
    EXPECT_FLOAT_EQ(ball.parameters[1], 1) << "the north pole";
    CylinderData cylinder;
    cylinder.points = {{0, 0, 0}, {0, 0, 1}, {0, 0, 4}};
    cylinder.radii = {1};
    cylinder.caps = Cylinder::Capping::Both;
    Facets const pipe = tessellate(cylinder, 12);
    expectOwnCoordinates(pipe, "cylinder");
    EXPECT_FLOAT_EQ(pipe.parameters[2 * 13 + 1], 0.25f) << "the second ring, a quarter along the chain";
    MeshData mesh;
    mesh.rows = 2;
    mesh.columns = 3;
    mesh.points = {{0, 0, 0}, {1, 0, 0}, {5, 0, 0}, {0, 1, 0}, {1, 1, 0}, {5, 1, 0}};
    Facets const sheet = tessellate(mesh);
    expectOwnCoordinates(sheet, "mesh");
    EXPECT_EQ(sheet.parameters, (std::vector<float>{0, 0, 0.5f, 0, 1, 0, 0, 1, 0.5f, 1, 1, 1}));
    NURBSSurfaceData surface;
    surface.uDegree = surface.vDegree = 1;
    surface.uCount = surface.vCount = 2;
    surface.points = {{0, 0, 0}, {0, 8, 0}, {4, 0, 0}, {4, 8, 0}};
    surface.uKnots = {0, 0, 2, 2};
    surface.vKnots = {-1, -1, 3, 3};
    TrimKit hole;
    hole.SetPoints({{0.5f, 0, 0}, {1.5f, 0, 0}, {1, 2, 0}}).SetOperation(Trim::Operation::Remove);
    for (bool trimmed : {false, true}) {
        surface.trims.clear();
        if (trimmed) surface.trims.push_back(hole);
        Facets const patch = tessellate(surface, SurfaceLimits());
        ASSERT_EQ(patch.parameters.size(), 2 * patch.points.size());
        for (std::size_t i = 0; i < patch.points.size(); ++i) {
            EXPECT_NEAR(patch.parameters[2 * i], patch.points[i].x / 4, 1e-5);
            EXPECT_NEAR(patch.parameters[2 * i + 1], patch.points[i].y / 8, 1e-5);
        }
    }
}

} // namespace
