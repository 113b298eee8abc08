#include "open_cascade_repair.h"

#include "open_cascade_guard.h"
#include "outline_fill.h"

#include <algorithm>

#include <BRepAdaptor_Curve.hxx>
#include <BRepTools_WireExplorer.hxx>
#include <BRep_Builder.hxx>
#include <BRep_Tool.hxx>
#include <GCPnts_TangentialDeflection.hxx>
#include <Geom2d_Curve.hxx>
#include <Geom_Surface.hxx>
#include <Poly_Triangulation.hxx>
#include <TopExp_Explorer.hxx>
#include <TopoDS.hxx>
#include <TopoDS_Face.hxx>

namespace NarMetaInfra
{
namespace
{
// Points of an edge in the face's parameters, in the direction of the wire, without the last one.
void appendEdge(std::vector<Point2>& outline, TopoDS_Edge const& edge, TopoDS_Face const& face,
                TessellationTolerance const& tolerance)
{
    double first = 0.0, last = 0.0;
    auto const curve = BRep_Tool::CurveOnSurface(edge, face, first, last);
    if (curve.IsNull()) return;
    std::vector<double> parameters = {first, last};
    if (!BRep_Tool::Degenerated(edge)) {
        BRepAdaptor_Curve const inSpace(edge, face);
        GCPnts_TangentialDeflection const points(inSpace, first, last, tolerance.angle, tolerance.distance);
        parameters.clear();
        for (Standard_Integer i = 1; i <= points.NbPoints(); ++i) parameters.push_back(points.Parameter(i));
    }
    if (edge.Orientation() == TopAbs_REVERSED) std::ranges::reverse(parameters);
    parameters.pop_back();
    for (auto const parameter : parameters) {
        auto const point = curve->Value(parameter);
        outline.push_back({point.X(), point.Y()});
    }
}

Handle(Poly_Triangulation) filled(TopoDS_Face const& face, TessellationTolerance const& tolerance)
{
    auto const surface = BRep_Tool::Surface(face);
    if (surface.IsNull()) return {};
    std::vector<std::vector<Point2>> outlines;
    for (TopExp_Explorer wire(face, TopAbs_WIRE); wire.More(); wire.Next()) {
        auto& outline = outlines.emplace_back();
        for (BRepTools_WireExplorer edge(TopoDS::Wire(wire.Current()), face); edge.More(); edge.Next())
            appendEdge(outline, edge.Current(), face, tolerance);
    }
    auto mesh = fillOutlines(outlines);
    auto const toSpace = [&](Point2 const& at) {
        auto const point = surface->Value(at[0], at[1]);
        return Point3{point.X(), point.Y(), point.Z()};
    };
    refine(mesh, toSpace, tolerance.distance);
    if (mesh.triangles.empty()) return {};

    auto const pointCount = static_cast<int>(mesh.points.size());
    Handle(Poly_Triangulation) const triangulation =
        new Poly_Triangulation(pointCount, static_cast<int>(mesh.triangles.size()), true);
    for (int i = 0; i < pointCount; ++i) {
        auto const& at = mesh.points[static_cast<std::size_t>(i)];
        triangulation->SetNode(i + 1, surface->Value(at[0], at[1]));
        triangulation->SetUVNode(i + 1, gp_Pnt2d(at[0], at[1]));
    }
    int number = 0;
    for (auto const& [a, b, c] : mesh.triangles) {
        triangulation->SetTriangle(++number, Poly_Triangle(static_cast<int>(a) + 1, static_cast<int>(b) + 1,
                                                           static_cast<int>(c) + 1));
    }
    return triangulation;
}
} // namespace

void fillFailedFaces(TopoDS_Shape const& shape, TessellationTolerance const& tolerance)
{
    for (TopExp_Explorer explorer(shape, TopAbs_FACE); explorer.More(); explorer.Next()) {
        // In its own space and direction, as the triangulation of a face is kept.
        auto const face =
            TopoDS::Face(explorer.Current().Located(TopLoc_Location()).Oriented(TopAbs_FORWARD));
        TopLoc_Location location;
        auto const present = BRep_Tool::Triangulation(face, location);
        if (!present.IsNull() && present->NbTriangles() > 0) continue;
        // A face that fails here too is counted as dropped when the part is converted.
        static_cast<void>(guarded([&] {
            if (auto const triangles = filled(face, tolerance); !triangles.IsNull())
                BRep_Builder().UpdateFace(face, triangles);
        }));
    }
}
} // namespace NarMetaInfra
