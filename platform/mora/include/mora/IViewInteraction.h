#pragma once
#include <mora/RenderId.h>
#include <mora/mouse_styles.h>
#include <vector>

namespace MoraCore
{

/// What lies under the mouse.
struct PointedAt {
    ZELVizCore::RenderId id;    ///< of its node, which the tree need not have; empty: nothing
    float place[3] = {0, 0, 0}; ///< where the mouse meets it, in the world
};

/// Hears what the user does in a view.
class IInteractionListener
{
public:
    virtual ~IInteractionListener() = default;
    /// While hovering is on: at every move of the mouse, and once with nothing when it leaves the view.
    virtual void OnPointed(PointedAt const& at) = 0;
    virtual void OnSelectionChanged() = 0;
    /// A right click, in the units of the view's widget.
    virtual void OnMenuWanted(int x, int y) = 0;
};

/// The hand of the user in a view: clicks, boxes and what they select. Selected things are lit up, their
/// nodes marked in the document's tree and entered in the view's SelectionHolder.
class IViewInteraction
{
public:
    using RenderIds = std::vector<ZELVizCore::RenderId>;

    virtual ~IViewInteraction() = default;
    /// Not owned; null: nobody listens.
    virtual void SetInteractionListener(IInteractionListener* listener) = 0;
    virtual void SetMouseStyle(MouseStyle const& style) = 0;
    /// Lights up what lies under the mouse. Off from the start; switched off, moves cost nothing.
    virtual void SetHovering(bool hovering) = 0;

    /// The nodes of what is selected, each once, in the order of selection.
    virtual RenderIds GetSelection() const = 0;
    /// In place of what is selected, from the tree, which is not told again. What has no place in the scene
    /// is left out.
    virtual void Select(RenderIds const& ids) = 0;
    virtual void ClearSelection() = 0;
    /// What holds each selected thing in its place; false at the top, and without a selection.
    virtual bool SelectParents() = 0;
    /// Keeps the direction of view; false without a selection that has an extent.
    virtual bool ZoomToSelection() = 0;
};

} // namespace MoraCore
