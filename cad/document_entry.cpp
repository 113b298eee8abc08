#include "document_entry.h"

#include "ActivateViewOrCaptureAction.h"
#include "CadDocument.h"
#include "MakePartFromReferenceMenuAction.h"
#include "SaveAsPartAction.h"
#include "ZELView3D.h"

MoraCore::IDocumentEvo* CreateDocument(MoraCore::AViewTree* tree)
{
    return new ZelCad::CadDocument(tree);
}

bool ReadDocumentAhead(MoraCore::IDocumentEvo& document, wchar_t const* path, ReadGuard const& guard,
                       void (*progress)(double done, bool& cancel))
{
    return static_cast<ZelCad::CadDocument&>(document).ReadAhead(path, guard, progress);
}

MoraCore::IMenuAction* CreateMenuAction(MenuEntry entry)
{
    switch (entry) {
    case MenuEntry::ActivateViewOrCapture:
        return new ZelVizBase::ActivateViewOrCaptureAction;
    case MenuEntry::MakePartFromReference:
        return new ZelVizBase::MakePartFromReferenceMenuAction;
    case MenuEntry::SaveAsPart:
        return new ZelVizBase::SaveAsPartAction;
    }
    return nullptr;
}

bool ReadViewPicture(MoraCore::IView3DEvo& view,
                     void (*take)(void* target, int width, int height, unsigned char const* pixels),
                     void* target)
{
    auto* const shown = static_cast<ZelVizBase::ZELView3D*>(view.GetViewImpl());
    HPS::Picture picture;
    if (!shown || !shown->Canvas().ReadPixels(picture)) return false;
    take(target, picture.width, picture.height, picture.pixels.data());
    return true;
}
