#include <hps/DistantLightKit.h>

namespace HPS
{

DistantLightKit& DistantLightKit::SetDirection(Vector const& direction)
{
    data_.direction = direction;
    return *this;
}

bool DistantLightKit::ShowDirection(Vector& direction) const
{
    direction = data_.direction;
    return true;
}

DistantLightKit& DistantLightKit::SetColor(RGBAColor const& color)
{
    detail::setSimple(data_.color, color);
    return *this;
}

DistantLightKit& DistantLightKit::SetColorByIndex(float index)
{
    detail::setSimpleIndex(data_.color, index);
    return *this;
}

DistantLightKit& DistantLightKit::UnsetColor()
{
    data_.color.reset();
    return *this;
}

bool DistantLightKit::ShowColor(Material::Type& type, RGBAColor& color, float& index) const
{
    return detail::showSimple(data_.color, type, color, index);
}

DistantLightKit& DistantLightKit::SetCameraRelative(bool state)
{
    data_.cameraRelative = state;
    return *this;
}

bool DistantLightKit::ShowCameraRelative(bool& state) const
{
    state = data_.cameraRelative;
    return true;
}

} // namespace HPS
