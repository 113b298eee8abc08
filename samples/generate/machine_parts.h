#pragma once

#include <narmeta/infra/ZELProductStructure.h>

namespace samples
{

using Reference = std::shared_ptr<NarMetaInfra::ZELReference>;

/// The parts of the drive. All are modelled about or along the z axis, in millimetres.
struct MachineParts {
    Reference basePlate, foot, stand, gusset, namePlate;
    Reference ringGear, sunGear, planetGear, pin, washer, carrier;
    Reference inputShaft, outputShaft, coupling, bolt, cover;
    Reference adapter, motor, motorCap, terminalBox, liftingEye, transportLock;
    Reference sensor;
};

MachineParts AddMachineParts(NarMetaInfra::ZELProductStructure& model);

/// Dimensions that parts and assembly share.
namespace dimension
{
inline constexpr double Module = 2;
inline constexpr int SunTeeth = 18, PlanetTeeth = 18, RingTeeth = 54;
/// Of the planets about the sun.
inline constexpr double CentreDistance = Module * (SunTeeth + PlanetTeeth) / 2;
inline constexpr double AxisHeight = 84;
inline constexpr double FlangeRadius = 70, FlangeBoltCircle = 64;
inline constexpr int FlangeBolts = 6;
inline constexpr double BaseLength = 240, BaseWidth = 150, BaseThickness = 12;
inline constexpr double FootX = 102, FootY = 58;
} // namespace dimension

} // namespace samples
