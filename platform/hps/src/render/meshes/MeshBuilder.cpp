#include "MeshBuilder.h"
#include "geometry_records.h"
#include <algorithm>
#include <numeric>
#include <tuple>

namespace HPS::render
{
namespace
{

std::int16_t packed(float component)
{
    return std::int16_t(std::lround(component * 32767.0f));
}

void putNormal(FaceVertex& vertex, Vector const& normal)
{
    float const l = std::sqrt(normal.x * normal.x + normal.y * normal.y + normal.z * normal.z);
    if (!(l > 0) || !std::isfinite(l)) return; // stays zero: there is none
    vertex.normal[0] = packed(normal.x / l);
    vertex.normal[1] = packed(normal.y / l);
    vertex.normal[2] = packed(normal.z / l);
}

/// The source that counts most: good enough for what belongs to no input point.
std::uint32_t nearestSource(BlendedPoint const& blended, std::size_t inputs)
{
    auto const largest = std::max_element(blended.weights.begin(), blended.weights.end());
    std::uint32_t const source = blended.sources[std::size_t(largest - blended.weights.begin())];
    return source < inputs ? source : 0;
}

} // namespace

void MeshBuilder::clear(bool parameters)
{
    wantsParameters_ = parameters;
    parameters_.clear();
    groups_.clear();
    indexed_ = false;
    vertices_.clear();
    indices_.clear();
    segments_.clear();
    points_.clear();
    viewEdges_.clear();
    glyphCorners_.clear();
    strokes_.pieces.clear();
    contours_.clear();
    translucent_ = false;
}

void MeshBuilder::putColour(std::uint8_t (&out)[4], RGBAColor const& colour)
{
    out[0] = colourByte(colour.red);
    out[1] = colourByte(colour.green);
    out[2] = colourByte(colour.blue);
    out[3] = colourByte(colour.alpha);
    translucent_ = translucent_ || out[3] < 255;
}

void MeshBuilder::putColour(FaceVertex& vertex, RGBAColor const& colour)
{
    vertex.ownColour = 32767;
    putColour(vertex.colour, colour);
}

FaceVertex MeshBuilder::vertexOf(ShellData const& shell, std::uint32_t corner, bool plain)
{
    FaceVertex vertex{};
    bool const blended = corner >= shell.points.size();
    BlendedPoint const* const blend =
        blended ? &triangulator_.blended()[corner - shell.points.size()] : nullptr;
    std::uint32_t const source = blended ? nearestSource(*blend, shell.points.size()) : corner;
    Point const& p = blended ? blend->at : shell.points[corner];
    vertex.position[0] = p.x;
    vertex.position[1] = p.y;
    vertex.position[2] = p.z;
    if (shell.vertexNormals.IsSet(source)) putNormal(vertex, shell.vertexNormals.values[source]);
    if (plain || !shell.colors) return vertex;
    if (shell.colors->vertexFaces.IsSet(source))
        putColour(vertex, shell.colors->vertexFaces.values[source]);
    else if (shell.colors->vertexFaceIndices.IsSet(source)) {
        putIndex(vertex, shell.colors->vertexFaceIndices.values[source]);
        indexed_ = true;
    }
    return vertex;
}

// Stands behind the push of the vertex that it belongs to.
void MeshBuilder::putParameters(ShellData const& shell, std::uint32_t corner)
{
    if (!wantsParameters_ || !shell.extras || shell.extras->parameterWidth == 0) return;
    PolyhedronExtras const& extras = *shell.extras;
    std::size_t const width = extras.parameterWidth;
    auto add = [&](VertexParameters& sum, std::uint32_t point, float weight) {
        bool const isSet = (std::size_t(point) + 1) * width <= extras.vertexParameters.size() &&
                           (extras.hasParameters.empty() || extras.hasParameters[point]);
        if (!isSet) return;
        float const* const p = &extras.vertexParameters[point * width];
        sum.u += weight * p[0];
        sum.v += width > 1 ? weight * p[1] : 0;
        sum.w += width > 2 ? weight * p[2] : 0;
        sum.isSet += weight;
    };
    VertexParameters here;
    if (corner < shell.points.size()) {
        add(here, corner, 1);
    } else {
        BlendedPoint const& blend = triangulator_.blended()[corner - shell.points.size()];
        for (std::size_t i = 0; i < blend.sources.size(); ++i) add(here, blend.sources[i], blend.weights[i]);
    }
    here.isSet = here.isSet > 0.99f ? 1.0f : 0.0f;
    parameters_.resize(vertices_.size());
    parameters_.back() = here;
}

bool MeshBuilder::parametersComplete() const
{
    return std::all_of(parameters_.begin(), parameters_.end(),
                       [](VertexParameters const& p) { return p.isSet > 0; });
}

void MeshBuilder::uploadParameters(Mesh& mesh)
{
    bool const any = std::any_of(parameters_.begin(), parameters_.end(),
                                 [](VertexParameters const& p) { return p.isSet > 0; });
    if (!any || mesh.empty()) return;
    parameters_.resize(vertices_.size());
    MeshStore::instance().addParameters(mesh, parameters_);
}

// Triangles whose faces name the same material of the palette follow each other; none is named before any.
std::vector<std::uint32_t> MeshBuilder::triangleOrder(ShellData const& shell, bool plain) const
{
    std::vector<std::uint32_t> order(triangulator_.faces().size());
    std::iota(order.begin(), order.end(), 0u);
    if (plain || !shell.colors || shell.colors->faceIndices.Empty()) return order;
    auto const& indices = shell.colors->faceIndices;
    auto key = [&](std::uint32_t triangle) {
        std::uint32_t const face = triangulator_.faces()[triangle];
        return indices.IsSet(face) ? indices.values[face] : -1.0f;
    };
    std::stable_sort(order.begin(), order.end(),
                     [&](std::uint32_t a, std::uint32_t b) { return key(a) < key(b); });
    return order;
}

void MeshBuilder::closeGroup(std::uint32_t first, std::optional<float> index, ShellData const& shell)
{
    auto const count = std::uint32_t(indices_.size()) - first;
    bool const own = shell.extras && !(shell.extras->materialMapping == MaterialMappingData());
    if (count == 0 || (!index && !own)) return;
    groups_.push_back({first, count, index, own ? shell.extras : nullptr});
}

void MeshBuilder::addShellFaces(ShellData const& shell, bool plain)
{
    triangulator_.run(shell.points, shell.facelist);
    auto const triangles = triangulator_.triangles();
    auto const* const hidden = shell.extras ? &shell.extras->faceVisibilities : nullptr;
    auto const* const faceColours = !plain && shell.colors ? &shell.colors->faces : nullptr;
    auto const shared = std::uint32_t(vertices_.size());
    if (!shell.vertexNormals.Empty()) {
        std::size_t const corners = shell.points.size() + triangulator_.blended().size();
        vertices_.reserve(vertices_.size() + corners);
        for (std::uint32_t i = 0; i < corners; ++i) {
            vertices_.push_back(vertexOf(shell, i, plain));
            putParameters(shell, i);
        }
    }
    indices_.reserve(indices_.size() + triangles.size());
    auto const* const faceIndices = !plain && shell.colors ? &shell.colors->faceIndices : nullptr;
    auto first = std::uint32_t(indices_.size());
    std::optional<float> index;
    for (std::uint32_t t : triangleOrder(shell, plain)) {
        std::uint32_t const face = triangulator_.faces()[t];
        bool const named = faceIndices != nullptr && faceIndices->IsSet(face);
        std::optional<float> const next = named ? std::optional(faceIndices->values[face]) : std::nullopt;
        if (next != index) {
            closeGroup(first, index, shell);
            first = std::uint32_t(indices_.size());
            index = next;
        }
        if (hidden != nullptr && hidden->IsSet(face) && hidden->values[face] == 0) continue;
        bool const coloured = faceColours != nullptr && faceColours->IsSet(face);
        addTriangle({triangles[3 * t], triangles[3 * t + 1], triangles[3 * t + 2]}, shell, plain,
                    coloured ? &faceColours->values[face] : nullptr, shared);
    }
    closeGroup(first, index, shell);
}

// Vertices from `shared` on stand for the shell's points if it has normals. A triangle shares none of them if
// it has a colour of its own, which ends at its rim, or if it lacks a normal and takes its own.
void MeshBuilder::addTriangle(std::array<std::uint32_t, 3> const& corners, ShellData const& shell, bool plain,
                              RGBAColor const* colour, std::uint32_t shared)
{
    Vec3 const a = positionOf(shell, corners[0]);
    Vec3 const normal = cross(positionOf(shell, corners[1]) - a, positionOf(shell, corners[2]) - a);
    bool smooth = !shell.vertexNormals.Empty();
    Vec3 sum;
    for (std::size_t i = 0; smooth && i < 3; ++i) {
        std::int16_t const* const n = vertices_[shared + corners[i]].normal;
        smooth = n[0] != 0 || n[1] != 0 || n[2] != 0;
        sum = sum + Vec3{double(n[0]), double(n[1]), double(n[2])};
    }
    bool const turned = smooth && dot(normal, sum) < 0;
    std::array const order{corners[0], corners[turned ? 2 : 1], corners[turned ? 1 : 2]};
    for (std::uint32_t corner : order) {
        if (smooth && colour == nullptr) {
            indices_.push_back(shared + corner);
            continue;
        }
        FaceVertex vertex = smooth ? vertices_[shared + corner] : vertexOf(shell, corner, plain);
        if (!smooth) putNormal(vertex, Vector(float(normal.x), float(normal.y), float(normal.z)));
        if (colour != nullptr) putColour(vertex, *colour);
        indices_.push_back(std::uint32_t(vertices_.size()));
        vertices_.push_back(vertex);
        putParameters(shell, corner);
    }
}

Vec3 MeshBuilder::positionOf(ShellData const& shell, std::uint32_t corner) const
{
    Point const& p = corner < shell.points.size() ? shell.points[corner]
                                                  : triangulator_.blended()[corner - shell.points.size()].at;
    return {p.x, p.y, p.z};
}

// Of all edges there is nothing to find out but which are the same.
void MeshBuilder::addAllEdges(ShellData const& shell)
{
    edges_.clear();
    scene::forEachLoop(shell.facelist, [&](scene::FaceLoop const& loop) {
        for (std::size_t i = 0; i < loop.indices.size(); ++i) {
            auto const [low, high] = std::minmax({std::uint32_t(loop.indices[i]),
                                                  std::uint32_t(loop.indices[(i + 1) % loop.indices.size()])});
            if (low != high) edges_.push_back(std::uint64_t(low) << 32 | high);
        }
    });
    std::sort(edges_.begin(), edges_.end());
    edges_.erase(std::unique(edges_.begin(), edges_.end()), edges_.end());
    for (std::uint64_t edge : edges_) addSegment(shell.points[edge >> 32], shell.points[edge & 0xFFFFFFFF]);
}

void MeshBuilder::addShellEdges(ShellData const& shell, EdgeChoice const& choice, bool cells, bool plain)
{
    auto const* const colours =
        !plain && shell.colors && !shell.colors->vertexEdges.Empty() ? &shell.colors->vertexEdges : nullptr;
    bool const someHidden = shell.extras && !shell.extras->faceVisibilities.Empty();
    if ((choice.kinds & PlainEdge) != 0 && colours == nullptr && !someHidden) {
        addAllEdges(shell);
        return;
    }
    for (FoundEdge const& found : findEdges(shell, choice.kinds, choice.hardAngle, cells)) {
        Point const &from = shell.points[found.from], &to = shell.points[found.to];
        bool const always = (found.kinds & ~std::uint32_t(SilhouetteEdge | NonCulledEdge)) != 0;
        bool const coloured = colours != nullptr && colours->IsSet(found.from) && colours->IsSet(found.to);
        if (always && !coloured) {
            addSegment(from, to);
            continue;
        }
        ViewEdge edge{{from.x, from.y, from.z}, {to.x, to.y, to.z}, {}, {}, {}};
        auto put = [](std::int16_t(&out)[4], Vector const& n) {
            out[0] = packed(n.x);
            out[1] = packed(n.y);
            out[2] = packed(n.z);
        };
        put(edge.first, found.normals[0]);
        put(edge.second, found.normals[1]);
        edge.first[3] = always                               ? ViewEdge::Always
                        : (found.kinds & NonCulledEdge) != 0 ? ViewEdge::NonCulled
                                                             : ViewEdge::Silhouette;
        if (coloured) {
            RGBAColor const &a = colours->values[found.from], &b = colours->values[found.to];
            putColour(edge.colour, RGBAColor((a.red + b.red) / 2, (a.green + b.green) / 2,
                                             (a.blue + b.blue) / 2, (a.alpha + b.alpha) / 2));
        }
        viewEdges_.push_back(edge);
    }
}

void MeshBuilder::addEdgeStrokes(ShellData const& shell, EdgeChoice const& choice, bool cells)
{
    for (FoundEdge const& found : findEdges(shell, choice.kinds, choice.hardAngle, cells))
        if ((found.kinds & ~std::uint32_t(SilhouetteEdge | NonCulledEdge)) != 0)
            strokes_.add(std::array{shell.points[found.from], shell.points[found.to]});
}

void MeshBuilder::addShellVertices(ShellData const& shell, bool plain)
{
    auto const* const colours = !plain && shell.colors ? &shell.colors->vertexMarkers : nullptr;
    auto const* const hidden = shell.extras ? &shell.extras->vertexVisibilities : nullptr;
    for (std::size_t i = 0; i < shell.points.size(); ++i) {
        if (hidden != nullptr && hidden->IsSet(i) && hidden->values[i] == 0) continue;
        if (colours != nullptr && colours->IsSet(i))
            addMarker(shell.points[i], colours->values[i]);
        else
            addMarker(shell.points[i]);
    }
}

void MeshBuilder::addSegment(Point const& from, Point const& to)
{
    segments_.push_back({{from.x, from.y, from.z}, {to.x, to.y, to.z}});
}

void MeshBuilder::addLine(std::span<Point const> points)
{
    for (std::size_t i = 0; i + 1 < points.size(); ++i) addSegment(points[i], points[i + 1]);
}

void MeshBuilder::addMarker(Point const& point)
{
    points_.push_back({{point.x, point.y, point.z}, {}});
}

void MeshBuilder::addMarker(Point const& point, RGBAColor const& colour)
{
    addMarker(point);
    putColour(points_.back().colour, colour);
}

void MeshBuilder::addGlyph(FlatMesh const& drawing, Point const& place, Point const& toward)
{
    auto const first = std::uint32_t(glyphCorners_.size());
    for (FlatMesh::Corner const& corner : drawing.corners)
        glyphCorners_.push_back(
            {{place.x, place.y, place.z}, {toward.x, toward.y, toward.z}, {corner.x, corner.y}});
    for (std::uint32_t index : drawing.indices) indices_.push_back(first + index);
}

void MeshBuilder::addGlyphs(FlatMesh const& drawing, std::span<Point const> chain, ChainPlace where)
{
    if (chain.size() < 2) return;
    // A cap looks outwards, along the line that it ends.
    auto beyond = [](Point const& end, Point const& before) {
        return Point(2 * end.x - before.x, 2 * end.y - before.y, 2 * end.z - before.z);
    };
    switch (where) {
    case ChainPlace::Start:
        addGlyph(drawing, chain[0], beyond(chain[0], chain[1]));
        break;
    case ChainPlace::End:
        addGlyph(drawing, chain.back(), beyond(chain.back(), chain[chain.size() - 2]));
        break;
    case ChainPlace::Corner:
        for (std::size_t i = 1; i + 1 < chain.size(); ++i) addGlyph(drawing, chain[i], chain[i + 1]);
        break;
    }
}

void MeshBuilder::addContours(ShellData const& shell, ContourLineData const& contours, std::uint32_t wrap)
{
    triangulator_.run(shell.points, shell.facelist);
    auto const found = findContours(shell, triangulator_.triangles(), contours, wrap);
    contours_.insert(contours_.end(), found.begin(), found.end());
}

void MeshBuilder::chooseContours(std::uint32_t number)
{
    for (ContourPiece const& piece : contours_)
        if (piece.number == number) addSegment(piece.from, piece.to);
}

Mesh MeshBuilder::uploadStrokes()
{
    constexpr std::uint32_t kindBits = 4;
    for (std::size_t i = 0; i < strokes_.pieces.size(); ++i)
        strokes_.pieces[i].kind |= std::uint32_t(i) << kindBits;
    return MeshStore::instance().addStrokes(strokes_.pieces);
}

} // namespace HPS::render
