// Rational curves and surfaces by de Boor's algorithm.
#pragma once
#include "tessellation_curves.h"
#include "tessellation_surfaces.h"
#include <hps/NURBSCurveKit.h>
#include <hps/NURBSSurfaceAttributeKit.h>
#include <hps/NURBSSurfaceKit.h>

namespace HPS::scene
{

// How finely a surface is broken into facets. Zero stands for no limit.
struct SurfaceLimits {
    std::size_t facets = 5000;
    double deviation = 0; // distance from the surface, in its units
    double angle = 15;    // between neighbouring facets, in degrees
    double width = 0;     // of a facet
    std::size_t trimPoints = 500;
    double trimDeviation = 0; // of an outline, in parameters

    bool operator==(SurfaceLimits const&) const = default;
    SurfaceLimits() = default;
    explicit SurfaceLimits(NURBSSurfaceAttributeData const& attributes);
};

// All of these take shapes that were checked. `t`, `u` and `v` count in the knots and are brought into their
// range.
Point evaluate(NURBSCurveData const& curve, double t);
// The part between the parameters. Spans between knots are halved until the limits hold or the budget is
// spent; the span that is furthest off comes first.
std::vector<Point> tessellate(NURBSCurveData const& curve, CurveLimits const& limits);
SimpleCuboid extentOf(NURBSCurveData const& curve); // of the control points, which enclose the curve

struct SurfacePoint {
    Point point;
    Vector normal; // zero where the surface has none
};
SurfacePoint evaluate(NURBSSurfaceData const& surface, double u, double v);
// Facets are cut along the trims.
Facets tessellate(NURBSSurfaceData const& surface, SurfaceLimits const& limits);
SimpleCuboid extentOf(NURBSSurfaceData const& surface);

// Degree, points and knots make a curve.
bool areValidKnots(std::size_t degree, std::size_t pointCount, std::vector<float> const& knots);

} // namespace HPS::scene
