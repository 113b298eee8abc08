#include "zel_xml_parts.h"

#include <algorithm>

namespace NarMetaInfra
{

void WriteBody(XmlSink& sink, BrepBody const& body)
{
    auto const element = sink.Open("body");
    sink.Attribute("id", body.id);
    sink.Attribute("name", body.name);
    sink.Attribute("colour", body.colour);
    sink.Attribute("alpha", body.alpha);
    sink.Flag("hidden", body.hidden);
    for (auto const& face : body.faces) {
        auto const child = sink.Open("face");
        sink.Attribute("id", face.id);
        sink.Attribute("colour", face.colour);
        sink.Attribute("alpha", face.alpha);
        sink.Array("points", body.PointsOf(face));
        sink.Array("normals", body.NormalsOf(face));
        sink.Array("triangles", body.TrianglesOf(face));
    }
    for (auto const& edge : body.edges) {
        auto const child = sink.Open("edge");
        sink.Attribute("id", edge.id);
        sink.Attribute("colour", edge.colour);
        sink.Array("points", body.PointsOf(edge));
    }
    for (auto const& vertex : body.vertices) {
        auto const child = sink.Open("vertex");
        sink.Attribute("id", vertex.id);
        sink.Attribute("point", vertex.point);
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
    auto& face = body.AddFace(id.value_or(NarMeta::HashId(body.id, "face", body.faces.size())), points,
                              normals, triangles);
    face.colour = colour;
    face.alpha = alpha;
}

void ReadEdge(XmlSource& source, BrepBody& body)
{
    auto const id = source.NumberOf<Id>("id");
    auto const colour = source.Colour("colour");
    std::vector<float> points;
    source.Children({{"points", [&] { points = source.Points(); }}});
    body.AddEdge(id.value_or(NarMeta::HashId(body.id, "edge", body.edges.size())), points).colour = colour;
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
                     {"vertex", [&] {
                          auto const id = source.NumberOf<Id>("id");
                          auto const point = source.Tuple<3>("point");
                          body.AddVertex(
                              id.value_or(NarMeta::HashId(body.id, "vertex", body.vertices.size())),
                              point.value_or(std::array<float, 3>{}));
                      }}});
    return body;
}

} // namespace NarMetaInfra
