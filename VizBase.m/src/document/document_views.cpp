// Views and captures of the model.

#include "ZELDocument.h"
#include "ZELRenderTree.h"

namespace ZelVizBase
{

using NarMetaInfra::ZELReference;
using NarMetaPmi::PMIAnnotationView;
using NarMetaPmi::PMICapture;
using NarMetaPmi::PMIContainer;
using ZELVizCore::EntityType;
using ZELVizCore::ToValue;

bool ZELDocument::getViewOrCapture(RenderId const& id, std::shared_ptr<ZELReference>& reference,
                                   std::shared_ptr<PMIAnnotationView>& view,
                                   std::shared_ptr<PMICapture>& capture) const
{
    if (!ProductStructure) return false;
    std::shared_ptr<ZELReference> current; // empty: the product itself
    for (int i = 2; i < id.Length(); ++i) {
        if (id[i] == ToValue(EntityType::Brep) || id[i] == ToValue(EntityType::Visualisation)) return false;
        if (id[i] == ToValue(EntityType::Annotations)) {
            if (i + 2 >= id.Length()) return false;
            PMIContainer const* const container =
                (current ? current->GetPmi() : ProductStructure->GetPMI()).get();
            if (!container) return false;
            unsigned long long const group = id[i + 1], wanted = id[i + 2];
            bool const found =
                (group == ToValue(EntityType::Views) && container->GetAnnotationView(wanted, view)) ||
                (group == ToValue(EntityType::Captures) && container->GetAnnotationCapture(wanted, capture));
            if (found) reference = current;
            return found;
        }
        std::shared_ptr<NarMetaInfra::ZELInstance> instance;
        if (!ProductStructure->GetInstance(id[i], instance)) return false;
        current = instance->GetReference();
    }
    return false;
}

bool ZELDocument::getActiveView(std::shared_ptr<ZELReference>& reference,
                                std::shared_ptr<PMIAnnotationView>& view) const
{
    return ProductStructure && ProductStructure->GetActiveView(reference, view);
}

bool ZELDocument::getActiveCapture(std::shared_ptr<ZELReference>& reference,
                                   std::shared_ptr<PMICapture>& capture) const
{
    return ProductStructure && ProductStructure->GetActiveCapture(reference, capture);
}

bool ZELDocument::ActivateViewOrCapture(RenderId const& id)
{
    std::shared_ptr<ZELReference> reference, activeReference;
    std::shared_ptr<PMIAnnotationView> view, activeView;
    std::shared_ptr<PMICapture> capture, activeCapture;
    if (!getViewOrCapture(id, reference, view, capture)) return false;
    bool activated = false;
    if (view) {
        if (getActiveView(activeReference, activeView))
            ProductStructure->DeactivateView(activeReference, activeView);
        activated = ProductStructure->ActivateView(reference, view);
    } else {
        if (getActiveCapture(activeReference, activeCapture))
            ProductStructure->DeactivateCapture(activeReference, activeCapture);
        activated = ProductStructure->ActivateCapture(reference, capture);
    }
    if (!activated) return false;
    if (Tree) {
        Tree->ClearAll();
        Tree->Render();
    }
    UpdateViews(true);
    return true;
}

} // namespace ZelVizBase
