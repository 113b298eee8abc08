// From the tree to the view: not there yet, so nothing lights up.

#include "ZELDocument.h"

namespace ZelVizBase
{

void ZELDocument::Highlight(EntityId const&, MoraCore::IView3DEvo*) {}

void ZELDocument::Highlight(RenderId const&, MoraCore::IView3DEvo*) {}

void ZELDocument::UnHighlight(MoraCore::IView3DEvo*) const {}

void ZELDocument::Select(EntityId const&, MoraCore::IView3DEvo*) {}

void ZELDocument::Select(RenderId const&, MoraCore::IView3DEvo*) {}

void ZELDocument::UnSelect(MoraCore::IView3DEvo*) const {}

bool ZELDocument::ZoomTo(EntityId const&, MoraCore::IView3DEvo*)
{
    return false;
}

bool ZELDocument::ZoomTo(RenderId const&, MoraCore::IView3DEvo*)
{
    return false;
}

void ZELDocument::highlightLinkedEntities(std::shared_ptr<NarMetaPmi::PMIAnnotation> const&, ZELView3D*) {}

void ZELDocument::highlightLinkedEntities(HPS::KeyPath const&,
                                          std::shared_ptr<NarMetaInfra::ZELReference> const&,
                                          std::shared_ptr<NarMetaPmi::PMIAnnotation> const&, ZELView3D*)
{
}

} // namespace ZelVizBase
