#include "zel_xml_parts.h"

#include <algorithm>

namespace NarMetaInfra
{

namespace
{

/// The id that a reader makes for the primitive at this place, and that the file can therefore leave out.
Id DefaultId(BrepBody const& body, char const* kind, std::size_t ordinal)
{
    return NarMeta::HashId(body.id, kind, ordinal);
}

void WriteId(XmlSink& sink, Id id, Id byDefault)
{
    if (id != byDefault) sink.Attribute("id", id);
}

/// One normal stands for all if they are equal, as on a plane.
void WriteNormals(XmlSink& sink, std::span<float const> normals)
{
    bool const plane = std::equal(normals.begin() + std::min<std::ptrdiff_t>(3, std::ssize(normals)),
                                  normals.end(), normals.begin());
    sink.Array("normals", plane ? normals.first(std::min<std::size_t>(3, normals.size())) : normals);
}

/// The arrays of the body as they are.
void WritePacked(XmlSink& sink, BrepBody const& body)
{
    sink.Records("faces", body.faces.data(), body.faces.size());
    sink.Records("edges", body.edges.data(), body.edges.size());
    sink.Records("vertices", body.vertices.data(), body.vertices.size());
    sink.Array("all_points", body.points);
    sink.Array("all_normals", body.normals);
    sink.Array("all_triangles", body.triangles);
    sink.Array("edge_points", body.edgePoints);
}

} // namespace

void WriteBody(XmlSink& sink, BrepBody const& body)
{
    auto const element = sink.Open("body");
    sink.Attribute("id", body.id);
    sink.Attribute("name", body.name);
    sink.Attribute("colour", body.colour);
    sink.Attribute("alpha", body.alpha);
    sink.Flag("hidden", body.hidden);
    if (sink.IsPacked()) return WritePacked(sink, body);
    for (std::size_t i = 0; i < body.faces.size(); ++i) {
        auto const& face = body.faces[i];
        auto const child = sink.Open("face");
        WriteId(sink, face.id, DefaultId(body, "face", i));
        sink.Attribute("colour", face.colour);
        sink.Attribute("alpha", face.alpha);
        sink.Array("points", body.PointsOf(face));
        WriteNormals(sink, body.NormalsOf(face));
        sink.Array("triangles", body.TrianglesOf(face));
    }
    for (std::size_t i = 0; i < body.edges.size(); ++i) {
        auto const& edge = body.edges[i];
        auto const child = sink.Open("edge");
        WriteId(sink, edge.id, DefaultId(body, "edge", i));
        sink.Attribute("colour", edge.colour);
        sink.Content(body.PointsOf(edge));
    }
    for (std::size_t i = 0; i < body.vertices.size(); ++i) {
        auto const& vertex = body.vertices[i];
        auto const child = sink.Open("vertex");
        WriteId(sink, vertex.id, DefaultId(body, "vertex", i));
        sink.Content(vertex.point);
    }
}

namespace
{

void ReadFace(XmlSource& source, BrepBody& body)
{
    auto const line = source.Line();
    auto const id = source.NumberOf<Id>("id");
    auto const colour = source.Colour("colour");
    auto const alpha = source.Channel("alpha");
    std::vector<float> points, normals;
    std::vector<std::uint32_t> triangles;
    source.Children({{"points", [&] { points = source.Points(); }},
                     {"normals", [&] { normals = source.Points(); }},
                     {"triangles", [&] { triangles = source.Array<std::uint32_t>(); }}});
    if (source.Failed()) return;
    if (normals.size() == 3)
        for (normals.reserve(points.size()); normals.size() < points.size();)
            normals.push_back(*(normals.end() - 3));
    if (points.size() != normals.size())
        return source.FailAt(line, QStringLiteral("a face has %1 points but %2 normals")
                                       .arg(points.size() / 3)
                                       .arg(normals.size() / 3));
    if (triangles.size() % 3 != 0)
        return source.FailAt(line, QStringLiteral("the number of triangle corners is no multiple of 3"));
    auto const wrong = std::find_if(triangles.begin(), triangles.end(),
                                    [&points](std::uint32_t index) { return index >= points.size() / 3; });
    if (wrong != triangles.end())
        return source.FailAt(line, QStringLiteral("a triangle names point %1 of a face that has %2")
                                       .arg(*wrong)
                                       .arg(points.size() / 3));
    auto& face =
        body.AddFace(id.value_or(DefaultId(body, "face", body.faces.size())), points, normals, triangles);
    face.colour = colour;
    face.alpha = alpha;
}

void ReadEdge(XmlSource& source, BrepBody& body)
{
    auto const id = source.NumberOf<Id>("id");
    auto const colour = source.Colour("colour");
    auto const points = source.Points();
    body.AddEdge(id.value_or(DefaultId(body, "edge", body.edges.size())), points).colour = colour;
}

void ReadVertex(XmlSource& source, BrepBody& body)
{
    auto const id = source.NumberOf<Id>("id");
    body.AddVertex(id.value_or(DefaultId(body, "vertex", body.vertices.size())), source.Tuple<3>());
}

/// Every face and edge lies within the arrays of its body.
bool AreRunsInside(BrepBody const& body)
{
    auto const fits = [](std::uint64_t first, std::uint64_t count, std::size_t size) {
        return 3 * (first + count) <= size;
    };
    bool const facesFit = std::all_of(body.faces.begin(), body.faces.end(), [&](BrepFace const& face) {
        if (!fits(face.firstPoint, face.pointCount, body.points.size()) ||
            !fits(face.firstTriangle, face.triangleCount, body.triangles.size()))
            return false;
        auto const corners = body.TrianglesOf(face);
        return std::all_of(corners.begin(), corners.end(),
                           [&](std::uint32_t corner) { return corner < face.pointCount; });
    });
    return facesFit && body.points.size() == body.normals.size() &&
           std::all_of(body.edges.begin(), body.edges.end(), [&](BrepEdge const& edge) {
               return fits(edge.firstPoint, edge.pointCount, body.edgePoints.size());
           });
}

} // namespace

BrepBody ReadBody(XmlSource& source, Id fallback)
{
    BrepBody body;
    body.id = source.NumberOf<Id>("id").value_or(fallback);
    body.name = source.Text("name");
    body.colour = source.Colour("colour");
    body.alpha = source.Channel("alpha");
    body.hidden = source.Flag("hidden");
    source.Children({{"faces", [&] { body.faces = source.Records<BrepFace>(); }},
                     {"edges", [&] { body.edges = source.Records<BrepEdge>(); }},
                     {"vertices", [&] { body.vertices = source.Records<BrepVertex>(); }},
                     {"all_points", [&] { body.points = source.Array<float>(); }},
                     {"all_normals", [&] { body.normals = source.Array<float>(); }},
                     {"all_triangles", [&] { body.triangles = source.Array<std::uint32_t>(); }},
                     {"edge_points", [&] { body.edgePoints = source.Array<float>(); }},
                     {"face", [&] { ReadFace(source, body); }},
                     {"edge", [&] { ReadEdge(source, body); }},
                     {"vertex", [&] { ReadVertex(source, body); }}});
    if (!source.Failed() && !AreRunsInside(body)) {
        source.Fail(QStringLiteral("a body names points that it does not have"));
        return {};
    }
    return body;
}

} // namespace NarMetaInfra
