#include "geometry_records.h"
#include "plain_colour.h"
#include "read_scene.h"
#include <cmath>
#include <hps/VisibilityKit.h>
#include <numbers>

namespace HPS::render
{
namespace
{

bool shines(scene::NetAttributes const& net)
{
    return net.state->get<VisibilityData>().shows(VisibilityKinds::FaceLights, true);
}

void paint(float (&out)[3], std::optional<SimpleMaterial> const& own, scene::NetAttributes const& net)
{
    auto const palette = net.state->palette();
    RGBColor const inherited = plainColour(net.state->get<MaterialMappingData>().light, palette, {1, 1, 1});
    put(out, plainColour(own, palette, inherited));
}

float radians(float degrees)
{
    return degrees * std::numbers::pi_v<float> / 180;
}

/// The angle at which a circle of this radius around the target is seen from the light.
float angleOfRadius(float radius, double distance)
{
    return float(std::atan2(double(std::max(radius, 0.0f)), std::max(distance, 1e-12)));
}

} // namespace

void readDistantLight(Lights& lights, DistantLightData const& data, scene::NetAttributes const& net)
{
    if (!shines(net)) return;
    DistantLight light;
    paint(light.colour, data.color, net);
    light.direction = vec(data.cameraRelative ? data.direction : net.matrix.Transform(data.direction));
    light.cameraRelative = data.cameraRelative;
    light.throwsShadows = net.state->get<VisibilityData>().shows(VisibilityKinds::ShadowEmitting, true);
    lights.distant.push_back(light);
}

void readSpotlight(Lights& lights, SpotlightData const& data, scene::NetAttributes const& net)
{
    using namespace Spotlight;
    if (!shines(net)) return;
    SpotLight light;
    paint(light.colour, data.color, net);
    light.cameraRelative = data.cameraRelative;
    light.position = vec(data.cameraRelative ? data.position : net.matrix.Transform(data.position));
    light.target = vec(data.cameraRelative ? data.target : net.matrix.Transform(data.target));
    light.concentration = std::isfinite(data.concentration) ? std::max(data.concentration, 0.0f) : 0;
    double const distance = length(light.target - light.position);
    switch (data.outerConeUnits) {
    case OuterConeUnits::Degrees:
        light.outerAngle = radians(data.outerCone);
        break;
    case OuterConeUnits::FieldRadius:
        light.outerAngle = angleOfRadius(data.outerCone, distance);
        break;
    }
    switch (data.innerConeUnits) {
    case InnerConeUnits::Degrees:
        light.innerAngle = radians(data.innerCone);
        break;
    case InnerConeUnits::FieldRadius:
        light.innerAngle = angleOfRadius(data.innerCone, distance);
        break;
    case InnerConeUnits::Percent:
        light.innerAngle = light.outerAngle * data.innerCone / 100;
        break;
    }
    constexpr float halfTurn = std::numbers::pi_v<float>;
    if (!std::isfinite(light.outerAngle) || !std::isfinite(light.innerAngle)) return;
    light.outerAngle = std::clamp(light.outerAngle, 0.0f, halfTurn);
    light.innerAngle = std::clamp(light.innerAngle, 0.0f, light.outerAngle);
    lights.spots.push_back(light);
}

} // namespace HPS::render
