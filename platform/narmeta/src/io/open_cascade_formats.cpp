#include "open_cascade_document.h"
#include "open_cascade_guard.h"
#include "stage_clock.h"
#include "step_identity.h"
#include "text_encoding.h"

#include <BRepTools.hxx>
#include <BRep_Builder.hxx>
#include <IGESCAFControl_Reader.hxx>
#include <IGESControl_Controller.hxx>
#include <Interface_Static.hxx>
#include <Message_ProgressScope.hxx>
#include <RWGltf_CafReader.hxx>
#include <RWObj_CafReader.hxx>
#include <RWStl.hxx>
#include <TDF_LabelSequence.hxx>
#include <TDataStd_Name.hxx>
#include <TopoDS_Face.hxx>
#include <XSControl_WorkSession.hxx>

namespace NarMetaInfra
{
namespace
{
constexpr double MillimetreInMetres = 0.001;

LoadFailure damaged(char const* format, std::optional<std::string> const& cause = {})
{
    return {IoOutcome::Damaged, "The " + std::string(format) + " file is damaged: it can't be read" +
                                    (cause ? " (" + *cause + ")." : ".")};
}

LoadFailure nothing(char const* format)
{
    return {IoOutcome::NothingToShow, "The " + std::string(format) + " file holds nothing to show."};
}

void addShape(KernelDocument& document, TopoDS_Shape const& shape)
{
    auto const label = document.shapes()->AddShape(shape, false);
    TDataStd_Name::Set(label, TCollection_ExtendedString(utf8FromWide(document.title).c_str(), true));
}

LoadOutcome loadMeshScene(RWMesh_CafReader& reader, char const* format, std::filesystem::path const& file,
                          KernelDocument& document, LoadTimes& times, Message_ProgressRange const& range)
{
    StageClock const clock(times.parse);
    document.isMesh = true;
    reader.SetDocument(document.document);
    reader.SetSystemLengthUnit(MillimetreInMetres);
    bool done = false;
    auto const failure = guarded([&] { done = reader.Perform(file.c_str(), range); });
    if (range.UserBreak()) return std::nullopt;
    if (failure || !done) return damaged(format, failure);
    if (!document.hasShapes()) return nothing(format);
    return std::nullopt;
}
} // namespace

LoadOutcome loadIges(std::filesystem::path const& file, KernelDocument& document, LoadTimes& times,
                     Message_ProgressRange const& range)
{
    IGESControl_Controller::Init();
    Interface_Static::SetCVal("xstep.cascade.unit", "MM");
    IGESCAFControl_Reader reader;
    reader.SetNameMode(true);
    reader.SetColorMode(true);
    reader.SetLayerMode(true);
    document.hasByteNames = true;
    {
        StageClock const clock(times.parse);
        auto status = IFSelect_RetVoid;
        auto const failure = guarded([&] { status = reader.ReadFile(file.c_str()); });
        if (failure || status != IFSelect_RetDone) return damaged("IGES", failure);
    }
    StageClock const clock(times.transfer);
    auto failure = guarded([&] { reader.Transfer(document.document, range); });
    if (range.UserBreak()) return std::nullopt;
    if (!document.hasShapes()) return failure ? damaged("IGES", failure) : nothing("IGES");
    if (failure)
        document.warnings.push_back("Part of the IGES file could not be translated (" + *failure + ").");
    failure = guarded([&] { numberEntities(reader.WS(), document); });
    if (failure) document.warnings.push_back("Entities of the IGES file could not be identified.");
    return std::nullopt;
}

LoadOutcome loadBrep(std::filesystem::path const& file, KernelDocument& document, LoadTimes& times,
                     Message_ProgressRange const& range)
{
    StageClock const clock(times.parse);
    TopoDS_Shape shape;
    bool done = false;
    auto const failure = guarded([&] { done = BRepTools::Read(shape, file.c_str(), BRep_Builder(), range); });
    if (range.UserBreak()) return std::nullopt;
    if (failure || !done) return damaged("BREP", failure);
    if (shape.IsNull()) return nothing("BREP");
    addShape(document, shape);
    return std::nullopt;
}

LoadOutcome loadGltf(std::filesystem::path const& file, KernelDocument& document, LoadTimes& times,
                     Message_ProgressRange const& range)
{
    RWGltf_CafReader reader;
    // Lengths are metres and y points up by the format's own definition; the model has millimetres and z up.
    reader.SetSystemCoordinateSystem(RWMesh_CoordinateSystem_Zup);
    return loadMeshScene(reader, "glTF", file, document, times, range);
}

LoadOutcome loadObj(std::filesystem::path const& file, KernelDocument& document, LoadTimes& times,
                    Message_ProgressRange const& range)
{
    // The format states neither unit nor direction: numbers are taken as they are.
    RWObj_CafReader reader;
    return loadMeshScene(reader, "OBJ", file, document, times, range);
}

LoadOutcome loadStl(std::filesystem::path const& file, KernelDocument& document, LoadTimes& times,
                    Message_ProgressRange const& range)
{
    StageClock const clock(times.parse);
    document.isMesh = true;
    Handle(Poly_Triangulation) triangles;
    auto const failure = guarded([&] { triangles = RWStl::ReadFile(file.c_str(), range); });
    if (range.UserBreak()) return std::nullopt;
    if (failure || triangles.IsNull()) return damaged("STL", failure);
    if (triangles->NbTriangles() == 0) return nothing("STL");
    TopoDS_Face face;
    BRep_Builder().MakeFace(face, triangles);
    addShape(document, face);
    return std::nullopt;
}
} // namespace NarMetaInfra
