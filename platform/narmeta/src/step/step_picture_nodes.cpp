#include "step_picture_nodes.h"

#include <algorithm>

namespace NarMetaInfra
{
namespace
{
using namespace NarMetaVisu;

// Lines of this width on the drawing are as wide as the scene's lines.
constexpr double PlainWidth = 0.35;
constexpr double GreatestWeight = 4.0;

void append(std::vector<float>& list, StepPoint const& point)
{
    for (double const x : point) list.push_back(static_cast<float>(x));
}

std::vector<float> flat(std::vector<StepPoint> const& points)
{
    std::vector<float> list;
    list.reserve(3 * points.size());
    for (auto const& point : points) append(list, point);
    return list;
}

std::shared_ptr<Attributes> lineAttributes(StepLook const& look)
{
    auto attributes = std::make_shared<Attributes>();
    attributes->SetColour(look.line);
    LineAttribute line;
    bool const isThick = look.width && *look.width > PlainWidth;
    if (look.pattern) line.SetLineStyle(*look.pattern);
    if (isThick) line.SetLineWeight(static_cast<float>(std::min(*look.width / PlainWidth, GreatestWeight)));
    if (look.pattern || isThick) attributes->SetLineAttribute(line);
    return attributes->HasData() ? attributes : nullptr;
}

std::shared_ptr<Attributes> fillAttributes(StepLook const& look)
{
    auto const& ink = look.fill ? look.fill : look.line;
    if (!ink) return nullptr;
    auto attributes = std::make_shared<Attributes>();
    attributes->SetColour(ink);
    return attributes;
}

std::shared_ptr<EdgeRep> edgeOf(StepPicture::Line const& line)
{
    bool const isClosed = line.points.size() > 3 && line.points.front() == line.points.back();
    auto points = flat(line.points);
    if (isClosed) points.resize(points.size() - 3);
    auto edge = std::make_shared<EdgeRep>(std::move(points),
                                          isClosed ? VisuEdgeLineType::Closed : VisuEdgeLineType::Open);
    edge->SetAttributes(lineAttributes(line.look));
    return edge;
}

// All fillings that look alike become one face, so that a text is one geometry.
void addFills(MeshRep& mesh, std::vector<StepPicture::Fill> const& fills)
{
    for (auto first = fills.begin(); first != fills.end();) {
        auto const last =
            std::find_if(first, fills.end(), [&](auto const& fill) { return fill.look != first->look; });
        std::vector<float> points, normals;
        std::vector<int> indices;
        for (auto fill = first; fill != last; ++fill) {
            auto const offset = static_cast<int>(points.size());
            for (auto const& point : fill->points) append(points, point);
            for (auto const& normal : fill->normals) append(normals, normal);
            for (auto const& triangle : fill->triangles)
                for (int const corner : triangle) indices.push_back(offset + 3 * corner);
        }
        auto face = std::make_shared<FaceRep>(std::move(points), std::move(normals));
        face->AddPolygon(PolygonRep(VisuPolygonType::Triangles, std::move(indices)));
        face->SetAttributes(fillAttributes(first->look));
        mesh.AddFace(std::move(face));
        first = last;
    }
}

void addAreas(MeshRep& mesh, std::vector<StepPicture::Area> const& areas)
{
    for (auto const& area : areas) {
        std::vector<PolygonLoopRep> loops;
        for (auto const& outline : area.outlines)
            loops.emplace_back(
                std::vector{std::make_shared<EdgeRep>(flat(outline), VisuEdgeLineType::Closed)});
        auto face = std::make_shared<FaceRep>();
        face->AddPolygon(PolygonRep(std::move(loops)));
        face->SetAttributes(fillAttributes(area.look));
        mesh.AddFace(std::move(face));
    }
}

std::shared_ptr<TextRep> textOf(StepPicture::Text const& text)
{
    auto made = std::make_shared<TextRep>(text.words);
    std::vector<float> matrix;
    for (auto const* const axis : {&text.place.x, &text.place.y, &text.place.z, &text.place.origin}) {
        append(matrix, *axis);
        matrix.push_back(axis == &text.place.origin ? 1.0f : 0.0f);
    }
    std::array<float, 16> elements;
    std::ranges::copy(matrix, elements.begin());
    made->SetTransform(elements);
    if (text.size > 0.0) made->SetFont({{}, static_cast<float>(text.size), {}, {}, {}});
    made->SetColour(text.look.fill ? text.look.fill : text.look.line);
    return made;
}
} // namespace

std::shared_ptr<PmiRep> makeStepPicture(StepPicture const& picture, NarMeta::Id id, std::wstring const& name)
{
    auto rep = std::make_shared<PmiRep>(id, name);
    for (auto const& line : picture.lines) rep->AddEdge(edgeOf(line));
    for (auto const& text : picture.texts) rep->AddString(textOf(text));
    if (!picture.fills.empty() || !picture.areas.empty()) {
        auto mesh = std::make_shared<MeshRep>(NarMeta::HashId(id, "filling", 0), name);
        addFills(*mesh, picture.fills);
        addAreas(*mesh, picture.areas);
        rep->SetMesh(std::move(mesh));
    }
    return rep;
}
} // namespace NarMetaInfra
