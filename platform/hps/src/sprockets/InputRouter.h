#pragma once
#include "CubeInput.h"
#include <hps/Canvas.h>
#include <hps/EventDispatcher.h>
#include <hps/InputEvent.h>
#include <hps/KeyPath.h>

namespace HPS
{

/// Takes what the user does from a canvas's window to the operators of the view that it falls into. A view
/// that a button or finger went down in keeps the input until all are up again.
class InputRouter final : public EventHandler
{
public:
    explicit InputRouter(Canvas const& canvas);
    ~InputRouter() override { Shutdown(); }

    HandleResult Handle(Event const* event) override;

private:
    bool take(MouseEvent const& event);
    bool take(TouchEvent const& event);
    bool take(KeyboardEvent const& event);
    void loseFocus();
    /// The foremost view whose part of the window holds the point; empty if none does.
    View viewAt(WindowPoint const& point) const;
    /// The view for an event at a place, with its path.
    View choose(WindowPoint const& point, bool held, KeyPath& path);

    Canvas canvas_;
    View held_;      ///< that the present drag began in
    View last_;      ///< that the last event went to; the keyboard's go there
    CubeInput cube_; ///< it has the mouse before the operators
    MouseButtons buttons_;
    std::vector<Touch> touches_;
};

} // namespace HPS
