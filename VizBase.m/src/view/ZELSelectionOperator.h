#pragma once

#include "ZELHighlightOperator.h"

#include <optional>

namespace ZelVizBase
{

class ViewInteraction;

/// Tells clicks from drags: a press selects nothing before it is released in its place, and a drag with Shift
/// draws a box. All else goes on to the operators below, which move the camera.
class ZELSelectionOperator final : public ZELHighlightOperator
{
public:
    /// Neither owner is owned; both must outlive the operator's stay on a stack.
    ZELSelectionOperator(HPS::MouseButtons buttons, HPS::ModifierKeys modifiers, ZELView3D* owner,
                         ViewInteraction& hand);

    bool OnMouseDown(HPS::MouseState const& state) override;
    bool OnMouseMove(HPS::MouseState const& state) override;
    bool OnMouseUp(HPS::MouseState const& state) override;
    /// A finger selects where it comes down; nobody waits to see whether it slides.
    bool OnTouchDown(HPS::TouchState const& state) override;
    void OnFocusLost() override { abandon(); }
    void OnViewDetached(HPS::View const& view) override;

private:
    enum class Meaning { Click, Box, Menu, None };
    struct Press {
        HPS::WindowPoint at;
        HPS::MouseButtons button;
        Meaning meaning;
        bool adding;        ///< to the selection: Control is held
        bool moved = false; ///< too far for a click
    };
    Meaning meaningOf(HPS::MouseState const& state, bool& adding) const;
    void finish(Press const& press, HPS::WindowPoint const& at);
    void abandon();

    ViewInteraction& Hand;
    std::optional<Press> Held;
};

} // namespace ZelVizBase
