#pragma once

#include "StepEntities.h"

#include <array>

namespace NarMetaInfra
{
using StepPoint = std::array<double, 3>;

StepPoint operator+(StepPoint const& a, StepPoint const& b);
StepPoint operator-(StepPoint const& a, StepPoint const& b);
StepPoint operator*(double factor, StepPoint const& a);
double dot(StepPoint const& a, StepPoint const& b);
StepPoint cross(StepPoint const& a, StepPoint const& b);
/// Of length one; unchanged if it has no length.
StepPoint normalised(StepPoint const& a);

/// A right-handed system of axes of length one.
struct StepFrame {
    StepPoint origin{};
    StepPoint x{1, 0, 0}, y{0, 1, 0}, z{0, 0, 1};

    StepPoint place(StepPoint const& point) const;
    StepPoint turn(StepPoint const& direction) const;
    /// What this frame makes of another one inside it.
    StepFrame operator*(StepFrame const& inner) const;
    /// Takes a place in this frame to the place itself inside the frame.
    StepFrame inverse() const;
};

using StepPolyline = std::vector<StepPoint>;

/// Points, placements and curves of a file, in millimetres. One object serves one representation context,
/// since each has its own unit of length.
class StepGeometry
{
public:
    /// @p context: 0 takes millimetres.
    StepGeometry(StepEntities const& entities, int context);

    double millimetres() const { return Factor; }
    StepPoint point(int entity) const;
    StepPoint scaled(StepValue const& coordinates) const;
    /// An axis placement, or an operator without its scale; the identity for anything else.
    StepFrame frame(int entity) const;
    /// Where a mapped item puts what it maps.
    StepFrame mapping(int item) const;
    /// Points of a COORDINATES_LIST.
    std::vector<StepPoint> coordinates(int entity) const;
    /// A polyline, circle, ellipse, trimmed or composite curve or B-spline as points; empty for others.
    /// Circles have 48 points to the turn.
    StepPolyline curve(int entity, int depth = 0) const;

private:
    StepPoint direction(int entity, StepPoint const& otherwise) const;
    StepPolyline conic(int entity, double from, double to) const;
    StepPolyline trimmed(int entity, int depth) const;
    StepPolyline composite(int entity, int depth) const;
    StepPolyline spline(int entity) const;

    StepEntities const& Entities;
    double Factor = 1.0;
    double Radians = 1.0; // per unit of plane angle
};

/// Size of a unit of length in millimetres, of plane angle in degrees; 1 for what is neither.
double stepUnit(StepEntities const& entities, int unit);
/// A value of a measure with unit, or of a measure item, in millimetres or degrees.
std::optional<double> stepMeasure(StepEntities const& entities, int measure);
} // namespace NarMetaInfra
