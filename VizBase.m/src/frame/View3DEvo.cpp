#include "View3DEvo.h"

#include "ViewInteraction.h"
#include "ZELView3D.h"

namespace ZelVizBase
{

View3DEvo::View3DEvo(ZELView3D* view)
{
    if (view == nullptr) return;
    SetViewImpl(view);
    view->SetView3DEvo(this);
    view->UpdateCamera();
}

View3DEvo::~View3DEvo()
{
    ZELView3D* const shown = view();
    if (shown == nullptr) return;
    shown->SetView3DEvo(nullptr);
    shown->UpdateCamera();
}

ZELView3D* View3DEvo::view() const
{
    return static_cast<ZELView3D*>(GetViewImpl());
}

QWidget* View3DEvo::GetWidget()
{
    return view();
}

void View3DEvo::AttachDocument(MoraCore::IDocumentEvo* document)
{
    if (ZELView3D* const shown = view()) shown->AttachDocument(document);
}

void View3DEvo::MakeSegmentAndPropertyBrowser(QWidget* parent, QMenu* menu)
{
    if (ZELView3D* const shown = view()) shown->MakeSegmentAndPropertyBrowser(parent, menu);
}

void View3DEvo::Update(MoraCore::UpdateType type)
{
    if (ZELView3D* const shown = view()) shown->Update(type);
}

ZELVizCore::RenderingOptions* View3DEvo::GetRenderingOptions()
{
    ZELView3D const* const shown = view();
    return shown != nullptr ? shown->GetRenderingOptions() : nullptr;
}

void View3DEvo::SetRenderingOptions(ZELVizCore::RenderingOptions const& options)
{
    if (ZELView3D* const shown = view()) shown->SetRenderingOptions(options);
}

void View3DEvo::UpdateBackgroundColors()
{
    if (ZELView3D* const shown = view()) shown->UpdateBackgroundColors();
}

bool View3DEvo::GetBbox(double& xmin, double& ymin, double& zmin, double& xmax, double& ymax, double& zmax)
{
    ZELView3D* const shown = view();
    return shown != nullptr && shown->GetBbox(xmin, ymin, zmin, xmax, ymax, zmax);
}

MoraCore::ACamera* View3DEvo::GetCamera()
{
    ZELView3D* const shown = view();
    return shown != nullptr ? shown->GetCamera() : nullptr;
}

bool View3DEvo::TogglePickRayOp()
{
    ZELView3D* const shown = view();
    return shown != nullptr && shown->TogglePickRayOp();
}

bool View3DEvo::GetPickRay(ZELVizCore::Ray&)
{
    return false; // rays go to the listener, see NotifyPick
}

bool View3DEvo::NotifyPick(ZELVizCore::Ray const& ray)
{
    if (GetPickListener() == nullptr) return false;
    GetPickListener()->OnPick(ray);
    return true;
}

ZELVizCore::SelectionHolder* View3DEvo::GetSelectionHolder()
{
    ZELView3D const* const shown = view();
    return shown != nullptr ? shown->GetSelectionHolder() : nullptr;
}

bool View3DEvo::SelectionIsSticky()
{
    ZELView3D const* const shown = view();
    return shown != nullptr && shown->SelectionIsSticky();
}

void View3DEvo::SelectionSetIsSticky(bool sticky)
{
    if (ZELView3D* const shown = view()) shown->SelectionSetIsSticky(sticky);
}

void View3DEvo::UnHighlightAll()
{
    if (ZELView3D* const shown = view()) shown->UnHighlightAll(true);
}

void View3DEvo::UnhideBody(unsigned long long id)
{
    if (ZELView3D* const shown = view()) shown->UnhideBody(id);
}

void View3DEvo::HideBody(unsigned long long id)
{
    if (ZELView3D* const shown = view()) shown->HideBody(id);
}

MoraCore::IViewInteraction* View3DEvo::GetInteraction()
{
    ZELView3D* const shown = view();
    return shown != nullptr ? shown->GetInteraction() : nullptr;
}

} // namespace ZelVizBase
