#pragma once
#include "linear.h"
#include <hps/CameraKit.h>

namespace HPS
{

/// Orientation of a camera as a unit quaternion.
struct Turn {
    double w = 1;
    render::Vec3 v;
};

/// The way from one camera to another. It starts and ends gently; the eye swings about the target by the
/// shortest turn, and distance and field grow or shrink by the same factor in the same time.
class CameraTransition
{
public:
    /// Seconds of any clock. What `from` does not set is as in the default camera, and what `to` does not set
    /// stays as in `from`.
    CameraTransition(CameraKit const& from, CameraKit const& to, double start, double seconds);

    CameraKit at(double now) const;
    bool overAt(double now) const { return now >= start_ + seconds_; }

    unsigned serial = 0; ///< of the frame that is asked for; later ones make it void
    CameraKit shown;     ///< by the last frame; a view that has another one was taken by somebody else

private:
    struct Stance {
        render::Vec3 target;
        Turn turn;
        double distance = 1, width = 1, height = 1;
    };
    static Stance stanceOf(CameraKit const& camera);

    CameraKit to_;
    Stance begin_, end_;
    double start_, seconds_;
};

} // namespace HPS
