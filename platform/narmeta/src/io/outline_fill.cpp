#include "outline_fill.h"

#include <cmath>
#include <deque>
#include <map>
#include <memory>
#include <tuple>
#include <utility>

#include <GL/glu.h>

namespace NarMetaInfra
{
namespace
{
constexpr std::size_t TriangleLimit = 300'000;
constexpr int RoundLimit = 8;

// Receives what the tessellator makes. Points live in a deque since the tessellator keeps addresses of them.
struct Filling {
    std::deque<std::pair<std::uint32_t, std::array<double, 3>>> vertices;
    PlaneMesh mesh;
    std::vector<std::uint32_t> corners;
    bool hasFailed = false;

    void* add(double x, double y)
    {
        auto const index = static_cast<std::uint32_t>(mesh.points.size());
        mesh.points.push_back({x, y});
        return &vertices.emplace_back(index, std::array{x, y, 0.0});
    }
};

void onVertex(void* vertex, void* filling)
{
    static_cast<Filling*>(filling)->corners.push_back(
        static_cast<std::pair<std::uint32_t, std::array<double, 3>>*>(vertex)->first);
}

void onCombine(double* at, void**, float*, void** result, void* filling)
{
    *result = static_cast<Filling*>(filling)->add(at[0], at[1]);
}

void onError(GLenum, void* filling)
{
    static_cast<Filling*>(filling)->hasFailed = true;
}

// Its presence makes the tessellator give plain triangles.
void onEdgeFlag(GLboolean, void*) {}

template <typename Function> auto callback(Function* function)
{
    return reinterpret_cast<void (*)()>(function);
}

using Edge = std::pair<std::uint32_t, std::uint32_t>;

Edge edgeOf(std::uint32_t a, std::uint32_t b)
{
    return a < b ? Edge{a, b} : Edge{b, a};
}
} // namespace

PlaneMesh fillOutlines(std::vector<std::vector<Point2>> const& outlines)
{
    std::unique_ptr<GLUtesselator, decltype(&gluDeleteTess)> const tessellator(gluNewTess(), gluDeleteTess);
    Filling filling;
    auto* const tess = tessellator.get();
    gluTessCallback(tess, GLU_TESS_VERTEX_DATA, callback(onVertex));
    gluTessCallback(tess, GLU_TESS_COMBINE_DATA, callback(onCombine));
    gluTessCallback(tess, GLU_TESS_ERROR_DATA, callback(onError));
    gluTessCallback(tess, GLU_TESS_EDGE_FLAG_DATA, callback(onEdgeFlag));
    gluTessProperty(tess, GLU_TESS_WINDING_RULE, GLU_TESS_WINDING_ODD);
    gluTessNormal(tess, 0.0, 0.0, 1.0);
    gluTessBeginPolygon(tess, &filling);
    for (auto const& outline : outlines) {
        gluTessBeginContour(tess);
        for (auto const& point : outline) {
            filling.add(point[0], point[1]);
            auto& vertex = filling.vertices.back();
            gluTessVertex(tess, vertex.second.data(), &vertex);
        }
        gluTessEndContour(tess);
    }
    gluTessEndPolygon(tess);
    if (filling.hasFailed) return {};
    for (std::size_t i = 0; i + 2 < filling.corners.size(); i += 3)
        filling.mesh.triangles.push_back(
            {filling.corners[i], filling.corners[i + 1], filling.corners[i + 2]});
    return std::move(filling.mesh);
}

void refine(PlaneMesh& mesh, std::function<Point3(Point2 const&)> const& toSpace, double distance)
{
    std::vector<Point3> placed;
    for (int round = 0; round < RoundLimit && mesh.triangles.size() < TriangleLimit; ++round) {
        for (auto i = placed.size(); i < mesh.points.size(); ++i) placed.push_back(toSpace(mesh.points[i]));
        std::map<Edge, std::uint32_t> middles; // 0: the edge is close enough
        auto const middleOf = [&](std::uint32_t a, std::uint32_t b) {
            auto const [entry, isNew] = middles.emplace(edgeOf(a, b), 0);
            if (!isNew) return entry->second;
            auto const &p = mesh.points[a], &q = mesh.points[b];
            Point2 const middle = {(p[0] + q[0]) / 2, (p[1] + q[1]) / 2};
            auto const onSurface = toSpace(middle);
            double square = 0.0;
            for (std::size_t k = 0; k < 3; ++k) {
                auto const d = onSurface[k] - (placed[a][k] + placed[b][k]) / 2;
                square += d * d;
            }
            if (!(square > distance * distance)) return entry->second;
            entry->second = static_cast<std::uint32_t>(mesh.points.size());
            mesh.points.push_back(middle);
            return entry->second;
        };

        std::vector<std::array<std::uint32_t, 3>> finer;
        for (auto [a, b, c] : mesh.triangles) {
            // Turned until the first edge is split and, if two are, the last one is not.
            std::array<std::uint32_t, 3> m = {middleOf(a, b), middleOf(b, c), middleOf(c, a)};
            for (int turn = 0; turn < 2 && (m[0] == 0 || (m[2] != 0 && m[1] == 0)); ++turn) {
                std::tie(a, b, c) = std::tuple(b, c, a);
                m = {m[1], m[2], m[0]};
            }
            if (m[0] == 0) {
                finer.push_back({a, b, c});
            } else if (m[1] == 0) {
                finer.insert(finer.end(), {{a, m[0], c}, {m[0], b, c}});
            } else if (m[2] == 0) {
                finer.insert(finer.end(), {{a, m[0], c}, {m[0], m[1], c}, {m[0], b, m[1]}});
            } else {
                finer.insert(finer.end(),
                             {{a, m[0], m[2]}, {m[0], b, m[1]}, {m[2], m[1], c}, {m[0], m[1], m[2]}});
            }
        }
        bool const isDone = finer.size() == mesh.triangles.size();
        mesh.triangles = std::move(finer);
        if (isDone) return;
    }
}
} // namespace NarMetaInfra
