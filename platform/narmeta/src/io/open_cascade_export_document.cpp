#include "open_cascade_export_document.h"

#include "text_encoding.h"

#include <algorithm>
#include <cmath>
#include <sstream>

#include <BRepBuilderAPI_GTransform.hxx>
#include <BRepTools_ReShape.hxx>
#include <BRep_Builder.hxx>
#include <BinTools.hxx>
#include <Quantity_ColorRGBA.hxx>
#include <TDataStd_Name.hxx>
#include <TopExp.hxx>
#include <TopExp_Explorer.hxx>
#include <TopTools_IndexedMapOfShape.hxx>
#include <TopoDS_Compound.hxx>
#include <TopoDS_Face.hxx>
#include <gp_GTrsf.hxx>

namespace NarMetaInfra
{
namespace
{
using Look = std::pair<std::optional<NarMeta::Colour>, std::optional<unsigned short>>;

/// The shape but for solids and surfaces of which no face is left.
TopoDS_Shape withoutRemoved(TopoDS_Shape const& shape, TopTools_IndexedMapOfShape const& faces,
                            std::vector<Id> const& ids)
{
    if (std::ranges::find(ids, ExactShape::RemovedFace) == ids.end()) return shape;
    auto const isLeft = [&](TopoDS_Shape const& part) {
        for (TopExp_Explorer face(part, TopAbs_FACE); face.More(); face.Next()) {
            auto const position = static_cast<std::size_t>(faces.FindIndex(face.Current()) - 1);
            if (position >= ids.size() || ids[position] != ExactShape::RemovedFace) return true;
        }
        return false;
    };
    BRepTools_ReShape left;
    for (auto const& [kind, within] :
         {std::pair{TopAbs_SOLID, TopAbs_SHAPE}, std::pair{TopAbs_SHELL, TopAbs_SOLID},
          std::pair{TopAbs_FACE, TopAbs_SHELL}})
        for (TopExp_Explorer part(shape, kind, within); part.More(); part.Next())
            if (!isLeft(part.Current())) left.Remove(part.Current());
    return left.Apply(shape);
}

void name(TDF_Label const& label, std::wstring const& text)
{
    TDataStd_Name::Set(label, TCollection_ExtendedString(utf8FromWide(text).c_str(), true));
}

Quantity_ColorRGBA kernelColour(Look const& look)
{
    auto const [red, green, blue] = look.first.value_or(NarMeta::Colour{200, 200, 200});
    Quantity_Color const colour(red / 255.0, green / 255.0, blue / 255.0, Quantity_TOC_sRGB);
    return {colour, static_cast<float>(look.second.value_or(255)) / 255.0f};
}

// What a placement of the kernel can hold: a turn and a move.
bool isRigid(Matrix const& m)
{
    constexpr double Tolerance = 1e-5;
    double determinant = 0;
    for (std::size_t i = 0; i < 3; ++i) {
        for (std::size_t j = 0; j < 3; ++j) {
            double product = 0;
            for (std::size_t k = 0; k < 3; ++k) product += double(m[4 * i + k]) * m[4 * j + k];
            if (std::abs(product - (i == j ? 1.0 : 0.0)) > Tolerance) return false;
        }
        auto const j = (i + 1) % 3, k = (i + 2) % 3;
        determinant += m[i] * (double(m[4 + j]) * m[8 + k] - double(m[4 + k]) * m[8 + j]);
    }
    return determinant > 0;
}

gp_Trsf placementOf(Matrix const& m)
{
    gp_Trsf placement;
    placement.SetValues(m[0], m[4], m[8], m[12], m[1], m[5], m[9], m[13], m[2], m[6], m[10], m[14]);
    placement.SetScaleFactor(1.0); // the last digits of floats are no scale
    return placement;
}

gp_GTrsf deformationOf(Matrix const& m)
{
    gp_GTrsf made;
    for (int row = 0; row < 3; ++row)
        for (int column = 0; column < 4; ++column)
            made.SetValue(row + 1, column + 1, m[static_cast<std::size_t>(4 * column + row)]);
    return made;
}
} // namespace

void ExportDocument::addModel(ZELProductStructure const& model)
{
    auto const& roots = model.GetRootInstances();
    if (roots.size() == 1 && roots.front()->GetMatrix() == IdentityMatrix) {
        labelOf(*roots.front()->GetReference(), IdentityMatrix);
    } else if (!roots.empty()) {
        auto const top = Document.shapes()->NewShape();
        name(top, model.GetProductName());
        addInstances(top, roots, IdentityMatrix);
    }
    Document.shapes()->UpdateAssemblies();
}

void ExportDocument::addAlone(ZELReference const& reference)
{
    labelOf(reference, IdentityMatrix);
    Document.shapes()->UpdateAssemblies();
}

TDF_Label ExportDocument::labelOf(ZELReference const& reference, Matrix const& bake)
{
    Key const key{&reference, bake};
    if (auto const known = Labels.find(key); known != Labels.end()) return known->second;
    TDF_Label label;
    if (reference.GetKind() == ZELReference::Kind::Assembly) {
        label = Document.shapes()->NewShape();
        Labels[key] = label; // an assembly inside itself ends here
        addInstances(label, reference.GetInstances(), bake);
    } else if (reference.IsPart()) {
        label = IsExact ? exactPart(reference, bake) : partOf(reference, bake);
    }
    if (!label.IsNull()) name(label, reference.GetReferenceName());
    return Labels[key] = label;
}

void ExportDocument::addInstances(TDF_Label const& assembly,
                                  std::vector<std::shared_ptr<ZELInstance>> const& instances,
                                  Matrix const& bake)
{
    for (auto const& instance : instances) {
        bool suppressed = false;
        if (!instance->GetReference() || (instance->GetSuppressed(suppressed) && suppressed)) continue;
        auto const& matrix = instance->GetMatrix();
        bool const isPlain = bake == IdentityMatrix && isRigid(matrix);
        auto const child =
            labelOf(*instance->GetReference(), isPlain ? IdentityMatrix : combined(matrix, bake));
        if (child.IsNull()) continue;
        auto const component = Document.shapes()->AddComponent(
            assembly, child, isPlain ? TopLoc_Location(placementOf(matrix)) : TopLoc_Location());
        if (component.IsNull()) continue;
        name(component, instance->GetInstanceName());
        if (instance->GetColours().GetColour())
            Document.colors()->SetColor(
                component,
                kernelColour({instance->GetColours().GetColour(), instance->GetColours().GetAlpha()}),
                XCAFDoc_ColorSurf);
    }
}

TDF_Label ExportDocument::partOf(ZELReference const& reference, Matrix const& bake)
{
    auto const meshes = exportMeshes(reference, bake);
    if (meshes.empty()) return {};
    BRep_Builder builder;
    TopoDS_Compound whole;
    builder.MakeCompound(whole);
    std::vector<std::pair<TopoDS_Face, Look>> coloured;
    for (auto const& mesh : meshes) {
        TopoDS_Face face;
        builder.MakeFace(face, mesh.triangles);
        builder.Add(whole, face);
        if (mesh.colour || mesh.alpha) coloured.emplace_back(face, Look(mesh.colour, mesh.alpha));
    }
    auto const label = Document.shapes()->AddShape(whole, false);
    for (auto const& [face, look] : coloured)
        Document.colors()->SetColor(Document.shapes()->AddSubShape(label, face), kernelColour(look),
                                    XCAFDoc_ColorSurf);
    HasShapes = true;
    return label;
}

TDF_Label ExportDocument::exactPart(ZELReference const& reference, Matrix const& bake)
{
    auto const& exact = reference.GetExactShape();
    if (!exact) return {};
    TopoDS_Shape shape;
    std::istringstream stream(exact->bytes);
    BinTools::Read(shape, stream);
    if (shape.IsNull()) return {};
    TopTools_IndexedMapOfShape faces;
    TopExp::MapShapes(shape, TopAbs_FACE, faces);
    shape = withoutRemoved(shape, faces, exact->faces);
    if (shape.IsNull()) return {};
    std::optional<BRepBuilderAPI_GTransform> deformed;
    if (bake != IdentityMatrix) deformed.emplace(shape, deformationOf(bake), true);
    auto const label = Document.shapes()->AddShape(deformed ? deformed->Shape() : shape, false);

    std::unordered_map<Id, Look> looks;
    for (auto const& body : reference.GetBodies())
        for (auto const& face : body.faces)
            looks[face.id] = {face.colour ? face.colour : body.colour, face.alpha ? face.alpha : body.alpha};
    bool const isUniform = !looks.empty() && std::ranges::all_of(looks, [&](auto const& entry) {
        return entry.second == looks.begin()->second;
    });
    if (isUniform && looks.begin()->second.first)
        Document.colors()->SetColor(label, kernelColour(looks.begin()->second), XCAFDoc_ColorSurf);
    for (int i = 1; !isUniform && i <= faces.Extent(); ++i) {
        auto const position = static_cast<std::size_t>(i) - 1;
        auto const look = position < exact->faces.size() ? looks.find(exact->faces[position]) : looks.end();
        if (look == looks.end() || !look->second.first) continue;
        auto const face = deformed ? deformed->ModifiedShape(faces(i)) : faces(i);
        Document.colors()->SetColor(Document.shapes()->AddSubShape(label, face), kernelColour(look->second),
                                    XCAFDoc_ColorSurf);
    }
    HasShapes = true;
    return label;
}
} // namespace NarMetaInfra
