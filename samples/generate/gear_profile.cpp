#include "gear_profile.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace samples
{

using std::numbers::pi;

namespace
{

constexpr double PressureAngle = 20 * pi / 180;

double Involute(double angle)
{
    return std::tan(angle) - angle;
}

Point2 Polar(double radius, double angle)
{
    return {radius * std::cos(angle), radius * std::sin(angle)};
}

/// Half of a tooth, from root to tip on the side of growing angle.
struct Flank {
    std::vector<double> radii;
    std::vector<double> angles;
    /// Between the normal and the direction of growing angle.
    std::vector<double> pressure;
};

Flank FlankOf(Gear const& gear)
{
    double const pitch = gear.PitchRadius();
    double const base = pitch * std::cos(PressureAngle);
    double const root = pitch - gear.dedendum * gear.module;
    double const tip = pitch + gear.addendum * gear.module;
    double const atPitch = pi / (2 * gear.teeth) - gear.backlash / (2 * pitch);

    Flank flank;
    auto const add = [&](double radius) {
        // Below the base circle there is no involute; the flank goes on along the radius, which it touches
        // there.
        double const pressure = radius > base ? std::acos(base / radius) : 0;
        flank.radii.push_back(radius);
        flank.angles.push_back(atPitch + Involute(PressureAngle) - Involute(pressure));
        flank.pressure.push_back(pressure);
    };
    if (root < base) add(root);
    constexpr int steps = 3;
    double const start = std::max(root, base);
    for (int i = 0; i <= steps; ++i) {
        // Denser near the base circle, where the curve bends most.
        double const t = static_cast<double>(i) / steps;
        add(start + (tip - start) * t * t);
    }
    return flank;
}

/// One flank of the tooth about @p centre, upwards on the side of growing angle (@p side 1) or of falling
/// angle (-1).
Segment Placed(Flank const& flank, double centre, double side)
{
    Segment segment;
    for (std::size_t i = 0; i < flank.radii.size(); ++i) {
        double const angle = centre + side * flank.angles[i];
        segment.points.push_back(Polar(flank.radii[i], angle));
        segment.normals.push_back(Polar(1, angle + side * (pi / 2 - flank.pressure[i])));
    }
    return segment;
}

Segment Reversed(Segment segment)
{
    std::reverse(segment.points.begin(), segment.points.end());
    std::reverse(segment.normals.begin(), segment.normals.end());
    return segment;
}

} // namespace

Outline GearOutline(Gear const& gear)
{
    auto const flank = FlankOf(gear);
    double const pitch = 2 * pi / gear.teeth;
    double const rootGap = pitch - 2 * flank.angles.front();
    Outline outline(Placed(flank, 0, -1).points.front());
    for (int tooth = 0; tooth < gear.teeth; ++tooth) {
        double const centre = tooth * pitch;
        outline.Curve(Placed(flank, centre, -1));
        outline.Arc({0, 0}, 2 * flank.angles.back());
        outline.Curve(Reversed(Placed(flank, centre, 1)));
        outline.Arc({0, 0}, rootGap);
    }
    return outline;
}

Outline InnerGearHole(int teeth, double module)
{
    // The gaps of an inner gear have the form of the teeth of an outer one, with tip and root exchanged.
    Gear const gaps{teeth, module, 1.25, 1.0, -0.12};
    auto const flank = FlankOf(gaps);
    double const pitch = 2 * pi / teeth;
    double const tipWidth = pitch - 2 * flank.angles.front();
    auto const inwards = [](Segment segment) {
        for (auto& normal : segment.normals) normal = {-normal[0], -normal[1]};
        return segment;
    };
    Outline outline(Placed(flank, pitch / 2, 1).points.front());
    for (int gap = 0; gap < teeth; ++gap) {
        double const centre = pitch / 2 - gap * pitch;
        outline.Curve(inwards(Placed(flank, centre, 1)));
        outline.Arc({0, 0}, -2 * flank.angles.back());
        outline.Curve(inwards(Reversed(Placed(flank, centre, -1))));
        outline.Arc({0, 0}, -tipWidth);
    }
    return outline;
}

} // namespace samples
