#include "MeshBuilder.h"
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
    translucent_ = false;
}

void MeshBuilder::putColour(FaceVertex& vertex, RGBAColor const& colour)
{
    vertex.ownColour = 32767;
    vertex.colour[0] = colourByte(colour.red);
    vertex.colour[1] = colourByte(colour.green);
    vertex.colour[2] = colourByte(colour.blue);
    vertex.colour[3] = colourByte(colour.alpha);
    translucent_ = translucent_ || vertex.colour[3] < 255;
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

std::vector<Vec3> MeshBuilder::faceNormals(ShellData const& shell, std::size_t faces) const
{
    std::vector<Vec3> normals(faces);
    auto const triangles = triangulator_.triangles();
    for (std::size_t t = 0; t < triangulator_.faces().size(); ++t) {
        Vec3 const a = positionOf(shell, triangles[3 * t]);
        Vec3& sum = normals[triangulator_.faces()[t]];
        sum = sum +
              cross(positionOf(shell, triangles[3 * t + 1]) - a, positionOf(shell, triangles[3 * t + 2]) - a);
    }
    for (Vec3& normal : normals) normal = normalised(normal, {});
    return normals;
}

void MeshBuilder::addShellEdges(ShellData const& shell, EdgeChoice const& choice)
{
    edges_.clear();
    std::uint32_t faces = 0;
    auto const& list = shell.facelist;
    for (std::size_t at = 0; at < list.size();) { // well-formed: nothing else can be inserted
        bool const hole = list[at] < 0;
        auto const count = std::size_t(std::abs(list[at]));
        if (!hole) ++faces;
        for (std::size_t i = 0; i < count; ++i) {
            auto const a = std::uint32_t(list[at + 1 + i]), b = std::uint32_t(list[at + 1 + (i + 1) % count]);
            if (a != b) edges_.push_back({std::min(a, b), std::max(a, b), faces - 1});
        }
        at += 1 + count;
    }
    std::sort(edges_.begin(), edges_.end(), [](Edge const& a, Edge const& b) {
        return std::tie(a.from, a.to, a.face) < std::tie(b.from, b.to, b.face);
    });
    std::vector<Vec3> normals;
    if (choice.hard && !choice.all) {
        triangulator_.run(shell.points, shell.facelist);
        normals = faceNormals(shell, faces);
    }
    for (std::size_t first = 0; first < edges_.size();) {
        std::size_t last = first;
        while (last + 1 < edges_.size() && edges_[last + 1].from == edges_[first].from &&
               edges_[last + 1].to == edges_[first].to)
            ++last;
        bool wanted = choice.all || (choice.perimeter && first == last);
        if (!wanted && choice.hard && first != last) {
            constexpr double cosineOf30Degrees = 0.8660254;
            double const cosine = dot(normals[edges_[first].face], normals[edges_[last].face]);
            wanted = std::abs(cosine) < cosineOf30Degrees;
        }
        if (wanted) addSegment(shell.points[edges_[first].from], shell.points[edges_[first].to]);
        first = last + 1;
    }
}

void MeshBuilder::addShellVertices(ShellData const& shell)
{
    for (Point const& point : shell.points) addMarker(point);
}

void MeshBuilder::addSegment(Point const& from, Point const& to)
{
    segments_.push_back({{from.x, from.y, from.z}, {to.x, to.y, to.z}});
}

void MeshBuilder::addLine(PointChain const& chain)
{
    for (std::size_t i = 0; i + 1 < chain.points.size(); ++i)
        addSegment(chain.points[i], chain.points[i + 1]);
}

void MeshBuilder::addPolygonEdge(PointChain const& chain)
{
    addLine(chain);
    if (chain.points.size() > 2 && !(chain.points.front() == chain.points.back()))
        addSegment(chain.points.back(), chain.points.front());
}

void MeshBuilder::addPolygonFace(PointChain const& chain)
{
    polygon_.points = chain.points;
    if (chain.points.size() > 1 && chain.points.front() == chain.points.back()) polygon_.points.pop_back();
    polygon_.facelist.resize(polygon_.points.size() + 1);
    polygon_.facelist[0] = int(polygon_.points.size());
    std::iota(polygon_.facelist.begin() + 1, polygon_.facelist.end(), 0);
    addShellFaces(polygon_, true);
}

void MeshBuilder::addMarker(Point const& point)
{
    points_.push_back({{point.x, point.y, point.z}});
}

} // namespace HPS::render
