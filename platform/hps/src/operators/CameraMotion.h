#pragma once
#include <array>
#include <hps/CameraKit.h>

namespace HPS
{

/// A camera worked out for moving about: all reckoning in double, written back at the end. Aspects that the
/// kit lacks are those of the default camera.
class CameraMotion
{
public:
    using Triple = std::array<double, 3>;

    explicit CameraMotion(CameraKit const& camera);
    CameraKit result() const;

    Triple const& target() const { return target_; }
    Triple right() const;
    Triple up() const { return up_; }
    /// From the target to the eye, length 1.
    Triple back() const;

    /// Degrees, right-handed about the axis through `center`.
    void turn(Triple const& center, Triple const& axis, double degrees);
    void shift(Triple const& by);
    /// Everything seen becomes `factor` times as large, and `center` stays where it is. The angle of a
    /// perspective stays.
    void zoom(Triple const& center, double factor);
    /// The point of the target's plane that a window of this size shows at a place of window space.
    Triple pointAt(double x, double y, double width, double height) const;

private:
    CameraKit kit_;
    Triple position_, target_, up_;
    double fieldWidth_, fieldHeight_;
};

} // namespace HPS
