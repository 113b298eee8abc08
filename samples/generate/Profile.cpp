#include "Profile.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace samples
{

using std::numbers::pi;

int ChordsOf(double radius, double sweep)
{
    double const step = std::min(pi / 12, 2 * std::acos(1 - std::min(0.5, 0.08 / radius)));
    return std::max(1, static_cast<int>(std::ceil(std::abs(sweep) / step - 1e-9)));
}

Outline& Outline::LineTo(Point2 point)
{
    double const dx = point[0] - end_[0], dy = point[1] - end_[1];
    double const length = std::hypot(dx, dy);
    Point2 const normal{dy / length, -dx / length};
    return Curve({{end_, point}, {normal, normal}});
}

Outline& Outline::Arc(Point2 centre, double sweep)
{
    double const radius = std::hypot(end_[0] - centre[0], end_[1] - centre[1]);
    double const start = std::atan2(end_[1] - centre[1], end_[0] - centre[0]);
    double const side = sweep > 0 ? 1 : -1;
    int const chords = ChordsOf(radius, sweep);
    Segment arc;
    for (int i = 0; i <= chords; ++i) {
        double const angle = start + sweep * i / chords;
        double const x = std::cos(angle), y = std::sin(angle);
        arc.points.push_back({centre[0] + radius * x, centre[1] + radius * y});
        arc.normals.push_back({side * x, side * y});
    }
    // Not left to rounding: a joint is one point.
    arc.points.front() = end_;
    if (std::abs(std::abs(sweep) - 2 * pi) < 1e-9) arc.points.back() = end_;
    return Curve(std::move(arc));
}

Outline& Outline::Curve(Segment segment)
{
    segment.points.front() = end_;
    end_ = segment.points.back();
    segments_.push_back(std::move(segment));
    return *this;
}

std::vector<Point2> Outline::Points() const
{
    std::vector<Point2> points;
    for (auto const& segment : segments_)
        points.insert(points.end(), segment.points.begin() + (points.empty() ? 0 : 1), segment.points.end());
    if (IsClosed()) points.pop_back();
    return points;
}

bool Outline::IsClosed() const
{
    auto const& first = segments_.front().points.front();
    auto const& last = segments_.back().points.back();
    return std::hypot(first[0] - last[0], first[1] - last[1]) < 1e-6;
}

Outline Circle(Point2 centre, double radius)
{
    return Outline({centre[0] + radius, centre[1]}).Arc(centre, 2 * pi);
}

Outline CircularHole(Point2 centre, double radius)
{
    return Outline({centre[0] + radius, centre[1]}).Arc(centre, -2 * pi);
}

Outline RoundedRectangle(double width, double height, double radius)
{
    double const x = width / 2, y = height / 2, r = radius;
    return Outline({x, -y + r})
        .LineTo({x, y - r})
        .Arc({x - r, y - r}, pi / 2)
        .LineTo({-x + r, y})
        .Arc({-x + r, y - r}, pi / 2)
        .LineTo({-x, -y + r})
        .Arc({-x + r, -y + r}, pi / 2)
        .LineTo({x - r, -y})
        .Arc({x - r, -y + r}, pi / 2);
}

Outline Hexagon(double acrossFlats)
{
    double const radius = acrossFlats / std::numbers::sqrt3;
    auto const corner = [radius](int i) {
        return Point2{radius * std::cos(i * pi / 3), radius * std::sin(i * pi / 3)};
    };
    Outline hexagon(corner(0));
    for (int i = 1; i <= 6; ++i) hexagon.LineTo(corner(i % 6));
    return hexagon;
}

} // namespace samples
