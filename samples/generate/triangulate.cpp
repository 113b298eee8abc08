#include "triangulate.h"

#include <algorithm>
#include <cstddef>
#include <numeric>

namespace samples
{

namespace
{

double Turn(Point2 const& a, Point2 const& b, Point2 const& c)
{
    return (b[0] - a[0]) * (c[1] - a[1]) - (b[1] - a[1]) * (c[0] - a[0]);
}

class EarCutter
{
public:
    explicit EarCutter(std::vector<std::vector<Point2>> const& outlines)
    {
        for (auto const& outline : outlines) points_.insert(points_.end(), outline.begin(), outline.end());
        ring_.resize(outlines.front().size());
        std::iota(ring_.begin(), ring_.end(), 0u);

        struct Hole {
            std::uint32_t first, count, rightmost;
        };
        std::vector<Hole> holes;
        auto first = static_cast<std::uint32_t>(ring_.size());
        for (std::size_t i = 1; i < outlines.size(); ++i) {
            auto const count = static_cast<std::uint32_t>(outlines[i].size());
            auto rightmost = first;
            for (auto p = first; p < first + count; ++p)
                if (points_[p] > points_[rightmost]) rightmost = p;
            holes.push_back({first, count, rightmost});
            first += count;
        }
        // From right to left, each hole can see the outline or a hole that is already part of it.
        std::sort(holes.begin(), holes.end(), [this](Hole const& a, Hole const& b) {
            return points_[a.rightmost] > points_[b.rightmost];
        });
        for (auto const& hole : holes) {
            auto const at = bridgeFrom(hole.rightmost);
            std::vector<std::uint32_t> inserted;
            for (std::uint32_t i = 0; i <= hole.count; ++i)
                inserted.push_back(hole.first + (hole.rightmost - hole.first + i) % hole.count);
            inserted.push_back(ring_[at]);
            ring_.insert(ring_.begin() + static_cast<std::ptrdiff_t>(at) + 1, inserted.begin(),
                         inserted.end());
        }
    }

    std::vector<std::uint32_t> Cut()
    {
        std::vector<std::uint32_t> triangles;
        std::size_t at = 0, refused = 0;
        while (ring_.size() > 3 && refused <= ring_.size()) {
            auto const n = ring_.size();
            auto const before = (at + n - 1) % n, after = (at + 1) % n;
            if (!isEar(before, at, after)) {
                at = after;
                ++refused;
                continue;
            }
            triangles.insert(triangles.end(), {ring_[before], ring_[at], ring_[after]});
            ring_.erase(ring_.begin() + static_cast<std::ptrdiff_t>(at));
            // On to the next but one: ears from all around give better triangles than a fan.
            at = (at + 1) % ring_.size();
            refused = 0;
        }
        if (ring_.size() == 3) triangles.insert(triangles.end(), ring_.begin(), ring_.end());
        return triangles;
    }

private:
    /// The position in the ring that the point can be joined to without crossing anything.
    std::size_t bridgeFrom(std::uint32_t point) const
    {
        std::vector<std::size_t> candidates(ring_.size());
        std::iota(candidates.begin(), candidates.end(), std::size_t{0});
        auto const& from = points_[point];
        auto const distance = [&](std::size_t position) {
            double const dx = points_[ring_[position]][0] - from[0],
                         dy = points_[ring_[position]][1] - from[1];
            return dx * dx + dy * dy;
        };
        std::sort(candidates.begin(), candidates.end(),
                  [&](std::size_t a, std::size_t b) { return distance(a) < distance(b); });
        for (auto candidate : candidates)
            if (points_[ring_[candidate]][0] >= from[0] && isFree(from, candidate)) return candidate;
        return candidates.front();
    }

    bool isFree(Point2 const& from, std::size_t candidate) const
    {
        auto const n = ring_.size();
        auto const& to = points_[ring_[candidate]];
        auto const& before = points_[ring_[(candidate + n - 1) % n]];
        auto const& after = points_[ring_[(candidate + 1) % n]];
        // The bridge has to leave the corner on the side of the material.
        bool const convex = Turn(before, to, after) > 0;
        bool const inside = convex ? Turn(before, to, from) > 0 && Turn(to, after, from) > 0
                                   : Turn(before, to, from) > 0 || Turn(to, after, from) > 0;
        if (!inside) return false;
        for (std::size_t i = 0; i < n; ++i) {
            auto const& a = points_[ring_[i]];
            auto const& b = points_[ring_[(i + 1) % n]];
            if (a == to || b == to) continue;
            if (Turn(from, to, a) * Turn(from, to, b) < 0 && Turn(a, b, from) * Turn(a, b, to) < 0)
                return false;
        }
        return true;
    }

    bool isEar(std::size_t before, std::size_t at, std::size_t after) const
    {
        auto const &a = points_[ring_[before]], &b = points_[ring_[at]], &c = points_[ring_[after]];
        if (Turn(a, b, c) <= 0) return false;
        return std::none_of(ring_.begin(), ring_.end(), [&](std::uint32_t index) {
            auto const& p = points_[index];
            if (p == a || p == b || p == c) return false;
            return Turn(a, b, p) >= 0 && Turn(b, c, p) >= 0 && Turn(c, a, p) >= 0;
        });
    }

    std::vector<Point2> points_;
    std::vector<std::uint32_t> ring_;
};

} // namespace

std::vector<std::uint32_t> Triangulate(std::vector<std::vector<Point2>> const& outlines)
{
    return EarCutter(outlines).Cut();
}

} // namespace samples
