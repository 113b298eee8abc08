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
    if (!(l > 0) || !std::isfinite(l)) return; // stays zero: the triangle's own
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

void MeshBuilder::clear()
{
    vertices_.clear();
    indices_.clear();
    segments_.clear();
    points_.clear();
    translucent_ = false;
}

void MeshBuilder::putColour(FaceVertex& vertex, RGBAColor const& colour)
{
    auto channel = [](float value) {
        return std::uint8_t(std::lround(std::clamp(value, 0.0f, 1.0f) * 255.0f));
    };
    vertex.ownColour = 32767;
    vertex.colour[0] = channel(colour.red);
    vertex.colour[1] = channel(colour.green);
    vertex.colour[2] = channel(colour.blue);
    vertex.colour[3] = channel(colour.alpha);
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
    if (!plain && shell.colors && shell.colors->vertexFaces.IsSet(source))
        putColour(vertex, shell.colors->vertexFaces.values[source]);
    return vertex;
}

void MeshBuilder::addShellFaces(ShellData const& shell, bool plain)
{
    triangulator_.run(shell.points, shell.facelist);
    if (!plain && shell.colors && !shell.colors->faces.Empty())
        addFaceColouredTriangles(shell);
    else
        addSharedTriangles(shell, plain);
}

void MeshBuilder::addSharedTriangles(ShellData const& shell, bool plain)
{
    auto const base = std::uint32_t(vertices_.size());
    std::size_t const corners = shell.points.size() + triangulator_.blended().size();
    vertices_.reserve(vertices_.size() + corners);
    for (std::uint32_t i = 0; i < corners; ++i) vertices_.push_back(vertexOf(shell, i, plain));
    indices_.reserve(indices_.size() + triangulator_.triangles().size());
    for (std::uint32_t corner : triangulator_.triangles()) indices_.push_back(base + corner);
}

// A colour ends where its face does, so faces share no vertices.
void MeshBuilder::addFaceColouredTriangles(ShellData const& shell)
{
    auto const triangles = triangulator_.triangles();
    ElementValues<RGBAColor> const& colours = shell.colors->faces;
    for (std::size_t i = 0; i < triangles.size(); ++i) {
        FaceVertex vertex = vertexOf(shell, triangles[i], false);
        std::uint32_t const face = triangulator_.faces()[i / 3];
        if (colours.IsSet(face)) putColour(vertex, colours.values[face]);
        indices_.push_back(std::uint32_t(vertices_.size()));
        vertices_.push_back(vertex);
    }
}

std::vector<Vec3> MeshBuilder::faceNormals(ShellData const& shell, std::size_t faces) const
{
    std::vector<Vec3> normals(faces);
    auto const triangles = triangulator_.triangles();
    auto at = [&](std::uint32_t corner) {
        Point const& p = corner < shell.points.size()
                             ? shell.points[corner]
                             : triangulator_.blended()[corner - shell.points.size()].at;
        return Vec3{p.x, p.y, p.z};
    };
    for (std::size_t t = 0; t < triangulator_.faces().size(); ++t) {
        Vec3 const a = at(triangles[3 * t]);
        Vec3& sum = normals[triangulator_.faces()[t]];
        sum = sum + cross(at(triangles[3 * t + 1]) - a, at(triangles[3 * t + 2]) - a);
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
    std::size_t count = chain.points.size();
    if (count > 1 && chain.points.front() == chain.points.back()) --count;
    polygonList_.resize(count + 1);
    polygonList_[0] = int(count);
    std::iota(polygonList_.begin() + 1, polygonList_.end(), 0);
    triangulator_.run(chain.points, polygonList_);
    auto const base = std::uint32_t(vertices_.size());
    auto add = [&](Point const& p) {
        FaceVertex vertex{};
        vertex.position[0] = p.x;
        vertex.position[1] = p.y;
        vertex.position[2] = p.z;
        vertices_.push_back(vertex);
    };
    for (Point const& p : chain.points) add(p);
    for (BlendedPoint const& p : triangulator_.blended()) add(p.at);
    for (std::uint32_t corner : triangulator_.triangles()) indices_.push_back(base + corner);
}

void MeshBuilder::addMarker(Point const& point)
{
    points_.push_back({{point.x, point.y, point.z}});
}

} // namespace HPS::render
