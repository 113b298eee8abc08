#include "StrokeChains.h"
#include <algorithm>
#include <cassert>
#include <cmath>

namespace HPS::render
{
namespace
{

void put(float (&out)[3], Point const& p)
{
    out[0] = p.x;
    out[1] = p.y;
    out[2] = p.z;
}

using Clip = std::array<double, 4>;

Clip clipOf(float const (&p)[3], std::array<double, 16> const& m)
{
    Clip out;
    for (std::size_t i = 0; i < 4; ++i) out[i] = p[0] * m[i] + p[1] * m[4 + i] + p[2] * m[8 + i] + m[12 + i];
    return out;
}

} // namespace

void StrokeChains::add(std::span<Point const> given, bool closed)
{
    std::vector<Point> points;
    points.reserve(given.size());
    for (Point const& p : given)
        if (points.empty() || !(p == points.back())) points.push_back(p);
    if (points.size() > 2 && points.front() == points.back()) {
        closed = true;
        points.pop_back();
    }
    closed = closed && points.size() > 2;
    if (points.size() < 2) return;
    std::size_t const count = closed ? points.size() : points.size() - 1;
    double distance = 0;
    auto point = [&](std::size_t i) -> Point const& { return points[i % points.size()]; };
    for (std::size_t i = 0; i < count; ++i) {
        bool const first = !closed && i == 0, last = !closed && i + 1 == count;
        Point const &from = point(i), &to = point(i + 1);
        Piece piece{};
        put(piece.from, from);
        put(piece.to, to);
        put(piece.before, first ? from : point(i + points.size() - 1));
        put(piece.after, last ? to : point(i + 2));
        piece.distance = float(distance);
        piece.kind = (first ? First : 0u) | (last ? Last : 0u);
        pieces.push_back(piece);
        distance += std::hypot(double(to.x) - from.x, double(to.y) - from.y, double(to.z) - from.z);
    }
}

void StrokeChains::addInfinite(Point const& from, Point const& to, bool bothWays)
{
    Piece piece{};
    put(piece.from, from);
    put(piece.to, to);
    put(piece.before, from);
    put(piece.after, to);
    piece.kind = First | Last | Infinite | (bothWays ? BothWays : 0u);
    pieces.push_back(piece);
}

void measureOnScreen(StrokeChains const& chains, std::array<double, 16> const& toClip, double width,
                     double height, std::span<float> distances)
{
    assert(distances.size() >= chains.pieces.size() && "measureOnScreen: a place for each piece");
    double run = 0;
    for (std::size_t i = 0; i < chains.pieces.size(); ++i) {
        StrokeChains::Piece const& piece = chains.pieces[i];
        if (piece.distance == 0) run = 0; // another chain
        distances[i] = float(run);
        Clip a = clipOf(piece.from, toClip), b = clipOf(piece.to, toClip);
        double const da = a[2] + a[3], db = b[2] + b[3]; // from the near plane
        if (da <= 0 && db <= 0) continue;
        auto cut = [](Clip& out, Clip const& in, double t) {
            for (std::size_t k = 0; k < 4; ++k) out[k] += (in[k] - out[k]) * t;
        };
        if (da < 0) cut(a, b, da / (da - db));
        if (db < 0) cut(b, a, db / (db - da));
        double const x = (b[0] / b[3] - a[0] / a[3]) * width / 2;
        double const y = (b[1] / b[3] - a[1] / a[3]) * height / 2;
        double const length = std::hypot(x, y);
        if (std::isfinite(length)) run += length;
    }
}

} // namespace HPS::render
