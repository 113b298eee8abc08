// Curves as chains of points, and their exact extents.
#pragma once
#include <hps/CircleKit.h>
#include <hps/CircularArcKit.h>
#include <hps/Cuboid.h>
#include <hps/CurveAttributeKit.h>
#include <hps/EllipseKit.h>
#include <hps/EllipticalArcKit.h>
#include <hps/GridKit.h>
#include <optional>

namespace HPS::scene
{

// How finely a curve is broken into lines. Zero stands for no limit.
struct CurveLimits {
    std::size_t points = 500;
    double deviation = 0; // distance from the curve, in its units
    double angle = 5;     // between neighbouring lines, in degrees
    double length = 0;    // of a line

    bool operator==(CurveLimits const&) const = default;
    CurveLimits() = default;
    explicit CurveLimits(CurveAttributeData const& attributes);
};

// Circles, ellipses and their arcs are one thing: center + cos(t) major + sin(t) minor, from `start` to
// `end`. Radians.
struct Sweep {
    double center[3]{};
    double major[3]{};
    double minor[3]{};
    double start = 0;
    double end = 0;

    Point at(double t) const;
    bool isWhole() const;
};
Sweep sweepOf(CircleData const& circle);
Sweep sweepOf(EllipseData const& ellipse);
Sweep sweepOf(EllipticalArcData const& arc);
// Nothing if the points lie on a line.
std::optional<Sweep> sweepOf(ArcPointsData const& arc);

// The first point stands again at the end of a whole one.
std::vector<Point> tessellate(Sweep const& sweep, CurveLimits const& limits);
std::vector<Point> tessellate(ArcPointsData const& arc, CurveLimits const& limits);
SimpleCuboid extentOf(Sweep const& sweep);
SimpleCuboid extentOf(ArcPointsData const& arc);
// Of the piece of the disc: with its centre.
SimpleCuboid wedgeExtentOf(ArcPointsData const& arc);

// The lines of a grid: rings are broken by the limits.
std::vector<std::vector<Point>> tessellate(GridData const& grid, CurveLimits const& limits);
SimpleCuboid extentOf(GridData const& grid);

} // namespace HPS::scene
