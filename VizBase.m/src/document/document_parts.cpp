// Views and captures, bodies and parts of the model: not there yet, so every operation answers false.

#include "ZELDocument.h"

namespace ZelVizBase
{

bool ZELDocument::ActivateViewOrCapture(RenderId const&)
{
    return false;
}

bool ZELDocument::getViewOrCapture(RenderId const&, std::shared_ptr<NarMetaInfra::ZELReference>&,
                                   std::shared_ptr<NarMetaPmi::PMIAnnotationView>&,
                                   std::shared_ptr<NarMetaPmi::PMICapture>&) const
{
    return false;
}

bool ZELDocument::getActiveView(std::shared_ptr<NarMetaInfra::ZELReference>&,
                                std::shared_ptr<NarMetaPmi::PMIAnnotationView>&) const
{
    return false;
}

bool ZELDocument::getActiveCapture(std::shared_ptr<NarMetaInfra::ZELReference>&,
                                   std::shared_ptr<NarMetaPmi::PMICapture>&) const
{
    return false;
}

bool ZELDocument::ShowHideBody(RenderId const&, MoraCore::IView3DEvo*)
{
    return false;
}

bool ZELDocument::RemoveBodyFromPart(RenderId const&)
{
    return false;
}

bool ZELDocument::MakePartModelFromReference(unsigned long long)
{
    return false;
}

void ZELDocument::MakeFileNameFromReference(unsigned long long, std::wstring&) {}

bool ZELDocument::ExportReferenceAsPart(unsigned long long, wchar_t const*)
{
    return false;
}

} // namespace ZelVizBase
