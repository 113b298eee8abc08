#pragma once

#include "HoverHighlight.h"
#include "RubberBand.h"
#include "TouchInput.h"
#include "ViewSelection.h"
#include "ZELOpConfigurator.h"

#include <QObject>
#include <memory>

namespace ZelVizBase
{

class ZELHighlightOperator;

/// What the user's hand does in a view, see MoraCore::IViewInteraction: the selection operator tells of it,
/// and this does it. Owned by the view, which outlives it.
class ViewInteraction final : public QObject, public MoraCore::IViewInteraction
{
public:
    explicit ViewInteraction(ZELView3D& view);
    ~ViewInteraction() override;

    void SetInteractionListener(MoraCore::IInteractionListener* listener) override { Listener = listener; }
    void SetMouseStyle(MoraCore::MouseStyle const& style) override;
    void SetHovering(bool hovering) override;
    RenderIds GetSelection() const override { return Selection.Ids(); }
    void Select(RenderIds const& ids) override;
    void ClearSelection() override;
    bool SelectParents() override;
    bool ZoomToSelection() override;

    /// The operator that a configuration's entry for highlights stands for while there is a hand.
    std::shared_ptr<ZELHighlightOperator> MakeOperator(HPS::MouseButtons buttons,
                                                       HPS::ModifierKeys modifiers);
    /// Somebody has taken all highlights off the window.
    void HighlightsGone();

    // Places in the window, as the operator has them.
    void PointTo(HPS::WindowPoint const& place);
    void PointAway();
    /// `adding`: to what is selected, or away from it; a click on nothing then changes nothing.
    void Click(HPS::WindowPoint const& place, bool adding);
    void ShowBox(HPS::WindowPoint const& from, HPS::WindowPoint const& to);
    void HideBox();
    /// The instances that lie wholly inside for a box drawn to the right, or all that it touches.
    void SelectBox(HPS::WindowPoint const& from, HPS::WindowPoint const& to, bool adding);
    /// It is about what is selected, which becomes what lies there if that is something else.
    void OpenMenu(HPS::WindowPoint const& place);

private:
    bool eventFilter(QObject* watched, QEvent* event) override;
    QPoint inWidget(HPS::WindowPoint const& place) const;
    template <class Change> void change(Change const& make);

    ZELView3D& View;
    MoraCore::IInteractionListener* Listener = nullptr;
    ViewSelection Selection;
    std::unique_ptr<HoverHighlight> Hover; ///< null: off
    RubberBand Band;
    TouchInput Touches;
    bool Replacing = false; ///< the selection itself takes highlights off
};

/// The operators of a style: besides the gestures that move the camera all is as in the default table.
ZELOpConfigurator configuratorOf(MoraCore::MouseStyle const& style);

} // namespace ZelVizBase
