#pragma once

#include "host_api.h"

namespace ZelVizBase
{

class ZELView3D;

/// A `ZELView3D` as the host sees it. It owns nothing: the view is a widget of the host's window, and may go
/// before or after the adaptor. With no view behind it each operation does nothing and gives null, false or
/// nothing.
class View3DEvo : public MoraCore::IView3DEvo
{
public:
    /// Ties the two together and has the view make its camera anew, behind this adaptor. Null leaves the
    /// adaptor empty.
    explicit View3DEvo(ZELView3D* view = nullptr);
    ~View3DEvo() override;

    QWidget* GetWidget() override;
    void AttachDocument(MoraCore::IDocumentEvo* document) override;
    void MakeSegmentAndPropertyBrowser(QWidget* parent, QMenu* menu) override;
    void Update(MoraCore::UpdateType type) override;
    ZELVizCore::RenderingOptions* GetRenderingOptions() override;
    void SetRenderingOptions(ZELVizCore::RenderingOptions const& options) override;
    void UpdateBackgroundColors() override;
    bool GetBbox(double& xmin, double& ymin, double& zmin, double& xmax, double& ymax, double& zmax) override;
    MoraCore::ACamera* GetCamera() override;
    bool TogglePickRayOp() override;
    bool GetPickRay(ZELVizCore::Ray& ray) override;
    bool NotifyPick(ZELVizCore::Ray const& ray) override;
    ZELVizCore::SelectionHolder* GetSelectionHolder() override;
    bool SelectionIsSticky() override;
    void SelectionSetIsSticky(bool sticky) override;
    void UnHighlightAll() override;
    void UnhideBody(unsigned long long id) override;
    void HideBody(unsigned long long id) override;
    MoraCore::IViewInteraction* GetInteraction() override;

private:
    ZELView3D* view() const;
};

} // namespace ZelVizBase
