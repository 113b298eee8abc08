#pragma once
#include <hps/Color.h>
#include <hps/GeometryKit.h>
#include <hps/MaterialMappingKit.h>
#include <hps/Vector.h>

namespace HPS
{

struct DistantLightData {
    HPS::Vector direction{0, 0, -1}; // the way the light goes
    std::optional<SimpleMaterial> color;
    bool cameraRelative = false; // direction in the axes of the camera
    bool operator==(DistantLightData const&) const = default;
};

// Light from infinitely far away.
class DistantLightKit : public GeometryKit<DistantLightKit>
{
public:
    DistantLightKit& SetDirection(Vector const& direction);
    bool ShowDirection(Vector& direction) const;
    DistantLightKit& SetColor(RGBAColor const& color);
    DistantLightKit& SetColorByIndex(float index);
    DistantLightKit& UnsetColor();
    bool ShowColor(Material::Type& type, RGBAColor& color, float& index) const;
    DistantLightKit& SetCameraRelative(bool state);
    bool ShowCameraRelative(bool& state) const;

    DistantLightData const& data() const { return data_; }
    DistantLightData& data() { return data_; }
    friend bool operator==(DistantLightKit const&, DistantLightKit const&) = default;

private:
    DistantLightData data_;
};

} // namespace HPS
