#pragma once
#include <hps/GeometryKit.h>
#include <hps/Point.h>
#include <hps/enumerations.h>
#include <hps/light_color.h>

namespace HPS
{

struct DistantLightData {
    HPS::Vector direction{0, 0, -1}; // the way the light goes
    std::optional<SimpleMaterial> color;
    bool cameraRelative = false; // direction in the axes of the camera

    bool operator==(DistantLightData const&) const = default;
    static constexpr auto fields()
    {
        return std::tuple{&DistantLightData::direction, &DistantLightData::color,
                          &DistantLightData::cameraRelative};
    }
};

template <class Self> class DistantLightOperations : public LightColorOperations<Self, DistantLightData>
{
public:
    using Data = DistantLightData;

    HPS_FIELD(Direction, HPS::Vector, direction)
    HPS_FIELD(CameraRelative, bool, cameraRelative)
};

// Light from infinitely far away.
class DistantLightKit : public GeometryKitOf<DistantLightKit, DistantLightData>,
                        public DistantLightOperations<DistantLightKit>
{
public:
};

} // namespace HPS
