#pragma once

#include "Profile.h"

namespace samples
{

/// Spur gear teeth with involute flanks at 20 degrees.
struct Gear {
    int teeth;
    double module;
    /// How far tip and root stand from the pitch circle, in modules.
    double addendum = 1.0;
    double dedendum = 1.25;
    /// How much thinner a tooth is than half the pitch, in millimetres on the pitch circle.
    double backlash = 0.12;

    double PitchRadius() const { return module * teeth / 2; }
};

/// The outline of an outer gear; a tooth is centred on the x axis.
Outline GearOutline(Gear const& gear);

/// The hole of an inner gear that such an outer gear runs in; a tooth is centred on the x axis.
Outline InnerGearHole(int teeth, double module);

} // namespace samples
