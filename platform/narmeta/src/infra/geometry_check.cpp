#include "structure_check.h"

#include <algorithm>
#include <cmath>

namespace NarMetaInfra
{

namespace
{

bool AllFinite(std::span<float const> numbers)
{
    return std::all_of(numbers.begin(), numbers.end(), [](float number) { return std::isfinite(number); });
}

/// The points (x, y, z in a row) are not all the same one.
bool HasExtent(std::span<float const> points)
{
    for (std::size_t i = 3; i < points.size(); ++i)
        if (points[i] != points[i - 3]) return true;
    return false;
}

bool IsRun(std::size_t first, std::size_t count, std::size_t step, std::size_t size)
{
    return first <= size / step && count <= size / step - first;
}

bool IsDrawable(BrepBody const& body, BrepFace const& face)
{
    if (face.pointCount < 3 || face.triangleCount == 0) return false;
    if (!IsRun(face.firstPoint, face.pointCount, 3, body.points.size()) ||
        !IsRun(face.firstPoint, face.pointCount, 3, body.normals.size()) ||
        !IsRun(face.firstTriangle, face.triangleCount, 3, body.triangles.size()))
        return false;
    auto const triangles = body.TrianglesOf(face);
    return AllFinite(body.PointsOf(face)) && AllFinite(body.NormalsOf(face)) &&
           HasExtent(body.PointsOf(face)) &&
           std::all_of(triangles.begin(), triangles.end(),
                       [&](std::uint32_t index) { return index < face.pointCount; });
}

bool IsDrawable(BrepBody const& body, BrepEdge const& edge)
{
    return edge.pointCount >= 2 && IsRun(edge.firstPoint, edge.pointCount, 3, body.edgePoints.size()) &&
           AllFinite(body.PointsOf(edge)) && HasExtent(body.PointsOf(edge));
}

} // namespace

void DropBadBodies(ZELReference& reference, Faults& faults)
{
    auto const& name = reference.GetReferenceName();
    auto const report = [&](std::size_t count, wchar_t const* kind) {
        for (; count > 0; --count) faults.Add(kind, name);
    };
    auto& bodies = reference.Bodies();
    for (auto& body : bodies) {
        report(std::erase_if(body.faces, [&](BrepFace const& face) { return !IsDrawable(body, face); }),
               L"a face without extent or with invalid numbers was left out");
        report(std::erase_if(body.edges, [&](BrepEdge const& edge) { return !IsDrawable(body, edge); }),
               L"an edge without extent or with invalid numbers was left out");
        report(
            std::erase_if(body.vertices, [](BrepVertex const& vertex) { return !AllFinite(vertex.point); }),
            L"a vertex with invalid numbers was left out");
    }
    report(std::erase_if(bodies,
                         [](BrepBody const& body) {
                             return body.faces.empty() && body.edges.empty() && body.vertices.empty();
                         }),
           L"an empty body was left out");
}

namespace
{

using NarMetaVisu::EdgeRep;
using NarMetaVisu::FaceRep;
using NarMetaVisu::Node;
using NarMetaVisu::PointsRep;
using NarMetaVisu::PolygonRep;
using NarMetaVisu::VisuPolygonType;

bool IsPointList(std::vector<float> const& points, std::size_t least)
{
    return points.size() % 3 == 0 && points.size() >= 3 * least && AllFinite(points);
}

bool IsDrawable(std::shared_ptr<EdgeRep> const& edge)
{
    return edge && IsPointList(edge->GetPoints(), 2) && HasExtent(edge->GetPoints());
}

bool IsDrawable(PolygonRep const& polygon, std::size_t numbers)
{
    if (polygon.GetPolygonType() == VisuPolygonType::PolygonLoops) {
        auto const& loops = polygon.GetPolyLoops();
        return !loops.empty() && std::all_of(loops.begin(), loops.end(), [](auto const& loop) {
            auto const& edges = loop.GetEdges();
            return std::all_of(edges.begin(), edges.end(), [](auto const& edge) { return IsDrawable(edge); });
        });
    }
    auto const& indices = polygon.GetIndices();
    return indices.size() >= 3 && std::all_of(indices.begin(), indices.end(), [numbers](int index) {
               return index >= 0 && index % 3 == 0 && static_cast<std::size_t>(index) + 3 <= numbers;
           });
}

bool IsDrawable(std::shared_ptr<FaceRep> const& face)
{
    auto const numbers = face ? face->GetPoints().size() : 0;
    if (!face || face->GetNormals().size() != numbers || numbers % 3 != 0) return false;
    if (!AllFinite(face->GetPoints()) || !AllFinite(face->GetNormals())) return false;
    std::erase_if(face->GetPolygons(),
                  [numbers](PolygonRep const& polygon) { return !IsDrawable(polygon, numbers); });
    return !face->GetPolygons().empty();
}

bool IsDrawable(std::shared_ptr<PointsRep> const& points)
{
    return points && IsPointList(points->GetPoints(), 1);
}

void Clean(Node& node, std::wstring const& owner, Faults& faults)
{
    auto const clean = [&](auto& list) {
        auto count = std::erase_if(list, [](auto const& item) { return !IsDrawable(item); });
        for (; count > 0; --count)
            faults.Add(L"a piece of visualisation data without extent or with invalid numbers was left out",
                       owner);
    };
    auto const cleanMesh = [&](NarMetaVisu::MeshRep& mesh) {
        clean(mesh.GetFaces());
        clean(mesh.GetEdges());
    };
    if (node.GetMesh()) cleanMesh(*node.GetMesh());
    if (node.GetWire()) clean(node.GetWire()->GetEdges());
    if (node.GetPointSet()) clean(node.GetPointSet()->GetPoints());
    if (node.GetPMI()) {
        clean(node.GetPMI()->GetEdges());
        if (node.GetPMI()->GetMesh()) cleanMesh(*node.GetPMI()->GetMesh());
    }
    for (auto const& child : node.GetChildNodes()) Clean(*child, owner, faults);
}

} // namespace

void DropBadNodes(NarMetaVisu::SGContainer& container, std::wstring const& owner, Faults& faults)
{
    for (auto const& [name, group] : container.GetGroups())
        for (auto const& root : group.roots) Clean(*root, owner, faults);
}

} // namespace NarMetaInfra
