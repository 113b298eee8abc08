#include "geometry_records.h"
#include "plain_colour.h"
#include "read_scene.h"
#include <hps/VisibilityKit.h>

namespace HPS::render
{

void readDistantLight(Lights& lights, DistantLightData const& data, scene::NetAttributes const& net)
{
    auto const& visibility = net.state->get<VisibilityData>();
    if (!visibility.shows(VisibilityKinds::FaceLights, true)) return;
    DistantLight light;
    RGBColor const inherited =
        plainColour(net.state->get<MaterialMappingData>().light, net.state->palette(), {1, 1, 1});
    put(light.colour, plainColour(data.color, net.state->palette(), inherited));
    Vector const way = data.cameraRelative ? data.direction : net.matrix.Transform(data.direction);
    light.direction = {way.x, way.y, way.z};
    light.cameraRelative = data.cameraRelative;
    lights.distant.push_back(light);
}

} // namespace HPS::render
