#include "Outline.h"
#include <algorithm>

namespace HPS::render
{
namespace
{

/// A crossed edge of the mesh, by its two corners; all triangles that share the edge agree on it.
using Node = std::uint64_t;

Node nodeOf(std::uint32_t a, std::uint32_t b)
{
    return a < b ? Node(a) << 32 | b : Node(b) << 32 | a;
}

/// The way of the plane through one triangle. It has the material on the same side for all triangles that
/// run alike.
struct Crossing {
    Node from, to;
    bool solid;
    bool used = false;
};

/// One end of a crossing.
struct End {
    Node node;
    std::uint32_t crossing;
    bool isStart;
    friend bool operator<(End const& a, End const& b)
    {
        return a.node != b.node ? a.node < b.node : a.isStart > b.isStart;
    }
};

class Chainer
{
public:
    Chainer(std::vector<Crossing> crossings) : crossings_(std::move(crossings))
    {
        ends_.reserve(2 * crossings_.size());
        for (std::uint32_t i = 0; i < crossings_.size(); ++i) {
            ends_.push_back({crossings_[i].from, i, true});
            ends_.push_back({crossings_[i].to, i, false});
        }
        std::sort(ends_.begin(), ends_.end());
    }

    /// Calls put(nodes, loop, solid) for each chain; `nodes` of a loop do not repeat the first.
    template <class F> void run(F&& put)
    {
        std::vector<Node> nodes, before;
        for (Crossing& crossing : crossings_) {
            if (crossing.used) continue;
            crossing.used = true;
            nodes = {crossing.from, crossing.to};
            while (nodes.back() != nodes.front() && follow(nodes, crossing.solid)) {
            }
            bool const loop = nodes.back() == nodes.front();
            if (loop) {
                nodes.pop_back();
            } else {
                before = {nodes.front()};
                while (follow(before, crossing.solid)) {
                }
                nodes.insert(nodes.begin(), before.rbegin(), before.rend() - 1);
            }
            put(nodes, loop, crossing.solid);
        }
    }

private:
    // Those that run on the same way come first in the order of ends.
    bool follow(std::vector<Node>& nodes, bool solid)
    {
        End const wanted{nodes.back(), 0, true};
        for (auto i = std::lower_bound(ends_.begin(), ends_.end(), wanted);
             i != ends_.end() && i->node == wanted.node; ++i) {
            Crossing& next = crossings_[i->crossing];
            if (next.used || next.solid != solid) continue;
            next.used = true;
            nodes.push_back(i->isStart ? next.to : next.from);
            return true;
        }
        return false;
    }

    std::vector<Crossing> crossings_;
    std::vector<End> ends_;
};

} // namespace

bool Outline::anySolid() const
{
    return std::any_of(chains.begin(), chains.end(), [](Chain const& c) { return c.solid; });
}

double marginOf(CutMesh const& mesh, CutPlane const& plane)
{
    if (mesh.empty()) return 0;
    // Points come in single precision, from there through matrices: a few of its steps.
    constexpr double steps = 4e-7;
    Vec3 reach;
    Box const& box = mesh.box();
    reach.x = std::max(std::abs(box.low[0]), std::abs(box.high[0]));
    reach.y = std::max(std::abs(box.low[1]), std::abs(box.high[1]));
    reach.z = std::max(std::abs(box.low[2]), std::abs(box.high[2]));
    return steps * (std::abs(plane.normal.x) * reach.x + std::abs(plane.normal.y) * reach.y +
                    std::abs(plane.normal.z) * reach.z);
}

Outline outlineOf(CutMesh const& mesh, CutPlane const& plane, bool touchingKept)
{
    Outline outline;
    double const margin = marginOf(mesh, plane);
    std::vector<Crossing> crossings;
    mesh.near(plane, margin, [&](CutMesh::Triangle const& t) {
        bool gone[3];
        for (std::size_t i = 0; i < 3; ++i) {
            double const value = plane.at(mesh.point(t[i]));
            gone[i] = touchingKept ? value > margin : value >= -margin;
            outline.touching = outline.touching || std::abs(value) <= margin;
        }
        if (gone[0] == gone[1] && gone[1] == gone[2]) return;
        Crossing crossing{0, 0, mesh.closed(t[0])};
        for (std::size_t i = 0; i < 3; ++i) {
            std::size_t const next = (i + 1) % 3;
            if (gone[i] == gone[next]) continue;
            (gone[next] ? crossing.from : crossing.to) = nodeOf(t[i], t[next]);
        }
        crossings.push_back(crossing);
        outline.oriented = outline.oriented && (!crossing.solid || mesh.oriented(t[0]));
    });

    Chainer chainer(std::move(crossings));
    chainer.run([&](std::vector<Node> const& nodes, bool loop, bool solid) {
        outline.chains.push_back(
            {std::uint32_t(outline.points.size()), std::uint32_t(nodes.size()), loop, solid && loop});
        for (Node node : nodes) {
            Vec3 const a = mesh.point(std::uint32_t(node >> 32)), b = mesh.point(std::uint32_t(node));
            double const from = plane.at(a), to = plane.at(b);
            double const share = from != to ? std::clamp(from / (from - to), 0.0, 1.0) : 0.0;
            outline.points.push_back(a + (b - a) * share);
        }
    });
    return outline;
}

} // namespace HPS::render
