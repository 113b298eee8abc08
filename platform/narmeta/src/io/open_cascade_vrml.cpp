#include "open_cascade_document.h"
#include "open_cascade_guard.h"
#include "open_cascade_tessellation.h"
#include "stage_clock.h"
#include "text_encoding.h"

#include <fstream>

#include <BRep_Tool.hxx>
#include <Quantity_ColorRGBA.hxx>
#include <TDataStd_Name.hxx>
#include <TopExp.hxx>
#include <TopExp_Explorer.hxx>
#include <TopTools_IndexedMapOfShape.hxx>
#include <TopoDS.hxx>
#include <TopoDS_Face.hxx>
#include <VrmlData_DataMapOfShapeAppearance.hxx>
#include <VrmlData_Scene.hxx>

namespace NarMetaInfra
{
namespace
{
// Triangles have no surface below them; what has one is a box, a sphere, ... and comes without triangles.
void colourFaces(KernelDocument& document, TDF_Label const& label, TopoDS_Shape const& shape,
                 VrmlData_DataMapOfShapeAppearance const& looks)
{
    TopTools_IndexedMapOfShape parts;
    TopExp::MapShapes(shape, parts);
    for (int i = 1; i <= parts.Extent(); ++i) {
        auto const* const look = looks.Seek(parts(i).TShape());
        if (!look || look->IsNull() || (*look)->Material().IsNull()) continue;
        auto const& material = *(*look)->Material();
        Quantity_ColorRGBA const colour(material.DiffuseColor(),
                                        static_cast<float>(1.0 - material.Transparency()));
        document.colors()->SetColor(document.shapes()->AddSubShape(label, parts(i)), colour,
                                    XCAFDoc_ColorSurf);
    }
}
} // namespace

LoadOutcome loadVrml(std::filesystem::path const& file, KernelDocument& document, LoadSupport const& support,
                     Message_ProgressRange const& range)
{
    StageClock const clock(support.times.parse);
    document.isMesh = true;
    document.otherFiles = std::nullopt; // parts may be drawn in from other files, which the kernel reads
    TopoDS_Shape shape;
    bool isWhole = false;
    auto const failure = guarded([&] {
        std::ifstream stream(file, std::ios::binary);
        VrmlData_Scene scene;
        scene.SetVrmlDir(TCollection_ExtendedString(file.parent_path().c_str(), true));
        scene << stream;
        isWhole = scene.Status() == VrmlData_StatusOK;
        VrmlData_DataMapOfShapeAppearance looks;
        shape = scene.GetShape(looks);
        if (shape.IsNull()) return;
        auto const tolerance = toleranceFor(shape, support.fineness);
        for (TopExp_Explorer face(shape, TopAbs_FACE); face.More(); face.Next()) {
            TopLoc_Location location;
            auto const isMeshed = !BRep_Tool::Triangulation(TopoDS::Face(face.Current()), location).IsNull();
            if (!isMeshed) tessellate(face.Current(), tolerance, false, Message_ProgressRange());
        }
        auto const label = document.shapes()->AddShape(shape, false);
        TDataStd_Name::Set(label, TCollection_ExtendedString(utf8FromWide(document.title).c_str(), true));
        colourFaces(document, label, shape, looks);
    });
    if (range.UserBreak()) return std::nullopt;
    if (failure || (!isWhole && shape.IsNull()))
        return LoadFailure{IoOutcome::Damaged, "the VRML file is damaged: it can't be read"};
    if (shape.IsNull()) return LoadFailure{IoOutcome::NothingToShow, "the VRML file holds nothing to show"};
    if (!isWhole)
        document.warnings.push_back("the VRML file is damaged; what stands behind the damage is missing");
    return std::nullopt;
}
} // namespace NarMetaInfra
