#pragma once
#include <array>
#include <mora/Ray.h>
#include <mora/view_operations.h>
#include <optional>

namespace MoraCore
{

class IView3D;
class IView3DEvo;

/// Camera of a view, independent of the library that draws: position, target, up vector, angle of view.
/// Points and vectors are three floats in world units. A derived class knows where the standard views lie and
/// brings a camera to the screen and back; without a view behind it a camera keeps its fields and shows
/// nothing.
class ACamera
{
public:
    /// `view` is not owned; null makes a prototype.
    explicit ACamera(IView3DEvo* view);
    ACamera(ACamera const&) = default;
    ACamera& operator=(ACamera const&) = default;

    virtual ~ACamera() = default;
    virtual char const* GetName() const = 0;
    /// Size of the view in pixels, 0 without a view.
    virtual void GetWindowSize(int& width, int& height) = 0;
    /// The camera that the user sees now.
    virtual void GetCamera(float* position, float* target, float* up);
    /// Shows a camera, in motion when animation is on.
    virtual void SetCamera(float* position, float* target, float* up);
    virtual bool IsOrthographic() const;
    /// Full angle of view over the height of the window; above 0 and below 180 degrees.
    virtual void SetFieldOfView(float degrees);
    virtual void SetFieldOfViewRadians(float radians);
    virtual float GetFieldOfView();
    /// Also brings the fields up to date: every standard view asks for the angle before it measures the
    /// distance.
    virtual float GetFieldOfViewRadians();
    /// The point that Rotate turns about: the target, unless one was set.
    virtual void GetRotationCenter(float* center);
    /// Null goes back to the target.
    virtual void SetRotationCenter(float const* center);
    /// Camera from the front onto a model at the origin.
    virtual void SetStandardPosition(float* position, float* target, float* up) = 0;
    virtual void Top() = 0;
    virtual void Bottom() = 0;
    virtual void Front() = 0;
    virtual void Back() = 0;
    virtual void Right() = 0;
    virtual void Left() = 0;
    virtual void Isometric() = 0;
    virtual void OrientDrawingView() = 0;
    /// Moves the eye along its line of sight until the whole model is seen; nothing for an empty model.
    virtual void ZoomAll();
    virtual void ZoomToBox(float xmin, float ymin, float zmin, float xmax, float ymax, float zmax);
    virtual void Rotate(ViewOpRotate* operation);
    virtual void Pan(ViewOpPan* operation);
    virtual void Zoom(ViewOpZoom* operation);
    virtual void SetAnimate(bool animate);
    virtual bool GetAnimate();
    /// New camera of the same class with these settings for another view, owned by the caller.
    virtual ACamera* cloneTo(IView3DEvo* view) const = 0;
    /// Views of the old kind lend a camera no screen: the new one stands without a view.
    virtual ACamera* cloneTo(IView3D* view) const;
    /// Centre of what is shown, null when there is nothing; valid until the next call.
    virtual float const* GetGeometryCenter() = 0;
    /// Half the diagonal of what is shown, 0 when there is nothing.
    virtual float GetGeometryRadius() = 0;

    /// Angle, projection, animation, rotation centre, position, target and up vector of another camera.
    void copySettingsFrom(ACamera const& other);
    void SetOrthographic(bool orthographic);
    IView3DEvo* GetView() const { return Evo; }

    /// Ray through a pixel of the window, origin at the top left, with a pick square of `aperture` pixels
    /// half width. It starts in the plane of the target, so that its origin is seen at that pixel.
    ZELVizCore::Ray Make3DRay(int const& x, int const& y, int const& aperture);

protected:
    /// Size of the field seen at the target, world units. Leaves both as they are without a window.
    virtual void computeCameraFields(float& width, float& height);
    /// Brings the fields up to date from the screen.
    virtual void getCurrentCamera() = 0;
    virtual void setFront(float* position, float* target, float* up, bool keepDistance) = 0;
    /// Shows a camera at once.
    virtual void moveCamera(float* position, float* target, float* up) = 0;
    /// Shows a camera by a smooth motion.
    virtual void animateCamera(float* position, float* target, float* up) = 0;

    IView3DEvo* Evo; ///< not owned
    bool Orthographic = false;
    float Position[3] = {100, 0, 0};
    float Target[3] = {0, 0, 0};
    float Up[3] = {0, 0, 1};

private:
    /// Looks at a sphere from where the eye is, with the sphere filling the window.
    void fitSphere(float const* center, float radius);
    /// Unit vectors of the picture: to the right, up, and from the eye to the target.
    struct Frame;
    Frame frame() const;
    /// Height of the field seen at the target, world units.
    float fieldHeight() const;

    float fieldOfView_ = 0.785398163f; ///< radians
    bool animate_ = false;
    std::optional<std::array<float, 3>> rotationCenter_;
};

} // namespace MoraCore
