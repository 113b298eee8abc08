// How the document is shown when one of its views or captures is activated.

#include "CadDocument.h"
#include "CadRenderer.h"
#include "ZELObjectMapper.h"
#include "saved_views.h"

namespace ZelCad
{

using NarMetaInfra::ZELInstance;
using NarMetaInfra::ZELReference;
using NarMetaPmi::PMIContainer;

bool CadDocument::ActivateViewOrCapture(RenderId const& id)
{
    std::shared_ptr<ZELReference> reference;
    std::shared_ptr<NarMetaPmi::PMIAnnotationView> view;
    std::shared_ptr<NarMetaPmi::PMICapture> capture;
    if (!getViewOrCapture(id, reference, view, capture)) return false;
    SavedView const saved = view ? savedView(*view) : savedView(*capture);
    PMIContainer const& container = *(reference ? reference->GetPmi() : ProductStructure->GetPMI());
    // Before the tree is written: it tells what is hidden.
    std::vector<NarMeta::Id> const annotations = showOnly(container, saved);
    OwnRenderer->ShowAnnotations(annotations, false);
    OwnRenderer->ShowAnnotations(saved.annotations, true);
    if (!ZELDocument::ActivateViewOrCapture(id)) return false;
    showSavedView(saved, id);
    return true;
}

HPS::MatrixKit CadDocument::placingOf(RenderId const& id) const
{
    HPS::MatrixKit placing;
    std::shared_ptr<ZELInstance> instance;
    for (int i = 2; i < id.Length() && ProductStructure->GetInstance(id[i], instance); ++i)
        placing = HPS::MatrixKit(instance->GetMatrix().data()) * placing;
    return placing;
}

HPS::SimpleCuboid CadDocument::extentOfAnnotations(SavedView const& saved, RenderId id) const
{
    int group = 2;
    while (id[group] != ToValue(ZELVizCore::EntityType::Annotations)) ++group;
    HPS::SimpleCuboid extent;
    for (NarMeta::Id const annotation : saved.annotations) {
        id.SetLength(group + 1);
        id.AddValue(annotation);
        HPS::Key picture;
        if (!Renderer->GetObjectMapper()->Get(annotation, picture)) continue; // it is in words only
        HPS::KeyPath path;
        HPS::BoundingKit bounding;
        HPS::SimpleSphere sphere;
        HPS::SimpleCuboid cuboid;
        if (Convert(id, path) && path.ShowNetBounding(bounding) && bounding.ShowVolume(sphere, cuboid))
            extent.Merge(cuboid);
    }
    return extent;
}

void CadDocument::showSavedView(SavedView const& saved, RenderId const& id)
{
    HPS::MatrixKit const placing = placingOf(id);
    for (HPS::CuttingSectionKey& cut : Cuts) cut.Delete();
    Cuts.clear();
    HPS::SegmentKey root = Renderer->GetRootKey();
    for (NarMetaPmi::PMIClippingPlane const& plane : saved.planes)
        Cuts.push_back(root.InsertCuttingSection(planeOf(plane, placing)));
    for (auto const& [part, shown] : shownParts(*ProductStructure, saved))
        OwnRenderer->ShowReference(*part, shown);
    HPS::View view = GetView();
    if (saved.camera && view.Type() != HPS::Type::None) {
        MoraCore::IView3DEvo* const shown = Session().View3DEvo();
        MoraCore::ACamera* const camera = shown ? shown->GetCamera() : nullptr;
        constexpr float usualField = 45;
        view.SetCamera(cameraOf(*saved.camera, placing, view, camera ? camera->GetFieldOfView() : usualField,
                                extentOfAnnotations(saved, id)));
    }
    UpdateViews(false);
}

} // namespace ZelCad
