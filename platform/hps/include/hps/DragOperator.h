#pragma once
#include <hps/Operator.h>
#include <optional>

namespace HPS
{

// Base of those that follow the mouse from a press to its release. Losing the focus ends the drag.
class DragOperator : public Operator
{
public:
    using Operator::Operator;

    bool OnMouseDown(MouseState const& state) override;
    bool OnMouseUp(MouseState const& state) override;
    bool OnMouseMove(MouseState const& state) override;
    void OnFocusLost() override { last_.reset(); }
    void OnViewDetached(View const&) override { last_.reset(); }

    bool IsDragging() const { return last_.has_value(); }

protected:
    // A step of the drag in window space.
    struct Step {
        WindowPoint from, to;
        float width, height; // of the window in pixels
    };
    virtual void begin(MouseState const&) {}
    // The camera after a step from `camera`.
    virtual CameraKit move(CameraKit const& camera, Step const& step) const = 0;

private:
    std::optional<WindowPoint> last_;
};

} // namespace HPS
