#pragma once

#include "host_api.h"
#include "hps_api.h"

namespace ZelVizBase
{

class ZELView3D;

/// While it is on a view's stack a circle follows the mouse, and each click makes a ray that goes to the
/// host, which does its own picking.
class ZELPickRayOperator : public HPS::Operator
{
public:
    /// Half the size of what a ray takes in, in pixels; looked at anew for each circle and each ray.
    static int _aperture;

    /// `owner` is not owned and must outlive the operator's stay on a stack.
    explicit ZELPickRayOperator(ZELView3D* owner);

    HPS::UTF8 GetName() const override { return Name; }
    bool OnMouseDown(HPS::MouseState const& state) override;
    bool OnMouseMove(HPS::MouseState const& state) override;
    void OnViewAttached(HPS::View const& view) override;
    void OnViewDetached(HPS::View const& view) override;

    /// It is on a view's stack.
    bool IsActive() const { return Active; }

protected:
    /// The circle's segment below the attached view's, in front of everything and beside the model's extent.
    void constructApertureSegment();
    void flushApertureSegment();
    void recordMouseLocation(HPS::MouseState const& state);
    /// Brings the circle under the mouse, facing the eye. Nothing without a camera or before the window has a
    /// size.
    void updateAperture();
    /// False if nobody listens.
    bool makeRayNotifyPick();
    /// The ray then starts before the model, on its own line; a view that shows nothing leaves it as it is.
    void moveRayOutsideModel(ZELVizCore::Ray& ray);

private:
    ZELView3D* Owner;
    bool Active = false;
    HPS::WindowKey SourceWindow; ///< of the last event
    HPS::SegmentKey ApertureSegment;
    HPS::EllipseKey ApertureCircle; ///< empty: not drawn since the operator came onto the stack
    HPS::Point MouseWindow, MouseInnerWindow, MouseInnerPixel, MouseWorld;
    ZELVizCore::Ray PickRay; ///< the last one made
    HPS::UTF8 Name = "ZELPickRayOperator";
};

} // namespace ZelVizBase
