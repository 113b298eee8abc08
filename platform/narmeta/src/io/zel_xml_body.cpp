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

} // namespace

void WriteBody(XmlSink& sink, BrepBody const& body)
{
    auto const element = sink.Open("body");
    sink.Attribute("id", body.id);
    sink.Attribute("name", body.name);
    sink.Attribute("colour", body.colour);
    sink.Attribute("alpha", body.alpha);
    sink.Flag("hidden", body.hidden);
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

} // namespace

BrepBody ReadBody(XmlSource& source, Id fallback)
{
    BrepBody body;
    body.id = source.NumberOf<Id>("id").value_or(fallback);
    body.name = source.Text("name");
    body.colour = source.Colour("colour");
    body.alpha = source.Channel("alpha");
    body.hidden = source.Flag("hidden");
    source.Children({{"face", [&] { ReadFace(source, body); }},
                     {"edge", [&] { ReadEdge(source, body); }},
                     {"vertex", [&] { ReadVertex(source, body); }}});
    return body;
}

} // namespace NarMetaInfra
