#pragma once
#include <hps/DragOperator.h>
#include <hps/Point.h>

namespace HPS
{

// Turns the eye about a point: a drag over the shorter side of the window is half a turn.
class OrbitOperator : public DragOperator
{
public:
    enum class Style : std::uint32_t {
        Free,      // about the picture's own axes
        Turntable, // about the model's upright axis and the picture's level one, never over the poles
    };

    using DragOperator::DragOperator;

    UTF8 GetName() const override { return "HPS_OrbitOperator"; }

    Style GetStyle() const { return style_; }
    void SetStyle(Style style) { style_ = style; }
    // In world coordinates; without one the camera's target.
    void SetCenter(Point const& center) { center_ = center; }
    void UnsetCenter() { center_.reset(); }

protected:
    CameraKit move(CameraKit const& camera, Step const& step) const override;

private:
    Style style_ = Style::Free;
    std::optional<Point> center_;
};

} // namespace HPS
