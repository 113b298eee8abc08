#include "open_cascade_export.h"

#include "open_cascade_export_document.h"
#include "open_cascade_guard.h"
#include "text_encoding.h"

#include <algorithm>

#include <BRepTools.hxx>
#include <BRep_Builder.hxx>
#include <BRep_Tool.hxx>
#include <Interface_Static.hxx>
#include <OSD_Path.hxx>
#include <RWGltf_CafWriter.hxx>
#include <RWObj_CafWriter.hxx>
#include <RWStl.hxx>
#include <STEPCAFControl_Controller.hxx>
#include <STEPCAFControl_Writer.hxx>
#include <TColStd_IndexedDataMapOfStringString.hxx>
#include <TopExp_Explorer.hxx>
#include <TopoDS.hxx>
#include <TopoDS_Compound.hxx>
#include <TopoDS_Face.hxx>

#include <unistd.h>

namespace NarMetaInfra
{
namespace
{
constexpr double MillimetreInMetres = 0.001;

TopoDS_Shape wholeShape(KernelDocument const& document)
{
    auto const roots = document.rootLabels();
    if (roots.size() == 1) return XCAFDoc_ShapeTool::GetShape(roots.front());
    BRep_Builder builder;
    TopoDS_Compound whole;
    builder.MakeCompound(whole);
    for (auto const& root : roots) builder.Add(whole, XCAFDoc_ShapeTool::GetShape(root));
    return whole;
}

bool writeStep(std::filesystem::path const& path, KernelDocument& document)
{
    STEPCAFControl_Controller::Init();
    Interface_Static::SetCVal("write.step.unit", "MM");
    STEPCAFControl_Writer writer;
    writer.SetNameMode(true);
    writer.SetColorMode(true);
    return writer.Transfer(document.document, STEPControl_AsIs) &&
           writer.Write(path.c_str()) == IFSelect_RetDone;
}

bool writeGltf(std::filesystem::path const& path, KernelDocument& document)
{
    RWGltf_CafWriter writer(path.c_str(), path.extension() == ".glb");
    writer.ChangeCoordinateSystemConverter().SetInputLengthUnit(MillimetreInMetres);
    writer.ChangeCoordinateSystemConverter().SetInputCoordinateSystem(RWMesh_CoordinateSystem_Zup);
    return writer.Perform(document.document, TColStd_IndexedDataMapOfStringString(), Message_ProgressRange());
}

bool writeObj(std::filesystem::path const& path, KernelDocument& document)
{
    RWObj_CafWriter writer(path.c_str());
    return writer.Perform(document.document, TColStd_IndexedDataMapOfStringString(), Message_ProgressRange());
}

bool writeBrep(std::filesystem::path const& path, KernelDocument& document)
{
    return BRepTools::Write(wholeShape(document), path.c_str());
}

// The format is one heap of triangles.
bool writeStl(std::filesystem::path const& path, KernelDocument& document)
{
    std::vector<gp_Pnt> corners;
    for (TopExp_Explorer face(wholeShape(document), TopAbs_FACE); face.More(); face.Next()) {
        TopLoc_Location location;
        auto const mesh = BRep_Tool::Triangulation(TopoDS::Face(face.Current()), location);
        for (int i = 1; !mesh.IsNull() && i <= mesh->NbTriangles(); ++i)
            for (int k = 1; k <= 3; ++k)
                corners.push_back(
                    mesh->Node(mesh->Triangle(i).Value(k)).Transformed(location.Transformation()));
    }
    auto const count = static_cast<int>(corners.size());
    Handle(Poly_Triangulation) all = new Poly_Triangulation(count, count / 3, false);
    for (int i = 1; i <= count; ++i) all->SetNode(i, corners[static_cast<std::size_t>(i) - 1]);
    for (int i = 1; i <= count / 3; ++i) all->SetTriangle(i, Poly_Triangle(3 * i - 2, 3 * i - 1, 3 * i));
    return RWStl::WriteBinary(all, OSD_Path(path.c_str()));
}

bool write(std::filesystem::path const& path, ExportFormat format, KernelDocument& document)
{
    switch (format) {
    case ExportFormat::Step:
        return writeStep(path, document);
    case ExportFormat::Brep:
        return writeBrep(path, document);
    case ExportFormat::Gltf:
        return writeGltf(path, document);
    case ExportFormat::Obj:
        return writeObj(path, document);
    case ExportFormat::Stl:
        break;
    }
    return writeStl(path, document);
}

/// A folder beside the target in which all files of a format come to be, so that their names are right and
/// nobody sees half of them.
class Workshop
{
public:
    explicit Workshop(std::filesystem::path const& target)
    {
        auto pattern = (std::filesystem::absolute(target).parent_path() / ".write-XXXXXX").string();
        if (mkdtemp(pattern.data())) Folder = pattern;
    }
    ~Workshop()
    {
        std::error_code ignored;
        if (!Folder.empty()) std::filesystem::remove_all(Folder, ignored);
    }
    Workshop(Workshop const&) = delete;
    Workshop& operator=(Workshop const&) = delete;

    std::filesystem::path const& folder() const { return Folder; }
    /// The main file last: whoever sees it finds the others.
    bool deliver(std::filesystem::path const& target) const
    {
        std::error_code error;
        std::vector<std::filesystem::path> files;
        for (auto const& file : std::filesystem::directory_iterator(Folder, error))
            files.push_back(file.path());
        std::ranges::partition(files, [&](auto const& file) { return file.filename() != target.filename(); });
        for (auto const& file : files) {
            std::filesystem::rename(file, std::filesystem::absolute(target).parent_path() / file.filename(),
                                    error);
            if (error) return false;
        }
        return !files.empty();
    }

private:
    std::filesystem::path Folder;
};
} // namespace

std::vector<ExportEntry> const& exportFormats()
{
    static std::vector<ExportEntry> const entries = {
        {ExportFormat::Step, {L"STEP", {L"stp", L"step"}}, true},
        {ExportFormat::Brep, {L"Open CASCADE BREP", {L"brep"}}, true},
        {ExportFormat::Gltf, {L"glTF", {L"glb", L"gltf"}}, false},
        {ExportFormat::Obj, {L"Wavefront OBJ", {L"obj"}}, false},
        {ExportFormat::Stl, {L"STL", {L"stl"}}, false},
    };
    return entries;
}

ExportEntry const* exportFormatOf(std::string_view extension)
{
    for (auto const& entry : exportFormats())
        for (auto const& own : entry.kind.extensions)
            if (std::ranges::equal(own, extension)) return &entry;
    return nullptr;
}

std::wstring writeWithKernel(std::filesystem::path const& path, ExportEntry const& entry,
                             ZELProductStructure const& model, ZELReference const* only)
{
    KernelSession const session;
    KernelDocument document;
    ExportDocument content(document, entry.isExact);
    auto failure = guarded([&] { only ? content.addAlone(*only) : content.addModel(model); });
    if (failure) return L"the model can't be converted (" + wideFromBytes(*failure) + L")";
    if (!content.hasShapes())
        return entry.isExact ? L"the model holds no exact shapes" : L"the model holds nothing to write";
    Workshop const workshop(path);
    if (workshop.folder().empty()) return L"the folder can't be written to";
    bool done = false;
    failure = guarded([&] { done = write(workshop.folder() / path.filename(), entry.format, document); });
    if (failure) return L"writing failed (" + wideFromBytes(*failure) + L")";
    if (!done) return L"writing failed";
    return workshop.deliver(path) ? std::wstring() : L"the file can't be written";
}
} // namespace NarMetaInfra
