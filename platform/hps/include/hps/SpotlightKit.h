#pragma once
#include <hps/GeometryKit.h>
#include <hps/Point.h>
#include <hps/enumerations.h>
#include <hps/light_color.h>

namespace HPS
{

struct SpotlightData {
    Point position{0, 0, 1};
    Point target;
    std::optional<SimpleMaterial> color;
    float outerCone = 45; // nothing is lit outside
    Spotlight::OuterConeUnits outerConeUnits = Spotlight::OuterConeUnits::Degrees;
    float innerCone = 30; // everything is lit fully inside
    Spotlight::InnerConeUnits innerConeUnits = Spotlight::InnerConeUnits::Degrees;
    float concentration = 0;     // how fast light falls off from the axis; 0 not at all
    bool cameraRelative = false; // places in the axes of the camera

    bool operator==(SpotlightData const&) const = default;
    static constexpr auto fields()
    {
        return std::tuple{
            &SpotlightData::position,       &SpotlightData::target,         &SpotlightData::color,
            &SpotlightData::outerCone,      &SpotlightData::outerConeUnits, &SpotlightData::innerCone,
            &SpotlightData::innerConeUnits, &SpotlightData::concentration,  &SpotlightData::cameraRelative};
    }
};

template <class Self> class SpotlightOperations : public LightColorOperations<Self, SpotlightData>
{
public:
    using Data = SpotlightData;

    HPS_FIELD(Position, Point, position)
    HPS_FIELD(Target, Point, target)
    HPS_FIELD(Concentration, float, concentration)
    HPS_FIELD(CameraRelative, bool, cameraRelative)
    Self& SetOuterCone(float size, Spotlight::OuterConeUnits units = Spotlight::OuterConeUnits::Degrees)
    {
        this->self().edit([&](Data& data) { data.outerCone = size, data.outerConeUnits = units; });
        return this->self();
    }
    bool ShowOuterCone(float& size, Spotlight::OuterConeUnits& units) const
    {
        return this->self().read(
            [&](Data const& data) { size = data.outerCone, units = data.outerConeUnits; });
    }
    Self& SetInnerCone(float size, Spotlight::InnerConeUnits units = Spotlight::InnerConeUnits::Degrees)
    {
        this->self().edit([&](Data& data) { data.innerCone = size, data.innerConeUnits = units; });
        return this->self();
    }
    bool ShowInnerCone(float& size, Spotlight::InnerConeUnits& units) const
    {
        return this->self().read(
            [&](Data const& data) { size = data.innerCone, units = data.innerConeUnits; });
    }
};

// Light from a place towards another, within a cone.
class SpotlightKit : public GeometryKitOf<SpotlightKit, SpotlightData>,
                     public SpotlightOperations<SpotlightKit>
{
public:
};

} // namespace HPS
