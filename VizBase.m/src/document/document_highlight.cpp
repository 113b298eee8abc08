// From the tree and the host to the view.

#include "ZELDocument.h"
#include "ZELRenderTree.h"
#include "ZELRenderer.h"
#include "ZELView3D.h"
#include "owner_chain.h"

namespace ZelVizBase
{

namespace
{

ZELView3D* implOf(MoraCore::IView3DEvo* view)
{
    return view ? static_cast<ZELView3D*>(view->GetViewImpl()) : nullptr;
}

} // namespace

void ZELDocument::Highlight(EntityId const& entity, MoraCore::IView3DEvo* view)
{
    RenderId id;
    if (!ConvertToRender(entity, id)) return;
    Highlight(id, view);
    if (Tree) Tree->Highlight(id);
}

void ZELDocument::Highlight(RenderId const& id, MoraCore::IView3DEvo* view)
{
    ZELView3D* const shown = implOf(view);
    if (!Tree || !Renderer || !shown) return;
    HPS::KeyPath path = shown->GetModelKeyPath();
    if (Tree->IsInFeatureTree(id) || Tree->IsInTopologyTree(id)) {
        for (HPS::KeyPath const& entity : entityPaths(id, path)) shown->Highlight(entity, false);
        return;
    }
    Target target;
    if (!findTarget(id, path, target)) return;
    if (!target.isPmi) return shown->Highlight(path, false);
    if (target.pmiId == 0) return;
    if (GraphicalMode) {
        HPS::Key key;
        if (!showAnnotationKey(target, key)) return;
        pushWithOwners(path, key);
        return shown->Highlight(path, false);
    }
    std::shared_ptr<NarMetaPmi::PMIAnnotation> annotation;
    if (!findAnnotation(target, path, annotation)) return;
    if (target.reference)
        highlightLinkedEntities(path, target.reference, annotation, shown);
    else
        highlightLinkedEntities(annotation, shown);
}

void ZELDocument::UnHighlight(MoraCore::IView3DEvo* view) const
{
    if (ZELView3D* const shown = implOf(view)) shown->UnHighlightAll(false);
}

void ZELDocument::Select(EntityId const& entity, MoraCore::IView3DEvo* view)
{
    if (RenderId id; ConvertToRender(entity, id)) Select(id, view);
}

void ZELDocument::Select(RenderId const& id, MoraCore::IView3DEvo* view)
{
    ZELView3D* const shown = implOf(view);
    if (!shown || view->GetSelectionHolder()->Contains(id)) return;
    shown->SelectionSetIsSticky(true);
    HPS::KeyPath path;
    if (!Convert(id, path)) return;
    view->GetSelectionHolder()->Add(id);
    shown->Highlight(path, false);
    if (Tree) Tree->Highlight(id);
}

void ZELDocument::UnSelect(MoraCore::IView3DEvo* view) const
{
    ZELView3D* const shown = implOf(view);
    if (!shown) return;
    view->GetSelectionHolder()->Clear();
    shown->UnHighlightAll(true);
}

bool ZELDocument::ZoomTo(EntityId const&, MoraCore::IView3DEvo*)
{
    return false;
}

bool ZELDocument::ZoomTo(RenderId const& id, MoraCore::IView3DEvo* view)
{
    ZELView3D* const shown = implOf(view);
    if (!Tree || !Renderer || !shown) return false;
    HPS::KeyPath path = shown->GetModelKeyPath();
    if (Tree->IsInFeatureTree(id) || Tree->IsInTopologyTree(id)) {
        HPS::SimpleCuboid box;
        for (HPS::KeyPath const& entity : entityPaths(id, path)) {
            HPS::BoundingKit bounding;
            HPS::SimpleSphere sphere;
            HPS::SimpleCuboid cuboid;
            if (entity.ShowNetBounding(bounding) && bounding.ShowVolume(sphere, cuboid)) box.Merge(cuboid);
        }
        if (!box.IsValid() || !shown->GetCamera()) return false;
        shown->GetCamera()->ZoomToBox(box.min.x, box.min.y, box.min.z, box.max.x, box.max.y, box.max.z);
        return true;
    }
    Target target;
    if (!findTarget(id, path, target)) return false;
    // Without a picture of its own an annotation stands where its instance does.
    if (HPS::Key key; target.isPmi && showAnnotationKey(target, key)) pushWithOwners(path, key);
    return shown->ZoomTo(path);
}

} // namespace ZelVizBase
