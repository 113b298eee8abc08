#include "MemoryFile.h"
#include "PlainGltf.h"
#include "gltf_materials.h"
#include "mesh_text_check.h"
#include "obj_materials.h"
#include "open_cascade_document.h"
#include "open_cascade_guard.h"
#include "stage_clock.h"
#include "step_identity.h"
#include "text_encoding.h"

#include <algorithm>
#include <fstream>

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
#include <TopoDS_Iterator.hxx>
#include <XSControl_WorkSession.hxx>

namespace NarMetaInfra
{
namespace
{
constexpr double MillimetreInMetres = 0.001;

LoadFailure damaged(char const* format, std::optional<std::string> const& cause = {})
{
    return {IoOutcome::Damaged, "the " + std::string(format) + " file is damaged: it can't be read" +
                                    (cause ? " (" + *cause + ")" : "")};
}

LoadFailure nothing(char const* format)
{
    return {IoOutcome::NothingToShow, "the " + std::string(format) + " file holds nothing to show"};
}

std::string endsEarly(char const* format)
{
    return "the " + std::string(format) + " file ends early; what it lost is missing from the model";
}

// The last record of an IGES file has the letter T in column 73.
bool isIgesComplete(std::filesystem::path const& file)
{
    std::ifstream stream(file, std::ios::binary);
    constexpr std::streamoff TailLength = 400;
    stream.seekg(0, std::ios::end);
    stream.seekg(-std::min<std::streamoff>(TailLength, stream.tellg()), std::ios::end);
    std::string line, last;
    while (std::getline(stream, line))
        if (line.size() > 72) last = line;
    return !last.empty() && last[72] == 'T';
}

void nameLabel(TDF_Label const& label, KernelDocument const& document)
{
    TDataStd_Name::Set(label, TCollection_ExtendedString(utf8FromWide(document.title).c_str(), true));
}

void addShape(KernelDocument& document, TopoDS_Shape const& shape)
{
    nameLabel(document.shapes()->AddShape(shape, false), document);
}

// A mesh node without a transform stands in the document as the mesh itself, and if other nodes share that
// mesh, no longer as a root. The shape that the reader hands out still has all roots, in the order of the
// labels.
void findRoots(RWMesh_CafReader const& reader, KernelDocument& document)
{
    auto const shapes = document.shapes();
    auto const free = document.rootLabels();
    auto const whole = reader.SingleShape();
    if (free.size() <= 1 || whole.IsNull()) return;
    std::vector<TDF_Label> roots;
    auto next = free.begin();
    for (TopoDS_Iterator root(whole); root.More(); root.Next()) {
        TDF_Label label;
        bool const isPlain = root.Value().Location().IsIdentity() && shapes->FindShape(root.Value(), label);
        if (isPlain && !shapes->IsFree(label))
            roots.push_back(label);
        else if (next != free.end())
            roots.push_back(*next++);
        else
            return;
    }
    if (next == free.end()) document.knownRoots = std::move(roots);
}

LoadOutcome loadMeshScene(RWMesh_CafReader& reader, char const* format, std::filesystem::path const& file,
                          KernelDocument& document, LoadSupport const& support,
                          Message_ProgressRange const& range)
{
    StageClock const clock(support.times.parse);
    document.isMesh = true;
    reader.SetDocument(document.document);
    reader.SetSystemLengthUnit(MillimetreInMetres);
    bool done = false;
    auto const failure = guarded([&] { done = reader.Perform(file.c_str(), range); });
    if (range.UserBreak()) return std::nullopt;
    if (failure || !done) return damaged(format, failure);
    findRoots(reader, document);
    if (!document.hasShapes()) return nothing(format);
    return std::nullopt;
}
} // namespace

LoadOutcome loadIges(std::filesystem::path const& file, KernelDocument& document, LoadSupport const& support,
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
        StageClock const clock(support.times.parse);
        auto status = IFSelect_RetVoid;
        auto const failure = guarded([&] { status = reader.ReadFile(file.c_str()); });
        if (failure || status != IFSelect_RetDone) return damaged("IGES", failure);
    }
    StageClock const clock(support.times.transfer);
    auto failure = guarded([&] { reader.Transfer(document.document, range); });
    if (range.UserBreak()) return std::nullopt;
    if (!document.hasShapes())
        return failure || !isIgesComplete(file) ? damaged("IGES", failure) : nothing("IGES");
    if (!isIgesComplete(file)) document.warnings.push_back(endsEarly("IGES"));
    if (failure)
        document.warnings.push_back("part of the IGES file could not be translated (" + *failure + ")");
    failure = guarded([&] { numberEntities(reader.WS(), document); });
    if (failure) document.warnings.push_back("entities of the IGES file could not be identified");
    return std::nullopt;
}

LoadOutcome loadBrep(std::filesystem::path const& file, KernelDocument& document, LoadSupport const& support,
                     Message_ProgressRange const& range)
{
    StageClock const clock(support.times.parse);
    TopoDS_Shape shape;
    // The kernel's parser looks for its next keyword beyond the end of a truncated file, for ever unless that
    // throws.
    auto const failure = guarded([&] {
        std::ifstream stream(file, std::ios::binary);
        stream.exceptions(std::ios::failbit | std::ios::badbit);
        BRepTools::Read(shape, stream, BRep_Builder(), range);
    });
    if (range.UserBreak()) return std::nullopt;
    if (failure) return damaged("BREP");
    if (shape.IsNull()) return nothing("BREP");
    addShape(document, shape);
    return std::nullopt;
}

LoadOutcome loadGltf(std::filesystem::path const& file, KernelDocument& document, LoadSupport const& support,
                     Message_ProgressRange const& range)
{
    PlainGltf const source(file);
    if (!source.refusal().empty())
        return LoadFailure{IoOutcome::Damaged, "the glTF file can't be shown: " + source.refusal()};
    RWGltf_CafReader reader;
    // Lengths are metres and y points up by the format's own definition; the model has millimetres and z up.
    reader.SetSystemCoordinateSystem(RWMesh_CoordinateSystem_Zup);
    auto outcome = loadMeshScene(reader, "glTF", source.path(), document, support, range);
    if (outcome || range.UserBreak()) return outcome;
    restoreGltfPlacements(source.document(), document);
    document.materialDetails = readGltfMaterials(source.document());
    document.otherFiles = source.otherFiles();
    for (auto const& warning : source.warnings()) document.warnings.push_back(warning);
    return outcome;
}

LoadOutcome loadObj(std::filesystem::path const& file, KernelDocument& document, LoadSupport const& support,
                    Message_ProgressRange const& range)
{
    // The format states neither unit nor direction: numbers are taken as they are.
    RWObj_CafReader reader;
    auto const ended = endedObj(file);
    MemoryFile const copy(ended.value_or(std::string()));
    auto outcome = loadMeshScene(reader, "OBJ", ended ? copy.path() : file, document, support, range);
    if (!outcome && !isObjTailWhole(tailOf(file))) document.warnings.push_back(endsEarly("OBJ"));
    // The whole bears the name of the file that the kernel saw.
    auto const roots = document.rootLabels();
    if (!outcome && roots.size() == 1) nameLabel(roots.front(), document);
    document.otherFiles = objMaterialFiles(file);
    for (auto const& materials : *document.otherFiles) readObjMaterials(materials, document.materialDetails);
    return outcome;
}

LoadOutcome loadStl(std::filesystem::path const& file, KernelDocument& document, LoadSupport const& support,
                    Message_ProgressRange const& range)
{
    StageClock const clock(support.times.parse);
    document.isMesh = true;
    Handle(Poly_Triangulation) triangles;
    auto const failure = guarded([&] { triangles = RWStl::ReadFile(file.c_str(), range); });
    if (range.UserBreak()) return std::nullopt;
    if (failure || triangles.IsNull()) return damaged("STL", failure);
    if (triangles->NbTriangles() == 0) return nothing("STL");
    if (!isStlTailWhole(headOf(file), tailOf(file))) document.warnings.push_back(endsEarly("STL"));
    TopoDS_Face face;
    BRep_Builder().MakeFace(face, triangles);
    addShape(document, face);
    return std::nullopt;
}
} // namespace NarMetaInfra
