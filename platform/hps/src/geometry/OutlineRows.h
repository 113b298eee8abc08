#pragma once
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace HPS
{

struct PlanePoint {
    double x = 0;
    double y = 0;
};

struct PlaneBox {
    PlanePoint low;
    PlanePoint high;

    static PlaneBox of(std::span<PlanePoint const> points); // of at least one point
    double extent() const;
    bool isApartFrom(PlaneBox const& other, double near) const;
};

enum class Side { Outside, On, Inside };

// A closed outline in a plane with its sides sorted into rows of equal height, so that a question about a
// place looks at the sides of its row alone. What is nearer than `near` lies on the outline. Inside is by the
// odd rule.
class OutlineRows
{
public:
    // The points must outlive this.
    OutlineRows(std::span<PlanePoint const> points, double near);

    Side sideOf(PlanePoint p) const;
    // A side of `other` runs through a side of this outline; touching does not count.
    bool isCrossedBy(std::span<PlanePoint const> other) const;
    bool isTouchedBy(std::span<PlanePoint const> other) const;

private:
    struct Segment {
        PlanePoint from;
        PlanePoint to;
    };

    Segment segment(std::span<PlanePoint const> points, std::size_t i) const
    {
        return {points[i], points[i + 1 < points.size() ? i + 1 : 0]};
    }
    std::size_t rowOf(double y) const;
    // The sides that may come near heights from `low` to `high`, each at least once; stops at the first true.
    template <class F> bool anySide(double low, double high, F&& f) const;

    std::span<PlanePoint const> points_;
    mutable std::size_t comparisonsLeft_ = 100'000'000;
    double near_;
    double low_ = 0;
    double rowHeight_ = 0;
    std::vector<std::uint32_t> rowStarts_; // one more than there are rows
    std::vector<std::uint32_t> sides_;
};

} // namespace HPS
