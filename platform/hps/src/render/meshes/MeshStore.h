#pragma once
#include "Arena.h"
#include "Instance.h"
#include "StrokeChains.h"
#include "linear.h"
#include <memory>
#include <optional>
#include <span>
#include <vector>

namespace HPS::render
{

/// A corner of a triangle as it lies in the device's memory.
struct FaceVertex {
    float position[3];
    std::int16_t normal[3]; ///< length 32767, on the side from which the triangle runs counter-clockwise
    std::int16_t ownColour; ///< 32767: `colour` counts, 0: the instance's does, -32767: see `putIndex`
    std::uint8_t colour[4]; ///< its alpha is multiplied by the instance's
};
static_assert(sizeof(FaceVertex) == 24);

/// Makes the vertex name a material of the palette; the device reads the number from the colour's bytes, with
/// 16 bits before the point and 8 behind it.
void putIndex(FaceVertex& vertex, float index);

/// Where a corner lies on textures. `isSet` is 1, or 0 where nothing says so.
struct VertexParameters {
    float u = 0, v = 0, w = 0;
    float isSet = 0;
};

/// From 0 to 1 into a byte; what is no number counts as 0.
inline std::uint8_t colourByte(float value)
{
    return value > 0 ? std::uint8_t(std::lround(std::min(value, 1.0f) * 255.0f)) : std::uint8_t(0);
}

struct LineSegment {
    float from[3];
    float to[3];
};

struct MarkerVertex {
    float position[3];
    std::uint8_t colour[4]{}; ///< counts where its alpha is not 0, which is multiplied by the instance's
};

/// A corner of a drawing that stands at a point: `offset` from there, in halves of a marker's size or ems of
/// a text. Where `toward` is another point than `place`, the drawing's right side is turned there.
struct GlyphVertex {
    float place[3];
    float toward[3];
    float offset[2];
};

/// A line that shows according to which sides the two faces at it turn to the viewer, or that has a colour.
struct ViewEdge {
    /// In the fourth component of `first`.
    enum Rule : std::int16_t { Silhouette = 0, NonCulled = 32767, Always = -32767 };

    float from[3];
    float to[3];
    std::int16_t first[4];  ///< normal of one face, length 32767, and the rule: seen where one face is turned
                            ///< to the viewer and the other away, or where any of them is, or anyhow
    std::int16_t second[4]; ///< normal of the other face, in the same sense of orientation
    std::uint8_t colour[4]; ///< as a marker's
};

class MeshStore;

/// An uploaded mesh; gives its place back when it goes. At most one of the three kinds.
class Mesh
{
public:
    Mesh() = default;
    Mesh(Mesh&& other) noexcept;
    Mesh& operator=(Mesh&& other) noexcept;
    ~Mesh();

    MeshRange const& range() const { return range_; }
    Box const& box() const { return box_; }
    /// Added to a vertex's number on the device: its place in the parameter buffer. None before
    /// `MeshStore::addParameters`.
    std::optional<std::uint32_t> parameters() const;
    bool empty() const { return range_.indexCount == 0; }

private:
    friend class MeshStore;
    Primitive primitive_ = Primitive::Faces;
    MeshRange range_;
    std::uint32_t vertexCount_ = 0;
    std::uint32_t firstParameter_ = 0, parameterCount_ = 0; ///< one for each vertex, or none
    Box box_;
};

/// All vertices of the process, in one buffer per primitive, so that meshes of one kind draw in one call.
/// Needs the device's context to be current.
class MeshStore
{
public:
    static MeshStore& instance();

    // A mesh for which the device has no memory is empty.

    /// `indices` count from the first of `vertices`, three a triangle.
    Mesh addFaces(std::span<FaceVertex const> vertices, std::span<std::uint32_t const> indices);
    /// One for each vertex of a mesh that has none so far.
    void addParameters(Mesh& mesh, std::span<VertexParameters const> parameters);
    Mesh addLines(std::span<LineSegment const> segments);
    Mesh addMarkers(std::span<MarkerVertex const> points);
    Mesh addGlyphs(std::span<GlyphVertex const> vertices, std::span<std::uint32_t const> indices);
    Mesh addStrokes(std::span<StrokeChains::Piece const> pieces);
    Mesh addViewEdges(std::span<ViewEdge const> edges);

    /// There was a mesh for which the device had no memory.
    bool outOfMemory() const { return outOfMemory_; }
    /// Bytes that each buffer may have from now on; what is there stays.
    void limit(std::uint64_t bytes);

    /// Makes the vertex array of a primitive current, with the instances read from `instanceBuffer` and the
    /// indices from `indexBuffer`, or the meshes' own for 0.
    void bind(Primitive primitive, unsigned instanceBuffer, unsigned indexBuffer = 0);

    /// Reads back what `addFaces` took, indices counted from the first vertex.
    void readFaces(MeshRange const& range, std::vector<FaceVertex>& vertices,
                   std::vector<std::uint32_t>& indices) const;

    /// The buffer of all parameters, 0 if there are none.
    unsigned parameterBuffer() const { return parameters_.buffer(); }

    /// For a draw without vertices: core OpenGL wants some vertex array all the same.
    void bindNothing();

private:
    template <class T> friend T& ofContext();
    friend class Mesh;
    MeshStore();
    void remove(Mesh const& mesh);
    void growQuads(std::uint32_t quads);
    template <class T> Mesh addQuads(Primitive primitive, std::span<T const> elements, Box const& box);
    Mesh addIndexed(Primitive primitive, std::span<std::byte const> vertices, std::size_t vertexCount,
                    std::span<std::uint32_t const> indices, Box const& box);
    Arena& vertices(Primitive primitive);
    Arena& indexArena(Primitive primitive);

    Arena faceVertices_{sizeof(FaceVertex)};
    Arena faceIndices_{sizeof(std::uint32_t)};
    Arena parameters_{sizeof(VertexParameters)};
    Arena lineVertices_{sizeof(LineSegment)};
    Arena markerVertices_{sizeof(MarkerVertex)};
    Arena glyphVertices_{sizeof(GlyphVertex)};
    Arena glyphIndices_{sizeof(std::uint32_t)};
    Arena strokeVertices_{sizeof(StrokeChains::Piece)};
    Arena viewEdgeVertices_{sizeof(ViewEdge)};
    bool outOfMemory_ = false;
    unsigned quadIndices_ = 0; ///< 0 1 2 2 1 3, 4 5 6 6 5 7, ...
    unsigned axisIndices_ = 0; ///< 0 2, 4 6, ...: one vertex at each end
    std::uint32_t quadCapacity_ = 0;
    unsigned arrays_[primitiveCount + 1] = {}; ///< by Primitive, and an empty one
};

} // namespace HPS::render
