#pragma once

#include "host_api.h"
#include "hps_api.h"
#include "standard_views.h"

namespace ZelVizBase
{

class ZELView3D;

/// Joins the host's camera to the one on the segment of a `ZELView3D`, which is what the adaptor given here
/// has behind it. Without a view every operation leaves things as they are. `Views` tells where the standard
/// views lie; it is all in which the two classes below differ.
template <StandardViews const& Views> class HPSCamera : public MoraCore::ACamera
{
public:
    /// `view` is not owned; null makes a prototype.
    explicit HPSCamera(MoraCore::IView3DEvo* view);

    char const* GetName() const override { return Views.cameraName; }
    void GetWindowSize(int& width, int& height) override;

    /// One and a half times as far as a sphere around the model needs to be seen whole.
    void SetStandardPosition(float* position, float* target, float* up) override;
    // All keep the distance from eye to target.
    void Top() override { show(Views.top); }
    void Bottom() override { show(Views.bottom); }
    void Front() override { show({}); }
    void Back() override { show(Views.back); }
    void Right() override { show(Views.right); }
    void Left() override { show(Views.left); }
    void Isometric() override;
    void OrientDrawingView() override { show(Views.drawing); }

    using ACamera::cloneTo;
    MoraCore::ACamera* cloneTo(MoraCore::IView3DEvo* view) const override;
    float const* GetGeometryCenter() override;
    float GetGeometryRadius() override;

protected:
    void getCurrentCamera() override;
    /// The front view onto the middle of the model. `keepDistance`: as far away as the camera is now.
    void setFront(float* position, float* target, float* up, bool keepDistance) override;
    void moveCamera(float* position, float* target, float* up) override;
    void animateCamera(float* position, float* target, float* up) override;
    /// Writes the fields into `Kit` and into the camera of the view's segment.
    void updateCameraKit();

    HPS::CameraKit Kit; ///< what stood on the view's segment when last looked at, with this object's changes

private:
    ZELView3D* view() const; ///< null: none
    void show(StandardTurn const& turn);
    /// Takes the arguments and has them in `Kit`; null without a view.
    ZELView3D* take(float const* position, float const* target, float const* up);
};

using HPSCameraYUp = HPSCamera<viewsWithYUp>;
using HPSCameraZUp = HPSCamera<viewsWithZUp>;

extern template class HPSCamera<viewsWithYUp>;
extern template class HPSCamera<viewsWithZUp>;

} // namespace ZelVizBase
