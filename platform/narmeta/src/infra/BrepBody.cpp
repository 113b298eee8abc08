#include <narmeta/infra/BrepBody.h>

#include <algorithm>
#include <cassert>

namespace NarMetaInfra
{

namespace
{

std::uint32_t Runs(std::size_t numbers)
{
    return static_cast<std::uint32_t>(numbers / 3);
}

} // namespace

BrepFace& BrepBody::AddFace(Id faceId, std::span<float const> facePoints, std::span<float const> faceNormals,
                            std::span<std::uint32_t const> faceTriangles)
{
    assert(facePoints.size() % 3 == 0 && facePoints.size() == faceNormals.size());
    assert(faceTriangles.size() % 3 == 0);
    assert(std::all_of(faceTriangles.begin(), faceTriangles.end(),
                       [&](std::uint32_t index) { return index < facePoints.size() / 3; }));
    BrepFace face;
    face.id = faceId;
    face.firstPoint = Runs(points.size());
    face.pointCount = Runs(facePoints.size());
    face.firstTriangle = Runs(triangles.size());
    face.triangleCount = Runs(faceTriangles.size());
    points.insert(points.end(), facePoints.begin(), facePoints.end());
    normals.insert(normals.end(), faceNormals.begin(), faceNormals.end());
    triangles.insert(triangles.end(), faceTriangles.begin(), faceTriangles.end());
    return faces.emplace_back(face);
}

BrepEdge& BrepBody::AddEdge(Id edgeId, std::span<float const> polyline)
{
    assert(polyline.size() % 3 == 0);
    BrepEdge edge;
    edge.id = edgeId;
    edge.firstPoint = Runs(edgePoints.size());
    edge.pointCount = Runs(polyline.size());
    edgePoints.insert(edgePoints.end(), polyline.begin(), polyline.end());
    return edges.emplace_back(edge);
}

BrepVertex& BrepBody::AddVertex(Id vertexId, std::array<float, 3> const& point)
{
    return vertices.emplace_back(BrepVertex{vertexId, point});
}

BrepCounts& BrepCounts::operator+=(BrepCounts const& other)
{
    bodies += other.bodies;
    faces += other.faces;
    edges += other.edges;
    vertices += other.vertices;
    points += other.points;
    triangles += other.triangles;
    return *this;
}

BrepCounts CountsOf(BrepBody const& body)
{
    return {1,
            body.faces.size(),
            body.edges.size(),
            body.vertices.size(),
            body.points.size() / 3,
            body.triangles.size() / 3};
}

} // namespace NarMetaInfra
