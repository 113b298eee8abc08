#include "many_parts.h"

#include <BRepAlgoAPI_Cut.hxx>
#include <BRepAlgoAPI_Fuse.hxx>
#include <BRepFilletAPI_MakeFillet.hxx>
#include <BRepPrimAPI_MakeBox.hxx>
#include <BRepPrimAPI_MakeCylinder.hxx>
#include <Quantity_Color.hxx>
#include <STEPCAFControl_Writer.hxx>
#include <TDataStd_Name.hxx>
#include <TDocStd_Document.hxx>
#include <TopExp_Explorer.hxx>
#include <TopoDS.hxx>
#include <XCAFApp_Application.hxx>
#include <XCAFDoc_ColorTool.hxx>
#include <XCAFDoc_DocumentTool.hxx>
#include <XCAFDoc_ShapeTool.hxx>

namespace
{
constexpr double Thickness = 8.0; // mm
constexpr double Pitch = 20.0;    // between bores

// A plate of `columns` by two bores, whose edges are rounded.
TopoDS_Shape plate(int columns, double radius)
{
    TopoDS_Shape shape = BRepPrimAPI_MakeBox(Pitch * columns, 2 * Pitch, Thickness).Shape();
    BRepFilletAPI_MakeFillet fillet(shape);
    for (TopExp_Explorer edge(shape, TopAbs_EDGE); edge.More(); edge.Next())
        fillet.Add(1.0, TopoDS::Edge(edge.Current()));
    shape = fillet.Shape();
    for (int column = 0; column < columns; ++column) {
        for (int row = 0; row < 2; ++row) {
            gp_Ax2 const axis(gp_Pnt(Pitch * (column + 0.5), Pitch * (row + 0.5), -1.0), gp::DZ());
            shape = BRepAlgoAPI_Cut(
                        shape, BRepPrimAPI_MakeCylinder(axis, radius + 0.1 * column, Thickness + 2).Shape())
                        .Shape();
        }
    }
    gp_Ax2 const top(gp_Pnt(Pitch, Pitch, Thickness - 1.0), gp::DZ());
    return BRepAlgoAPI_Fuse(shape, BRepPrimAPI_MakeCylinder(top, 2.0, Thickness).Shape()).Shape();
}
} // namespace

bool writeManyParts(std::filesystem::path const& file, int count)
{
    Handle(TDocStd_Document) document;
    XCAFApp_Application::GetApplication()->NewDocument("BinXCAF", document);
    auto const shapes = XCAFDoc_DocumentTool::ShapeTool(document->Main());
    auto const colors = XCAFDoc_DocumentTool::ColorTool(document->Main());
    auto const assembly = shapes->NewShape();
    TDataStd_Name::Set(assembly, "plates");
    for (int i = 0; i < count; ++i) {
        auto const part = shapes->AddShape(plate(2 + i % 7, 2.0 + 0.01 * i), false);
        TDataStd_Name::Set(part, TCollection_ExtendedString("plate ") + (i + 1));
        colors->SetColor(part, Quantity_Color(0.2 + 0.6 * (i % 5) / 5.0, 0.5, 0.7, Quantity_TOC_RGB),
                         XCAFDoc_ColorSurf);
        for (int copy = 0; copy < 2; ++copy) {
            gp_Trsf place;
            place.SetTranslation(gp_Vec(180.0 * (2 * (i % 10) + copy), 50.0 * (i / 10), 0.0));
            shapes->AddComponent(assembly, part, TopLoc_Location(place));
        }
    }
    shapes->UpdateAssemblies();
    STEPCAFControl_Writer writer;
    bool const isWritten = writer.Transfer(document) && writer.Write(file.c_str()) == IFSelect_RetDone;
    XCAFApp_Application::GetApplication()->Close(document);
    return isWritten;
}
