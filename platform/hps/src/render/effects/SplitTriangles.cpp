#include "SplitTriangles.h"
#include <algorithm>
#include <numeric>

namespace HPS::render
{
namespace
{

/// Looks at a piece's side of a plane: about a fifth of a second.
constexpr std::uint64_t mostLooks = 20'000'000;
/// Pieces: so many for each triangle, over and above a number that any scene may have.
constexpr std::size_t piecesEach = 4, piecesAnyway = 50'000;

Vec3 middle(Corners const& t)
{
    return (t[0] + t[1] + t[2]) * (1.0 / 3);
}

template <class Nearness>
void sortByNearness(std::vector<std::uint32_t>& order, std::size_t first, Nearness&& nearness)
{
    std::vector<std::pair<double, std::uint32_t>> keys;
    keys.reserve(order.size() - first);
    for (std::size_t i = first; i < order.size(); ++i) keys.push_back({nearness(order[i]), order[i]});
    std::sort(keys.begin(), keys.end());
    for (std::size_t i = 0; i < keys.size(); ++i) order[first + i] = keys[i].second;
}

} // namespace

/// Lists that the cutting fills.
struct SplitTriangles::Work {
    std::vector<std::uint32_t> front, back, within;
};

SplitTriangles::SplitTriangles(std::span<Corners const> triangles)
    : sources_(triangles.begin(), triangles.end()), places_(sources_)
{
    pieces_.reserve(triangles.size());
    for (std::uint32_t i = 0; i < triangles.size(); ++i)
        pieces_.push_back({i, {{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}}});
    std::vector<std::uint32_t> all(triangles.size());
    std::iota(all.begin(), all.end(), 0u);
    build(std::move(all));
    sources_.clear();
    sources_.shrink_to_fit();
}

Corners SplitTriangles::placeOf(Piece const& piece) const
{
    Corners const& whole = sources_[piece.source];
    Corners result;
    for (std::size_t i = 0; i < 3; ++i) {
        auto const& s = piece.shares[i];
        result[i] = whole[0] * s[0] + whole[1] * s[1] + whole[2] * s[2];
    }
    return result;
}

void SplitTriangles::build(std::vector<std::uint32_t> all)
{
    struct Open {
        std::vector<std::uint32_t> pieces;
        std::int32_t parent;
        bool inFront;
    };
    Vec3 low{1e300, 1e300, 1e300}, high{-1e300, -1e300, -1e300};
    for (Corners const& t : places_)
        for (Vec3 const& p : t) {
            low = {std::min(low.x, p.x), std::min(low.y, p.y), std::min(low.z, p.z)};
            high = {std::max(high.x, p.x), std::max(high.y, p.y), std::max(high.z, p.z)};
        }
    double const tolerance = 1e-6 * length(high - low);
    std::uint64_t looks = 0;
    std::size_t const limit = places_.size() * piecesEach + piecesAnyway;
    std::vector<Open> open;
    if (!all.empty()) open.push_back({std::move(all), -1, false});
    while (!open.empty()) {
        Open const now = std::move(open.back());
        open.pop_back();
        auto const index = std::int32_t(nodes_.size());
        if (now.parent >= 0)
            (now.inFront ? nodes_[std::size_t(now.parent)].front : nodes_[std::size_t(now.parent)].back) =
                index;
        Corners const& by = places_[now.pieces[now.pieces.size() / 2]];
        Vec3 const across = cross(by[1] - by[0], by[2] - by[0]);
        Vec3 const normal = normalised(across, {});
        looks += now.pieces.size();
        bool const group = looks > mostLooks || pieces_.size() > limit || normal == Vec3{};
        Plane const plane{normal, -dot(normal, by[0])};
        Work work;
        if (group)
            work.within = now.pieces;
        else
            for (std::uint32_t const piece : now.pieces) cut(piece, plane, tolerance, work);
        nodes_.push_back(
            {plane, std::uint32_t(held_.size()), std::uint32_t(work.within.size()), -1, -1, group});
        held_.insert(held_.end(), work.within.begin(), work.within.end());
        if (!work.back.empty()) open.push_back({std::move(work.back), index, false});
        if (!work.front.empty()) open.push_back({std::move(work.front), index, true});
    }
}

void SplitTriangles::cut(std::uint32_t piece, Plane const& plane, double tolerance, Work& work)
{
    Corners const place = places_[piece];
    std::array<double, 3> height;
    int above = 0, below = 0;
    for (std::size_t i = 0; i < 3; ++i) {
        height[i] = plane.at(place[i]);
        if (std::abs(height[i]) <= tolerance) height[i] = 0;
        above += height[i] > 0;
        below += height[i] < 0;
    }
    if (above == 0 && below == 0) return work.within.push_back(piece);
    if (below == 0) return work.front.push_back(piece);
    if (above == 0) return work.back.push_back(piece);

    // A polygon on each side, three or four corners each, as shares of the source.
    using Shares = std::array<float, 3>;
    Piece const whole = pieces_[piece];
    std::array<std::vector<Shares>, 2> sides;
    for (std::size_t i = 0; i < 3; ++i) {
        std::size_t const j = (i + 1) % 3;
        if (height[i] >= 0) sides[0].push_back(whole.shares[i]);
        if (height[i] <= 0) sides[1].push_back(whole.shares[i]);
        if (height[i] * height[j] >= 0) continue;
        auto const t = float(height[i] / (height[i] - height[j]));
        Shares between;
        for (std::size_t k = 0; k < 3; ++k)
            between[k] = whole.shares[i][k] + (whole.shares[j][k] - whole.shares[i][k]) * t;
        sides[0].push_back(between);
        sides[1].push_back(between);
    }
    bool reused = false;
    for (std::size_t side = 0; side < 2; ++side) {
        auto& list = side == 0 ? work.front : work.back;
        for (std::size_t i = 2; i < sides[side].size(); ++i) {
            Piece const part{whole.source, {sides[side][0], sides[side][i - 1], sides[side][i]}};
            std::uint32_t const number = reused ? std::uint32_t(pieces_.size()) : piece;
            if (reused) {
                pieces_.push_back(part);
                places_.push_back(placeOf(part));
            } else {
                pieces_[piece] = part;
                places_[piece] = placeOf(part);
            }
            reused = true;
            list.push_back(number);
        }
    }
}

void SplitTriangles::order(SightPoint const& from, std::vector<std::uint32_t>& result) const
{
    result.clear();
    struct Step {
        std::int32_t node;
        bool own; ///< its own pieces are due, not its branches
    };
    std::vector<Step> open;
    if (!nodes_.empty()) open.push_back({0, false});
    while (!open.empty()) {
        auto const [index, own] = open.back();
        open.pop_back();
        if (index < 0) continue;
        Node const& node = nodes_[std::size_t(index)];
        if (own || node.group) {
            std::size_t const first = result.size();
            result.insert(result.end(), held_.begin() + node.first, held_.begin() + node.first + node.count);
            if (node.group)
                sortByNearness(result, first,
                               [&](std::uint32_t i) { return from.nearness(middle(places_[i])); });
            continue;
        }
        double const side = from.perspective ? node.plane.at(from.eye) : dot(node.plane.normal, from.back);
        open.push_back({side > 0 ? node.front : node.back, false});
        open.push_back({index, true});
        open.push_back({side > 0 ? node.back : node.front, false});
    }
}

void orderByMiddles(std::span<Corners const> triangles, SightPoint const& from,
                    std::vector<std::uint32_t>& result)
{
    result.resize(triangles.size());
    std::iota(result.begin(), result.end(), 0u);
    sortByNearness(result, 0, [&](std::uint32_t i) { return from.nearness(middle(triangles[i])); });
}

} // namespace HPS::render
