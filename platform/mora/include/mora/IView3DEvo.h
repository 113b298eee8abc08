#pragma once
#include <mora/Ray.h>
#include <mora/RenderingOptions.h>
#include <mora/SelectionHolder.h>

class QMenu;
class QWidget;

namespace MoraCore
{

class ACamera;
class IDocumentEvo;
class IViewInteraction;

/// How much of a view is drawn anew.
enum class UpdateType : int {
    Default = 0,
    Complete = 1,
    Refresh = 2,
    CompileOnly = 3,
    Exhaustive = 4,
};

/// Takes the rays that the user picks in a view.
class IPickListener
{
public:
    virtual ~IPickListener() = default;
    virtual void OnPick(ZELVizCore::Ray const& ray) = 0;
};

/// A 3D view as the host sees it.
class IView3DEvo
{
public:
    virtual ~IView3DEvo() = default;
    virtual QWidget* GetWidget() = 0;
    virtual void AttachDocument(IDocumentEvo* document) = 0;
    virtual void MakeSegmentAndPropertyBrowser(QWidget* parent, QMenu* menu) = 0;
    virtual void Update(UpdateType type) = 0;
    virtual ZELVizCore::RenderingOptions* GetRenderingOptions() = 0;
    virtual void SetRenderingOptions(ZELVizCore::RenderingOptions const& options) = 0;
    /// Takes the background colours of the current settings.
    virtual void UpdateBackgroundColors() = 0;
    /// Box of what is shown, world units; false when there is nothing.
    virtual bool GetBbox(double& xmin, double& ymin, double& zmin, double& xmax, double& ymax,
                         double& zmax) = 0;
    virtual ACamera* GetCamera() = 0;
    /// Switches the pick-ray mode; gives the state before.
    virtual bool TogglePickRayOp() = 0;
    virtual bool GetPickRay(ZELVizCore::Ray& ray) = 0;
    /// Hands a ray to the pick listener; false without one.
    virtual bool NotifyPick(ZELVizCore::Ray const& ray) = 0;
    virtual ZELVizCore::SelectionHolder* GetSelectionHolder() = 0;
    virtual bool SelectionIsSticky() = 0;
    virtual void SelectionSetIsSticky(bool sticky) = 0;
    virtual void UnHighlightAll() = 0;
    virtual void UnhideBody(unsigned long long id) = 0;
    virtual void HideBody(unsigned long long id) = 0;
    /// Clicks, boxes and hovering, in place of the plain operators from the first call on. Owned by the view;
    /// null for a view that has none of it.
    virtual IViewInteraction* GetInteraction() { return nullptr; }

    /// The object behind the interface, whose type the view's maker knows. Not owned.
    void SetViewImpl(void* view) { view_ = view; }
    void* GetViewImpl() const { return view_; }

    /// Not owned; null: nobody listens.
    void SetPickListener(IPickListener* listener) { pickListener_ = listener; }
    IPickListener* GetPickListener() const { return pickListener_; }

private:
    void* view_ = nullptr;
    IPickListener* pickListener_ = nullptr;
};

} // namespace MoraCore
