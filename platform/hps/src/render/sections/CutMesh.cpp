#include "CutMesh.h"
#include <bit>
#include <numeric>
#include <unordered_map>

namespace HPS::render
{
namespace
{

// The finishing step of the splitmix64 generator: every bit of the input reaches every bit of the output.
std::uint64_t mixed(std::uint64_t value)
{
    value = (value ^ (value >> 30)) * 0xbf58476d1ce4e5b9u;
    value = (value ^ (value >> 27)) * 0x94d049bb133111ebu;
    return value ^ (value >> 31);
}

std::uint64_t pairOf(std::uint32_t a, std::uint32_t b)
{
    return std::uint64_t(a) << 32 | b;
}
std::uint64_t edgeOf(std::uint32_t a, std::uint32_t b)
{
    return a < b ? pairOf(a, b) : pairOf(b, a);
}

/// Sets of numbers that are joined again and again.
class Sets
{
public:
    explicit Sets(std::size_t count) : parent_(count) { std::iota(parent_.begin(), parent_.end(), 0u); }
    std::uint32_t of(std::uint32_t i)
    {
        while (parent_[i] != i) i = parent_[i] = parent_[parent_[i]];
        return i;
    }
    void join(std::uint32_t a, std::uint32_t b) { parent_[of(a)] = of(b); }

private:
    std::vector<std::uint32_t> parent_;
};

/// Puts two zeros between the bits of the low 21.
std::uint64_t spread(std::uint64_t x)
{
    x &= 0x1fffff;
    x = (x | x << 32) & 0x1f00000000ffff;
    x = (x | x << 16) & 0x1f0000ff0000ff;
    x = (x | x << 8) & 0x100f00f00f00f00f;
    x = (x | x << 4) & 0x10c30c30c30c30c3;
    return (x | x << 2) & 0x1249249249249249;
}

double distance(CutMesh::Position const& a, CutMesh::Position const& b)
{
    return length({double(a[0]) - b[0], double(a[1]) - b[1], double(a[2]) - b[2]});
}

} // namespace

CutMesh::CutMesh(std::vector<Position> points, std::vector<std::uint32_t> indices, double tolerance)
    : points_(std::move(points))
{
    triangles_.reserve(indices.size() / 3);
    for (std::size_t i = 0; i + 2 < indices.size(); i += 3)
        triangles_.push_back({indices[i], indices[i + 1], indices[i + 2]});
    weld();
    findParts();
    if (!allClosed_ && !triangles_.empty()) {
        Box all;
        for (Position const& p : points_) all.add(p[0], p[1], p[2]);
        joinRims(std::max({tolerance, 1e-6 * all.diagonal(), 1e-30}));
        findParts();
    }
    buildHierarchy();
}

// Corners at one place become one, triangles without a surface go.
void CutMesh::weld()
{
    std::size_t const slots = std::bit_ceil(2 * points_.size() + 1);
    constexpr std::uint32_t none = ~0u;
    std::vector<std::uint32_t> table(slots, none), merged(points_.size());
    std::vector<Position> kept;
    kept.reserve(points_.size());
    for (std::size_t i = 0; i < points_.size(); ++i) {
        Position p = points_[i];
        std::uint64_t hash = 0x9e3779b97f4a7c15u;
        for (float& coordinate : p) {
            coordinate += 0.0f; // makes one zero of the two that floats have
            hash = mixed(hash + std::bit_cast<std::uint32_t>(coordinate));
        }
        std::size_t slot = hash & (slots - 1);
        while (table[slot] != none && kept[table[slot]] != p) slot = (slot + 1) & (slots - 1);
        if (table[slot] == none) {
            table[slot] = std::uint32_t(kept.size());
            kept.push_back(p);
        }
        merged[i] = table[slot];
    }
    points_ = std::move(kept);
    std::erase_if(triangles_, [&](Triangle& t) {
        for (std::uint32_t& corner : t) corner = merged[corner];
        return t[0] == t[1] || t[1] == t[2] || t[2] == t[0];
    });
}

// A part is closed if an even number of triangles meets at each of its edges. Instead of keeping the edges, a
// number made of the two ends is toggled; of an open part nothing remains by a chance of 1 in 2^64. The same
// with one number for each way along the edge tells whether the triangles run alike.
void CutMesh::findParts()
{
    struct Sum {
        std::uint64_t toggled = 0, turned = 0;
    };
    Sets sets(points_.size());
    for (Triangle const& t : triangles_) {
        sets.join(t[0], t[1]);
        sets.join(t[0], t[2]);
    }
    std::vector<Sum> sums(points_.size());
    for (Triangle const& t : triangles_) {
        Sum& sum = sums[sets.of(t[0])];
        for (std::size_t i = 0; i < 3; ++i) {
            std::uint32_t const a = t[i], b = t[(i + 1) % 3];
            sum.toggled ^= mixed(edgeOf(a, b) + 1);
            sum.turned += mixed(pairOf(a, b) + 1) - mixed(pairOf(b, a) + 1);
        }
    }
    parts_.assign(points_.size(), 0);
    allClosed_ = true;
    for (std::uint32_t i = 0; i < points_.size(); ++i) {
        Sum const& sum = sums[sets.of(i)];
        parts_[i] = std::uint8_t((sum.toggled == 0 ? Closed : 0) | (sum.turned == 0 ? Oriented : 0));
        allClosed_ = allClosed_ && sum.toggled == 0;
    }
}

// Each corner on a rim goes to the nearest one that is near enough and not its neighbour along the rim.
void CutMesh::joinRims(double tolerance)
{
    std::unordered_map<std::uint64_t, int> counts;
    for (Triangle const& t : triangles_)
        if (!closed(t[0]))
            for (std::size_t i = 0; i < 3; ++i) ++counts[edgeOf(t[i], t[(i + 1) % 3])];
    std::vector<std::uint32_t> rim;
    for (auto const& [edge, count] : counts)
        if (count % 2 != 0) {
            rim.push_back(std::uint32_t(edge >> 32));
            rim.push_back(std::uint32_t(edge));
        }
    std::sort(rim.begin(), rim.end());
    rim.erase(std::unique(rim.begin(), rim.end()), rim.end());

    auto cellOf = [&](Position const& p, int dx, int dy, int dz) {
        std::uint64_t hash = 1;
        int const shift[3] = {dx, dy, dz};
        for (std::size_t i = 0; i < 3; ++i)
            hash = mixed(hash + std::uint64_t(std::int64_t(std::floor(p[i] / tolerance)) + shift[i]));
        return hash;
    };
    std::unordered_multimap<std::uint64_t, std::uint32_t> cells;
    std::unordered_map<std::uint32_t, std::uint32_t> moved;
    for (std::uint32_t corner : rim) {
        Position const& p = points_[corner];
        std::uint32_t best = corner;
        double nearest = tolerance;
        for (int n = 0; n < 27; ++n) {
            auto const [first, last] = cells.equal_range(cellOf(p, n % 3 - 1, n / 3 % 3 - 1, n / 9 - 1));
            for (auto i = first; i != last; ++i)
                if (double const d = distance(points_[i->second], p);
                    d <= nearest && !counts.contains(edgeOf(i->second, corner))) {
                    nearest = d;
                    best = i->second;
                }
        }
        if (best == corner)
            cells.emplace(cellOf(p, 0, 0, 0), corner);
        else
            moved.emplace(corner, best);
    }
    if (moved.empty()) return;
    std::erase_if(triangles_, [&](Triangle& t) {
        for (std::uint32_t& corner : t)
            if (auto const found = moved.find(corner); found != moved.end()) corner = found->second;
        return t[0] == t[1] || t[1] == t[2] || t[2] == t[0];
    });
}

Box CutMesh::boxOf(Triangle const& triangle) const
{
    Box box;
    for (std::uint32_t corner : triangle) box.add(points_[corner][0], points_[corner][1], points_[corner][2]);
    return box;
}

// Triangles in the order of a curve that fills space, and boxes around every eight of what is below.
void CutMesh::buildHierarchy()
{
    if (triangles_.empty()) return;
    Box all;
    for (Triangle const& t : triangles_) all.add(boxOf(t));
    double scale[3];
    for (std::size_t i = 0; i < 3; ++i) {
        double const extent = double(all.high[i]) - all.low[i];
        scale[i] = extent > 0 ? double(0x1fffff) / extent : 0;
    }
    std::vector<std::pair<std::uint64_t, Triangle>> ordered;
    ordered.reserve(triangles_.size());
    for (Triangle const& t : triangles_) {
        Vec3 const c = boxOf(t).centre();
        double const at[3] = {c.x, c.y, c.z};
        std::uint64_t code = 0;
        for (std::size_t i = 0; i < 3; ++i)
            code |= spread(std::uint64_t(std::max(0.0, (at[i] - all.low[i]) * scale[i]))) << i;
        ordered.emplace_back(code, t);
    }
    std::sort(ordered.begin(), ordered.end());
    for (std::size_t i = 0; i < ordered.size(); ++i) triangles_[i] = ordered[i].second;

    boxes_.clear();
    levels_ = {0};
    for (std::size_t first = 0; first < triangles_.size(); first += width) {
        Box box;
        for (std::size_t i = first; i < std::min(first + width, triangles_.size()); ++i)
            box.add(boxOf(triangles_[i]));
        boxes_.push_back(box);
    }
    while (boxes_.size() - levels_.back() > 1) {
        std::size_t const begin = levels_.back(), end = boxes_.size();
        levels_.push_back(end);
        for (std::size_t first = begin; first < end; first += width) {
            Box box;
            for (std::size_t i = first; i < std::min(first + width, end); ++i) box.add(boxes_[i]);
            boxes_.push_back(box);
        }
    }
}

bool CutMesh::reaches(Box const& box, CutPlane const& plane, double margin)
{
    double low = plane.offset, high = plane.offset;
    double const n[3] = {plane.normal.x, plane.normal.y, plane.normal.z};
    for (std::size_t i = 0; i < 3; ++i) {
        double const a = n[i] * box.low[i], b = n[i] * box.high[i];
        low += std::min(a, b);
        high += std::max(a, b);
    }
    return low <= margin && high >= -margin;
}

} // namespace HPS::render
