#include "open_cascade_part.h"

#include "mesh_normals.h"

#include <algorithm>
#include <cmath>

#include <BRepAdaptor_Curve.hxx>
#include <BRep_Tool.hxx>
#include <GCPnts_TangentialDeflection.hxx>
#include <Poly_Polygon3D.hxx>
#include <Poly_PolygonOnTriangulation.hxx>
#include <TopExp_Explorer.hxx>
#include <TopoDS.hxx>
#include <TopoDS_Iterator.hxx>

namespace NarMetaInfra
{
namespace
{
void append(std::vector<float>& list, gp_XYZ const& xyz)
{
    list.push_back(static_cast<float>(xyz.X()));
    list.push_back(static_cast<float>(xyz.Y()));
    list.push_back(static_cast<float>(xyz.Z()));
}

gp_XYZ placed(gp_Pnt const& point, gp_Trsf const& placement)
{
    auto xyz = point.XYZ();
    placement.Transforms(xyz);
    return xyz;
}

// The rotation alone, which keeps directions of length one. A mirror counts as turning inside out, like a
// reversed face.
gp_XYZ turned(gp_XYZ xyz, gp_Trsf const& placement, bool opposite)
{
    xyz.Multiply(placement.HVectorialPart());
    if (opposite) xyz.Reverse();
    return xyz;
}

bool isFinite(std::vector<float> const& list, std::size_t from)
{
    return std::all_of(list.begin() + static_cast<std::ptrdiff_t>(from), list.end(),
                       [](float value) { return std::isfinite(value); });
}

bool hasExtent(std::vector<float> const& points, std::size_t from)
{
    for (auto i = from + 3; i < points.size(); ++i)
        if (points[i] != points[i - 3]) return true;
    return false;
}

std::uint32_t pointCountOf(std::vector<float> const& list)
{
    return static_cast<std::uint32_t>(list.size() / 3);
}
} // namespace

PartConverter::PartConverter(KernelDocument const& document, Id partId,
                             TessellationTolerance const& tolerance)
    : Document(document), PartId(partId), Tolerance(tolerance)
{
}

void PartConverter::add(TopoDS_Shape const& shape, PartStyles const& styles)
{
    Styles = &styles;
    Group group{shape, {}, {}, {}};
    visit(shape, {}, &group);
    convert(group);
    Styles = nullptr;
}

std::vector<BrepBody> PartConverter::takeBodies()
{
    return std::move(Bodies);
}

std::string PartConverter::droppedText() const
{
    constexpr std::size_t MostNamed = 8;
    if (DroppedFaces.empty()) return {};
    auto text = std::to_string(DroppedFaces.size());
    std::string names;
    for (auto const number : DroppedFaces)
        if (number != 0 && names.size() < MostNamed * 8)
            names += (names.empty() ? " (#" : ", #") + std::to_string(number);
    return names.empty() ? text : text + names + ")";
}

void PartConverter::visit(TopoDS_Shape const& shape, ShapeStyle const& outer, Group* group)
{
    auto const own = Styles->of(shape);
    auto style = own ? inherited(outer, *own) : outer;
    style.hidden |= Document.hiddenShapes.contains(shape.TShape().get());
    switch (shape.ShapeType()) {
    case TopAbs_COMPOUND:
    case TopAbs_COMPSOLID: {
        Group inside{shape, style, {}, {}};
        visitChildren(shape, style, &inside);
        convert(inside);
        break;
    }
    case TopAbs_SOLID: {
        Group solid{shape, style, {}, {}};
        visitChildren(shape, style, &solid);
        convert(solid);
        break;
    }
    case TopAbs_SHELL:
        if (group->shape.ShapeType() == TopAbs_SOLID) {
            visitChildren(shape, style, group);
        } else {
            Group shell{shape, style, {}, {}};
            visitChildren(shape, style, &shell);
            convert(shell);
        }
        break;
    case TopAbs_FACE:
        group->faces.emplace_back(TopoDS::Face(shape), style);
        break;
    case TopAbs_WIRE:
        visitChildren(shape, style, group);
        break;
    case TopAbs_EDGE:
    case TopAbs_VERTEX:
        group->loose.emplace_back(shape, style);
        break;
    case TopAbs_SHAPE:
        break;
    }
}

void PartConverter::visitChildren(TopoDS_Shape const& shape, ShapeStyle const& style, Group* group)
{
    for (TopoDS_Iterator child(shape); child.More(); child.Next()) visit(child.Value(), style, group);
}

void PartConverter::convert(Group const& group)
{
    for (bool const hidden : {false, true}) {
        for (bool const loose : {false, true}) {
            BrepBody body;
            SeenEdges.Clear();
            SeenVertices.Clear();
            if (loose)
                fillLoose(body, group, hidden);
            else
                fillFaces(body, group, hidden);
            if (body.faces.empty() && body.edges.empty() && body.vertices.empty()) continue;
            body.id = idOf(group.shape, loose ? "wire body" : "body");
            if (auto const name = Document.solidNames.find(group.shape.TShape().get());
                name != Document.solidNames.end())
                body.name = name->second;
            body.hidden = hidden;
            if (!loose) {
                body.colour = group.style.colour;
                body.alpha = group.style.alpha;
            }
            Bodies.push_back(std::move(body));
        }
    }
}

void PartConverter::fillFaces(BrepBody& body, Group const& group, bool hidden)
{
    std::size_t points = 0, triangles = 0, count = 0;
    for (auto const& [face, style] : group.faces) {
        TopLoc_Location location;
        auto const mesh = BRep_Tool::Triangulation(face, location);
        if (style.hidden != hidden || mesh.IsNull()) continue;
        points += static_cast<std::size_t>(mesh->NbNodes());
        triangles += static_cast<std::size_t>(mesh->NbTriangles());
        ++count;
    }
    body.faces.reserve(count);
    body.points.reserve(3 * points);
    body.normals.reserve(3 * points);
    body.triangles.reserve(3 * triangles);

    for (auto const& [face, style] : group.faces) {
        if (style.hidden != hidden) continue;
        if (!addFace(body, face, style)) {
            auto const number = Document.entityNumbers.find(face.TShape().get());
            DroppedFaces.push_back(number == Document.entityNumbers.end() ? 0 : number->second);
            continue;
        }
        if (style.colour != group.style.colour || style.alpha != group.style.alpha) {
            body.faces.back().colour = style.colour;
            body.faces.back().alpha = style.alpha;
            HasFaceColours = true;
        }
    }
    for (auto const& [face, style] : group.faces)
        if (style.hidden == hidden) addFaceEdges(body, face);
    for (auto const& [face, style] : group.faces)
        if (style.hidden == hidden) addVertices(body, face);
}

void PartConverter::fillLoose(BrepBody& body, Group const& group, bool hidden)
{
    for (auto const& [shape, style] : group.loose) {
        if (style.hidden != hidden) continue;
        auto const colour = style.curveColour ? style.curveColour : style.colour;
        if (shape.ShapeType() == TopAbs_EDGE && SeenEdges.Add(shape))
            addEdge(body, TopoDS::Edge(shape), colour);
        addVertices(body, shape);
    }
}

bool PartConverter::addFace(BrepBody& body, TopoDS_Face const& face, ShapeStyle const& style)
{
    TopLoc_Location location;
    auto const mesh = BRep_Tool::Triangulation(face, location);
    if (mesh.IsNull() || mesh->NbTriangles() == 0) return false;
    auto const placement = location.Transformation();
    bool const isFlipped = (face.Orientation() == TopAbs_REVERSED) != placement.IsNegative();

    std::vector<std::uint32_t> sources;
    BrepFace record;
    record.firstPoint = pointCountOf(body.points);
    record.firstTriangle = static_cast<std::uint32_t>(body.triangles.size() / 3);
    if (mesh->HasNormals()) {
        for (Standard_Integer i = 1; i <= mesh->NbNodes(); ++i) {
            append(body.points, placed(mesh->Node(i), placement));
            gp_Vec3f normal;
            mesh->Normal(i, normal);
            append(body.normals, turned({normal.x(), normal.y(), normal.z()}, placement, isFlipped));
        }
        for (Standard_Integer i = 1; i <= mesh->NbTriangles(); ++i) {
            Standard_Integer a = 0, b = 0, c = 0;
            mesh->Triangle(i).Get(a, b, c);
            if (isFlipped) std::swap(b, c);
            for (auto const node : {a, b, c}) body.triangles.push_back(static_cast<std::uint32_t>(node - 1));
        }
    } else if (!addSmoothedFace(body, mesh, placement, isFlipped, sources)) {
        return false;
    }
    auto const start = std::size_t{3} * record.firstPoint;
    if (!isFinite(body.points, start) || !isFinite(body.normals, start) || !hasExtent(body.points, start)) {
        body.points.resize(start);
        body.normals.resize(start);
        body.triangles.resize(std::size_t{3} * record.firstTriangle);
        return false;
    }
    record.pointCount = pointCountOf(body.points) - record.firstPoint;
    record.triangleCount = static_cast<std::uint32_t>(body.triangles.size() / 3) - record.firstTriangle;
    record.id = idOf(face, "face");
    body.faces.push_back(record);
    FaceIds.emplace(face.TShape().get(), record.id);
    if (Materials) addSurface(record.id, *mesh, style, sources);
    return true;
}

bool PartConverter::addSmoothedFace(BrepBody& body, Handle(Poly_Triangulation) const& source,
                                    gp_Trsf const& placement, bool flipped,
                                    std::vector<std::uint32_t>& sources)
{
    std::vector<float> points;
    std::vector<std::uint32_t> triangles;
    points.reserve(3 * static_cast<std::size_t>(source->NbNodes()));
    triangles.reserve(3 * static_cast<std::size_t>(source->NbTriangles()));
    for (Standard_Integer i = 1; i <= source->NbNodes(); ++i)
        append(points, placed(source->Node(i), placement));
    for (Standard_Integer i = 1; i <= source->NbTriangles(); ++i) {
        Standard_Integer a = 0, b = 0, c = 0;
        source->Triangle(i).Get(a, b, c);
        if (std::min({a, b, c}) < 1 || std::max({a, b, c}) > source->NbNodes()) return false;
        if (flipped) std::swap(b, c);
        for (auto const node : {a, b, c}) triangles.push_back(static_cast<std::uint32_t>(node - 1));
    }
    auto mesh = smoothMesh(points, triangles);
    sources = std::move(mesh.sources);
    body.points.insert(body.points.end(), mesh.points.begin(), mesh.points.end());
    body.normals.insert(body.normals.end(), mesh.normals.begin(), mesh.normals.end());
    body.triangles.insert(body.triangles.end(), mesh.triangles.begin(), mesh.triangles.end());
    return true;
}

void PartConverter::addSurface(Id face, Poly_Triangulation const& mesh, ShapeStyle const& style,
                               std::vector<std::uint32_t> const& sources)
{
    FaceSurface surface;
    surface.material = Materials->of(style.material);
    if (mesh.HasUVNodes()) {
        auto const* const use = Materials->coordinateUse(style.material);
        auto const count = sources.empty() ? static_cast<std::size_t>(mesh.NbNodes()) : sources.size();
        surface.textureCoordinates.reserve(2 * count);
        for (std::size_t i = 0; i < count; ++i) {
            auto const node = static_cast<Standard_Integer>(sources.empty() ? i : sources[i]) + 1;
            auto const uv = mesh.UVNode(node);
            std::array pair{static_cast<float>(uv.X()), static_cast<float>(uv.Y())};
            if (use) pair = use->moved(pair[0], pair[1]);
            for (float const x : pair) surface.textureCoordinates.push_back(std::isfinite(x) ? x : 0.0f);
        }
    }
    if (surface.material || !surface.textureCoordinates.empty()) Surfaces.emplace(face, std::move(surface));
}

void PartConverter::addFaceEdges(BrepBody& body, TopoDS_Face const& face)
{
    TopLoc_Location location;
    auto const mesh = BRep_Tool::Triangulation(face, location);
    auto const placement = location.Transformation();
    for (TopExp_Explorer explorer(face, TopAbs_EDGE); explorer.More(); explorer.Next()) {
        auto const& edge = TopoDS::Edge(explorer.Current());
        if (BRep_Tool::Degenerated(edge) || !SeenEdges.Add(edge)) continue;
        auto const own = Styles->of(edge);
        auto const colour = own ? (own->curveColour ? own->curveColour : own->colour) : std::nullopt;
        Handle(Poly_PolygonOnTriangulation) polygon;
        if (!mesh.IsNull()) polygon = BRep_Tool::PolygonOnTriangulation(edge, mesh, location);
        if (polygon.IsNull()) {
            addEdge(body, edge, colour);
            continue;
        }
        auto const first = pointCountOf(body.edgePoints);
        for (Standard_Integer i = 1; i <= polygon->NbNodes(); ++i)
            append(body.edgePoints, placed(mesh->Node(polygon->Node(i)), placement));
        finishEdge(body, edge, first);
        if (!body.edges.empty() && body.edges.back().firstPoint == first) body.edges.back().colour = colour;
    }
}

void PartConverter::addEdge(BrepBody& body, TopoDS_Edge const& edge, std::optional<Colour> colour)
{
    auto const first = pointCountOf(body.edgePoints);
    TopLoc_Location location;
    if (auto const polygon = BRep_Tool::Polygon3D(edge, location); !polygon.IsNull()) {
        for (auto const& node : polygon->Nodes())
            append(body.edgePoints, placed(node, location.Transformation()));
    } else if (BRep_Tool::IsGeometric(edge)) {
        try {
            BRepAdaptor_Curve const curve(edge);
            GCPnts_TangentialDeflection const points(curve, Tolerance.angle, Tolerance.distance);
            for (Standard_Integer i = 1; i <= points.NbPoints(); ++i)
                append(body.edgePoints, points.Value(i).XYZ());
        } catch (Standard_Failure const&) {
            // An unbounded or broken curve has no picture; finishEdge drops what stands so far.
            body.edgePoints.resize(std::size_t{3} * first);
        }
    }
    finishEdge(body, edge, first);
    if (!body.edges.empty() && body.edges.back().firstPoint == first) body.edges.back().colour = colour;
}

void PartConverter::finishEdge(BrepBody& body, TopoDS_Edge const& edge, std::uint32_t first)
{
    auto const count = pointCountOf(body.edgePoints) - first;
    if (count < 2 || !isFinite(body.edgePoints, std::size_t{3} * first)) {
        body.edgePoints.resize(std::size_t{3} * first);
        return;
    }
    BrepEdge record;
    record.id = idOf(edge, "edge");
    record.firstPoint = first;
    record.pointCount = count;
    body.edges.push_back(record);
}

void PartConverter::addVertices(BrepBody& body, TopoDS_Shape const& shape)
{
    for (TopExp_Explorer explorer(shape, TopAbs_VERTEX); explorer.More(); explorer.Next()) {
        auto const& vertex = TopoDS::Vertex(explorer.Current());
        if (!SeenVertices.Add(vertex)) continue;
        auto const point = BRep_Tool::Pnt(vertex);
        BrepVertex record;
        record.point = {static_cast<float>(point.X()), static_cast<float>(point.Y()),
                        static_cast<float>(point.Z())};
        if (!std::ranges::all_of(record.point, [](float x) { return std::isfinite(x); })) continue;
        record.id = idOf(vertex, "vertex");
        body.vertices.push_back(record);
    }
}

Id PartConverter::idOf(TopoDS_Shape const& shape, std::string_view kind)
{
    auto const number = Document.entityNumbers.find(shape.TShape().get());
    bool const isNumbered = number != Document.entityNumbers.end();
    auto const ordinal = Ordinals[kind]++;
    auto id = isNumbered ? NarMeta::HashId(NarMeta::HashId(PartId, "entity", 0), kind,
                                           static_cast<Id>(number->second))
                         : NarMeta::HashId(PartId, kind, ordinal);
    // One entity may stand in a part several times, put in different places.
    for (Id repeat = 1; !Used.insert(id).second; ++repeat) id = NarMeta::HashId(id, "repeat", repeat);
    if (isNumbered && Namer) Namer(number->second, id);
    return id;
}
} // namespace NarMetaInfra
