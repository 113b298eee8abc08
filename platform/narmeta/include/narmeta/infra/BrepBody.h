#pragma once

#include <narmeta/Colour.h>
#include <narmeta/Id.h>

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace NarMetaInfra
{

using NarMeta::Colour;
using NarMeta::Id;

/// A face: a run of vertices and a run of triangles in the arrays of its body.
struct BrepFace {
    Id id = 0;
    std::optional<Colour> colour;
    std::optional<unsigned short> alpha;
    std::uint32_t firstPoint = 0;
    std::uint32_t pointCount = 0;
    std::uint32_t firstTriangle = 0;
    std::uint32_t triangleCount = 0;

    bool operator==(BrepFace const&) const = default;
};

/// An edge: a run of points in the edge array of its body, as an open polyline (a closed edge repeats its
/// first point).
struct BrepEdge {
    Id id = 0;
    std::optional<Colour> colour;
    std::uint32_t firstPoint = 0;
    std::uint32_t pointCount = 0;

    bool operator==(BrepEdge const&) const = default;
};

struct BrepVertex {
    Id id = 0;
    std::array<float, 3> point{};

    bool operator==(BrepVertex const&) const = default;
};

/// A boundary representation as it is drawn, with the kernel that made it forgotten. One array per kind of
/// data and body; faces and edges are runs in them, so that a body of thousands of faces is a handful of
/// allocations and moves for free. Lengths in millimetres.
struct BrepBody {
    Id id = 0;
    std::wstring name;
    std::optional<Colour> colour;
    std::optional<unsigned short> alpha;
    bool hidden = false;

    std::vector<BrepFace> faces;
    std::vector<BrepEdge> edges;
    std::vector<BrepVertex> vertices;

    /// x, y, z in a row, face by face; a point on the border of two faces stands once in each.
    std::vector<float> points;
    /// Unit vectors out of the material, one per point.
    std::vector<float> normals;
    /// Three per triangle, counter-clockwise seen from outside, counted from the first point of the face.
    std::vector<std::uint32_t> triangles;
    std::vector<float> edgePoints;

    /// Copies the arrays behind those of the faces so far. Asserts that the lengths fit and every index is
    /// valid.
    BrepFace& AddFace(Id faceId, std::span<float const> facePoints, std::span<float const> faceNormals,
                      std::span<std::uint32_t const> faceTriangles);
    BrepEdge& AddEdge(Id edgeId, std::span<float const> polyline);
    BrepVertex& AddVertex(Id vertexId, std::array<float, 3> const& point);

    std::span<float const> PointsOf(BrepFace const& face) const
    {
        return std::span(points).subspan(std::size_t{3} * face.firstPoint, std::size_t{3} * face.pointCount);
    }
    std::span<float const> NormalsOf(BrepFace const& face) const
    {
        return std::span(normals).subspan(std::size_t{3} * face.firstPoint, std::size_t{3} * face.pointCount);
    }
    std::span<std::uint32_t const> TrianglesOf(BrepFace const& face) const
    {
        return std::span(triangles).subspan(std::size_t{3} * face.firstTriangle,
                                            std::size_t{3} * face.triangleCount);
    }
    std::span<float const> PointsOf(BrepEdge const& edge) const
    {
        return std::span(edgePoints)
            .subspan(std::size_t{3} * edge.firstPoint, std::size_t{3} * edge.pointCount);
    }

    bool operator==(BrepBody const&) const = default;
};

/// How much a body, a reference or a model holds.
struct BrepCounts {
    std::size_t bodies = 0;
    std::size_t faces = 0;
    std::size_t edges = 0;
    std::size_t vertices = 0;
    std::size_t points = 0;
    std::size_t triangles = 0;

    BrepCounts& operator+=(BrepCounts const& other);
    bool operator==(BrepCounts const&) const = default;
};
BrepCounts CountsOf(BrepBody const& body);

} // namespace NarMetaInfra
