#include "OutlineRows.h"

#include <algorithm>

namespace HPS
{

namespace
{

// Twice the area of a triangle; positive if it runs counter-clockwise.
long double turn(PlanePoint a, PlanePoint b, PlanePoint c)
{
    return static_cast<long double>(b.x - a.x) * (c.y - a.y) -
           static_cast<long double>(b.y - a.y) * (c.x - a.x);
}

bool isNear(PlanePoint a, PlanePoint b, PlanePoint p, double near)
{
    double const dx = b.x - a.x;
    double const dy = b.y - a.y;
    double const squared = dx * dx + dy * dy;
    double const along =
        squared > 0 ? std::clamp(((p.x - a.x) * dx + (p.y - a.y) * dy) / squared, 0.0, 1.0) : 0;
    double const ex = p.x - a.x - along * dx;
    double const ey = p.y - a.y - along * dy;
    return ex * ex + ey * ey <= near * near;
}

} // namespace

PlaneBox PlaneBox::of(std::span<PlanePoint const> points)
{
    PlaneBox box{points.front(), points.front()};
    for (PlanePoint const p : points) {
        box.low = {std::min(box.low.x, p.x), std::min(box.low.y, p.y)};
        box.high = {std::max(box.high.x, p.x), std::max(box.high.y, p.y)};
    }
    return box;
}

double PlaneBox::extent() const
{
    return std::max(high.x - low.x, high.y - low.y);
}

bool PlaneBox::isApartFrom(PlaneBox const& other, double near) const
{
    return low.x > other.high.x + near || other.low.x > high.x + near || low.y > other.high.y + near ||
           other.low.y > high.y + near;
}

OutlineRows::OutlineRows(std::span<PlanePoint const> points, double near) : points_(points), near_(near)
{
    PlaneBox const box = PlaneBox::of(points);
    low_ = box.low.y;
    double const height = box.high.y - box.low.y;
    auto const forRows = [&](auto&& f) {
        for (std::size_t i = 0; i < points.size(); ++i) {
            auto const [from, to] = segment(points, i);
            std::size_t const last = rowOf(std::max(from.y, to.y) + near);
            for (std::size_t row = rowOf(std::min(from.y, to.y) - near); row <= last; ++row) f(row, i);
        }
    };
    // Fewer rows where many sides run through most of them, so that the lists stay in proportion to the
    // points.
    for (std::size_t rows = std::max<std::size_t>(1, points.size());; rows = (rows + 1) / 2) {
        rowHeight_ = height > 0 ? height / static_cast<double>(rows) : 1;
        rowStarts_.assign(rows + 1, 0);
        double entries = 0;
        for (std::size_t i = 0; i < points.size(); ++i) {
            auto const [from, to] = segment(points, i);
            entries += static_cast<double>(rowOf(std::max(from.y, to.y) + near) -
                                           rowOf(std::min(from.y, to.y) - near) + 1);
        }
        if (rows == 1 || entries <= 8.0 * static_cast<double>(points.size())) break;
    }
    forRows([&](std::size_t row, std::size_t) { ++rowStarts_[row + 1]; });
    for (std::size_t row = 1; row < rowStarts_.size(); ++row) rowStarts_[row] += rowStarts_[row - 1];
    sides_.resize(rowStarts_.back());
    std::vector<std::uint32_t> next(rowStarts_.begin(), rowStarts_.end() - 1);
    forRows([&](std::size_t row, std::size_t i) { sides_[next[row]++] = static_cast<std::uint32_t>(i); });
}

std::size_t OutlineRows::rowOf(double y) const
{
    auto const lastRow = static_cast<double>(rowStarts_.size() - 2);
    return static_cast<std::size_t>(std::clamp((y - low_) / rowHeight_, 0.0, lastRow));
}

template <class F> bool OutlineRows::anySide(double low, double high, F&& f) const
{
    std::size_t const last = rowOf(high);
    for (std::size_t row = rowOf(low); row <= last; ++row) {
        std::size_t const comparisons = rowStarts_[row + 1] - rowStarts_[row];
        if (comparisons > comparisonsLeft_) return true;
        comparisonsLeft_ -= comparisons;
        for (std::uint32_t at = rowStarts_[row]; at < rowStarts_[row + 1]; ++at) {
            if (f(segment(points_, sides_[at]))) return true;
        }
    }
    return false;
}

Side OutlineRows::sideOf(PlanePoint p) const
{
    bool inside = false;
    bool const on = anySide(p.y, p.y, [&](Segment const& side) {
        auto const [a, b] = side;
        if (isNear(a, b, p, near_)) return true;
        bool const upwards = b.y > a.y;
        if ((a.y > p.y) != (b.y > p.y) && upwards == (turn(a, b, p) > 0)) inside = !inside;
        return false;
    });
    return on ? Side::On : inside ? Side::Inside : Side::Outside;
}

bool OutlineRows::isCrossedBy(std::span<PlanePoint const> other) const
{
    for (std::size_t i = 0; i < other.size(); ++i) {
        auto const [c, d] = segment(other, i);
        auto const runsThrough = [&, c = c, d = d](Segment const& side) {
            auto const [a, b] = side;
            if (std::max(a.x, b.x) < std::min(c.x, d.x) || std::max(c.x, d.x) < std::min(a.x, b.x))
                return false;
            if ((turn(a, b, c) > 0) == (turn(a, b, d) > 0) || (turn(c, d, a) > 0) == (turn(c, d, b) > 0))
                return false;
            return !isNear(a, b, c, near_) && !isNear(a, b, d, near_) && !isNear(c, d, a, near_) &&
                   !isNear(c, d, b, near_);
        };
        if (anySide(std::min(c.y, d.y), std::max(c.y, d.y), runsThrough)) return true;
    }
    return false;
}

bool OutlineRows::isTouchedBy(std::span<PlanePoint const> other) const
{
    for (std::size_t i = 0; i < other.size(); ++i) {
        auto const [c, d] = segment(other, i);
        auto const touches = [&, c = c, d = d](Segment const& side) {
            auto const [a, b] = side;
            return isNear(a, b, c, near_) || isNear(c, d, a, near_);
        };
        if (anySide(std::min(c.y, d.y) - near_, std::max(c.y, d.y) + near_, touches)) return true;
    }
    return false;
}

} // namespace HPS
