#pragma once
#include <array>
#include <hps/CameraKit.h>

namespace HPS::scene
{

// The way between the world and a window as a camera sees it. The window shows the whole field at the
// camera's target, with equal scales in both directions.
//
// In window space z is 0 in the plane through the target. It is the height above that plane over the camera's
// distance without a perspective, and distance over depth, minus 1, with one: so lines stay lines, and what
// stands before the eye is above -1.
class ViewFrame
{
public:
    using Triple = std::array<double, 3>;

    // Pixels of the window; what the camera does not set is as in the default one.
    ViewFrame(CameraData const& camera, double width, double height);

    // Camera space: axes of the view, counted from the target.
    Triple toCamera(Triple const& world) const;
    Triple toWorld(Triple const& camera) const;
    // False for what stands in the plane of the eye, or behind it.
    bool toWindow(Triple& camera) const;
    bool fromWindow(Triple& window) const;

private:
    Triple right_, up_, back_, target_;
    double distance_;
    double halfWidth_, halfHeight_; // of what the window shows at the target
    bool perspective_;
};

} // namespace HPS::scene
