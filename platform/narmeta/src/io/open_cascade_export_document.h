#pragma once

// Only for sources of this folder that see Open CASCADE.

#include "matrix_product.h"
#include "open_cascade_document.h"

#include <narmeta/infra/ZELProductStructure.h>

#include <Poly_Triangulation.hxx>
#include <TopoDS_Shape.hxx>

namespace NarMetaInfra
{
/// Builds the kernel's document from a model: the way back of a read.
class ExportDocument
{
public:
    /// @p exact: exact shapes in place of triangles; parts without stay out.
    ExportDocument(KernelDocument& document, bool exact) : Document(document), IsExact(exact) {}

    void addModel(ZELProductStructure const& model);
    void addAlone(ZELReference const& reference);
    /// False if nothing went in.
    bool hasShapes() const { return HasShapes; }

private:
    using Key = std::pair<ZELReference const*, Matrix>;

    // `bake` goes into the points: placements can't hold it.
    TDF_Label labelOf(ZELReference const& reference, Matrix const& bake);
    TDF_Label partOf(ZELReference const& reference, Matrix const& bake);
    void addInstances(TDF_Label const& assembly, std::vector<std::shared_ptr<ZELInstance>> const& instances,
                      Matrix const& bake);
    TDF_Label exactPart(ZELReference const& reference, Matrix const& bake);

    KernelDocument& Document;
    bool IsExact;
    bool HasShapes = false;
    std::map<Key, TDF_Label> Labels;
};

/// A piece of a part's triangles that looks alike.
struct ExportMesh {
    Handle(Poly_Triangulation) triangles;
    std::optional<NarMeta::Colour> colour;
    std::optional<unsigned short> alpha;
};
std::vector<ExportMesh> exportMeshes(ZELReference const& reference, Matrix const& bake);
} // namespace NarMetaInfra
