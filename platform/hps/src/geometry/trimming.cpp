#include "trimming.h"
#include <algorithm>
#include <cmath>

namespace HPS::scene
{
namespace
{

// Ramer's thinning: what lies between the ends goes where it is no further off than `deviation`.
template <class Place> void thin(std::vector<Place>& points, double deviation)
{
    if (points.size() < 4) return;
    std::vector<bool> kept(points.size(), false);
    kept.front() = kept.back() = true;
    std::vector<std::pair<std::size_t, std::size_t>> open{{0, points.size() - 1}};
    while (!open.empty()) {
        auto const [first, last] = open.back();
        open.pop_back();
        auto const& a = points[first];
        double const du = points[last].u - a.u, dv = points[last].v - a.v, base = std::hypot(du, dv);
        double furthest = deviation;
        std::size_t split = 0;
        for (std::size_t i = first + 1; i < last; ++i) {
            double const u = points[i].u - a.u, v = points[i].v - a.v;
            double const off = base > 0 ? std::abs(du * v - dv * u) / base : std::hypot(u, v);
            if (off > furthest) furthest = off, split = i;
        }
        if (split == 0) continue;
        kept[split] = true;
        open.push_back({first, split});
        open.push_back({split, last});
    }
    std::size_t count = 0;
    for (std::size_t i = 0; i < points.size(); ++i)
        if (kept[i]) points[count++] = points[i];
    points.resize(count);
}

} // namespace

Trimmer::Trimmer(std::vector<TrimKit> const& trims, std::size_t budget, double deviation, int fineness)
    : fineness_(fineness)
{
    for (TrimKit const& trim : trims) {
        Outline outline{trim.data().operation == Trim::Operation::Keep, {}};
        for (Point const& p : trim.data().points) outline.points.push_back({p.x, p.y});
        if (deviation > 0) thin(outline.points, deviation);
        if (budget >= 3 && outline.points.size() > budget) {
            std::vector<Place> fewer;
            for (std::size_t i = 0; i < budget; ++i)
                fewer.push_back(outline.points[i * outline.points.size() / budget]);
            outline.points = std::move(fewer);
        }
        for (std::size_t i = 0; i < outline.points.size(); ++i)
            segments_.push_back({outline.points[i], outline.points[(i + 1) % outline.points.size()]});
        outlines_.push_back(std::move(outline));
    }
}

bool Trimmer::belongs(Place p) const
{
    return std::all_of(outlines_.begin(), outlines_.end(), [&](Outline const& outline) {
        bool inside = false;
        for (std::size_t i = 0; i < outline.points.size(); ++i) {
            auto const& a = outline.points[i];
            auto const& b = outline.points[(i + 1) % outline.points.size()];
            if ((a.v > p.v) != (b.v > p.v) && p.u < a.u + (p.v - a.v) / (b.v - a.v) * (b.u - a.u))
                inside = !inside;
        }
        return inside == outline.keeps;
    });
}

void Trimmer::add(Facets& facets, std::array<std::uint32_t, 3> const& corners,
                  std::array<std::array<double, 2>, 3> const& places) const
{
    auto corner = [&](std::size_t i) {
        Corner result{{places[i][0], places[i][1]}, {}};
        result.weights[i] = 1;
        return result;
    };
    cut({facets, corners}, {corner(0), corner(1), corner(2)}, segments_, fineness_);
}

void Trimmer::cut(Facet const& facet, std::array<Corner, 3> const& c, std::span<Segment const> near,
                  int depth) const
{
    auto const [lowU, highU] = std::minmax({c[0].at.u, c[1].at.u, c[2].at.u});
    auto const [lowV, highV] = std::minmax({c[0].at.v, c[1].at.v, c[2].at.v});
    std::vector<Segment> within;
    for (Segment const& s : near)
        if (std::max(s.from.u, s.to.u) >= lowU && std::min(s.from.u, s.to.u) <= highU &&
            std::max(s.from.v, s.to.v) >= lowV && std::min(s.from.v, s.to.v) <= highV)
            within.push_back(s);
    if (within.empty()) {
        Place const middle{(c[0].at.u + c[1].at.u + c[2].at.u) / 3, (c[0].at.v + c[1].at.v + c[2].at.v) / 3};
        if (belongs(middle)) emit(facet, c[0], c[1], c[2]);
        return;
    }
    if (depth == 0) {
        clip(facet, c);
        return;
    }
    auto half = [](Corner const& a, Corner const& b) {
        Corner m{{(a.at.u + b.at.u) / 2, (a.at.v + b.at.v) / 2}, {}};
        for (std::size_t i = 0; i < 3; ++i) m.weights[i] = (a.weights[i] + b.weights[i]) / 2;
        return m;
    };
    Corner const ab = half(c[0], c[1]), bc = half(c[1], c[2]), ca = half(c[2], c[0]);
    for (auto const& part : {std::array{c[0], ab, ca}, std::array{ab, c[1], bc}, std::array{ca, bc, c[2]},
                             std::array{ab, bc, ca}})
        cut(facet, part, within, depth - 1);
}

// A facet so small that a trim counts as straight in it.
void Trimmer::clip(Facet const& facet, std::array<Corner, 3> const& c) const
{
    std::array const inside{belongs(c[0].at), belongs(c[1].at), belongs(c[2].at)};
    auto const count = std::count(inside.begin(), inside.end(), true);
    if (count == 3) emit(facet, c[0], c[1], c[2]);
    if (count == 0 || count == 3) return;
    // Turned so that the corner that differs comes first.
    std::size_t lone = 0;
    while (inside[lone] != (count == 1)) ++lone;
    Corner const &a = c[lone], &b = c[(lone + 1) % 3], &d = c[(lone + 2) % 3];
    if (count == 1) {
        emit(facet, a, border(a, b), border(a, d));
        return;
    }
    Corner const toB = border(b, a), toD = border(d, a);
    emit(facet, toB, b, d);
    emit(facet, toB, d, toD);
}

Trimmer::Corner Trimmer::border(Corner const& inside, Corner const& outside) const
{
    double low = 0, high = 1; // belongs at low, not at high
    auto at = [&](double t) {
        return Place{inside.at.u + t * (outside.at.u - inside.at.u),
                     inside.at.v + t * (outside.at.v - inside.at.v)};
    };
    for (int i = 0; i < 20; ++i) {
        double const middle = (low + high) / 2;
        (belongs(at(middle)) ? low : high) = middle;
    }
    double const t = (low + high) / 2;
    Corner corner{at(t), {}};
    for (std::size_t i = 0; i < 3; ++i)
        corner.weights[i] = inside.weights[i] + t * (outside.weights[i] - inside.weights[i]);
    return corner;
}

void Trimmer::emit(Facet const& facet, Corner const& a, Corner const& b, Corner const& c)
{
    for (Corner const* corner : {&a, &b, &c}) {
        auto const own = std::find(corner->weights.begin(), corner->weights.end(), 1.0);
        if (own != corner->weights.end()) {
            facet.facets.triangles.push_back(facet.corners[std::size_t(own - corner->weights.begin())]);
            continue;
        }
        double p[3]{}, n[3]{};
        float uv[2]{};
        std::vector<float>& parameters = facet.facets.parameters;
        for (std::size_t i = 0; i < 3; ++i) {
            Point const& point = facet.facets.points[facet.corners[i]];
            Vector const& normal = facet.facets.normals[facet.corners[i]];
            double const w = corner->weights[i];
            p[0] += w * point.x, p[1] += w * point.y, p[2] += w * point.z;
            for (std::size_t k = 0; k < 2 && !parameters.empty(); ++k)
                uv[k] += float(w) * parameters[2 * facet.corners[i] + k];
            n[0] += w * normal.x, n[1] += w * normal.y, n[2] += w * normal.z;
        }
        double const length = std::max(std::hypot(n[0], n[1], n[2]), 1e-30);
        facet.facets.triangles.push_back(static_cast<std::uint32_t>(facet.facets.points.size()));
        if (!parameters.empty()) parameters.insert(parameters.end(), {uv[0], uv[1]});
        facet.facets.points.push_back({float(p[0]), float(p[1]), float(p[2])});
        facet.facets.normals.push_back({float(n[0] / length), float(n[1] / length), float(n[2] / length)});
    }
}

} // namespace HPS::scene
