// From the tree and the host to the view.

#include "ZELDocument.h"
#include "ZELRenderTree.h"
#include "ZELRenderer.h"
#include "ZELView3D.h"

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

// What an annotation speaks of does not light up with it yet.
void ZELDocument::Highlight(RenderId const& id, MoraCore::IView3DEvo* view)
{
    ZELView3D* const shown = implOf(view);
    if (!Tree || !Renderer || !shown) return;
    HPS::KeyPath path = shown->GetModelKeyPath();
    Target target;
    if (!findTarget(id, path, target)) return;
    if (target.isPmi) {
        HPS::Key key;
        if (!GraphicalMode || !showAnnotationKey(target, key)) return;
        path.PushFront(key);
    }
    shown->Highlight(path, false);
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
    Target target;
    if (!findTarget(id, path, target)) return false;
    // Without a picture of its own an annotation stands where its instance does.
    if (HPS::Key key; target.isPmi && showAnnotationKey(target, key)) path.PushFront(key);
    return shown->ZoomTo(path);
}

void ZELDocument::highlightLinkedEntities(std::shared_ptr<NarMetaPmi::PMIAnnotation> const&, ZELView3D*) {}

void ZELDocument::highlightLinkedEntities(HPS::KeyPath const&,
                                          std::shared_ptr<NarMetaInfra::ZELReference> const&,
                                          std::shared_ptr<NarMetaPmi::PMIAnnotation> const&, ZELView3D*)
{
}

} // namespace ZelVizBase
