#pragma once

#include "hps_api.h"

namespace ZelVizBase
{

class ZELView3D;

/// A click lights up what lies under it, in the view and in the model's tree. It never ends an event's way:
/// the same press may start a drag.
class ZELHighlightOperator : public HPS::SelectOperator
{
public:
    /// `owner` is not owned and must outlive the operator's stay on a stack.
    ZELHighlightOperator(HPS::MouseButtons buttons, HPS::ModifierKeys modifiers, ZELView3D* owner);

    HPS::UTF8 GetName() const override { return "3DLoom_HighlightOperator"; }
    bool OnMouseDown(HPS::MouseState const& state) override;
    bool OnTouchDown(HPS::TouchState const& state) override;
    void OnViewAttached(HPS::View const&) override { Active = true; }
    void OnViewDetached(HPS::View const&) override { Active = false; }

    /// It is on a view's stack.
    bool IsActive() const { return Active; }

private:
    void selectEntities();
    bool highlightCommon();
    /// `treePath` from the tagged segment up to the window.
    void prepareReverseHighlighting(HPS::KeyPath treePath);

    ZELView3D* Owner;
    bool Active = false;
};

} // namespace ZelVizBase
