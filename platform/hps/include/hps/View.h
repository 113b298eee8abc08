#pragma once
#include <hps/Model.h>
#include <hps/Sprocket.h>
#include <hps/Window.h>

namespace HPS
{

class AxisTriadControl;
class CameraKit;
class NavigationCubeControl;
class OperatorControl;
class SegmentKey;

// One look at one model: a segment that carries camera, lights and attributes, and below it the model.
class View : public SprocketOf<HPS::Type::View>
{
public:
    using SprocketOf::SprocketOf;

    SegmentKey GetSegmentKey() const;
    // Below the view's segment; the attached model is included here.
    SegmentKey GetModelIncludeKey() const;

    // Replaces the model attached before. An empty model is the same as `DetachModel`. A view without a
    // camera takes one that looks at the whole model from its front, right and top.
    View& AttachModel(Model const& model);
    View& DetachModel();
    Model GetAttachedModel() const;

    // Moves the camera along its own direction so that all that is visible fills the window with a small
    // margin. What is excluded from bounding does not count. False, changing nothing, if there is nothing to
    // frame.
    bool FitWorld();
    // The camera with which `FitWorld` would go on from `camera`.
    bool ComputeFitWorldCamera(CameraKit const& camera, CameraKit& fitted) const;

    bool SetCamera(CameraKit const& camera);
    bool ShowCamera(CameraKit& camera) const;

    AxisTriadControl GetAxisTriadControl() const;
    NavigationCubeControl GetNavigationCubeControl() const;

    // Goes over to a camera on a way that starts and ends gently, picture by picture as the event loop of the
    // window runs. Without a window the camera is there at once. Whoever sets another camera meanwhile ends
    // it, and a second call goes on from where the first one is.
    bool SmoothTransition(CameraKit const& camera, float seconds = 0.5f);

    // What the user's input does to the view; see Operator.h.
    OperatorControl GetOperatorControl() const;

    View& SetRenderingMode(Rendering::Mode mode);
    Rendering::Mode GetRenderingMode() const;

    // Switches the shadow on a plane for all that is below the view's segment. The plane is laid level under
    // what is visible now, `offset` percent of its height below it, or of its width for what is flat, and takes
    // the light from straight above.
    // The rest of the shadow's attributes stays. With nothing visible the plane stays where it is.
    View& SetSimpleShadow(bool state, float offset = 5);

    // Updates every canvas that shows this view.
    void Update(Window::UpdateType type = Window::UpdateType::Default) const;
};

} // namespace HPS
