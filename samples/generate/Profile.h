#pragma once

#include <array>
#include <vector>

namespace samples
{

using Point2 = std::array<double, 2>;

/// A smooth piece of an outline: points with the normal at each of them, out of the material.
struct Segment {
    std::vector<Point2> points;
    std::vector<Point2> normals;
};

/// A closed or, for revolution, open outline. The material lies to the left of its direction: an outer
/// outline runs counter-clockwise, a hole clockwise. Lengths in millimetres, angles in radians.
class Outline
{
public:
    explicit Outline(Point2 start) : end_(start) {}

    Outline& LineTo(Point2 point);
    /// From the current end on, about @p centre, by @p sweep (counter-clockwise if positive).
    Outline& Arc(Point2 centre, double sweep);
    /// A piece with normals of its own, which starts at the current end.
    Outline& Curve(Segment segment);

    std::vector<Segment> const& Segments() const { return segments_; }
    /// All points in order, each joint once.
    std::vector<Point2> Points() const;
    bool IsClosed() const;

private:
    Point2 end_;
    std::vector<Segment> segments_;
};

Outline Circle(Point2 centre, double radius);
Outline CircularHole(Point2 centre, double radius);
Outline RoundedRectangle(double width, double height, double radius);
Outline Hexagon(double acrossFlats);

/// Number of chords for an arc: at most 15 degrees and 0.08 mm from the curve each.
int ChordsOf(double radius, double sweep);

} // namespace samples
