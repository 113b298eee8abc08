#pragma once
#include <hps/Operator.h>

namespace HPS
{

// Zooms by the wheel, in proportion to how far it was turned: small steps of a touchpad stay small.
class MouseWheelOperator : public Operator
{
public:
    enum class ZoomType : std::uint32_t {
        Target = 0,        // about the middle of the window
        MousePosition = 1, // what lies under the mouse stays there
    };

    // With `fine` held a turn does a fifth of what it does else.
    explicit MouseWheelOperator(ZoomType type = ZoomType::MousePosition,
                                ModifierKeys fine = ModifierKeys::KeyControl())
        : Operator({}, fine), type_(type)
    {
    }
    UTF8 GetName() const override { return "HPS_MouseWheelOperator"; }
    bool OnMouseWheel(MouseState const& state) override;

    ZoomType GetZoomType() const { return type_; }
    void SetZoomType(ZoomType type) { type_ = type; }

private:
    ZoomType type_;
};

} // namespace HPS
