#include "MeshStore.h"
#include "of_context.h"
#include "Device.h"
#include "bindings.h"
#include <algorithm>
#include <cassert>
#include <cmath>
#include <cstddef>
#include <epoxy/gl.h>
#include <utility>
#include <vector>

namespace HPS::render
{
namespace
{

constexpr unsigned meshBinding = 0, instanceBinding = 1;

struct Format {
    unsigned attribute;
    int count;
    GLenum type;
    bool normalised;
    unsigned offset;
};

void describe(unsigned array, unsigned binding, std::span<Format const> formats)
{
    for (Format const& f : formats) {
        glEnableVertexArrayAttrib(array, f.attribute);
        glVertexArrayAttribBinding(array, f.attribute, binding);
        if (f.type == GL_UNSIGNED_INT)
            glVertexArrayAttribIFormat(array, f.attribute, f.count, f.type, f.offset);
        else
            glVertexArrayAttribFormat(array, f.attribute, f.count, f.type, f.normalised ? GL_TRUE : GL_FALSE,
                                      f.offset);
    }
}

constexpr Format faceFormats[] = {
    {Position, 3, GL_FLOAT, false, offsetof(FaceVertex, position)},
    {NormalOrEnd, 4, GL_SHORT, true, offsetof(FaceVertex, normal)},
    {VertexColour, 4, GL_UNSIGNED_BYTE, true, offsetof(FaceVertex, colour)},
};
constexpr Format lineFormats[] = {
    {Position, 3, GL_FLOAT, false, offsetof(LineSegment, from)},
    {NormalOrEnd, 3, GL_FLOAT, false, offsetof(LineSegment, to)},
};
constexpr Format markerFormats[] = {
    {Position, 3, GL_FLOAT, false, offsetof(MarkerVertex, position)},
    {VertexColour, 4, GL_UNSIGNED_BYTE, true, offsetof(MarkerVertex, colour)},
};
constexpr Format glyphFormats[] = {
    {Position, 3, GL_FLOAT, false, offsetof(GlyphVertex, place)},
    {NormalOrEnd, 3, GL_FLOAT, false, offsetof(GlyphVertex, toward)},
    {VertexColour, 2, GL_FLOAT, false, offsetof(GlyphVertex, offset)},
};
constexpr Format strokeFormats[] = {
    {Position, 3, GL_FLOAT, false, offsetof(StrokeChains::Piece, from)},
    {NormalOrEnd, 3, GL_FLOAT, false, offsetof(StrokeChains::Piece, to)},
    {VertexColour, 3, GL_FLOAT, false, offsetof(StrokeChains::Piece, before)},
    {After, 3, GL_FLOAT, false, offsetof(StrokeChains::Piece, after)},
    {Along, 1, GL_FLOAT, false, offsetof(StrokeChains::Piece, distance)},
    {Kind, 1, GL_UNSIGNED_INT, false, offsetof(StrokeChains::Piece, kind)},
};
constexpr Format viewEdgeFormats[] = {
    {Position, 3, GL_FLOAT, false, offsetof(ViewEdge, from)},
    {NormalOrEnd, 3, GL_FLOAT, false, offsetof(ViewEdge, to)},
    {VertexColour, 4, GL_SHORT, true, offsetof(ViewEdge, first)},
    {After, 4, GL_SHORT, true, offsetof(ViewEdge, second)},
    {Along, 4, GL_UNSIGNED_BYTE, true, offsetof(ViewEdge, colour)},
};
constexpr Format instanceFormats[] = {
    {Row0, 4, GL_FLOAT, false, offsetof(Instance, rows)},
    {Row1, 4, GL_FLOAT, false, offsetof(Instance, rows) + 16},
    {Row2, 4, GL_FLOAT, false, offsetof(Instance, rows) + 32},
    {Colour, 4, GL_UNSIGNED_BYTE, true, offsetof(Instance, colour)},
    {Size, 1, GL_FLOAT, false, offsetof(Instance, size)},
    {Flags, 1, GL_UNSIGNED_INT, false, offsetof(Instance, flags)},
    {MaterialRowAttribute, 1, GL_UNSIGNED_INT, false, offsetof(Instance, material)},
};

// Indexed by Primitive.
constexpr GLsizei vertexSizes[primitiveCount] = {
    sizeof(FaceVertex),  sizeof(LineSegment),         sizeof(LineSegment), sizeof(MarkerVertex),
    sizeof(GlyphVertex), sizeof(StrokeChains::Piece), sizeof(ViewEdge)};

bool hasIndices(Primitive primitive)
{
    return primitive == Primitive::Faces || primitive == Primitive::Glyphs;
}

template <class T> Box boxOfEnds(std::span<T const> lines)
{
    Box box;
    for (T const& line : lines) {
        box.add(line.from[0], line.from[1], line.from[2]);
        box.add(line.to[0], line.to[1], line.to[2]);
    }
    return box;
}

} // namespace

void putIndex(FaceVertex& vertex, float index)
{
    auto const fixed = std::uint32_t(std::lround(std::clamp(index > 0 ? index : 0.0f, 0.0f, 65535.0f) * 256));
    vertex.ownColour = -32767;
    vertex.colour[0] = std::uint8_t(fixed >> 16);
    vertex.colour[1] = std::uint8_t(fixed >> 8);
    vertex.colour[2] = std::uint8_t(fixed);
    vertex.colour[3] = 255;
}

std::optional<std::uint32_t> Mesh::parameters() const
{
    if (parameterCount_ == 0) return std::nullopt;
    return firstParameter_ - range_.baseVertex; // wraps around, as the shader's sum does
}

Mesh::Mesh(Mesh&& other) noexcept
{
    *this = std::move(other);
}

Mesh& Mesh::operator=(Mesh&& other) noexcept
{
    std::swap(primitive_, other.primitive_);
    std::swap(range_, other.range_);
    std::swap(vertexCount_, other.vertexCount_);
    std::swap(firstParameter_, other.firstParameter_);
    std::swap(parameterCount_, other.parameterCount_);
    std::swap(box_, other.box_);
    return *this;
}

Mesh::~Mesh()
{
    if (!empty()) MeshStore::instance().remove(*this);
}

MeshStore& MeshStore::instance()
{
    return ofContext<MeshStore>();
}

MeshStore::MeshStore()
{
    glCreateVertexArrays(primitiveCount + 1, arrays_);
    // All triangles of a fan begin with the same corner: one that does not vary over a face is of one value.
    glProvokingVertex(GL_FIRST_VERTEX_CONVENTION);
    std::span<Format const> const formats[primitiveCount] = {
        faceFormats, lineFormats, lineFormats, markerFormats, glyphFormats, strokeFormats, viewEdgeFormats};
    for (int i = 0; i < primitiveCount; ++i) {
        describe(arrays_[i], meshBinding, formats[i]);
        describe(arrays_[i], instanceBinding, instanceFormats);
        glVertexArrayBindingDivisor(arrays_[i], instanceBinding, 1);
    }
}

Arena& MeshStore::vertices(Primitive primitive)
{
    switch (primitive) {
    case Primitive::Faces:
        return faceVertices_;
    case Primitive::Lines:
    case Primitive::ThinLines:
        return lineVertices_;
    case Primitive::Markers:
        return markerVertices_;
    case Primitive::Glyphs:
        return glyphVertices_;
    case Primitive::Strokes:
        return strokeVertices_;
    case Primitive::ViewEdges:
        return viewEdgeVertices_;
    }
    return faceVertices_;
}

Mesh MeshStore::addIndexed(Primitive primitive, std::span<std::byte const> data, std::size_t vertexCount,
                           std::span<std::uint32_t const> indices, Box const& box)
{
    Mesh mesh;
    if (indices.empty()) return mesh;
    auto const baseVertex = vertices(primitive).add(data);
    auto const firstIndex = baseVertex ? indexArena(primitive).add(std::as_bytes(indices)) : std::nullopt;
    if (!firstIndex) {
        if (baseVertex) vertices(primitive).remove(*baseVertex, std::uint32_t(vertexCount));
        outOfMemory_ = true;
        return {};
    }
    mesh.primitive_ = primitive;
    mesh.box_ = box;
    mesh.range_.baseVertex = *baseVertex;
    mesh.range_.firstIndex = *firstIndex;
    mesh.range_.indexCount = std::uint32_t(indices.size());
    mesh.vertexCount_ = std::uint32_t(vertexCount);
    return mesh;
}

void MeshStore::addParameters(Mesh& mesh, std::span<VertexParameters const> parameters)
{
    if (parameters.empty() || mesh.empty()) return;
    assert(parameters.size() == mesh.vertexCount_ && mesh.parameterCount_ == 0);
    auto const first = parameters_.add(std::as_bytes(parameters));
    if (!first) {
        outOfMemory_ = true;
        mesh = {};
        return;
    }
    mesh.firstParameter_ = *first;
    mesh.parameterCount_ = std::uint32_t(parameters.size());
}

Arena& MeshStore::indexArena(Primitive primitive)
{
    return primitive == Primitive::Glyphs ? glyphIndices_ : faceIndices_;
}

Mesh MeshStore::addFaces(std::span<FaceVertex const> vertices, std::span<std::uint32_t const> indices)
{
    Box box;
    for (FaceVertex const& v : vertices) box.add(v.position[0], v.position[1], v.position[2]);
    return addIndexed(Primitive::Faces, std::as_bytes(vertices), vertices.size(), indices, box);
}

Mesh MeshStore::addGlyphs(std::span<GlyphVertex const> vertices, std::span<std::uint32_t const> indices)
{
    Box box;
    for (GlyphVertex const& v : vertices) box.add(v.place[0], v.place[1], v.place[2]);
    return addIndexed(Primitive::Glyphs, std::as_bytes(vertices), vertices.size(), indices, box);
}

Mesh MeshStore::addLines(std::span<LineSegment const> segments)
{
    return addQuads(Primitive::Lines, segments, boxOfEnds(segments));
}

Mesh MeshStore::addViewEdges(std::span<ViewEdge const> edges)
{
    return addQuads(Primitive::ViewEdges, edges, boxOfEnds(edges));
}

Mesh MeshStore::addStrokes(std::span<StrokeChains::Piece const> pieces)
{
    return addQuads(Primitive::Strokes, pieces, boxOfEnds(pieces));
}

Mesh MeshStore::addMarkers(std::span<MarkerVertex const> points)
{
    Box box;
    for (MarkerVertex const& p : points) box.add(p.position[0], p.position[1], p.position[2]);
    return addQuads(Primitive::Markers, points, box);
}

template <class T> Mesh MeshStore::addQuads(Primitive primitive, std::span<T const> elements, Box const& box)
{
    Mesh mesh;
    if (elements.empty()) return mesh;
    auto const quads = std::uint32_t(elements.size());
    growQuads(quads);
    std::vector<T> corners;
    corners.reserve(elements.size() * 4);
    for (T const& e : elements) corners.insert(corners.end(), 4, e);
    mesh.primitive_ = primitive;
    mesh.box_ = box;
    auto const baseVertex = vertices(primitive).add(std::as_bytes(std::span(corners)));
    if (!baseVertex) {
        outOfMemory_ = true;
        return {};
    }
    mesh.range_ = {0, quads * 6, *baseVertex};
    mesh.vertexCount_ = quads * 4;
    return mesh;
}

void MeshStore::limit(std::uint64_t bytes)
{
    for (Arena* arena : {&faceVertices_, &faceIndices_, &parameters_, &lineVertices_, &markerVertices_})
        arena->limit(bytes);
    outOfMemory_ = false;
}

void MeshStore::growQuads(std::uint32_t quads)
{
    if (quads <= quadCapacity_) return;
    quadCapacity_ = std::max({quads, quadCapacity_ * 2, 4096u});
    auto fill = [&](unsigned& buffer, std::initializer_list<std::uint32_t> corners) {
        std::vector<std::uint32_t> indices;
        indices.reserve(quadCapacity_ * corners.size());
        for (std::uint32_t q = 0; q < quadCapacity_; ++q)
            for (std::uint32_t corner : corners) indices.push_back(q * 4 + corner);
        if (buffer != 0) glDeleteBuffers(1, &buffer);
        glCreateBuffers(1, &buffer);
        glNamedBufferStorage(buffer, GLsizeiptr(indices.size() * sizeof(std::uint32_t)), indices.data(), 0);
    };
    fill(quadIndices_, {0, 1, 2, 2, 1, 3});
    fill(axisIndices_, {0, 2});
}

void MeshStore::remove(Mesh const& mesh)
{
    vertices(mesh.primitive_).remove(mesh.range_.baseVertex, mesh.vertexCount_);
    if (mesh.parameterCount_ > 0) parameters_.remove(mesh.firstParameter_, mesh.parameterCount_);
    if (hasIndices(mesh.primitive_))
        indexArena(mesh.primitive_).remove(mesh.range_.firstIndex, mesh.range_.indexCount);
}

void MeshStore::bindNothing()
{
    glBindVertexArray(arrays_[primitiveCount]);
}

void MeshStore::readFaces(MeshRange const& range, std::vector<FaceVertex>& vertices,
                          std::vector<std::uint32_t>& indices) const
{
    indices.resize(range.indexCount);
    vertices.clear();
    if (indices.empty()) return;
    glGetNamedBufferSubData(faceIndices_.buffer(), GLintptr(range.firstIndex * sizeof(std::uint32_t)),
                            GLsizeiptr(indices.size() * sizeof(std::uint32_t)), indices.data());
    vertices.resize(*std::max_element(indices.begin(), indices.end()) + std::size_t(1));
    glGetNamedBufferSubData(faceVertices_.buffer(), GLintptr(range.baseVertex * sizeof(FaceVertex)),
                            GLsizeiptr(vertices.size() * sizeof(FaceVertex)), vertices.data());
}

void MeshStore::bind(Primitive primitive, unsigned instanceBuffer, unsigned indexBuffer)
{
    auto const i = std::size_t(primitive);
    glBindVertexArray(arrays_[i]);
    glVertexArrayVertexBuffer(arrays_[i], meshBinding, vertices(primitive).buffer(), 0, vertexSizes[i]);
    glVertexArrayVertexBuffer(arrays_[i], instanceBinding, instanceBuffer, 0, sizeof(Instance));
    unsigned const indices = hasIndices(primitive)               ? indexArena(primitive).buffer()
                             : primitive == Primitive::ThinLines ? axisIndices_
                                                                 : quadIndices_;
    glVertexArrayElementBuffer(arrays_[i], indexBuffer != 0 ? indexBuffer : indices);
}

} // namespace HPS::render
